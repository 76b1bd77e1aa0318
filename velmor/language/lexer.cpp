#include "language/lexer.h"

#include <algorithm>
#include <cstdio>

#include "heap/utf8.h"
#include "language/failure.h"

namespace velmor {
namespace {

struct Symbol {
  std::string_view text;
  TokenKind kind;
};

constexpr Symbol kReserved[] = {
    {"for", TokenKind::kFor},     {"in", TokenKind::kIn},   {"do", TokenKind::kDo},
    {"end", TokenKind::kEndWord}, {"and", TokenKind::kAnd}, {"or", TokenKind::kOr},
    {"not", TokenKind::kNot},
};

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool starts_name(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }

// Value of a digit in a base of at most 16; -1 when it is none.
int digit_value(char c, int base) {
  int value = -1;
  if (is_digit(c)) value = c - '0';
  if (c >= 'a' && c <= 'f') value = c - 'a' + 10;
  if (c >= 'A' && c <= 'F') value = c - 'A' + 10;
  return value < base ? value : -1;
}

// The byte that a one-letter escape stands for; 0 when there is no such escape.
char simple_escape(char letter) {
  constexpr std::string_view kLetters = "abefnrtv\\\"'`?";
  constexpr std::string_view kBytes = "\a\b\033\f\n\r\t\v\\\"'`?";
  const std::size_t i = kLetters.find(letter);
  return i == std::string_view::npos ? '\0' : kBytes[i];
}

}  // namespace

bool Lexer::digit_at(std::size_t i) const { return i < source_.size() && is_digit(source_[i]); }

void Lexer::skip_blanks_and_comments() {
  for (; at_ < source_.size(); ++at_) {
    char c = source_[at_];
    if (c == '#') {
      at_ = std::min(source_.find('\n', at_), source_.size());
      if (at_ == source_.size()) return;
      c = '\n';
    }
    if (c == '\n') {
      ++line_;
      line_begin_ = at_ + 1;
    } else if (c != ' ' && c != '\t' && c != '\r' && c != '\f' && c != '\v') {
      return;
    }
  }
}

Token Lexer::next() {
  Token token = scan();
  token.end = at_;
  if (token.kind == TokenKind::kEnd) return {TokenKind::kEnd, "", end_line_, end_column_};
  end_line_ = line_;
  end_column_ = at_ - line_begin_ + 1;
  return token;
}

Token Lexer::scan() {
  skip_blanks_and_comments();
  if (at_ == source_.size()) return token(TokenKind::kEnd, at_, "");
  const char c = source_[at_];
  if (c == '"' || c == '`') return quoted(c);
  if (is_digit(c) || (c == '.' && digit_at(at_ + 1))) return number();
  if (!starts_name(c)) return symbol();
  const std::size_t begin = at_;
  while (at_ < source_.size() && (starts_name(source_[at_]) || is_digit(source_[at_]))) ++at_;
  const std::string_view word = source_.substr(begin, at_ - begin);
  const auto reserved = std::ranges::find(kReserved, word, &Symbol::text);
  return token(reserved == std::end(kReserved) ? TokenKind::kName : reserved->kind, begin,
               std::string(word));
}

Token Lexer::token(TokenKind kind, std::size_t begin, std::string text) const {
  return {kind, std::move(text), line_, begin - line_begin_ + 1, begin, at_};
}

void Lexer::refuse(const std::string& message, std::size_t at) const {
  throw SyntaxError(message, line_, at - line_begin_ + 1);
}

Token Lexer::quoted(char delimiter) {
  const std::string kind = delimiter == '"' ? "string" : "quoted name";
  const std::size_t begin = at_++;
  std::string text;
  for (;;) {
    if (at_ == source_.size() || source_[at_] == '\n')
      refuse("the " + kind + " is not closed on its line", begin);
    const std::size_t here = at_;
    char c = source_[at_++];
    if (c == delimiter)
      return token(c == '"' ? TokenKind::kString : TokenKind::kName, begin, std::move(text));
    if (c == '\\') c = escape();
    if (c == '\0') refuse("a " + kind + " cannot hold a zero byte", here);
    text += c;
  }
}

// The byte of an escape; at_ stands behind its backslash.
char Lexer::escape() {
  const char letter = at_ < source_.size() ? source_[at_] : '\n';
  const bool hexadecimal = letter == 'x';
  const int base = hexadecimal ? 16 : 8;
  const int most_digits = hexadecimal ? 2 : 3;
  std::size_t i = at_ + (hexadecimal ? 1 : 0);
  int value = 0;
  int digits = 0;
  for (; digits < most_digits && i < source_.size(); ++digits, ++i) {
    const int digit = digit_value(source_[i], base);
    if (digit < 0) break;
    value = value * base + digit;
  }
  if (digits > 0 && value <= 255) {
    at_ = i;
    return static_cast<char>(value);
  }
  const char byte = simple_escape(letter);
  if (byte == '\0')
    refuse("unknown escape in a string; a backslash itself is written \\\\", at_ - 1);
  ++at_;
  return byte;
}

// Digits, then perhaps a point (unless it begins "..") with digits, then perhaps an exponent.
Token Lexer::number() {
  const std::size_t begin = at_;
  TokenKind kind = TokenKind::kInteger;
  while (digit_at(at_)) ++at_;
  if (source_.substr(at_, 1) == "." && source_.substr(at_, 2) != "..") {
    kind = TokenKind::kFloat;
    ++at_;
    while (digit_at(at_)) ++at_;
  }
  if (at_ < source_.size() && (source_[at_] == 'e' || source_[at_] == 'E')) {
    const std::size_t sign = source_.substr(at_ + 1, 1).find_first_of("+-") == 0 ? 1 : 0;
    if (digit_at(at_ + 1 + sign)) {
      kind = TokenKind::kFloat;
      at_ += 1 + sign;
      while (digit_at(at_)) ++at_;
    }
  }
  return token(kind, begin, std::string(source_.substr(begin, at_ - begin)));
}

Token Lexer::symbol() {
  // The longer ones first.
  constexpr Symbol kSymbols[] = {
      {":=", TokenKind::kAssign},
      {"->", TokenKind::kArrow},
      {"==", TokenKind::kComparison},
      {"<>", TokenKind::kComparison},
      {"<=", TokenKind::kComparison},
      {">=", TokenKind::kComparison},
      {"<", TokenKind::kComparison},
      {">", TokenKind::kComparison},
      {"..", TokenKind::kDots},
      {"(", TokenKind::kOpenParenthesis},
      {")", TokenKind::kCloseParenthesis},
      {"[", TokenKind::kOpenBracket},
      {"]", TokenKind::kCloseBracket},
      {"{", TokenKind::kOpenBrace},
      {"}", TokenKind::kCloseBrace},
      {",", TokenKind::kComma},
      {"=", TokenKind::kEquals},
      {"+", TokenKind::kPlus},
      {"-", TokenKind::kMinus},
      {"*", TokenKind::kTimes},
      {"'", TokenKind::kQuote},
      {";", TokenKind::kTerminator},
      {":", TokenKind::kTerminator},
  };
  for (const Symbol& symbol : kSymbols) {
    if (source_.substr(at_, symbol.text.size()) != symbol.text) continue;
    const std::size_t begin = at_;
    at_ += symbol.text.size();
    return token(symbol.kind, begin, std::string(symbol.text));
  }
  const std::string_view rest = source_.substr(at_);
  std::string shown(rest.substr(0, std::max<std::size_t>(1, utf8_shown(rest))));
  if (shown.size() == 1 && (shown[0] < ' ' || shown[0] > '~')) {
    char escaped[8];
    std::snprintf(escaped, sizeof escaped, "\\%03o", static_cast<unsigned char>(shown[0]));
    shown = escaped;
  }
  refuse("unexpected character `" + shown + "'", at_);
}

}  // namespace velmor
