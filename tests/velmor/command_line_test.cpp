// The program velmor, run as a user runs it.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "support/figures.h"

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
  expect("$V " + file("empty", "") + " " + path("none") + " " +
             file("c.velmor",
                  "\xef\xbb\xbf"
                  "3;"),
         1, "3\n", "Error, cannot read " + path("none") + ": No such file or directory\n");
  input_ = "1";
  expect("$V -", 0, "1\n", "");
  input_ =
      "\xef\xbb\xbf"
      "1;\r\n2;\r\n";
  expect("$V", 0, "1\n2\n", "");
}

TEST_F(CommandLine, ExpressionsInOtherForms) {
  expect(
      "$V --json -e 'searchx(\"z\", \"abc\"), [1, -12345678901234567890], {true, FAIL}, 1.5'"
      " -e 'searchx(\"b\", \"abc\")' -e 'x := 2' -e NULL",
      0, "[[],[1,-12345678901234567890],[true,null],1.5]\n[2]\nnull\n", "");
  expect(R"($V --json -e '"\"\\\n\001\351", [], abc, 1 .. 2, ()')", 0,
         "[\"\\\"\\\\\\n\\u0001\xc3\xa9\",[],\"abc\",\"1 .. 2\"]\n", "");
  expect(R"($V --tsv -e '"a\tb\\", [1, "c"], FAIL' -e '["x", "y"]' -e '"z"')", 0,
         "a\\tb\\\\\t[1, \"c\"]\tFAIL\nx\ty\nz\n", "");
  expect(R"($V -r -e '"a\nb\351"' -e '["a"]')", 0, "a\nb\xe9\n[\"a\"]\n", "");
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
  expect("$V map --init 'n := 2' --init-file " + file("init", "\xef\xbb\xbfn := n + 1;") + " n -",
         0, "3\n3\n3", "");
  expect("$V map NULL", 0, "\n\n", "");
  expect("$V map -- '-1 + length(_)'", 0, "2\n-1\n2", "");
  expect("$V map --json 'searchx(\"b\", _)'", 0, "[2]\n[]\n[]", "");
  expect("$V map --tsv '_n, [_]'", 0, "1\t[\"abc\"]\n2\t[\"\"]\n3\t[\"xyz\"]", "");
  expect("$V map _ " + file("a", "1\n2") + " " + file("b", "3\n"), 0, "1\n2\n3\n", "");
  expect("$V map '_n, _file' " + path("a") + " - " + path("b"), 0,
         "1, \"" + path("a") + "\"\n2, \"" + path("a") + "\"\n1, \"-\"\n2, \"-\"\n3, \"-\"\n1, \"" +
             path("b") + "\"\n",
         "");
  expect("$V map 'exchange(_, 1, 3)' " + file("c", "abc\nab\nxyz\n"), 1, "cba\n\nzyx\n",
         "Error, (in exchange) third argument is too large (line 2)\n");
  expect("$V map _ " + path("a") + " " + file("d", std::string("a\0b\nc\n", 6)), 1, "1\n2\n\nc\n",
         "Error, a string cannot hold a zero byte (" + path("d") + ", line 1)\n");
  expect("cd " + directory_.string() + "; $V map _ " +
             std::filesystem::path(file("help", "4")).filename().string(),
         0, "4", "");
  expect("$V map 'reverse(_'", 1, "",
         "Error, unexpected end of the statement\n  reverse(_\n           ^\n");
  expect("$V map --init 'take(1)' _", 1, "",
         "Error, (in take) expecting 2 arguments, but got 1 (--init, line 1)\n");
  expect("$V map --init '1: 2 2' _", 1, "",
         "Error, unexpected `2' (--init, line 1)\n   2 2\n     ^\n");
  expect("$V map 'revers(_)'", 2, "", "Error, no command revers; did you mean reverse?\n");
  expect("$V map --init 'f := g' 'f(_)'", 2, "\n\n",
         "Error, no command g (line 1)\nError, no command g (line 2)\n"
         "Error, no command g (line 3)\n");
}

