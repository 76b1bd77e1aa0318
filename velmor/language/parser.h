// Parser of the language.
//
//   statement = [name ":="] sequence [";" | ":"]
//   sequence  = equation {"," equation}
//   equation  = range ["=" range]
//   range     = sum [".." sum]
//   sum       = product {("+" | "-") product}
//   product   = factor {"*" factor}
//   factor    = "-" factor | string | integer | float | name ["(" [sequence] ")"]
//             | "(" [sequence] ")" | "[" [sequence] "]" | "{" [sequence] "}" | "'" equation "'"
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
