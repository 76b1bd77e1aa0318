#include "input.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "support/session.h"

namespace vstring_test {

std::size_t Input::below(std::size_t n) {
  std::size_t value = 0;
  for (std::size_t covered = 1; covered < n && !rest_.empty(); covered *= 256) {
    value = 256 * value + static_cast<unsigned char>(rest_[0]);
    rest_.remove_prefix(1);
  }
  return value % n;
}

std::string Input::text(std::size_t longest) {
  const std::size_t end = std::min(rest_.find('\0'), rest_.size());
  std::string part(rest_.substr(0, std::min(end, longest)));
  rest_.remove_prefix(std::min(end + 1, rest_.size()));
  for (char& c : part) {
    if (letters_ != 0) c = static_cast<char>('a' + static_cast<unsigned char>(c) % letters_);
  }
  return part;
}

void expect_same(const std::string& expected, const std::string& answer) {
  if (expected == answer) return;
  std::fprintf(stderr, "expected: %s\ngot:      %s\n", expected.c_str(), answer.c_str());
  std::abort();
}

}  // namespace vstring_test

// What the fuzzing engine calls; no header of its own declares it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vstring_test::Input input(data, size);
  vstring_test::try_input(input);
  velmor_collect(vstring_test::session().heap());  // nothing of it is left
  return 0;
}
