// Formatting of messages beside its rules.
#include "input.h"
#include "support/direct.h"

namespace {

using vstring_test::printed;

struct Argument {
  bool is_text;
  std::string shown;
};

// What a placeholder stands for; "error: ..." for what it cannot.
std::string ordinal(const Argument& argument, std::size_t number) {
  if (argument.is_text)
    return "error: argument " + printed(number) +
           " after the format string must be a small integer";
  const char digit = argument.shown.back();
  return argument.shown + (digit == '1' ? "st" : digit == '2' ? "nd" : digit == '3' ? "rd" : "th");
}

std::string formatted(const std::string& format, const std::vector<Argument>& arguments) {
  std::string out, all;
  for (const Argument& argument : arguments) all += (all.empty() ? "" : ", ") + argument.shown;
  for (std::size_t i = 0; i < format.size(); ++i) {
    const bool is_ordinal = format.compare(i, 2, "%-") == 0;
    const std::size_t at = i + (is_ordinal ? 2 : 1);
    const char digit = at < format.size() ? format[at] : '\0';
    const bool is_literal = format[i] != '%' || (i > 0 && format[i - 1] == '%') || digit < '0' ||
                            digit > '9' || (is_ordinal && digit == '0');
    if (is_literal) {
      out += format[i];
      continue;
    }
    i = at;
    const auto number = static_cast<std::size_t>(digit - '0');
    if (number > arguments.size()) return "error: too few parameters";
    const std::string piece = number == 0  ? all
                              : is_ordinal ? ordinal(arguments[number - 1], number)
                                           : arguments[number - 1].shown;
    if (is_ordinal && piece.starts_with("error")) return piece;
    out += piece;
  }
  return printed(out);
}

}  // namespace

void vstring_test::try_input(Input& input) {
  std::vector<Argument> arguments;
  Values values = {input.text(60)};
  const std::string format = velmor_text(values[0]);
  for (std::size_t n = input.below(5); n > 0; --n) {
    if (input.below(2) == 0) {
      const std::string t = "x" + input.text(20);
      arguments.push_back({true, t});
      values.emplace_back(input.below(2) == 0 ? Value(t) : Value(name(t)));
    } else {
      const std::int64_t integer = static_cast<std::int32_t>(input.below(std::size_t{1} << 32));
      arguments.push_back({false, std::to_string(integer)});
      values.emplace_back(integer);
    }
  }
  expect_same(formatted(format, arguments), call(vstring_fmtmsg, values));
}
