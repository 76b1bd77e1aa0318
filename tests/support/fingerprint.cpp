#include "support/fingerprint.h"

#include <cstddef>

#include "host/object.h"

namespace vstring_test {
namespace {

constexpr std::uint64_t kPrime = 0x100000001b3;  // of the 64-bit FNV-1a hash
constexpr std::uint64_t kBasis = 0xcbf29ce484222325;

constexpr std::uint64_t kHeaderMask = 0x3fffffffff;  // length and tag; other bits are the host's

void mix(std::uint64_t& hash, std::uint64_t word) { hash = (hash ^ word) * kPrime; }

bool refers_to_others(int tag) {
  return tag == HOST_TAG_LIST || tag == HOST_TAG_SET || tag == HOST_TAG_RANGE ||
         tag == HOST_TAG_EQUATION;
}

void add(std::uint64_t& hash, HostObject object, int depth) {
  mix(hash, object);
  if (vstring::is_immediate(object) || depth == 0) return;
  const std::uint64_t* const words = vstring::words_of(object);
  mix(hash, words[0] & kHeaderMask);
  const std::size_t first = vstring::is_text(object) ? vstring::kTextWord : 1;
  const bool follow = refers_to_others(vstring::tag_of(object));
  for (std::size_t i = first; i < vstring::word_count(object); ++i) {
    if (follow) {
      add(hash, words[i], depth - 1);
    } else {
      mix(hash, words[i]);
    }
  }
}

}  // namespace

std::uint64_t fingerprint(HostObject sequence) {
  std::uint64_t hash = kBasis;
  for (const HostObject element : vstring::Elements::of_sequence(sequence)) add(hash, element, 8);
  return hash;
}

std::uint64_t fingerprint(std::string_view text) {
  std::uint64_t hash = kBasis;
  for (const char c : text) mix(hash, static_cast<unsigned char>(c));
  return hash;
}

}  // namespace vstring_test
