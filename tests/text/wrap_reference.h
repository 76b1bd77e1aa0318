// Wrapping by definition.
#pragma once
#include <string>

namespace vstring_test {

struct WrapOptions {
  bool count_bytes;
  bool expand_tabs;
  bool obey_lines;
  bool obey_spaces;
};

// The rules of wrapping spelled out, a byte at a time.
inline std::string wrapped(const std::string& text, unsigned width, const WrapOptions& options) {
  const auto is_space = [](char c) {
    return std::string(" \t\n\v\f\r").find(c) != std::string::npos;
  };
  std::string out;
  unsigned column = 0;
  for (std::size_t i = 0; i < text.size();) {
    const char c = text[i];
    if (!is_space(c)) {
      std::string word;
      const std::size_t first = i;
      while (i < text.size() && !is_space(text[i])) word += text[i++];
      if (column + word.size() > width && first > 0 && (options.obey_lines || out.back() != '\n')) {
        out += '\n';
        column = 0;
      }
      out += word;
      column += static_cast<unsigned>(word.size());
      continue;
    }
    ++i;
    if (c == '\t' && (options.count_bytes || !options.expand_tabs)) {
      out += c;
      ++column;
    } else if (options.obey_lines && c == '\n') {
      out += c;
      column = 0;
    } else if (!options.obey_spaces) {
      if (i >= 2 && is_space(text[i - 2])) continue;
      out += c;
      ++column;
    } else {
      do {
        out += c == '\t' ? ' ' : c;
        ++column;
      } while (c == '\t' && column % 8 != 0);
      if (column > width) {
        out += '\n';
        column = 0;
      }
    }
  }
  return out;
}

}  // namespace vstring_test
