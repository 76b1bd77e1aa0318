// Search for many patterns, by lists and by dictionaries, beside the textbook's automaton.
#include "input.h"
#include "search/automaton_reference.h"
#include "support/direct.h"

void vstring_test::try_input(Input& input) {
  input.choose_letters();
  const std::string t = input.text(150);
  std::vector<std::string> patterns;
  for (std::size_t n = 1 + input.below(8); n > 0; --n) patterns.push_back(input.text(12));
  std::vector<std::vector<std::size_t>> found;
  for (const Found& match : Textbook(patterns).search(t))
    found.push_back({match.position + 1, static_cast<std::size_t>(match.number)});

  const HostObject words = list({patterns.begin(), patterns.end()});
  expect_same(printed_sequence(found), call(vstring_searchx, {words, t}));
  const Value id = result_of(vstring_dictCreate, {words});
  expect_same(printed_sequence(found), call(vstring_dictObjSearch, {id, t}));
  for (std::size_t i = 0; i < patterns.size(); ++i) {
    const auto number = static_cast<std::int64_t>(i + 1);
    expect_same(printed(patterns[i]), call(vstring_dictObjGet, {id, number}));
  }
  result_of(vstring_dictObjFree, {id});
}
