// Wrapping beside its rules, a byte at a time; tabs and margins undone.
#include "input.h"
#include "support/direct.h"
#include "text/wrap_reference.h"

void vstring_test::try_input(Input& input) {
  const auto width = static_cast<unsigned>(1 + input.below(80));
  const std::size_t set = input.below(16);
  const std::string t = input.text(200);
  const WrapOptions options = {(set & 1) != 0, (set & 2) != 0, (set & 4) != 0, (set & 8) != 0};
  const auto option = [](const char* text, bool is_on) {
    return equation(name(text), name(printed(is_on)));
  };
  expect_same(
      printed(t.size() <= width ? t : wrapped(t, width, options)),
      call(vstring_wrap,
           {t, static_cast<std::int64_t>(width), option("countbytes", options.count_bytes),
            option("expandtabs", options.expand_tabs), option("obeylines", options.obey_lines),
            option("obeyspaces", options.obey_spaces)}));
  const auto step = static_cast<std::int64_t>(width);
  const std::string expanded = text(vstring_expand, {t, step});
  expect_same(expanded, text(vstring_expand, {text(vstring_unexpand, {expanded, step}), step}));
}
