// Has chunks answered, and delivers the answers in the order of the chunks.
#pragma once
#include <algorithm>
#include <chrono>
#include <cstddef>
#include <memory>

#include "records/delivery.h"
#include "records/evaluator.h"

namespace velmor {

// How large chunks should be, so that answers come soon whatever an evaluation takes: they grow
// while they are answered at once.
class Pace {
 public:
  std::size_t wanted() const { return wanted_; }
  void learn(std::chrono::nanoseconds time) {
    using std::chrono::milliseconds;
    if (time < milliseconds(10)) wanted_ = std::min(2 * wanted_, kLargest);
    if (time > milliseconds(40)) wanted_ = std::max(wanted_ / 4, kSmallest);
  }

 private:
  static constexpr std::size_t kSmallest = 1;  // one record
  static constexpr std::size_t kLargest = std::size_t{1} << 18;
  std::size_t wanted_ = kSmallest;
};

class Engine {
 public:
  virtual ~Engine() = default;
  virtual void answer(const Chunk& chunk) = 0;
  virtual void drain() = 0;   // waits for what is under way
  virtual bool finish() = 0;  // after the last chunk; false when the library proved faulty
  std::size_t wanted() const { return pace_.wanted(); }

 protected:
  Pace pace_;
};

// In this process, or in `job.workers` forked ones, which start from the evaluator as it is.
std::unique_ptr<Engine> make_engine(const Job& job, Evaluator& evaluator, Delivery& delivery);

}  // namespace velmor
