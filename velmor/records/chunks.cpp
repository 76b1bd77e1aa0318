#include "records/chunks.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace velmor {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 18;

bool has_input(int descriptor) {
  pollfd wait{descriptor, POLLIN, 0};
  return poll(&wait, 1, 0) != 0;
}

}  // namespace

ChunkReader::ChunkReader(int descriptor, RecordFormat format, std::function<void()> before_waiting)
    : descriptor_(descriptor),
      format_(format),
      before_waiting_(std::move(before_waiting)),
      buffer_(kBlock, '\0') {}

bool ChunkReader::next(std::size_t wanted, Chunk& chunk) {
  for (;;) {
    const std::string_view rest(buffer_.data() + begin_, end_ - begin_);
    std::size_t size = whole_records(format_, rest, wanted, searched_);
    if (size == 0 && at_end_) size = rest.size();
    if (size > 0) {
      chunk.bytes = rest.substr(0, size);
      chunk.first_line = next_line_;
      next_line_ += static_cast<std::size_t>(std::ranges::count(chunk.bytes, format_.terminator()));
      begin_ += size;
      searched_ = 0;
      return true;
    }
    if (at_end_) return false;
    searched_ = rest.size();
    at_end_ = !refill();
  }
}

// Reads more behind what is left, which moves to the front.
bool ChunkReader::refill() {
  if (begin_ > 0) std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
  end_ -= begin_;
  begin_ = 0;
  if (end_ == buffer_.size()) buffer_.resize(2 * buffer_.size());
  if (!has_input(descriptor_)) before_waiting_();
  for (;;) {
    const ssize_t n = read(descriptor_, buffer_.data() + end_, buffer_.size() - end_);
    if (n > 0) end_ += static_cast<std::size_t>(n);
    if (n >= 0) return n > 0;
    if (errno == EAGAIN) {
      before_waiting_();
      pollfd wait{descriptor_, POLLIN, 0};
      poll(&wait, 1, -1);
    } else if (errno != EINTR) {
      error_ = errno;
      return false;
    }
  }
}

}  // namespace velmor
