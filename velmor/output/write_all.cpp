#include "output/write_all.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

namespace velmor {

bool write_all(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t n = ::write(descriptor, bytes.data(), bytes.size());
    if (n >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(n));
    } else if (errno == EAGAIN) {
      pollfd wait{descriptor, POLLOUT, 0};
      poll(&wait, 1, -1);
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

}  // namespace velmor
