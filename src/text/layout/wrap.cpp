#include "text/layout/wrap.h"

#include <algorithm>
#include <cstddef>

#include "bytes/scan_stream.h"
#include "charclass/predicates.h"

namespace vstring::text {
namespace {

constexpr std::size_t kTabStop = 8;

bool is_space(Byte c) { return charclass::is(c, charclass::kSpace); }

// What the stream of a scan does, for short texts.
struct PlainSpaces {
  std::size_t find(std::size_t at) const {
    while (at < text.size() && !is_space(text[at])) ++at;
    return at;
  }
  Bytes text;
};

class Wrapper {
 public:
  Wrapper(Bytes text, const WrapSettings& settings, GrowingText& out)
      : text_(text), settings_(settings), out_(out) {}

  // `spaces` finds the next whitespace.
  template <typename Spaces>
  bool run(Spaces spaces) {
    if (!out_.has_room(text_.size()) &&
        !out_.reserve_more(text_.size() + most_breaks() + kCopyBlock)) {
      return false;
    }
    bool behind_space = false;
    for (std::size_t i = 0; i < text_.size();) {
      const std::size_t first = i;
      if (is_space(text_[first])) {
        if (!whitespace(i, behind_space)) return false;
        behind_space = true;
      } else {
        i = spaces.find(first + 1);
        if (!word(first, i - first)) return false;
        behind_space = false;
      }
    }
    return copy_up_to(text_.size());
  }

 private:
  // Of two lines that follow each other, both have more columns than one may have; and before a
  // break stands whitespace. Where spaces are obeyed there may be more.
  std::size_t most_breaks() const {
    return std::min(text_.size() / 2, 2 * (text_.size() / settings_.width) + 2);
  }

  // These are false when memory fails. What has been passed and not been copied yet goes to the
  // result as it is.
  bool word(std::size_t first, std::size_t length) {
    if (column_ + length > settings_.width && first != 0 &&
        (settings_.obey_lines || last_before(first) != '\n') && !break_line(first)) {
      return false;
    }
    column_ += length;
    return true;
  }

  Byte last_before(std::size_t i) const { return copied_ < i ? text_[i - 1] : out_.back(); }

  // Byte i of the text, which is whitespace, and maybe more of the same: the first rule that
  // applies.
  bool whitespace(std::size_t& i, bool behind_space) {
    const std::size_t first = i++;
    const Byte c = text_[first];
    if ((settings_.count_bytes && (c == '\b' || c == '\t')) ||
        (!settings_.expand_tabs && c == '\t')) {
      ++column_;
      return true;
    }
    if (settings_.obey_lines && c == '\n') {
      column_ = 0;
      return true;
    }
    if (settings_.obey_spaces) return obeyed_space(first);
    if (behind_space) {
      while (i < text_.size() && text_[i] == c) ++i;
      return leave_out(first, i);
    }
    ++column_;
    return true;
  }

  bool obeyed_space(std::size_t i) {
    if (text_[i] == '\t') {
      const std::size_t blanks = kTabStop - column_ % kTabStop;
      if (!leave_out(i, i + 1) || !out_.push_back(' ', blanks)) return false;
      column_ += blanks;
    } else {
      column_ += text_[i] == '\b' ? 0 : 1;
    }
    return column_ <= settings_.width || break_line(i + 1);
  }

  bool break_line(std::size_t i) {
    column_ = 0;
    return copy_up_to(i) && out_.push_back('\n');
  }

  bool leave_out(std::size_t first, std::size_t end) {
    if (!copy_up_to(first)) return false;
    copied_ = end;
    return true;
  }

  bool copy_up_to(std::size_t i) {
    const std::size_t first = copied_;
    copied_ = i;
    return first == i || out_.append_part(text_, first, i - first);
  }

  const Bytes text_;
  const WrapSettings settings_;
  GrowingText& out_;
  std::size_t column_ = 0;
  std::size_t copied_ = 0;  // how much of the text has been copied or left out
};

}  // namespace

Status wrap(Bytes text, const WrapSettings& settings, GrowingText& out) {
  // Below this, asking the class table for every byte costs less than asking for all of them.
  constexpr std::size_t kWorthScan = 512;
  Wrapper wrapper(text, settings, out);
  bool done = false;
  if (text.size() < kWorthScan) {
    done = wrapper.run(PlainSpaces{text});
  } else {
    const ByteScan scan = charclass::scan_of(charclass::kSpace, 255);
    done = wrapper.run(ScanStream(scan, text));
  }
  return done ? Status::ok : Status::out_of_memory;
}

}  // namespace vstring::text
