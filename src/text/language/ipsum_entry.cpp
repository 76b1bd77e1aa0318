// Entry point: ipsum.
#include <algorithm>

#include "host/args.h"
#include "host/result.h"
#include "text/language/ipsum.h"

using namespace vstring;

namespace {

enum class IpsumUnit { paragraphs, words, characters };

// How many bytes `n` units, n of 1 or more, give. Counting words has never produced any text.
std::size_t ipsum_size(IpsumUnit unit, std::size_t n) {
  switch (unit) {
    case IpsumUnit::paragraphs:
      return text::ipsum_length(n);
    case IpsumUnit::characters:
      return std::min(n, text::kIpsumParagraph);
    case IpsumUnit::words:
      break;
  }
  return 0;
}

bool is_unit(Bytes name, IpsumUnit& unit) {
  if (equal(name, "paragraphs")) {
    unit = IpsumUnit::paragraphs;
  } else if (equal(name, "words")) {
    unit = IpsumUnit::words;
  } else if (equal(name, "characters")) {
    unit = IpsumUnit::characters;
  } else {
    return false;
  }
  return true;
}

}  // namespace

constexpr Signature kIpsum = {0,
                              {{"optional argument must be an equation of the form `paragraphs = "
                                "N', `words = N' or `characters = N', with N an integer",
                                "number of %1 must be non-negative"}}};

HostObject vstring_ipsum(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kIpsum);
  IpsumUnit unit = IpsumUnit::paragraphs;
  std::int32_t n = 1;
  if (args.has(1)) {
    const HostObject option = args.object(1);
    if (!is_equation(option) || !is_name(left_side(option)) ||
        !args.is_integer32(right_side(option)) || !is_unit(text_of(left_side(option)), unit)) {
      args.refuse_kind(1);
    }
    n = host->HostToInteger32(right_side(option));
    if (n < 0) args.refuse(1, left_side(option));
  }
  TextResult result(args, n == 0 ? 0 : ipsum_size(unit, static_cast<std::size_t>(n)));
  text::write_ipsum(result.bytes());
  return result.object();
}
