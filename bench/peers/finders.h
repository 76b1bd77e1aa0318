// Finders of one pattern, all with one face: the offset of the next occurrence at `from` or later
// in a text that a zero byte ends.
#pragma once
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "harness/job.h"
#ifdef VSTRING_PEER_RUST
#include "peers/rust/rust_peers.h"
#endif
#ifdef VSTRING_PEER_STRINGZILLA
#include "peers/stringzilla.h"
#endif

namespace bench {

inline constexpr std::size_t kNowhere = std::string::npos;

inline std::size_t offset_in(std::string_view text, const char* found) {
  return found == nullptr ? kNowhere : static_cast<std::size_t>(found - text.data());
}

// Appends all occurrences, overlapping ones included, for a finder that has no better way.
template <typename Finder>
void append_all(const Finder& finder, std::string_view text, std::vector<std::size_t>& found) {
  for (std::size_t at = finder.next(text, 0); at != kNowhere; at = finder.next(text, at + 1)) {
    found.push_back(at);
  }
}

struct Memmem {
  static constexpr const char* kWho = "memmem";
  std::string pattern;
  std::size_t next(std::string_view text, std::size_t from) const {
    return offset_in(text, static_cast<const char*>(memmem(text.data() + from, text.size() - from,
                                                           pattern.data(), pattern.size())));
  }
};

struct Strstr {
  static constexpr const char* kWho = "strstr";
  std::string pattern;
  std::size_t next(std::string_view text, std::size_t from) const {
    return offset_in(text, std::strstr(text.data() + from, pattern.c_str()));
  }
};

struct ViewFind {
  static constexpr const char* kWho = "string_view::find";
  std::string pattern;
  std::size_t next(std::string_view text, std::size_t from) const {
    return text.find(pattern, from);
  }
};

#ifdef VSTRING_PEER_STRINGZILLA
struct Zilla {
  static constexpr const char* kWho = "stringzilla";
  std::string pattern;
  std::size_t next(std::string_view text, std::size_t from) const {
    return offset_in(
        text, zilla_find(text.data() + from, text.size() - from, pattern.data(), pattern.size()));
  }
};
#endif

#ifdef VSTRING_PEER_RUST
class Rust {
 public:
  static constexpr const char* kWho = "Rust memchr";
  explicit Rust(const std::string& pattern)
      : finder_(rust_finder_new(pattern.data(), pattern.size()), rust_finder_free) {}
  std::size_t next(std::string_view text, std::size_t from) const {
    const std::size_t at = rust_find(finder_.get(), text.data() + from, text.size() - from);
    return at == kNowhere ? at : from + at;
  }
  friend void append_all(const Rust& rust, std::string_view text, std::vector<std::size_t>& found) {
    rust_find_all(
        rust.finder_.get(), text.data(), text.size(),
        [](void* all, std::size_t at, std::size_t) {
          static_cast<std::vector<std::size_t>*>(all)->push_back(at);
        },
        &found);
  }

 private:
  std::shared_ptr<RustFinder> finder_;
};
#endif

// Adds a contestant for each finder: the work that `work_of(finder)` gives.
template <typename WorkOf>
void add_finders(std::vector<Contestant>& contestants, const std::string& pattern, WorkOf work_of) {
  const auto add = [&]<typename Finder>(Finder finder) {
    contestants.push_back({Finder::kWho, work_of(finder)});
  };
  add(Memmem{pattern});
  add(Strstr{pattern});
  add(ViewFind{pattern});
#ifdef VSTRING_PEER_STRINGZILLA
  add(Zilla{pattern});
#endif
#ifdef VSTRING_PEER_RUST
  add(Rust(pattern));
#endif
}

}  // namespace bench
