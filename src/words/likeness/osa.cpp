#include "words/likeness/osa.h"

#include <utility>

#include "bytes/common.h"
#include "runtime/small_array.h"
#include "words/likeness/stripe.h"

namespace vstring::words {
namespace {

// What a column tells the one of the rows below.
struct OsaChange {
  std::uint64_t rose;
  std::uint64_t fell;
  std::uint64_t awaited;  // the last row's letter: what an exchange with the next row begins with
};

struct OsaColumn {
  std::uint64_t rise = ~std::uint64_t{0};
  std::uint64_t fall = 0;
  std::uint64_t zero = 0;          // cells equal to that before them on their diagonal
  std::uint64_t equal_before = 0;  // rows with the letter of the column before

  OsaChange advance(std::uint64_t equal, OsaChange above, std::size_t bottom) {
    const std::uint64_t awaited = ~zero & equal;
    const std::uint64_t exchanged = (awaited << 1 | above.awaited) & equal_before;
    const std::uint64_t reached = equal | above.fell;
    zero = (((reached & rise) + rise) ^ rise) | reached | fall | exchanged;
    equal_before = equal;
    const std::uint64_t rose = fall | ~(zero | rise);
    const std::uint64_t fell = rise & zero;
    const std::uint64_t rose_above = rose << 1 | above.rose;
    const std::uint64_t fell_above = fell << 1 | above.fell;
    rise = fell_above | ~(zero | rose_above);
    fall = rose_above & zero;
    return {rose >> bottom & 1, fell >> bottom & 1, awaited >> bottom & 1};
  }
};

struct OsaTable {
  using Column = OsaColumn;
  struct Run {
    std::uint64_t rose = ~std::uint64_t{0};
    std::uint64_t fell = 0;
    std::uint64_t awaited = 0;

    OsaChange at(std::size_t i) const { return {rose >> i & 1, fell >> i & 1, awaited >> i & 1}; }
    void put(std::size_t i, OsaChange change) {
      rose |= change.rose << i;
      fell |= change.fell << i;
      awaited |= change.awaited << i;
    }
    std::size_t gain() const {
      return static_cast<std::size_t>(std::popcount(rose) - std::popcount(fell));
    }
  };
  static constexpr Run kNothing = {0, 0, 0};
  static constexpr std::size_t kDown = 1;
};

}  // namespace

Result<std::size_t> optimal_string_alignment(Bytes s, Bytes t) {
  trim_common_ends(s, t);
  const Bytes rows = s.size() >= t.size() ? s : t;
  const Bytes columns = s.size() >= t.size() ? t : s;
  if (columns.empty()) return rows.size();
  SmallArray<OsaTable::Run, 16> runs;
  if (!runs.allocate(runs_for(columns.size()))) return Status::out_of_memory;
  std::size_t distance = last_row<OsaTable>(rows, columns, runs.view()).value;
  for (const OsaTable::Run& run : runs.view()) distance += run.gain();
  runs.free();
  return distance;
}

}  // namespace vstring::words
