#include "output/standard_output.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <iostream>
#include <stdexcept>
#include <string>

#include "output/write_all.h"

namespace velmor {

StandardOutput::StandardOutput() : before_(std::cout.rdbuf(this)) {
  setp(buffer_.data(), buffer_.data() + buffer_.size());
}

StandardOutput::~StandardOutput() {
  sync();
  std::cout.rdbuf(before_);
}

void StandardOutput::finish() {
  sync();
  if (error_ != 0) throw std::runtime_error(std::string("cannot write: ") + std::strerror(error_));
}

StandardOutput::int_type StandardOutput::overflow(int_type c) {
  if (sync() != 0) return traits_type::eof();
  return traits_type::eq_int_type(c, traits_type::eof()) ? traits_type::not_eof(c)
                                                         : sputc(traits_type::to_char_type(c));
}

int StandardOutput::sync() {
  const std::string_view pending(pbase(), static_cast<std::size_t>(pptr() - pbase()));
  if (!write_all(STDOUT_FILENO, pending) && error_ == 0) error_ = errno;
  setp(buffer_.data(), buffer_.data() + buffer_.size());
  return error_ == 0 ? 0 : -1;
}

}  // namespace velmor
