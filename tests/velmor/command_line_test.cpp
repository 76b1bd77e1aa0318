// The program velmor, run as a user runs it.
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

class CommandLine : public testing::Test {
 protected:
  CommandLine() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velmor-XXXXXX").string();
    directory_ = mkdtemp(pattern.data());
  }
  ~CommandLine() override { std::filesystem::remove_all(directory_); }

  std::string path(const std::string& name) const { return (directory_ / name).string(); }

  std::string file(const std::string& name, const std::string& contents) const {
    std::ofstream(path(name), std::ios::binary) << contents;
    return path(name);
  }

  std::string contents(const std::string& name) const {
    std::ostringstream text;
    text << std::ifstream(path(name), std::ios::binary).rdbuf();
    return text.str();
  }

  // Runs a line of shell in which $V is the program.
  int shell(const std::string& line) const {
    const std::string command = "V='" VELMOR_EXECUTABLE "'; " + line + " >" + path("out") + " 2>" +
                                path("err") + " <" + file("in", input_);
    return WEXITSTATUS(std::system(command.c_str()));
  }

  void expect(const std::string& line, int status, const std::string& out, const std::string& err) {
    EXPECT_EQ(shell(line), status) << line;
    EXPECT_EQ(contents("out"), out) << line;
    EXPECT_EQ(contents("err"), err) << line;
  }

  std::filesystem::path directory_;
  std::string input_;
};

TEST_F(CommandLine, Expressions) {
  expect(R"($V -e 'reverse("hello"), iota("a" .. "e")')", 0, "\"olleh\", \"abcde\"\n", "");
  expect(R"($V -e '-5' -e 'x := 2: take("abc", x);' -e NULL)", 0, "-5\n\"ab\"\n", "");
  expect(R"($V -e 'take("abc", -1)')", 1, "",
         "Error, (in take) second argument must be non-negative\n");
  expect("$V -e '1 +' -e 2", 1, "", "Error, unexpected end of the statement\n  1 +\n     ^\n");
  expect("$V -e 'x := 1' -e '2, tkae(1)'", 2, "", "Error, no command tkae; did you mean take?\n");
  expect("$V --symbolic -e 'tkae(1)'", 0, "tkae(1)\n", "");
}

TEST_F(CommandLine, StandardInputAndFiles) {
  input_ = "with(Lexiva);\nx := reverse(\"hello\"):\nx; take(x,\n-1);\nlength(x)";
  const std::string error = "Error, (in take) second argument must be non-negative (";
  expect("$V", 1, "\"olleh\"\n5\n", error + "standard input, line 3)\n");
  const std::string a = file("a.velmor", input_);
  expect("$V " + a + " " + file("b.velmor", "y :=\n3;x;"), 1, "\"olleh\"\n5\ny := 3\n\"olleh\"\n",
         error + a + ", line 3)\n");
  expect("$V " + a + " " + file("c.velmor", "y :=\n3;\nx y;x;"), 1, "",
         "Error, unexpected `y' (" + path("c.velmor") + ", line 3)\n  x y;\n    ^\n");
  expect("$V " + file("empty", "") + " " + path("none"), 1, "",
         "Error, cannot read " + path("none") + "\n");
}

// A program that drives velmor through pipes gets each answer before it sends the next line.
TEST_F(CommandLine, APipeIsAnsweredLineByLine) {
  input_ = "";
  const std::string script =
      "mkfifo {d}/p; $V <{d}/p | (exec 3>{d}/p; for w in a bc def; do"
      " echo \"reverse(\\\"$w\\\");\" >&3; read -r answer; echo \"got $answer\"; done)";
  std::string line = script;
  for (std::size_t at; (at = line.find("{d}")) != line.npos;)
    line.replace(at, 3, directory_.string());
  EXPECT_EQ(shell("(" + line + ")"), 0);
  EXPECT_EQ(contents("out"), "got \"a\"\ngot \"cb\"\ngot \"fed\"\n");
}

TEST_F(CommandLine, MapAnswersEachLine) {
  input_ = "abc\n\nxyz";
  expect("$V map 'reverse(_)'", 0, "cba\n\nzyx", "");
  expect("$V map 'length(_), _'", 0, "3, \"abc\"\n0, \"\"\n3, \"xyz\"", "");
  expect("$V map --init 'n := 2; s := \"-\"' 'cap(take(_, n), s, s)'", 0, "-ab-\n--\n-xy-", "");
  expect("$V map NULL", 0, "\n\n", "");
  expect("$V map _ " + file("a", "1\n2") + " " + file("b", "3\n"), 0, "1\n23\n", "");
  expect("$V map 'exchange(_, 1, 3)' " + file("c", "abc\nab\nxyz\n"), 1, "cba\n\nzyx\n",
         "Error, (in exchange) third argument is too large (line 2)\n");
  expect("$V map _ " + path("a") + " " + file("d", std::string("a\0b\nc\n", 6)), 1, "1\n2\nc\n",
         "Error, a string cannot hold a zero byte (" + path("d") + ", line 1)\n");
  expect("cd " + directory_.string() + "; $V map _ " +
             std::filesystem::path(file("help", "4")).filename().string(),
         0, "4", "");
  expect("$V map 'reverse(_'", 1, "",
         "Error, unexpected end of the statement\n  reverse(_\n           ^\n");
  expect("$V map --init 'take(1)' _", 1, "", "Error, (in take) expecting 2 arguments, but got 1\n");
  expect("$V map _ " + path("none"), 1, "",
         "Error, cannot open " + path("none") + ": No such file or directory\n");
}

