// Parser of the language.
//
//   statement  = simple [";" | ":"]
//   simple     = "for" name "in" sequence "do" {simple (";" | ":")} [simple] "end"
//              | [name ":="] sequence
//   sequence   = expression {"," expression}
//   expression = name "->" expression | "(" [name {"," name}] ")" "->" expression | equation
//   equation   = or ["=" or]
//   or         = and {"or" and}
//   and        = not {"and" not}
//   not        = "not" not | range [("==" | "<>" | "<" | "<=" | ">" | ">=") range]
//   range      = sum [".." sum]
//   sum        = product {("+" | "-") product}
//   product    = factor {"*" factor}
//   factor     = "-" factor | primary {"[" expression "]"}
//   primary    = string | integer | float | name ["(" [sequence] ")"]
//              | "(" [sequence] ")" | "[" [sequence] "]" | "{" [sequence] "}" | "'" expression "'"
#pragma once
#include <cstddef>
#include <memory>
#include <string_view>

#include "language/syntax.h"

namespace velmor {

// No tree is deeper, so whoever walks one may recurse.
constexpr std::size_t kDeepestTree = 500;

// The tree of one statement. Throws SyntaxError.
std::unique_ptr<Node> parse_statement(std::string_view source);

}  // namespace velmor
