#include "language/statements.h"

#include <utility>

namespace velmor {
namespace {

bool is_word(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

}  // namespace

void StatementSplitter::feed(std::string_view text) {
  text_.erase(0, begin_);
  at_ -= begin_;
  begin_ = 0;
  text_ += text;
}

Statement StatementSplitter::cut(bool prints) {
  Statement statement{text_.substr(begin_, at_ - begin_), prints, first_line_};
  begin_ = at_;
  begun_ = false;
  loops_ = brackets_ = 0;
  first_line_ = line_;
  return statement;
}

void StatementSplitter::drop() {
  at_ = text_.size();
  state_ = State::kPlain;
  word_.clear();
  cut(false);
}

std::optional<Statement> StatementSplitter::next() {
  while (at_ < text_.size()) {
    const char c = text_[at_];
    // A colon may be half of ":=", and a backslash escapes the byte behind it.
    const bool quoted = state_ == State::kString || state_ == State::kName;
    const bool needs_the_next = (state_ == State::kPlain && c == ':') || (c == '\\' && quoted);
    if (needs_the_next && at_ + 1 == text_.size()) return std::nullopt;
    ++at_;
    if (c == '\n') {
      finish_word();
      ++line_;
      state_ = State::kPlain;  // neither comments nor strings go beyond their line
      if (begun_ && (quoted || line_ends_statement())) return cut(true);
    } else if (quoted) {
      if (c == '\\' && text_[at_] != '\n')
        ++at_;
      else if (c == (state_ == State::kString ? '"' : '`'))
        state_ = State::kPlain;
    } else if (state_ == State::kPlain) {
      if (!is_word(c)) finish_word();
      if (loops_ == 0 && (c == ';' || (c == ':' && text_[at_] != '='))) {
        const bool empty = !begun_;
        Statement statement = cut(c == ';');
        if (!empty) return statement;
      } else {
        pass_plain(c);
      }
    }
  }
  return std::nullopt;
}

void StatementSplitter::pass_plain(char c) {
  if (c == '#') {
    state_ = State::kComment;
    return;
  }
  if (c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v') return;
  begun_ = true;
  if (c == '"') state_ = State::kString;
  if (c == '`') state_ = State::kName;
  if (is_word(c)) word_ += c;
  if (c == '(' || c == '[' || c == '{') ++brackets_;
  if ((c == ')' || c == ']' || c == '}') && brackets_ > 0) --brackets_;
}

void StatementSplitter::finish_word() {
  if (word_ == "do") ++loops_;
  if (word_ == "end" && loops_ > 0) --loops_;
  word_.clear();
}

bool StatementSplitter::line_ends_statement() const {
  return ends_ == EndsOfStatements::kLines && loops_ == 0 && brackets_ == 0;
}

std::optional<Statement> StatementSplitter::rest() {
  const bool closed_by_colon = at_ + 1 == text_.size() && state_ == State::kPlain;
  at_ = text_.size();
  finish_word();
  if (!begun_) return std::nullopt;
  return cut(!closed_by_colon);
}

}  // namespace velmor
