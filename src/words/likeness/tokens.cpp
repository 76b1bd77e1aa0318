#include "words/likeness/tokens.h"

#include <algorithm>

#include "charclass/class_table.h"
#include "runtime/memory.h"
#include "words/likeness/ratio.h"
#include "words/merge_sort.h"

namespace vstring::words {
namespace {

bool is_space(Byte c) { return charclass::is(c, charclass::kSpace); }

// The tokens of `text`, sorted; false for want of memory.
bool sorted_tokens(Bytes text, HeldArray<Bytes>& tokens) {
  for (std::size_t i = 0; i < text.size();) {
    std::size_t end = i;
    while (end < text.size() && !is_space(text[end])) ++end;
    if (end > i && !tokens.push_back(text.subspan(i, end - i))) return false;
    i = end + 1;
  }
  return merge_sort<Bytes>({tokens.data(), tokens.size()}, text_less) == Status::ok;
}

bool sorted_set(Bytes text, HeldArray<Bytes>& tokens) {
  if (!sorted_tokens(text, tokens)) return false;
  const auto same = [](Bytes a, Bytes b) { return equal(a, b); };
  const Bytes* const end = std::unique(tokens.begin(), tokens.end(), same);
  while (tokens.end() != end) tokens.pop_back();
  return true;
}

// Tokens joined with blanks.
class Joined {
 public:
  bool add(Bytes token) { return (text_.empty() || text_.push_back(' ')) && text_.append(token); }
  bool add(std::span<const Bytes> tokens) {
    return std::all_of(tokens.begin(), tokens.end(), [this](Bytes token) { return add(token); });
  }
  Bytes view() const { return text_.view(); }
  std::size_t size() const { return text_.size(); }

 private:
  Buffer<Byte> text_;
};

}  // namespace

Result<double> token_sort_ratio(Bytes s, Bytes t) {
  Buffer<Bytes> tokens_of_s;
  Buffer<Bytes> tokens_of_t;
  Joined joined_s;
  Joined joined_t;
  if (!sorted_tokens(s, tokens_of_s) || !joined_s.add(tokens_of_s.view()) ||
      !sorted_tokens(t, tokens_of_t) || !joined_t.add(tokens_of_t.view())) {
    return Status::out_of_memory;
  }
  return ratio(joined_s.view(), joined_t.view());
}

Result<double> token_set_ratio(Bytes s, Bytes t) {
  Buffer<Bytes> a;
  Buffer<Bytes> b;
  if (!sorted_set(s, a) || !sorted_set(t, b)) return Status::out_of_memory;
  if (a.empty() || b.empty()) return a.empty() && b.empty() ? 100.0 : 0.0;

  Buffer<Bytes> only_a;
  Buffer<Bytes> only_b;
  Joined common;
  bool has_memory = true;
  for (std::size_t i = 0, j = 0; has_memory && (i < a.size() || j < b.size());) {
    if (j == b.size() || (i < a.size() && text_less(a[i], b[j]))) {
      has_memory = only_a.push_back(a[i++]);
    } else if (i == a.size() || text_less(b[j], a[i])) {
      has_memory = only_b.push_back(b[j++]);
    } else {
      has_memory = common.add(a[i]);
      ++i, ++j;
    }
  }
  const bool is_part = only_a.empty() || only_b.empty();
  Joined whole_a;
  Joined whole_b;
  if (!has_memory ||
      (common.size() > 0 && (!whole_a.add(common.view()) || !whole_b.add(common.view()))) ||
      !whole_a.add(only_a.view()) || !whole_b.add(only_b.view())) {
    return Status::out_of_memory;
  }
  if (common.size() > 0 && is_part) return 100.0;
  const Result<double> wholes = ratio(whole_a.view(), whole_b.view());
  if (!wholes.ok() || common.size() == 0) return wholes;
  // The common tokens are a prefix of the others.
  const std::size_t shared = common.size();
  return std::max({*wholes, ratio_of(shared, shared + whole_a.size()),
                   ratio_of(shared, shared + whole_b.size())});
}

}  // namespace vstring::words