TEST_F(CommandLine, FilterAndCount) {
  input_ = "b\na\n\nb\nab\nb";
  expect("$V filter 'isprefix(\"a\", _)'", 0, "a\nab\n", "");
  expect("$V filter 'isprefix(\"c\", _)'", 0, "", "");
  expect("$V filter 'isprefix(\"b\", _)'", 0, "b\nb\nb", "");
  expect("$V filter 'regsub(\"a\", _, \"&\")'", 1, "",
         "Error, expecting true or false, but got FAIL (line 1)\n"
         "Error, expecting true or false, but got \"a\" (line 2)\n"
         "Error, expecting true or false, but got FAIL (line 3)\n"
         "Error, expecting true or false, but got FAIL (line 4)\n"
         "Error, expecting true or false, but got \"a\" (line 5)\n"
         "Error, expecting true or false, but got FAIL (line 6)\n");
  expect("$V filter NULL --max-errors 1", 1, "",
         "Error, expecting true or false, but got no value (line 1)\n"
         "Error, 6 evaluations failed, 1 of them are shown\n");
  expect("$V count _", 0, "3\tb\n1\ta\n1\t\n1\tab\n", "");
  expect("$V count 'length(_)' - " + file("x", "abc\nab"), 0, "4\t1\n2\t2\n1\t0\n1\t3\n", "");
  expect("$V count --json '_, 1'", 0,
         "[3,[\"b\",1]]\n[1,[\"a\",1]]\n[1,[\"\",1]]\n[1,[\"ab\",1]]\n", "");
}

TEST_F(CommandLine, FieldsOfALine) {
  input_ = "a  b\tc\n\n d\n";
  expect("$V map '_1, _3, _10'", 0, "\"a\", \"c\", \"\"\n\"\", \"\", \"\"\n\"d\", \"\", \"\"\n",
         "");
  expect(R"($V map -F '\t' '_1, _2')", 0, "\"a  b\", \"c\"\n\"\", \"\"\n\" d\", \"\"\n", "");
  expect("$V map -F ' ' --json '[_1, _2, _3]'", 0,
         "[\"a\",\"\",\"b\\tc\"]\n[\"\",\"\",\"\"]\n[\"\",\"d\",\"\"]\n", "");
  expect(R"($V map -F '\x62\011' --init 'f := "_9"' _2)", 0, "c\n\n\n", "");
  for (const char* separator : {"''", R"('\q')", R"('\')", R"('\0')", R"('\x')"})
    EXPECT_EQ(shell(std::string("$V map _1 -F ") + separator), 2) << separator;
}

TEST_F(CommandLine, OtherRecords) {
  input_ = std::string("a\0b\nc\0d", 7);
  expect("$V map -0 'reverse(_)'", 0, std::string("a\0c\nb\0d", 7), "");
  input_ = "\n\none\ntwo\n\n\nthree\n";
  expect("$V map --paragraphs '_n, _'", 0, "3, \"one\\ntwo\"\n\n7, \"three\"\n", "");
  expect("$V filter --paragraphs 'has(\"w\", _)'", 0, "one\ntwo\n", "");
  expect("$V filter --paragraphs true", 0, "one\ntwo\n\nthree\n", "");
  expect("$V map --paragraphs --json 'length(_)'", 0, "7\n5\n", "");
  input_ = "\n>s1 the first\nACGT\n\nAC\n>\n>s3\nGG";
  expect("$V map --fasta 'cap(_, _id, \":\")'", 0, ">s1 the first\ns1ACGTAC:\n>\n:\n>s3\ns3GG:\n",
         "");
  expect("$V map --fasta --tsv '_id, _n, length(_)'", 0, "s1\t2\t6\n\t6\t0\ns3\t7\t2\n", "");
  expect("$V filter --fasta 'has(\"A\", _)'", 0, ">s1 the first\nACGT\n\nAC\n", "");
  expect("$V count --fasta 'has(\"A\", _)'", 0, "2\tfalse\n1\ttrue\n", "");
  expect("$V map --fasta _ " + file("plain", "ACGT\n>s\nA\n"), 1, "\n>s\nA\n",
         "Error, text before the first FASTA header (line 1)\n");
}

TEST_F(CommandLine, CarriageReturns) {
  input_ = "a\r\nb\r\n";
  expect("$V map 'length(_)'", 0, "2\n2\n",
         "Warning, a carriage return ends a line; --crlf drops it (line 1)\n");
  expect("$V map --crlf 'length(_)'", 0, "1\n1\n", "");
  input_ = "a\r\n\r\nb\r\n";
  expect("$V map --crlf --paragraphs _", 0, "a\n\nb\n", "");
}

TEST_F(CommandLine, FilesThatCannotBeReadDoNotStopTheOthers) {
  const std::string files =
      file("a", "x\ny\n") + " " + path("none") + " " + directory_.string() + " " + path("a");
  const std::string errors = "Error, cannot read " + path("none") +
                             ": No such file or directory\nError, cannot read " +
                             directory_.string() + ": Is a directory\n";
  for (const char* workers : {"", " -j 2"}) {
    expect("$V map _ " + files + workers, 1, "x\ny\nx\ny\n", errors);
    expect("$V filter true " + files + workers, 1, "x\ny\nx\ny\n", errors);
    expect("$V count _ " + files + workers, 1, "2\tx\n2\ty\n", errors);
  }
}

