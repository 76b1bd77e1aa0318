#include "language/parser.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "language/failure.h"
#include "language/lexer.h"

namespace velmor {
namespace {

using Tree = std::unique_ptr<Node>;

class Parser {
 public:
  explicit Parser(std::string_view source) : source_(source), lexer_(source) {
    token_ = lexer_.next();
  }

  Tree statement() {
    Tree tree = simple_statement();
    accept(TokenKind::kTerminator);
    if (token_.kind != TokenKind::kEnd) unexpected();
    return tree;
  }

 private:
  void advance() {
    words_.emplace_back(token_.begin, token_.end);
    token_ = lexer_.next();
  }

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
      case TokenKind::kFor:
      case TokenKind::kIn:
      case TokenKind::kDo:
      case TokenKind::kEndWord:
        refuse("unexpected `" + token_.text + "', a reserved word");
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

  Tree simple_statement() {
    if (token_.kind == TokenKind::kFor) return guarded([&] { return loop(); });
    Tree tree = sequence();
    return token_.kind == TokenKind::kAssign ? assignment(*tree) : std::move(tree);
  }

  Tree loop() {
    Tree tree = node(NodeKind::kFor, "");
    advance();
    if (token_.kind == TokenKind::kName) tree->text = token_.text;
    expect(TokenKind::kName);
    expect(TokenKind::kIn);
    add(*tree, sequence());
    expect(TokenKind::kDo);
    while (!accept(TokenKind::kEndWord)) {
      if (accept(TokenKind::kTerminator)) continue;
      Tree body = simple_statement();
      body->prints = token_.text != ":";
      add(*tree, std::move(body));
      if (token_.kind != TokenKind::kEndWord) expect(TokenKind::kTerminator);
    }
    return tree;
  }

  // One expression alone, or a sequence of several.
  Tree sequence() {
    Tree first = expression();
    if (token_.kind != TokenKind::kComma) return first;
    Tree tree = node(NodeKind::kSequence, "", std::move(first));
    while (accept(TokenKind::kComma)) add(*tree, expression());
    return tree;
  }

  // What stands between brackets, which may be nothing, as parts of `tree`.
  Tree enclosed(NodeKind kind, std::string text, TokenKind close) {
    Tree tree = node(kind, std::move(text));
    if (accept(close)) return tree;
    do add(*tree, expression());
    while (accept(TokenKind::kComma));
    expect(close);
    return tree;
  }

  Tree expression() {
    const std::size_t first_word = words_.size();
    Tree left = equation();
    if (token_.kind != TokenKind::kArrow) return left;
    return guarded([&] { return procedure(*left, first_word); });
  }

  // `head` is what stands before the arrow: a name, or a sequence of names in parentheses.
  Tree procedure(Node& head, std::size_t first_word) {
    Tree tree = node(NodeKind::kProcedure, "");
    if (head.kind == NodeKind::kSequence) {
      tree->parts = std::move(head.parts);
    } else {
      add(*tree, node(head.kind, head.text));
    }
    for (const Tree& name : tree->parts)
      if (name->kind != NodeKind::kName) refuse("only names can stand to the left of `->'");
    advance();
    add(*tree, expression());
    tree->text = text_since(first_word);
    return tree;
  }

  // The words from that one on, with a blank where something stood between them: no comment, no
  // end of a line.
  std::string text_since(std::size_t first_word) const {
    std::string text;
    for (std::size_t i = first_word; i < words_.size(); ++i) {
      if (i > first_word && words_[i].first > words_[i - 1].second) text += ' ';
      text += source_.substr(words_[i].first, words_[i].second - words_[i].first);
    }
    return text;
  }

  Tree equation() {
    Tree left = disjunction();
    if (!accept(TokenKind::kEquals)) return left;
    return node(NodeKind::kEquation, "", std::move(left), disjunction());
  }

  Tree disjunction() {
    Tree left = conjunction();
    while (accept(TokenKind::kOr)) left = node(NodeKind::kOr, "or", std::move(left), conjunction());
    return left;
  }

  Tree conjunction() {
    Tree left = negation();
    while (accept(TokenKind::kAnd)) left = node(NodeKind::kAnd, "and", std::move(left), negation());
    return left;
  }

  Tree negation() {
    if (!accept(TokenKind::kNot)) return comparison();
    return guarded([&] { return node(NodeKind::kNot, "not", negation()); });
  }

  Tree comparison() {
    Tree left = range();
    if (token_.kind != TokenKind::kComparison) return left;
    std::string op = token_.text;
    advance();
    return node(NodeKind::kCompare, std::move(op), std::move(left), range());
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
  template <typename Parse>
  Tree guarded(Parse parse) {
    check_depth(++nesting_);
    const std::size_t line = token_.line;
    Tree tree = parse();
    tree->line = line;
    --nesting_;
    return tree;
  }

  Tree factor() {
    return guarded([&] {
      if (accept(TokenKind::kMinus)) return negated(factor());
      Tree tree = primary();
      while (accept(TokenKind::kOpenBracket)) {
        tree = node(NodeKind::kIndex, "", std::move(tree), expression());
        expect(TokenKind::kCloseBracket);
      }
      return tree;
    });
  }

  Tree primary() {
    Token token = token_;
    if (token.kind != TokenKind::kEnd) advance();
    switch (token.kind) {
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
        Tree tree = node(NodeKind::kUnevaluated, "", expression());
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

  std::string_view source_;
  Lexer lexer_;
  Token token_;
  std::vector<std::pair<std::size_t, std::size_t>> words_;  // where they begin and end, so far
  std::size_t nesting_ = 0;
};

}  // namespace

std::unique_ptr<Node> parse_statement(std::string_view source) {
  return Parser(source).statement();
}

}  // namespace velmor
