#include <cstdint>
#include <cstdlib>
#include <new>
#include <utility>
#include <vector>

#include "heap/object.h"
#include "json.h"
#include "language/failure.h"

namespace vstring_sqlite {
namespace {

using velmor::Failure;

HostObject made(HostObject object) {
  if (object == 0) throw std::bad_alloc();
  return object;
}

class Reader {
 public:
  Reader(VelmorHeap* heap, std::string_view text) : heap_(heap), text_(text) {}

  HostObject whole() {
    const HostObject result = value(1);
    if (next() != '\0') refuse();
    return result;
  }

 private:
  [[noreturn]] void refuse() const {
    throw Failure("invalid JSON at byte " + std::to_string(at_ + 1));
  }

  // The next byte that is no blank, not passed over; zero at the end.
  char next() {
    at_ = std::min(text_.find_first_not_of(" \t\n\r", at_), text_.size());
    return at_ < text_.size() ? text_[at_] : '\0';
  }

  bool accept(char c) {
    if (next() != c) return false;
    ++at_;
    return true;
  }

  void expect(char c) {
    if (!accept(c)) refuse();
  }

  HostObject value(std::size_t depth) {
    if (depth > kDeepestJson) throw Failure("JSON nested too deeply");
    switch (next()) {
      case '[':
        return array(depth);
      case '{':
        return object(depth);
      case '"':
        return string();
      case 't':
        return name("true");
      case 'f':
        return name("false");
      case 'n':
        throw Failure("a list cannot hold null");
      default:
        return number();
    }
  }

  HostObject name(std::string_view name) {
    if (!text_.substr(at_).starts_with(name)) refuse();
    at_ += name.size();
    return made(velmor_name(heap_, name.data()));
  }

  HostObject array(std::size_t depth) {
    ++at_;
    std::vector<HostObject> items;
    if (!accept(']')) {
      do items.push_back(value(depth + 1));
      while (accept(','));
      expect(']');
    }
    return made(velmor_list(heap_, items.size(), items.data()));
  }

  HostObject object(std::size_t depth) {
    ++at_;
    std::vector<HostObject> members;
    if (!accept('}')) {
      do {
        if (next() != '"') refuse();
        const HostObject key = string();
        expect(':');
        members.push_back(member(key, value(depth + 1)));
      } while (accept(','));
      expect('}');
    }
    return made(velmor_sequence(heap_, members.size(), members.data()));
  }

  HostObject member(HostObject key, HostObject value) {
    if (velmor::text_view(key) == ".." && velmor_tag(value) == HOST_TAG_LIST &&
        velmor_size(value) == 2)
      return made(velmor_range(heap_, velmor_element(value, 1), velmor_element(value, 2)));
    // A side of an equation is one value.
    if (velmor_tag(value) == HOST_TAG_SEQUENCE)
      value =
          velmor_size(value) == 1 ? velmor_element(value, 1) : made(velmor_list(heap_, 1, &value));
    return made(velmor_equation(heap_, key, value));
  }

  // -?(0|[1-9][0-9]*) with a fraction and an exponent or without.
  HostObject number() {
    const std::size_t begin = at_;
    const auto sign = [this](std::string_view signs) {
      if (at_ < text_.size() && signs.find(text_[at_]) != signs.npos) ++at_;
    };
    const auto digits = [this] {
      const std::size_t first = at_;
      at_ = std::min(text_.find_first_not_of("0123456789", at_), text_.size());
      if (at_ == first) refuse();
      return text_[first] == '0' && at_ - first > 1;
    };
    sign("-");
    if (digits()) refuse();
    const std::size_t integer_end = at_;
    if (text_.substr(at_).starts_with('.')) ++at_, digits();
    if (text_.substr(at_).starts_with('e') || text_.substr(at_).starts_with('E')) {
      ++at_;
      sign("+-");
      digits();
    }
    const std::string written(text_.substr(begin, at_ - begin));
    if (at_ == integer_end) return made(velmor_big_integer(heap_, written.c_str()));
    return made(velmor_float(heap_, std::strtod(written.c_str(), nullptr)));
  }

  HostObject string() {
    std::string bytes;
    for (++at_;;) {
      const std::size_t plain = std::min(text_.find_first_of("\"\\", at_), text_.size());
      bytes += text_.substr(at_, plain - at_);
      at_ = plain;
      if (at_ == text_.size()) refuse();
      if (text_[at_++] == '"') break;
      append_escape(bytes);
    }
    if (bytes.find('\0') != bytes.npos) throw Failure("a string cannot hold a zero byte");
    return made(velmor_string_n(heap_, bytes.data(), bytes.size()));
  }

  void append_escape(std::string& bytes) {
    static constexpr std::string_view kLetters = "\"\\/bfnrt", kMeant = "\"\\/\b\f\n\r\t";
    const char letter = at_ < text_.size() ? text_[at_] : '\0';
    const std::size_t simple = kLetters.find(letter);
    if (letter != 'u' && simple == kLetters.npos) refuse();
    ++at_;
    if (letter != 'u') {
      bytes += kMeant[simple];
      return;
    }
    std::uint32_t code = hexadecimal();
    if (code >= 0xd800 && code < 0xdc00 && text_.substr(at_).starts_with("\\u")) {
      const std::size_t after_first = std::exchange(at_, at_ + 2);
      const std::uint32_t second = hexadecimal();
      if (second >= 0xdc00 && second < 0xe000)
        code = 0x10000 + ((code - 0xd800) << 10) + (second - 0xdc00);
      else
        at_ = after_first;
    }
    append_character(bytes, code);
  }

  std::uint32_t hexadecimal() {
    std::uint32_t code = 0;
    for (int i = 0; i < 4; ++i, ++at_) {
      const char c = at_ < text_.size() ? text_[at_] : '\0';
      const char lower = static_cast<char>(c | 0x20);
      if (c >= '0' && c <= '9')
        code = code * 16 + static_cast<std::uint32_t>(c - '0');
      else if (lower >= 'a' && lower <= 'f')
        code = code * 16 + static_cast<std::uint32_t>(lower - 'a' + 10);
      else
        refuse();
    }
    return code;
  }

  static void append_character(std::string& bytes, std::uint32_t code) {
    const auto put = [&](std::uint32_t byte) { bytes += static_cast<char>(byte); };
    if (code < 0x80) return put(code);
    if (code >= 0xdc80 && code <= 0xdcff) return put(code & 0xff);
    if (code < 0x800) {
      put(0xc0 | (code >> 6));
    } else {
      if (code < 0x10000) {
        put(0xe0 | (code >> 12));
      } else {
        put(0xf0 | (code >> 18));
        put(0x80 | ((code >> 12) & 0x3f));
      }
      put(0x80 | ((code >> 6) & 0x3f));
    }
    put(0x80 | (code & 0x3f));
  }

  VelmorHeap* heap_;
  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace

HostObject read_json(VelmorHeap* heap, std::string_view text) { return Reader(heap, text).whole(); }

}  // namespace vstring_sqlite
