#include "prompt/history.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

namespace velmor {
namespace {

std::filesystem::path state_directory() {
  const char* const state = std::getenv("XDG_STATE_HOME");
  if (state != nullptr && state[0] == '/') return state;
  const char* const home = std::getenv("HOME");
  if (home == nullptr || *home == '\0') return {};
  return std::filesystem::path(home) / ".local/state";
}

}  // namespace

History::History() {
  std::filesystem::path directory = state_directory();
  if (directory.empty()) return;
  directory /= "velmor";
  std::error_code error;
  std::filesystem::create_directories(directory, error);
  if (!error) file_ = directory / "history";
}

std::vector<std::string> History::load() const {
  std::vector<std::string> lines;
  std::ifstream in(file_, std::ios::binary);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  if (lines.size() <= kMost) return lines;
  lines.erase(lines.begin(), lines.end() - kMost);
  // Twice as much is too much to read each time: the file becomes what it is good for.
  const std::filesystem::path shorter = file_.string() + "." + std::to_string(getpid());
  std::ofstream out(shorter, std::ios::binary);
  for (const std::string& line : lines) out << line << '\n';
  out.close();
  std::error_code error;
  if (out) std::filesystem::rename(shorter, file_, error);
  return lines;
}

void History::append(const std::string& line) const {
  if (file_.empty()) return;
  const int file = open(file_.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  if (file < 0) return;
  const std::string text = line + '\n';
  [[maybe_unused]] const ssize_t written = write(file, text.data(), text.size());
  close(file);
}

}  // namespace velmor
