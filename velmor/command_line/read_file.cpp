#include "command_line/read_file.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace velmor {
namespace {

constexpr const char* kByteOrderMark = "\xef\xbb\xbf";

struct Close {
  void operator()(std::FILE* file) const {
    if (file != stdin) std::fclose(file);
  }
};

}  // namespace

void remove_byte_order_mark(std::string& text) {
  if (text.starts_with(kByteOrderMark)) text.erase(0, std::strlen(kByteOrderMark));
}

std::string read_script(const std::string& name) {
  const std::unique_ptr<std::FILE, Close> file(name == "-" ? stdin
                                                           : std::fopen(name.c_str(), "rb"));
  std::string contents;
  std::array<char, 1 << 16> block;
  for (std::size_t n; file && (n = std::fread(block.data(), 1, block.size(), file.get())) > 0;)
    contents.append(block.data(), n);
  if (!file || std::ferror(file.get()) != 0)
    throw std::runtime_error("cannot read " + (name == "-" ? "standard input" : name) + ": " +
                             std::strerror(errno));
  remove_byte_order_mark(contents);
  return contents;
}

}  // namespace velmor
