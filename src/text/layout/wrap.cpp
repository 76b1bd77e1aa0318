#include "text/layout/wrap.h"

#include <cstddef>

#include "charclass/class_table.h"

namespace vstring::text {
namespace {

constexpr std::size_t kTabStop = 8;

bool is_space(Byte c) { return charclass::is(c, charclass::kSpace); }

class Wrapper {
 public:
  Wrapper(Bytes text, const WrapSettings& settings, GrowingText& out)
      : text_(text), settings_(settings), out_(out) {}

  bool run() {
    for (std::size_t i = 0; i < text_.size();) {
      const std::size_t first = i++;
      if (is_space(text_[first])) {
        if (!whitespace(first)) return false;
      } else {
        while (i < text_.size() && !is_space(text_[i])) ++i;
        if (!word(first, i - first)) return false;
      }
    }
    return true;
  }

 private:
  // These are false when memory fails.
  bool word(std::size_t first, std::size_t length) {
    if (column_ + length > settings_.width && first != 0 &&
        (settings_.obey_lines || out_.back() != '\n') && !break_line()) {
      return false;
    }
    column_ += length;
    return out_.append(text_.subspan(first, length));
  }

  // Byte i of the text, which is whitespace: the first rule that applies.
  bool whitespace(std::size_t i) {
    const Byte c = text_[i];
    if ((settings_.count_bytes && (c == '\b' || c == '\t')) ||
        (!settings_.expand_tabs && c == '\t')) {
      return copy(c, 1);
    }
    if (settings_.obey_lines && c == '\n') return break_line();
    if (settings_.obey_spaces) return obeyed_space(c);
    return (i > 0 && is_space(text_[i - 1])) || copy(c, 1);
  }

  bool obeyed_space(Byte c) {
    if (c == '\t') {
      const std::size_t blanks = kTabStop - column_ % kTabStop;
      if (!out_.push_back(' ', blanks)) return false;
      column_ += blanks;
    } else if (!copy(c, c == '\b' ? 0 : 1)) {
      return false;
    }
    return column_ <= settings_.width || break_line();
  }

  bool copy(Byte c, std::size_t columns) {
    column_ += columns;
    return out_.push_back(c);
  }

  bool break_line() {
    column_ = 0;
    return out_.push_back('\n');
  }

  const Bytes text_;
  const WrapSettings settings_;
  GrowingText& out_;
  std::size_t column_ = 0;
};

}  // namespace

Status wrap(Bytes text, const WrapSettings& settings, GrowingText& out) {
  return Wrapper(text, settings, out).run() ? Status::ok : Status::out_of_memory;
}

}  // namespace vstring::text
