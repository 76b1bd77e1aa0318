// Every command called at random, for the random driver and for the fuzzer: on a heap of its own,
// with procedures that answer at random, raise, or call the library again.
#pragma once
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "heap/velmor_runtime.h"
#include "support/random_arguments.h"

namespace vstring_test {

class RandomCalls {
 public:
  // Of all exported commands but those of `without`.
  explicit RandomCalls(RandomArguments::Choose choose, const std::set<std::string>& without = {});
  ~RandomCalls();

  // Calls one; says what is wrong with it, or nothing.
  std::string next();
  // What it gave, printed, or its error.
  const std::string& answer() const { return answer_; }
  VelmorHeap* heap() { return heap_.get(); }
  std::string unanswered() const;  // commands that have only raised so far

 private:
  struct Command {
    std::string name;
    VelmorCommand entry;
    bool has_answered = false;
  };
  struct FreeHeap {
    void operator()(VelmorHeap* heap) const { velmor_heap_free(heap); }
  };

  bool call(HostObject& result);
  bool evaluate(HostObject argseq, HostObject& result);

  std::unique_ptr<VelmorHeap, FreeHeap> heap_{velmor_heap_new()};
  RandomArguments::Choose below_;
  RandomArguments arguments_;
  std::vector<Command> commands_;
  int depth_ = 0;
  std::string problem_, answer_;
};

}  // namespace vstring_test
