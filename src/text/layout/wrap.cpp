#include "text/layout/wrap.h"

#include <algorithm>
#include <cstring>

#include "charclass/class_table.h"

namespace vstring::text {
namespace {

constexpr std::size_t kTabStop = 8;

bool is_space(Byte c) { return charclass::is(c, charclass::kSpace); }

bool expands_tabs(const WrapSettings& settings) {
  return settings.obey_spaces && settings.expand_tabs && !settings.count_bytes;
}

class Wrapper {
 public:
  Wrapper(Bytes text, const WrapSettings& settings, Byte* out)
      : text_(text), settings_(settings), begin_(out), out_(out) {}

  std::size_t run() {
    for (std::size_t i = 0; i < text_.size();) {
      if (is_space(text_[i])) {
        whitespace(i);
        ++i;
      } else {
        const std::size_t first = i;
        do ++i;
        while (i < text_.size() && !is_space(text_[i]));
        word(first, i - first);
      }
    }
    return static_cast<std::size_t>(out_ - begin_);
  }

 private:
  void word(std::size_t first, std::size_t length) {
    if (column_ + length > settings_.width && first != 0 &&
        (settings_.obey_lines || out_[-1] != '\n')) {
      break_line();
    }
    std::memcpy(out_, &text_[first], length);
    out_ += length;
    column_ += length;
  }

  // Byte i of the text, which is whitespace: the first rule that applies.
  void whitespace(std::size_t i) {
    const Byte c = text_[i];
    if ((settings_.count_bytes && (c == '\b' || c == '\t')) ||
        (!settings_.expand_tabs && c == '\t')) {
      copy(c);
    } else if (settings_.obey_lines && c == '\n') {
      break_line();
    } else if (!settings_.obey_spaces) {
      if (i == 0 || !is_space(text_[i - 1])) copy(c);
    } else {
      obeyed_space(c);
    }
  }

  void obeyed_space(Byte c) {
    if (c == '\t') {
      const std::size_t blanks = kTabStop - column_ % kTabStop;
      std::memset(out_, ' ', blanks);
      out_ += blanks;
      column_ += blanks;
    } else if (c == '\b') {
      *out_++ = c;
    } else {
      copy(c);
    }
    if (column_ > settings_.width) break_line();
  }

  void copy(Byte c) {
    *out_++ = c;
    ++column_;
  }

  void break_line() {
    *out_++ = '\n';
    column_ = 0;
  }

  const Bytes text_;
  const WrapSettings settings_;
  Byte* const begin_;
  Byte* out_;
  std::size_t column_ = 0;
};

}  // namespace

std::size_t wrapped_bound(Bytes text, const WrapSettings& settings) {
  const std::size_t n = text.size();
  // A break stands before a word that does not begin the text, or after an obeyed space.
  if (!settings.obey_spaces) return n + n / 2;
  if (!expands_tabs(settings)) return 2 * n;
  const auto tabs = static_cast<std::size_t>(std::count(text.begin(), text.end(), Byte{'\t'}));
  return 2 * n + (kTabStop - 1) * tabs;
}

std::size_t wrap(Bytes text, const WrapSettings& settings, MutableBytes out) {
  return Wrapper(text, settings, out.data()).run();
}

}  // namespace vstring::text
