// Entry points: join, implode, explode, split, casejoin, casesplit.
#include <cstring>

#include "charclass/case_map.h"
#include "core/joining.h"
#include "host/args.h"
#include "host/result.h"
#include "runtime/small_array.h"

using namespace vstring;

namespace {

// What stands between texts unless something else is wished for, in a whole word.
constexpr Byte kBlank[8] = {' '};

// Summed length of the elements; SIZE_MAX, which no allocation satisfies, when that overflows.
std::size_t total_length(Elements texts) {
  std::size_t total = 0;
  for (const HostObject text : texts) {
    if (__builtin_add_overflow(total, text_of(text).size(), &total)) return SIZE_MAX;
  }
  return total;
}

}  // namespace

// One pass over the elements, which are looked at and copied while they are at hand.
HostObject vstring_join(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  const Elements elements = args.list(1);
  if (elements.empty()) return empty_string(args);
  if (elements.size() == 1) return elements[0];                  // whatever it is
  if (args.has(2) && !is_text(args.object(2))) args.strings(1);  // refused before the separator is
  const Bytes separator = args.has(2) ? args.text(2) : Bytes(kBlank).first(1);

  GrowingText joined = scratch_text();
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const HostObject element = elements[i];
    if (is_text(element) && (i == 0 || joined.append_words(separator)) &&
        joined.append_words(text_of(element))) {
      continue;
    }
    joined.free();
    args.strings(1);  // refused, whatever memory there is
    args.raise(Status::out_of_memory);
  }
  return new_string(args, joined);
}

constexpr Signature kImplode = {1, {{"argument must be a list"}}};

HostObject vstring_implode(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kImplode);
  const Elements texts = args.strings(1);
  TextResult result(args, texts.size());
  std::size_t n = 0;
  for (const HostObject element : texts) {
    const Bytes text = text_of(element);
    if (!text.empty()) result.bytes()[n++] = text[0];
  }
  return result.object(n);
}

HostObject vstring_explode(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  Bytes text = args.text(1);
  if (text.empty()) return empty_list(args);
  if (args.has(2)) {
    const Stretch range = args.range(2, text.size());
    text = text.subspan(range.first, range.count);
  }
  return new_list(args, text.size(), [&](std::size_t i) {
    const char letter[2] = {static_cast<char>(text[i]), '\0'};
    return host->HostNewString(letter);
  });
}

// Words in running text stand between these; a vertical tab is part of a word.
constexpr const char* kBlanks = " \t\n\f\r";

HostObject vstring_split(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  const Bytes text = args.text(1);
  const Bytes separators = args.has(2) ? args.text(2) : bytes_of(kBlanks);
  SmallArray<Byte, 512> fields;
  if (!fields.allocate(text.size() + 1)) args.raise(Status::out_of_memory);
  const MutableBytes copy = fields.view();
  const std::size_t ends = core::terminate_fields(text, separators, copy.first(text.size()));
  copy.back() = '\0';
  const char* next = chars(copy.data());
  const HostObject list = new_list(args, ends + 1, [&](std::size_t) {
    const char* const field = next;
    next += std::strlen(field) + 1;
    return host->HostNewString(field);
  });
  fields.free();
  return list;
}

HostObject vstring_casejoin(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  const Elements words = args.strings(1);
  TextResult result(args, total_length(words));
  MutableBytes rest = result.bytes();
  for (const HostObject word : words) {
    const Bytes text = text_of(word);
    const MutableBytes copy = rest;
    rest = copy_into(rest, text);
    if (!text.empty()) copy[0] = charclass::raised(text[0]);
  }
  return result.object();
}

HostObject vstring_casesplit(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  Bytes rest = args.text(1);
  const std::size_t pieces = core::count_case_pieces(rest);
  if (pieces == 1) return host->HostNewString(chars(rest));
  return new_sequence(args, pieces, [&](std::size_t) {
    const Bytes piece = rest.first(core::first_case_piece(rest));
    rest = rest.subspan(piece.size());
    return new_string_aside(args, piece);
  });
}
