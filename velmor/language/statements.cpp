#include "language/statements.h"

#include <utility>

namespace velmor {

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
  first_line_ = line_;
  return statement;
}

std::optional<Statement> StatementSplitter::next() {
  while (at_ < text_.size()) {
    const char c = text_[at_];
    // A colon may be half of ":=", and a backslash escapes the byte behind it.
    const bool needs_the_next = (state_ == State::kPlain && c == ':') ||
                                (c == '\\' && (state_ == State::kString || state_ == State::kName));
    if (needs_the_next && at_ + 1 == text_.size()) return std::nullopt;
    ++at_;
    if (c == '\n') {
      ++line_;
      state_ = State::kPlain;  // neither comments nor strings go beyond their line
      continue;
    }
    switch (state_) {
      case State::kComment:
        break;
      case State::kString:
      case State::kName:
        if (c == '\\' && text_[at_] != '\n')
          ++at_;
        else if (c == (state_ == State::kString ? '"' : '`'))
          state_ = State::kPlain;
        break;
      case State::kPlain:
        if (c == '#') {
          state_ = State::kComment;
        } else if (c == ';' || (c == ':' && text_[at_] != '=')) {
          const bool empty = !begun_;
          Statement statement = cut(c == ';');
          if (!empty) return statement;
        } else if (c != ' ' && c != '\t' && c != '\r' && c != '\f' && c != '\v') {
          begun_ = true;
          if (c == '"') state_ = State::kString;
          if (c == '`') state_ = State::kName;
        }
    }
  }
  return std::nullopt;
}

std::optional<Statement> StatementSplitter::rest() {
  const bool closed_by_colon = at_ + 1 == text_.size() && state_ == State::kPlain;
  at_ = text_.size();
  if (!begun_) return std::nullopt;
  return cut(!closed_by_colon);
}

}  // namespace velmor
