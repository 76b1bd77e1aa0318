// Forked processes that answer chunks.
#pragma once
#include <sys/types.h>

#include <cstddef>
#include <vector>

#include "records/engine.h"

namespace velmor {

// Chunks go to the workers in turn, each of which has at most one. So the one whose turn it is has
// always the oldest chunk, its answers are the next to deliver, and since it reads a chunk to its
// end before it answers, neither side waits for the other for good.
class Workers : public Engine {
 public:
  // Throws std::runtime_error when processes cannot be made, and from answer and drain when one of
  // them has died.
  Workers(std::size_t count, Evaluator& evaluator, Delivery& delivery);
  ~Workers() override;
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;

  void answer(const Chunk& chunk) override;
  void drain() override;
  bool finish() override;

 private:
  struct Worker {
    pid_t process;
    int socket;
  };
  void start(Evaluator& evaluator);
  bool stop();

  Delivery& delivery_;
  std::vector<Worker> workers_;
  std::size_t given_ = 0, collected_ = 0;  // chunks so far; worker k % count has chunk k
  Answers answers_;
};

}  // namespace velmor
