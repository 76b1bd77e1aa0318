#include "python_syntax.h"

#include <cstdio>
#include <set>
#include <stdexcept>
#include <vector>

#include "heap/utf8.h"
#include "language/parser.h"
#include "lexiva/commands.h"

namespace vstring_python {
namespace {

using velmor::Node;
using velmor::NodeKind;

// As repr() shows the text, taken as UTF-8.
std::string literal(std::string_view text) {
  const bool single = text.find('\'') == text.npos || text.find('"') != text.npos;
  const char quote = single ? '\'' : '"';
  std::string out(1, quote);
  const auto escape = [&](const char* format, char c) {
    char digits[8];
    std::snprintf(digits, sizeof digits, format, static_cast<unsigned char>(c));
    out += digits;
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (const std::size_t n = velmor::utf8_shown(text.substr(i)); n > 0) {
      out += text.substr(i, n);
      i += n - 1;
    } else if (static_cast<unsigned char>(c) >= 0x80) {
      escape("\\udc%02x", c);  // surrogateescape
    } else if (c == '\n' || c == '\t' || c == '\r') {
      out += c == '\n' ? "\\n" : c == '\t' ? "\\t" : "\\r";
    } else if (c == quote || c == '\\') {
      out += {'\\', c};
    } else if (c < ' ' || c == 0x7f) {
      escape("\\x%02x", c);
    } else {
      out += c;
    }
  }
  return out + quote;
}

// Writes calls and constructors with `prefix` before them: "vstring." in what is typed, nothing in
// what is shown.
class Writer {
 public:
  explicit Writer(std::string prefix) : prefix_(std::move(prefix)) {}

  std::string expression(const Node& tree);
  std::string joined(const Node& tree, std::string (Writer::*part)(const Node&));

 private:
  std::string argument(const Node& tree);
  std::string name(const std::string& text) const;
  std::string operation(const Node& tree, const char* op);
  std::string call(const Node& tree);
  std::string apply(const Node& procedure, const Node& list);
  std::string parameters(const Node& procedure);
  std::string pair(const char* type, const Node& tree);

  std::string prefix_;
  std::set<std::string> parameters_;
};

std::string Writer::expression(const Node& tree) {
  switch (tree.kind) {
    case NodeKind::kString:
      return literal(tree.text);
    case NodeKind::kInteger:
    case NodeKind::kFloat:
      return tree.text;
    case NodeKind::kName:
      return name(tree.text);
    case NodeKind::kCall:
      return call(tree);
    case NodeKind::kSequence:
      return "(" + joined(tree, &Writer::expression) + ")";
    case NodeKind::kList:
      return "[" + joined(tree, &Writer::expression) + "]";
    case NodeKind::kRange:
      return pair("Range", tree);
    case NodeKind::kEquation:
      return pair("Eq", tree);
    case NodeKind::kAdd:
      return operation(tree, " + ");
    case NodeKind::kNegate:
      return "-" + expression(*tree.parts[0]);
    case NodeKind::kIndex:  // from 1 on there, from 0 on here
      return expression(*tree.parts[0]) + "[" + std::to_string(std::stoi(tree.parts[1]->text) - 1) +
             "]";
    case NodeKind::kProcedure: {
      const std::string list = parameters(tree);
      return "lambda " + list + ": " + expression(*tree.parts.back());
    }
    default:
      throw std::runtime_error("an example that has no form in Python");
  }
}

std::string Writer::joined(const Node& tree, std::string (Writer::*part)(const Node&)) {
  std::string out;
  for (const auto& node : tree.parts) out += (out.empty() ? "" : ", ") + (this->*part)(*node);
  return out;
}

// An equation whose left side is a name is a keyword argument.
std::string Writer::argument(const Node& tree) {
  if (tree.kind != NodeKind::kEquation || tree.parts[0]->kind != NodeKind::kName)
    return expression(tree);
  return tree.parts[0]->text + "=" + expression(*tree.parts[1]);
}

std::string Writer::name(const std::string& text) const {
  if (parameters_.contains(text)) return text;
  if (text == "true") return "True";
  if (text == "false") return "False";
  if (text == "FAIL" || velmor::lexiva::find(text) != nullptr) return prefix_ + text;
  return prefix_ + "Name(" + literal(text) + ")";
}

std::string Writer::operation(const Node& tree, const char* op) {
  return expression(*tree.parts[0]) + op + expression(*tree.parts[1]);
}

std::string Writer::call(const Node& tree) {
  if (tree.text == "apply") return apply(*tree.parts[0], *tree.parts[1]);
  return prefix_ + tree.text + "(" + joined(tree, &Writer::argument) + ")";
}

// apply(x -> body, [items]) as a comprehension.
std::string Writer::apply(const Node& procedure, const Node& list) {
  const std::string names = parameters(procedure);
  return "[" + expression(*procedure.parts.back()) + " for " + names + " in " +
         joined(list, &Writer::expression) + "]";
}

std::string Writer::parameters(const Node& procedure) {
  std::string out;
  for (std::size_t i = 0; i + 1 < procedure.parts.size(); ++i) {
    parameters_.insert(procedure.parts[i]->text);
    out += (i == 0 ? "" : ", ") + procedure.parts[i]->text;
  }
  return out;
}

std::string Writer::pair(const char* type, const Node& tree) {
  return prefix_ + type + "(" + operation(tree, ", ") + ")";
}

// The parts of a sequence; anything else is the one part.
std::vector<const Node*> parts_of(const Node& tree) {
  if (tree.kind != NodeKind::kSequence) return {&tree};
  std::vector<const Node*> parts;
  for (const auto& part : tree.parts) parts.push_back(part.get());
  return parts;
}

}  // namespace

std::string python_example(std::string_view example, std::string_view result) {
  const auto typed = velmor::parse_statement(example);
  const auto calls = parts_of(*typed);
  if (result.empty()) return ">>> " + Writer("vstring.").expression(*typed) + "\n";
  const auto shown = velmor::parse_statement(result);
  const auto values = parts_of(*shown);
  const std::string value = Writer("").expression(*shown);
  if (calls.size() == 1)
    return ">>> " + Writer("vstring.").expression(*typed) + "\n" + value + "\n";
  if (calls.size() == values.size())
    return ">>> " + Writer("vstring.").joined(*typed, &Writer::expression) + "\n" + value + "\n";
  std::string out;  // only the last call has a value
  for (const Node* call : calls) out += ">>> " + Writer("vstring.").expression(*call) + "\n";
  return out + value + "\n";
}

}  // namespace vstring_python
