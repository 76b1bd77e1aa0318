// The prompt, used through a pseudo terminal as at a keyboard; and many lines that nobody types.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <sstream>

#include "language/script.h"
#include "support/check.h"
#include "support/figures.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

class Prompt : public testing::Test {
 protected:
  Prompt() {
    std::string pattern = (fs::temp_directory_path() / "velmor-XXXXXX").string();
    directory_ = mkdtemp(pattern.data());
  }
  ~Prompt() override {
    if (terminal_ >= 0) leave();
    fs::remove_all(directory_);
  }

  void start(const char* term = "xterm", const char* locale = "C.UTF-8") {
    const winsize size{40, 90, 0, 0};
    child_ = forkpty(&terminal_, nullptr, nullptr, &size);
    ASSERT_GE(child_, 0);
    if (child_ == 0) {
      setenv("TERM", term, 1);
      setenv("LC_ALL", locale, 1);
      setenv("XDG_STATE_HOME", directory_.c_str(), 1);
      // libedit keeps the names of a program's own editing functions for good.
      setenv("ASAN_OPTIONS", "detect_leaks=0", 1);
      execl(VELMOR_EXECUTABLE, "velmor", nullptr);
      _exit(127);
    }
    see("> ");
  }

  // Types, and waits until this has been shown from here on.
  void type(const std::string& keys, const std::string& shown) {
    ASSERT_EQ(write(terminal_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
    see(shown);
  }

  void see(const std::string& shown) {
    if (HasFailure()) return;  // one is enough, and each takes its time
    const auto end = Clock::now() + std::chrono::seconds(20);
    std::size_t at;
    while ((at = seen_.find(shown)) == seen_.npos) {
      pollfd waiting{terminal_, POLLIN, 0};
      if (Clock::now() > end || poll(&waiting, 1, 20'000) <= 0 || !read_more()) {
        FAIL() << "waiting for " << shown << " in " << seen_;
      }
    }
    seen_.erase(0, at + shown.size());
  }

  bool read_more() {
    std::array<char, 4096> buffer;
    const ssize_t n = read(terminal_, buffer.data(), buffer.size());
    if (n > 0) seen_.append(buffer.data(), static_cast<std::size_t>(n));
    return n > 0;
  }

  // The exit code; what came until then is in seen_.
  int leave(const std::string& keys = "quit\n") {
    if (write(terminal_, keys.data(), keys.size()) < 0) return -1;
    pollfd waiting{terminal_, POLLIN, 0};
    while (poll(&waiting, 1, 10'000) > 0 && read_more()) {
    }
    if (waiting.revents == 0) kill(child_, SIGKILL);  // it does not leave by itself
    int status = -1;
    waitpid(child_, &status, 0);
    close(terminal_);
    terminal_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }

  fs::path directory_;
  int terminal_ = -1;
  pid_t child_ = -1;
  std::string seen_;
};

TEST_F(Prompt, ASession) {
  start();
  type("leven\t", "levenshtein(s, t)");
  type("(\"kitten\", \"sitting\")\n", "\n3\r");
  type("stem(\"churches\", \t", "stem(word");
  type("stemm\t", "plural or prefix (porter)");
  type(" = plural)\n", "\"church\"");
  type("names := [\"ann\",\n", ".. ");
  type("\"bob\"]\n", "names := [\"ann\", \"bob\"]");
  type("for n in nam\t", "es");
  type(" do\n", ".. ");
  type("reverse(n);\nend\n", "\"nna\"\r\n\"bob\"");
  type("revrse(\"a\")\n", "Error, no command revrse; did you mean reverse?");
  type("take(\"abc\" 1)\n", "\n  take(\"abc\" 1)\r\n             ^");
  type("\"not closed\n", "Error, the string is not closed on its line");
  type("\"a\tb\xc3\xa9\"\n", "\n\"a\\tb\xc3\xa9\"");
  type("??fuzzy\n", "asearch ");
  type("?take\n", "take(s, n) or take(s, chars)");
  type("help clases\n", "Error, no help on clases; did you mean classes?");
  type("1 + \x03", "\n");
  type("1 + 41\n", "\n42\r");
  type("take := 1\n", "Error, cannot assign to take, which is a command");
  EXPECT_EQ(leave("  quit ; \n"), 0);

  start("dumb", "C");
  type("\x10\n", "Error, cannot assign to take");  // ^P: the last statement of the first session
  type("\"\xc3\xa9\"\n", "\n\"\\303\\251\"");
  see("> ");
  EXPECT_EQ(leave("\x04"), 0);
}

// A call of minutes, left behind in a moment, twice, with everything as it was before it.
TEST_F(Prompt, CtrlCInterruptsACall) {
  start();
  type("x := [\"kept\"]; randomise(7):\n", "x := [\"kept\"]");
  for (int round = 0; round < 2; ++round) {
    type("x := 5; y := levenshtein(repeat(\"ab\", 3000000), repeat(\"c\", 6000000)); 77\n",
         "x := 5\r\n");
    usleep(300'000);
    const auto begin = Clock::now();
    type("\x03", "Error, interrupted; all names are as they were before");
    EXPECT_LT(Clock::now() - begin, std::chrono::seconds(5));
    type("x, y, 1 + 1\n", "\n5, y, 2\r");
    EXPECT_EQ(seen_.find("77"), std::string::npos);
  }
  type("hash(random(9))\n", "\n\"");
  EXPECT_EQ(leave(), 0);
}

// ---- Lines that nobody types ----

std::string random_line(std::mt19937& random) {
  static const std::vector<std::string> kPieces = vstring_test::separate(
      R"~((|)|[|]|{|}|,|;|:|:=|..|=|==|<|<>|+|-|*|'|"|`|->| |#|x|y|f|for | in | do | end |)~"
      R"~( and | or | not |1|2|-1|0|2.5|"ab"|""|"a b"|\|take|reverse|search|apply|table|size|)~"
      R"~(NULL|true|[1, 2]|x -> |(x, y) -> |length|split|fmtmsg|period|readfile|TRY|)~"
      R"~(take("abc", 2)|f := x -> reverse(x)|for x in [1, 2] do x end|f("ab")|)~"
      "\xc3|\xe2\x82\xac|\x01",
      "|");
  std::string line;
  for (std::size_t n = 1 + random() % 12; n > 0; --n) line += kPieces[random() % kPieces.size()];
  return line;
}

TEST(PromptLines, AreAnsweredWhateverTheyAre) {
  velmor::Session session([](const std::string& entry_point) {
    return reinterpret_cast<VelmorCommand>(dlsym(RTLD_DEFAULT, entry_point.c_str()));
  });
  std::ostringstream out, err;
  velmor::Script script(session, out, err, "", velmor::EndsOfStatements::kLines);
  std::mt19937 random(1);
  const int lines = vstring_test::long_tier() ? 100'000 : 10'000;
  vstring_test::figure("lines_survived") += lines;
  for (int i = 0; i < lines; ++i) {
    script.feed(random_line(random) + '\n');
    if (i % 5 == 0) script.drop();
    if (i % 100 != 0) continue;
    out.str("");
    script.feed("length(\"abc\")\n");
    ASSERT_EQ(out.str(), "3\n");
    err.str("");
  }
  EXPECT_STREQ(velmor_faults(session.heap()), "");
}

}  // namespace
