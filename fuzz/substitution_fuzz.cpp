// Substituting and splitting beside their definitions.
#include "input.h"
#include "search/substitution_reference.h"
#include "support/direct.h"

void vstring_test::try_input(Input& input) {
  input.choose_letters();
  const std::string pattern = input.text(12), replacement = input.text(20), t = input.text(120);
  const std::string separators = input.text(4);
  expect_same(naive_substx(t, pattern, replacement),
              text(vstring_substx, {t, pattern, replacement}));
  std::string once = t;
  const std::size_t at = pattern.empty() ? std::string::npos : t.find(pattern);
  if (at != std::string::npos) once.replace(at, pattern.size(), replacement);
  expect_same(once, text(vstring_subst, {t, pattern, replacement}));

  std::vector<std::string> fields = {""};
  for (const char c : t) {
    if (separators.find(c) != separators.npos) {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  expect_same(printed(fields), call(vstring_split, {t, separators}));
}
