// GetFilter: the value of a class option, a name or a literal alphabet, as a character test.
#include "charclass/filter.h"
#include "host/object.h"
#include "host/raise.h"

using namespace vstring;

namespace {

CharTest alphabet_filter(const HostTable* host, Bytes alphabet) {
  if (alphabet.empty()) raise(host, "character class must be nonempty");
  // The limit is 256 whatever the message says: alphabets of all 255 codes and one more have
  // always been accepted.
  if (alphabet.size() > charclass::kAlphabetLimit) {
    raise(host, "alphabet too long (must be at most 255 characters)");
  }
  charclass::set_filter_alphabet(alphabet);
  return AlphabetFilter;
}

}  // namespace

CharTest GetFilter(const HostTable* host, HostObject value) {
  if (is_string(value)) return alphabet_filter(host, text_of(value));
  if (is_name(value)) {
    const Result<CharTest> filter = charclass::filter_named(text_of(value));
    if (filter.ok()) return *filter;
  }
  raise(host, "unrecognised character class `%1'", value);
}
