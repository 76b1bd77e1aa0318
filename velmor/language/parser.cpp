#include "language/parser.h"

#include <algorithm>
#include <utility>

#include "language/failure.h"
#include "language/lexer.h"

namespace velmor {
namespace {

using Tree = std::unique_ptr<Node>;

class Parser {
 public:
  explicit Parser(std::string_view source) : lexer_(source) { advance(); }

  Tree statement() {
    Tree tree = sequence();
    if (token_.kind == TokenKind::kAssign) tree = assignment(*tree);
    if (token_.kind == TokenKind::kTerminator) advance();
    if (token_.kind != TokenKind::kEnd) unexpected();
    return tree;
  }

 private:
  void advance() { token_ = lexer_.next(); }

  bool accept(TokenKind kind) {
    if (token_.kind != kind) return false;
    advance();
    return true;
  }

  void expect(TokenKind kind) {
    if (!accept(kind)) unexpected();
  }

  [[noreturn]] void unexpected() const {
    switch (token_.kind) {
      case TokenKind::kEnd:
        refuse("unexpected end of the statement");
      case TokenKind::kString:
        refuse("unexpected string");
      default:
        refuse("unexpected `" + token_.text + "'");
    }
  }

  [[noreturn]] void refuse(const std::string& message) const {
    throw SyntaxError(message, token_.line, token_.column);
  }

  void check_depth(std::size_t depth) const {
    if (depth > kDeepestTree) refuse("nested too deeply");
  }

  template <typename... Parts>
  Tree node(NodeKind kind, std::string text, Parts... parts) const {
    Tree tree = std::make_unique<Node>();
    tree->kind = kind;
    tree->text = std::move(text);
    tree->line = token_.line;
    (add(*tree, std::move(parts)), ...);
    return tree;
  }

  void add(Node& tree, Tree part) const {
    tree.depth = std::max(tree.depth, part->depth + 1);
    check_depth(tree.depth);
    tree.parts.push_back(std::move(part));
  }

  Tree assignment(const Node& target) {
    const bool is_name = target.kind == NodeKind::kName;
    const bool is_quoted_name =
        target.kind == NodeKind::kUnevaluated && target.parts.front()->kind == NodeKind::kName;
    if (!is_name && !is_quoted_name) refuse("only a name can stand to the left of `:='");
    advance();
    return node(NodeKind::kAssign, is_name ? target.text : target.parts.front()->text, sequence());
  }

  // One expression alone, or a sequence of several.
  Tree sequence() {
    Tree first = equation();
    if (token_.kind != TokenKind::kComma) return first;
    Tree tree = node(NodeKind::kSequence, "", std::move(first));
    while (accept(TokenKind::kComma)) add(*tree, equation());
    return tree;
  }

  // What stands between brackets, which may be nothing, as parts of `tree`.
  Tree enclosed(NodeKind kind, std::string text, TokenKind close) {
    Tree tree = node(kind, std::move(text));
    if (accept(close)) return tree;
    do add(*tree, equation());
    while (accept(TokenKind::kComma));
    expect(close);
    return tree;
  }

  Tree equation() {
    Tree left = range();
    if (!accept(TokenKind::kEquals)) return left;
    return node(NodeKind::kEquation, "", std::move(left), range());
  }

  Tree range() {
    Tree low = sum();
    if (!accept(TokenKind::kDots)) return low;
    return node(NodeKind::kRange, "", std::move(low), sum());
  }

  Tree sum() {
    Tree left = product();
    for (;;) {
      if (accept(TokenKind::kPlus))
        left = node(NodeKind::kAdd, "+", std::move(left), product());
      else if (accept(TokenKind::kMinus))
        left = node(NodeKind::kSubtract, "-", std::move(left), product());
      else
        return left;
    }
  }

  Tree product() {
    Tree left = factor();
    while (accept(TokenKind::kTimes))
      left = node(NodeKind::kMultiply, "*", std::move(left), factor());
    return left;
  }

  // Every nesting passes here, so this is where the depth of the recursion is bounded.
  Tree factor() {
    check_depth(++nesting_);
    const std::size_t line = token_.line;
    Tree tree = unguarded_factor();
    tree->line = line;
    --nesting_;
    return tree;
  }

  Tree unguarded_factor() {
    Token token = std::exchange(token_, {});
    if (token.kind != TokenKind::kEnd) advance();
    switch (token.kind) {
      case TokenKind::kMinus:
        return negated(factor());
      case TokenKind::kString:
        return node(NodeKind::kString, std::move(token.text));
      case TokenKind::kInteger:
        return node(NodeKind::kInteger, std::move(token.text));
      case TokenKind::kFloat:
        return node(NodeKind::kFloat, std::move(token.text));
      case TokenKind::kName:
        if (accept(TokenKind::kOpenParenthesis))
          return enclosed(NodeKind::kCall, std::move(token.text), TokenKind::kCloseParenthesis);
        return node(NodeKind::kName, std::move(token.text));
      case TokenKind::kOpenParenthesis:
        return parenthesised();
      case TokenKind::kOpenBracket:
        return enclosed(NodeKind::kList, "", TokenKind::kCloseBracket);
      case TokenKind::kOpenBrace:
        return enclosed(NodeKind::kSet, "", TokenKind::kCloseBrace);
      case TokenKind::kQuote: {
        Tree tree = node(NodeKind::kUnevaluated, "", equation());
        expect(TokenKind::kQuote);
        return tree;
      }
      default:
        token_ = std::move(token);
        unexpected();
    }
  }

  Tree parenthesised() {
    Tree tree = enclosed(NodeKind::kSequence, "", TokenKind::kCloseParenthesis);
    return tree->parts.size() == 1 ? std::move(tree->parts.front()) : std::move(tree);
  }

  // The minus of a number belongs to the number.
  Tree negated(Tree tree) const {
    const bool is_number = tree->kind == NodeKind::kInteger || tree->kind == NodeKind::kFloat;
    if (!is_number) return node(NodeKind::kNegate, "-", std::move(tree));
    if (tree->text.front() == '-')
      tree->text.erase(0, 1);
    else
      tree->text.insert(0, 1, '-');
    return tree;
  }

  Lexer lexer_;
  Token token_;
  std::size_t nesting_ = 0;
};

}  // namespace

std::unique_ptr<Node> parse_statement(std::string_view source) {
  return Parser(source).statement();
}

}  // namespace velmor
