// Search with k edits, by every selector, and with k mismatches, beside their definitions.
#include "input.h"
#include "search/approximate_reference.h"
#include "support/direct.h"

void vstring_test::try_input(Input& input) {
  input.choose_letters();
  const auto k = static_cast<std::int64_t>(input.below(8));
  const std::string pattern = input.text(80), t = input.text(150);
  const std::string by_table = printed_sequence(ends_by_table(pattern, t, k));
  const std::string by_automaton = printed_sequence(ends_by_automaton(pattern, t, k));
  expect_same(by_automaton, call(vstring_asearchxb, {pattern, t, k, 1}));
  expect_same(by_table, call(vstring_asearchxb, {pattern, t, k, 2}));
  expect_same(by_table, call(vstring_asearchxb, {pattern, t, k, 3}));
  expect_same(pattern.size() <= 64 ? by_automaton : by_table,
              call(vstring_asearchx, {pattern, t, k}));
  const auto places = places_with_mismatches(pattern, t, static_cast<std::size_t>(k));
  expect_same(printed_sequence(places), call(vstring_hsearchx, {pattern, t, k}));
  expect_same(printed_sequence(places), call(vstring_psearchx, {pattern, t, k}));
  const std::string first = printed(places.empty() ? 0 : places[0][0]);
  expect_same(first, call(vstring_hsearch, {pattern, t, k}));
  expect_same(first, call(vstring_psearch, {pattern, t, k}));
}
