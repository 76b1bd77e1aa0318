// The names that are there from the start: the commands, and the language's own functions.
#include "language/builtins.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <ostream>
#include <sstream>

#include "heap/object.h"
#include "heap/utf8.h"
#include "language/session.h"
#include "language/syntax.h"
#include "lexiva/commands.h"

namespace velmor {
namespace {

// The items of what a function over "L" is given: those of a single list or set, else the
// arguments themselves, of which a sequence is made.
std::vector<HostObject> items_from(HostObject argseq, std::size_t first) {
  HostObject source = argseq;
  if (velmor_size(argseq) == first) {
    const HostObject only = velmor_element(argseq, first);
    if (elements_of(only) != 0) {
      source = only;
      first = 1;
    }
  }
  std::vector<HostObject> items;
  for (std::size_t i = first; i <= velmor_size(source); ++i)
    items.push_back(velmor_element(source, i));
  return items;
}

}  // namespace

std::span<const Builtin> builtins() {
  static constexpr Builtin kBuiltins[] = {
      {"size", "size(L)", "The number of items of a list, set or sequence.", "size([5, 7, 9])", "3",
       &Session::size, nullptr},
      {"apply", "apply(f, L)", "The list of f of each item of L.", "apply(x -> x * x, [1, 2, 3])",
       "[1, 4, 9]", &Session::apply, nullptr},
      {"table", "table([f, g, ...], L)",
       "Prints a row for each item x of L, with f(x), g(x), ... in columns; has no value.",
       "table([x -> x, reverse, length], [\"ab\", \"abc\"])", "ab   ba   2\n  abc  cba  3",
       &Session::table, nullptr},
      {"readfile", "readfile(name)", "The contents of a file as one string.",
       "length(readfile(\"/dev/null\"))", "0", &Session::readfile, nullptr},
      {"with", "with(Lexiva)",
       "Does nothing: the commands of the package are there from the start.", "with(Lexiva)", "",
       nullptr, &Session::with},
      {"TRY", "TRY(n, expression, expected)",
       "Fails, naming the number n, unless the expression has the expected value.",
       "TRY(1, 1 + 1, 2)", "", nullptr, &Session::compare},
  };
  return kBuiltins;
}

void Session::bind_commands(const Resolver& resolver) {
  const auto bind = [&](const char* name, const lexiva::Command& command) {
    if (const VelmorCommand address = resolver(command.entry_point))
      functions_[velmor_name(heap(), name)] = {command.name, address};
  };
  for (const lexiva::Family& family : lexiva::families())
    for (const lexiva::Command& command : family.commands) bind(command.name, command);
  for (const lexiva::Alias& alias : lexiva::aliases())
    if (const lexiva::Command* command = lexiva::find(alias.command)) bind(alias.name, *command);
}

void Session::bind_builtins() {
  for (const Builtin& builtin : builtins())
    functions_[velmor_name(heap(), builtin.name)] = {builtin.name, nullptr, builtin.function,
                                                     builtin.form};
}

HostObject Session::with(const Node& call) {
  const HostObject package = collection(call, true);
  for (std::size_t i = 1; i <= velmor_size(package); ++i) {
    const char* const name = velmor_text(velmor_element(package, i));
    if (name == nullptr || std::string_view(name) != "Lexiva")
      throw Failure("no such package: " + print(velmor_element(package, i)), "with");
  }
  if (velmor_size(package) == 0) throw Failure("expecting the name of a package", "with");
  return null_;
}

// Both values are compared as they print, which tells any two values apart.
HostObject Session::compare(const Node& call) {
  if (call.parts.size() != 3)
    throw Failure("expecting a number, a call and its expected value", "TRY");
  const std::string number = print(value(*call.parts[0]));
  const std::string got = print(value(*call.parts[1]));
  const std::string expected = print(value(*call.parts[2]));
  if (got != expected)
    throw Failure("test " + number + " failed: expected " + expected + ", got " + got, "TRY");
  return null_;
}

HostObject Session::size(HostObject argseq) {
  return velmor_integer(heap(), static_cast<std::int64_t>(items_from(argseq, 1).size()));
}

HostObject Session::apply(HostObject argseq) {
  if (velmor_size(argseq) == 0) throw Failure("expecting a procedure and a list", "apply");
  const HostObject procedure = velmor_element(argseq, 1);
  std::vector<HostObject> results;
  for (const HostObject item : items_from(argseq, 2))
    results.push_back(call_value(procedure, velmor_sequence(heap(), 1, &item)));
  const HostObject list = velmor_list(heap(), results.size(), results.data());
  if (list == 0) throw Failure("out of memory");
  return list;
}

HostObject Session::table(HostObject argseq) {
  if (velmor_size(argseq) == 0 || velmor_tag(velmor_element(argseq, 1)) != HOST_TAG_LIST)
    throw Failure("expecting a list of procedures and a list", "table");
  const HostObject procedures = velmor_element(argseq, 1);
  const std::size_t columns = velmor_size(procedures);
  std::vector<std::string> cells;
  std::vector<std::size_t> widths(columns);
  for (const HostObject item : items_from(argseq, 2)) {
    const HostObject argument = velmor_sequence(heap(), 1, &item);
    for (std::size_t i = 0; i < columns; ++i) {
      const HostObject found = call_value(velmor_element(procedures, i + 1), argument);
      std::string cell = display(found);
      // A string stands without its quotation marks.
      if (velmor_tag(found) == HOST_TAG_STRING) cell = cell.substr(1, cell.size() - 2);
      widths[i] = std::max(widths[i], utf8_count(cell));
      cells.push_back(std::move(cell));
    }
  }
  for (auto cell = cells.cbegin(); cell != cells.cend(); ++cell) {
    for (std::size_t i = 0; i + 1 < columns; ++i, ++cell) {
      *out_ << *cell << std::string(widths[i] - utf8_count(*cell) + 2, ' ');
    }
    *out_ << *cell << '\n';
  }
  return null_;
}

HostObject Session::readfile(HostObject argseq) {
  if (velmor_size(argseq) != 1 || velmor_tag(velmor_element(argseq, 1)) != HOST_TAG_STRING)
    throw Failure("expecting the name of a file, a string", "readfile");
  const std::string name = velmor_text(velmor_element(argseq, 1));
  errno = 0;
  std::ifstream file(name, std::ios::binary);
  std::ostringstream contents;
  if (!file || !(file.peek() == EOF || contents << file.rdbuf()) || file.bad())
    throw Failure("cannot read " + name + ": " + std::strerror(errno != 0 ? errno : EISDIR),
                  "readfile");
  const std::string text = contents.str();
  if (text.find('\0') != text.npos) throw Failure("a string cannot hold a zero byte", "readfile");
  const HostObject object = velmor_string_n(heap(), text.data(), text.size());
  if (object == 0) throw Failure("out of memory", "readfile");
  return object;
}

}  // namespace velmor