// Ten thousand lines that nobody would write, and expressions that nearly are some: an answer or an
// error, never a crash, and the same with workers.
TEST_F(CommandLine, RandomLinesAndExpressions) {
  std::mt19937 random(2026);
  const auto below = [&](std::size_t n) { return random() % n; };
  const std::vector<std::string> pieces = {
      "reverse(_)", "_1",  "(",        ")",       "[",      "]",    "\"",    "'",     ",",
      "..",         ":=",  "searchx(", "_n",      "{",      "}",    ";",     ":",     "\\",
      "`",          "#",   "=",        "<>",      "x -> ",  "for",  "in",    "do",    "end",
      "-",          "123", "not ",     "take(",   "\xff",   "\t",   " and ", "1.5",   ">",
      "size",       "\n",  "?",        "regsub(", "\"a+\"", "_, 2", "true",  "1 .. 2"};
  std::string text;
  constexpr int lines = 10'000;
  for (int i = 0; i < lines; ++i) {
    for (std::size_t n = below(12); n > 0; --n)
      text += below(3) > 0 ? pieces[below(pieces.size())]
                           : std::string(1, static_cast<char>(below(256)));
    text += '\n';
  }
  file("text", text);
  for (const std::string job :
       {"map 'regsub(_1, _2, _3)'", "map --json 'searchx(_2, _)'", "filter 'wild(_1, _2)'",
        "map --paragraphs 'split(_, \"(\"), readfile(_1)'",
        "map --fasta --tsv '_id, levenshtein(_id, _)'", "map -0 'stem(_)'",
        "count -F '\"' 'snarf(_3, \"a-z\"), _1[1]'",
        "map 'fmttime(_, timestamp = 0), substr(_, _n .. -1)'"}) {
    const int status = shell("$V " + job + " " + path("text"));
    EXPECT_LE(status, 1) << job;
    const std::string out = contents("out"), err = contents("err");
    vstring_test::figure("lines_survived") += lines;
    expect("$V " + job + " -j 2 " + path("text"), status, out, err);
  }
  input_ = "a b c\n1 2 3\n";
  for (int i = 0; i < 150; ++i) {
    std::string expression;
    for (std::size_t n = 1 + below(5); n > 0; --n) expression += pieces[below(pieces.size())];
    file("expression", expression);
    const std::string quoted = " -- \"$(cat " + path("expression") + ")\"";
    const std::string line =
        "$V " + std::array{"map" + quoted, "filter" + quoted, "count" + quoted,
                           "map _ --init-file " + path("expression")}[below(4)];
    EXPECT_LE(shell(line), 2) << line << ' ' << expression;
  }
}

// What has come in is answered before more does.
TEST_F(CommandLine, APauseInTheInputIsAnswered) {
  for (const std::string options : {"", "-j 2"}) {
    const std::string pipe = path("p" + std::to_string(options.size()));
    const std::string line =
        "mkfifo " + pipe + "; $V map " + options + " 'reverse(_)' <" + pipe + " | (exec 3>" + pipe +
        "; for w in ab cde; do printf \"$w\\n$w\" >&3; read -r answer; echo \"got $answer\"; done;"
        " exec 3>&-; cat)";
    EXPECT_EQ(shell("(" + line + ")"), 0);
    EXPECT_EQ(contents("out"), "got ba\ngot edcba\nedc");
  }
}

