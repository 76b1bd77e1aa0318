// Wildcards beside the definition that tries every place for a star.
#include <algorithm>

#include "input.h"
#include "search/wildcard_reference.h"
#include "support/direct.h"

void vstring_test::try_input(Input& input) {
  constexpr std::ptrdiff_t kMostStars = 3;  // in which the definition is exponential
  const std::string pattern = input.text(100), subject = input.text(100);
  if (std::count(pattern.begin(), pattern.end(), '*') > kMostStars) return;
  expect_same(printed(matches(pattern.c_str(), subject.c_str())),
              call(vstring_wild, {pattern, subject}) == "true" ? "true" : "false");
}
