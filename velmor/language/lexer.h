// Tokens of the language.
//
//   "text"  `a name`  name  12  -1.5e3 (minus is a token of its own)  ( ) [ ] { } , .. = := + - * '
//   -> == <> < <= > >= ; :
//
// for in do end and or not are reserved: as names they are written in backquotes.
// Strings and quoted names know the escapes \a \b \e \f \n \r \t \v \\ \" \' \` \?, \ooo (up to
// three octal digits) and \xhh (up to two hexadecimal ones), and end on the line they begin on.
// A comment runs from # to the end of its line.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace velmor {

enum class TokenKind {
  kEnd,
  kString,
  kName,
  kInteger,
  kFloat,
  kOpenParenthesis,
  kCloseParenthesis,
  kOpenBracket,
  kCloseBracket,
  kOpenBrace,
  kCloseBrace,
  kComma,
  kDots,
  kEquals,
  kAssign,
  kPlus,
  kMinus,
  kTimes,
  kQuote,
  kTerminator,
  kArrow,
  kComparison,
  kFor,
  kIn,
  kDo,
  kEndWord,
  kAnd,
  kOr,
  kNot,
};

struct Token {
  TokenKind kind = TokenKind::kEnd;
  std::string text;  // as written; of strings and names, what they stand for
  std::size_t line = 1;
  std::size_t column = 1;          // of its first byte
  std::size_t begin = 0, end = 0;  // in the source
};

class Lexer {
 public:
  // `source` must outlive the lexer.
  explicit Lexer(std::string_view source) : source_(source) {}

  // The next token; kEnd, behind the last one, at the end and ever after. Throws SyntaxError.
  Token next();

 private:
  Token scan();
  void skip_blanks_and_comments();
  Token token(TokenKind kind, std::size_t begin, std::string text) const;
  Token quoted(char delimiter);
  Token number();
  Token symbol();
  char escape();
  [[noreturn]] void refuse(const std::string& message, std::size_t at) const;
  bool digit_at(std::size_t i) const;

  std::string_view source_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
  std::size_t line_begin_ = 0;
  std::size_t end_line_ = 1, end_column_ = 1;  // behind the last token
};

}  // namespace velmor