// Workers give the answers of one process: lines, errors and their order, byte for byte.
TEST_F(CommandLine, WorkersAnswerInOrder) {
  std::string text;
  for (std::size_t i = 0; i < 60'000; ++i) text += std::string(i * i % 97, 'x') + "\n\n>";
  file("text", text);
  for (const std::string job :
       {"map 'reverse(_), _n'", "filter 'isprefix(\">x\", _)'", "count 'length(_)'",
        "map --max-errors 100000 'substr(_, 3 .. 4)'", "map --paragraphs 'length(_)'",
        "count --fasta --json '_'", "map --init 'x := 3' 'x'"}) {
    const int status = shell("$V " + job + " " + path("text"));
    const std::string out = contents("out"), err = contents("err");
    expect("$V " + job + " -j 3 " + path("text"), status, out, err);
    EXPECT_NE(out, "");
  }
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
         "  The first n bytes of s, or the bytes before the first that occurs in chars.\n"
         "    s            a string\n"
         "    n            an integer\n"
         "    chars        a string, whose bytes count\n"
         "  Returns a string; s itself when n exceeds its length or no byte of chars occurs.\n"
         "  Cost: linear in the texts.\n\n"
         "  > take(\"hello world\", \" \");\n  \"hello\"\n",
         "");
  EXPECT_EQ(shell("$V help"), 0);
  EXPECT_NE(contents("out").find("Substrings and editing\n  length "), std::string::npos);
  EXPECT_EQ(contents("out").find("wildTester"), std::string::npos);
  EXPECT_EQ(shell("$V help map"), 0);
  EXPECT_NE(contents("out").find("--max-errors N"), std::string::npos);
  expect("$V help tkae", 1, "", "Error, no help on tkae; did you mean take?\n");
  expect(
      "$V help '?complement'", 0,
      "  tr               s with every byte found in from replaced by the one at the same position "
      "of to.\n                     tr(\"ACGT\", \"TGCA\", \"GATTACA\") gives \"CTAATGT\"\n"
      "  revcomp          The reverse complement of a nucleotide sequence, IUPAC codes included.\n"
      "                     revcomp(\"GATTACA\") gives \"TGTAATC\"\n",
      "");
  for (const std::string search :
       {"fuzzy|\n  asearch ", "mismatch|  hsearch ", "regex|  regmatch ", "rotation|  rotate ",
        "edit distance|  levenshtein ", "'?regulra'|  regsub ", "apply|apply(f, L)\n",
        "classes|isdigit(\"2026\")", "syntax|x -> length(x) > 3", "options|  obeyspaces ",
        "randomness|  randperm "}) {
    const std::size_t bar = search.find('|');
    EXPECT_EQ(shell("$V help " + search.substr(0, bar)), 0) << search;
    EXPECT_NE(contents("out").find(search.substr(bar + 1)), std::string::npos)
        << search << contents("out");
  }
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
  for (const char* line :
       {"$V map", "$V --unknown", "$V -e", "$V -e 1 file", "$V -e 1 map _", "$V map _ -e 1",
        "$V --version -e 1", "$V --version file", "$V --json file", "$V -r", "$V file map _",
        "$V map _ -j 0", "$V map _ --max-errors -1", "$V map _ --json --tsv", "$V map _ -0 --fasta",
        "$V completion tcsh", "$V filter --json true"}) {
    EXPECT_EQ(shell(line), 2) << line;
    EXPECT_NE(contents("err"), "") << line;
  }
}

TEST_F(CommandLine, StreamsThatCannotBeUsed) {
  input_ = "1;\n";
  for (const char* line : {"$V -e 1", "$V", "$V -", "$V map _", "$V map -j 2 _", "$V filter true",
                           "$V count _", "$V help", "$V help take", "$V --help", "$V map --help",
                           "$V --version", "$V completion zsh", "$V manual"}) {
    EXPECT_EQ(shell(std::string("(") + line + " >/dev/full)"), 1) << line;
    EXPECT_EQ(contents("err"), "Error, cannot write: No space left on device\n") << line;
  }
  for (const char* line : {"$V", "$V -", "$V map _", "$V map -j 2 _", "$V count _ -"})
    expect(std::string("(") + line + " <&-)", 1, "",
           "Error, cannot read standard input: Bad file descriptor\n");
  for (const char* line : {"$V -e 1", "$V map _ -j 2", "$V help"})
    expect(std::string("(") + line + " >&-)", 1, "", "Error, cannot write: Bad file descriptor\n");
  expect("(yes | $V map _ | head -n 1)", 0, "y\n", "");
  expect("(yes '1;' | $V | head -n 1)", 0, "1\n", "");
}

// The completion of bash, as bash asks for it.
TEST_F(CommandLine, CompletionAndManual) {
  const std::string ask =
      "bash -c 'source <($V completion bash); COMP_WORDS=(velmor \"$@\"); COMP_CWORD=$#; _velmor;"
      " echo ${COMPREPLY[*]}' _ ";
  expect("export V; " + ask + "f", 0, "filter\n", "");
  expect("export V; " + ask + "map --pa", 0, "--paragraphs\n", "");
  expect("export V; " + ask + "help levensh", 0, "levenshtein\n", "");
  expect("export V; " + ask + "completion ''", 0, "bash zsh fish\n", "");
  EXPECT_EQ(shell("$V manual"), 0);
  for (const char* word :
       {".TH VELMOR 1", "\\fB\\-\\-max\\-errors\\fR \\fIN\\fR", "\\fBtake(s, n)"})
    EXPECT_NE(contents("out").find(word), std::string::npos) << word;
}

}  // namespace
