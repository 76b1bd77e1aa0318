#include "words/likeness/qgrams.h"

#include <cmath>
#include <cstdint>

#include "words/suffix/sorted_suffixes.h"

namespace vstring::words {
namespace {

__extension__ using Wide = unsigned __int128;

// Products of the vectors, exact: texts have fewer than 2^31 letters.
struct Products {
  std::uint64_t mixed = 0;
  std::uint64_t square_s = 0;
  std::uint64_t square_t = 0;

  void add(std::uint64_t in_s, std::uint64_t in_t) {
    mixed += in_s * in_t;
    square_s += in_s * in_s;
    square_t += in_t * in_t;
  }
};

}  // namespace

Result<double> qgram_cosine(Bytes s, Bytes t, std::size_t q) {
  if (s.size() < q || t.size() < q) return equal(s, t) ? 1.0 : 0.0;
  SortedSuffixes suffixes;
  const Status status = suffixes.sort(s, t);
  if (status != Status::ok) return status;
  const std::size_t start_of_t = s.size() + 1;
  Products products;
  std::uint64_t in_s = 0;  // of the q-gram that the suffixes begin with
  std::uint64_t in_t = 0;
  for (std::size_t rank = 0; rank < suffixes.size(); ++rank) {
    const std::size_t offset = suffixes.offset(rank);
    if (suffixes.agreeing(offset) < q) {
      products.add(in_s, in_t);
      in_s = in_t = 0;
    }
    if (offset + q <= s.size()) ++in_s;
    if (offset >= start_of_t && offset + q <= suffixes.size()) ++in_t;
  }
  products.add(in_s, in_t);
  const Wide squares = Wide{products.square_s} * products.square_t;
  return static_cast<double>(products.mixed) / std::sqrt(static_cast<double>(squares));
}

}  // namespace vstring::words
