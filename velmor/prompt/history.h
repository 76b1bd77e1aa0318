// The lines typed so far, over all sessions, in $XDG_STATE_HOME/velmor/history, or
// ~/.local/state/velmor/history: one statement a line, the last one last.
#pragma once
#include <filesystem>
#include <string>
#include <vector>

namespace velmor {

class History {
 public:
  // Makes the file's directory. Without one, or a home, nothing is kept.
  History();

  // The last of the lines kept, of which there are at most kMost.
  std::vector<std::string> load() const;

  // Appends at once, so that sessions at the same time lose nothing of each other.
  void append(const std::string& line) const;

  static constexpr std::size_t kMost = 5000;

 private:
  std::filesystem::path file_;
};

}  // namespace velmor
