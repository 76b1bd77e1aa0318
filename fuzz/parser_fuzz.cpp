// Velmor's language: what a tree prints as is parsed to the same tree, and a session survives what
// is typed.
#include "language/parser.h"

#include <sstream>

#include "input.h"
#include "language/failure.h"
#include "support/allocations.h"
#include "support/session.h"

namespace {

using velmor::Node;
using velmor::NodeKind;

// Every byte of a text but letters as an escape.
std::string literal(char quote, const std::string& text) {
  std::string out(1, quote);
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    if ((code | 32) >= 'a' && (code | 32) <= 'z') {
      out += c;
    } else {
      out += '\\';
      for (const int shift : {6, 3, 0}) out += static_cast<char>('0' + (code >> shift & 7));
    }
  }
  return out + quote;
}

// What stands before, between and behind the parts; N is the text as a quoted name, T as it is.
constexpr const char* kForms[][3] = {
    {"S", "", ""},       {"(T", "", ")"},    {"(T", "", ")"},           {"N", "", ""},
    {"N(", ", ", ")"},   {"(", ", ", ")"},   {"[", ", ", "]"},          {"{", ", ", "}"},
    {"(", " .. ", ")"},  {"(", " = ", ")"},  {"(", " + ", ")"},         {"(", " - ", ")"},
    {"(", " * ", ")"},   {"(-", "", ")"},    {"('", "", "')"},          {"(", "T", ")"},
    {"(", " and ", ")"}, {"(", " or ", ")"}, {"(not ", "", ")"},        {"(", "[", "])"},
    {"((", ", ", ")"},   {"N := ", "", ""},  {"for N in ", "", " end"},
};

std::string filled(const char* form, const Node& tree) {
  std::string out;
  for (; *form != '\0'; ++form) {
    if (*form == 'S') out += literal('"', tree.text);
    if (*form == 'N') out += literal('`', tree.text);
    if (*form == 'T') out += tree.text;
    if (*form != 'S' && *form != 'N' && *form != 'T') out += *form;
  }
  return out;
}

// Operands in parentheses, so that nothing rests on precedence.
std::string source(const Node& tree) {
  const auto& [before, between, behind] = kForms[static_cast<std::size_t>(tree.kind)];
  std::string out = filled(before, tree);
  const std::size_t n = tree.parts.size();
  for (std::size_t i = 0; i < n; ++i) {
    const bool is_body = tree.kind == NodeKind::kProcedure && i + 1 == n;
    const bool is_loop = tree.kind == NodeKind::kFor;
    if (is_body) out += ") -> ";
    if (is_loop && i > 0) out += i == 1 ? " do " : tree.parts[i - 1]->prints ? "; " : ": ";
    if (!is_body && !is_loop && i > 0) out += filled(between, tree);
    out += source(*tree.parts[i]);
  }
  if (tree.kind == NodeKind::kFor) out += n == 1 ? " do" : tree.parts[n - 1]->prints ? ";" : ":";
  return out + behind;
}

// What may run for hours, or read a file that never ends.
bool is_harmless(const std::string& text) {
  return text.find("->") == text.npos && text.find("readfile") == text.npos;
}

}  // namespace

void vstring_test::try_input(Input& input) {
  constexpr std::size_t kDeepest = 100;  // each level may be printed as three
  const std::string text = input.text(250);
  std::unique_ptr<Node> tree;
  try {
    tree = velmor::parse_statement(text);
  } catch (const velmor::SyntaxError&) {
  }
  const std::string once = tree == nullptr || tree->depth > kDeepest ? "" : source(*tree);
  if (!once.empty()) expect_same(once, source(*velmor::parse_statement(once)));

  if (!is_harmless(text)) return;
  limit_allocation(std::size_t{1} << 16);
  std::ostringstream out, err;
  session().run(text, out, err);
  velmor_each_value(
      session().heap(),
      [](void* heap, HostObject name) { velmor_assign(static_cast<VelmorHeap*>(heap), name, 0); },
      session().heap());
  expect_same("3", evaluate("length(\"abc\")"));
  expect_same("", velmor_faults(session().heap()));
}
