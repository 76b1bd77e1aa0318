#include "records/engine.h"

#include "records/workers.h"

namespace velmor {
namespace {

class OneProcess : public Engine {
 public:
  OneProcess(Evaluator& evaluator, Delivery& delivery)
      : evaluator_(evaluator), delivery_(delivery) {}

  void answer(const Chunk& chunk) override {
    const auto start = std::chrono::steady_clock::now();
    answers_.clear();
    evaluator_.answer(chunk, answers_);
    const auto time = std::chrono::steady_clock::now() - start;
    pace_.learn(time);
    delivery_.deliver(answers_);
    if (time > kSlow) delivery_.flush();
  }
  void drain() override {}
  bool finish() override { return true; }  // the faults are told with those of all sessions

 private:
  // Who waits that long for a chunk wants to see it.
  static constexpr std::chrono::milliseconds kSlow{100};

  Evaluator& evaluator_;
  Delivery& delivery_;
  Answers answers_;
};

}  // namespace

std::unique_ptr<Engine> make_engine(const Job& job, Evaluator& evaluator, Delivery& delivery) {
  if (job.workers > 1) return std::make_unique<Workers>(job.workers, evaluator, delivery);
  return std::make_unique<OneProcess>(evaluator, delivery);
}

}  // namespace velmor