// Lines around and beyond the size of a block, all bytes, with and without a newline at the end.
TEST_F(CommandLine, ReversingTwiceGivesTheTextBack) {
  std::string text;
  for (const std::size_t length :
       {0U, 1U, 262'142U, 1U, 262'143U, 262'144U, 262'145U, 700'000U, 0U, 5U}) {
    for (std::size_t i = 0; i < length; ++i) {
      const auto byte = static_cast<char>(1 + (i * 7 + length) % 255);
      text += byte == '\n' ? ' ' : byte;
    }
    text += '\n';
  }
  for (input_ = text + "end"; !input_.empty(); input_ = input_.size() > text.size() ? text : "") {
    EXPECT_EQ(shell("$V map 'reverse(_)'"), 0);
    EXPECT_NE(contents("out"), input_);
    file("once", contents("out"));
    EXPECT_EQ(shell("$V map 'reverse(_)' " + path("once")), 0);
    EXPECT_TRUE(contents("out") == input_);
  }
}

TEST_F(CommandLine, Help) {
  expect("$V help take", 0,
         "take(s, n) or take(s, chars)\n"
         "  The first n bytes of s, or the bytes before the first that occurs in chars.\n\n"
         "  > take(\"hello world\", \" \");\n  \"hello\"\n",
         "");
  EXPECT_EQ(shell("$V help"), 0);
  EXPECT_NE(contents("out").find("Substrings and editing\n  length  "), std::string::npos);
  expect("$V help nothing", 1, "", "Error, no such command: nothing; velmor help lists them\n");
}

TEST_F(CommandLine, LibraryAndUsage) {
  EXPECT_EQ(shell("$V --version"), 0);
  EXPECT_EQ(contents("out").find("\nvstring 5 (/"), contents("out").find('\n')) << contents("out");
  for (const char* line : {"VSTRING_LIBRARY=./none $V -e 1", "$V --library none -e 1",
                           "$V --library libc.so.6 map _"}) {
    EXPECT_EQ(shell(line), 1);
    EXPECT_EQ(contents("err").rfind("Error, cannot load vstring: ", 0), 0U) << contents("err");
  }
  EXPECT_EQ(shell("$V --library $(ldd $V | awk '/libedit/ {print $3}') -e 1"), 1);
  EXPECT_NE(contents("err").find(" is another library\n"), std::string::npos) << contents("err");
  expect("VSTRING_LIBRARY=./none $V --library " VSTRING_LIBRARY_FILE " -e 'version()'", 0, "5\n",
         "");
  for (const char* line : {"$V map", "$V --unknown", "$V -e", "$V -e 1 file"}) {
    EXPECT_EQ(shell(line), 2) << line;
    EXPECT_NE(contents("err"), "") << line;
  }
  EXPECT_EQ(shell("($V -e 1 >/dev/full)"), 1);
  EXPECT_EQ(contents("err"), "Error, cannot write\n");
}

TEST(Prompt, TalksAtATerminal) {
  int terminal = -1;
  const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
  ASSERT_GE(child, 0);
  if (child == 0) {
    setenv("TERM", "dumb", 1);
    execl(VELMOR_EXECUTABLE, "velmor", nullptr);
    _exit(127);
  }
  const std::string typed = "reverse(\n\"olleh\");\ntake(1);\nlength(\"\xc3\xa9\") + 40;\nquit;\n";
  ASSERT_EQ(write(terminal, typed.data(), typed.size()), static_cast<ssize_t>(typed.size()));
  std::string shown;
  std::array<char, 4096> buffer;
  for (ssize_t n; (n = read(terminal, buffer.data(), buffer.size())) > 0;)
    shown.append(buffer.data(), static_cast<std::size_t>(n));
  int status = -1;
  waitpid(child, &status, 0);
  close(terminal);
  EXPECT_EQ(status, 0);
  EXPECT_NE(shown.find("\"hello\""), std::string::npos) << shown;
  EXPECT_NE(shown.find("\n42\r"), std::string::npos) << shown;
  EXPECT_NE(shown.find("Error, (in take) expecting 2 arguments, but got 1"), std::string::npos)
      << shown;
}

}  // namespace
