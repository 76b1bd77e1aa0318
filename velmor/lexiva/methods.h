// How commands do their work: what it costs, and whose method it is.
#pragma once
#include <span>
#include <string_view>

namespace velmor::lexiva {

struct Method {
  std::string_view commands;  // those that work so, with blanks between
  std::string_view cost;      // time, and memory where it is more than the result; one phrase
  std::string_view source;    // author, title, year; empty where there is nothing to cite
};

std::span<const Method> methods();

// That of one; null when there is none.
const Method* method_of(std::string_view command);

}  // namespace velmor::lexiva
