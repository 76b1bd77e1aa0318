#include "manual/errors.h"

#include <algorithm>
#include <string_view>

namespace velmor {
namespace {

constexpr const char* kUnfit[] = {"1.5", "-1", "0", "\"\"", "[7]", "3 .. 1"};

// The arguments of the call that begins the example; none when it is another command's.
std::vector<std::string> example_arguments(const lexiva::Command& command) {
  const std::string_view example = command.example;
  const std::string head = std::string(command.name) + "(";
  std::vector<std::string> arguments;
  if (!example.starts_with(head)) return arguments;
  std::string argument;
  int depth = 1;
  bool quoted = false;
  for (std::size_t i = head.size(); i < example.size(); ++i) {
    const char c = example[i];
    if (c == '"' && example[i - 1] != '\\') quoted = !quoted;
    if (!quoted && (c == '(' || c == '[')) ++depth;
    if (!quoted && (c == ')' || c == ']')) --depth;
    if (depth == 0 || (depth == 1 && c == ',' && !quoted)) {
      arguments.push_back(argument);
      argument.clear();
      if (depth == 0) break;
    } else {
      argument += c;
    }
  }
  return arguments;
}

}  // namespace

std::vector<std::string> errors_of(Session& session, const lexiva::Command& command) {
  std::vector<std::string> errors;
  const auto call = [&](const std::vector<std::string>& arguments) {
    std::string text = std::string(command.name) + "(";
    for (std::size_t i = 0; i < arguments.size(); ++i) text += (i == 0 ? "" : ", ") + arguments[i];
    const Outcome outcome = session.evaluate(text + ")");
    constexpr std::string_view kError = "error: ";
    if (!outcome.ok && outcome.text.starts_with(kError))
      errors.push_back(outcome.text.substr(kError.size()));
    session.collect_garbage();
  };
  call({});
  const std::vector<std::string> good = example_arguments(command);
  for (std::size_t i = 0; i < good.size(); ++i) {
    for (const char* const unfit : kUnfit) {
      std::vector<std::string> arguments = good;
      arguments[i] = unfit;
      call(arguments);
    }
  }
  std::vector<std::string> different;
  for (const std::string& error : errors)
    if (std::ranges::find(different, error) == different.end()) different.push_back(error);
  return different;
}

}  // namespace velmor
