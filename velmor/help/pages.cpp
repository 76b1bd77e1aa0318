#include "help/pages.h"

namespace velmor {
namespace {

// clang-format off
constexpr OptionWord kOptionWords[] = {
    {"wrap", "countbytes", "= true: columns are bytes, tabs and backspaces too (false)"},
    {"wrap", "expandtabs", "= false: tabs stay tabs (true)"},
    {"wrap", "obeylines", "= true: line breaks stay (false)"},
    {"wrap", "obeyspaces", "= true: runs of blanks stay (false)"},
    {"stem", "stemmer", "= porter, lancaster, paice, plural or prefix (porter)"},
    {"stem", "trace_rules", "the rules of the Lancaster stemmer go to standard error"},
    {"stem", "no_trace_rules", "they do not, from now on"},
    {"hash", "method", "= md5 or md4 (md5)"},
    {"fmttime", "offset", "= n: n seconds from now"},
    {"fmttime", "timestamp", "= n: n seconds after the beginning of 1970, UTC"},
    {"ipsum", "paragraphs", "= n: that many of them"},
    {"ipsum", "characters", "= n: that many of them"},
    {"ipsum", "words", "= n: accepted, and gives the empty string"},
    {"random", "last", "the class of the call before"},
    {"random", "binary", "the letters 0 and 1"},
    {"dictCreate", "builtin", "the English dictionary, which is dictionary 0 from then on"},
};
// clang-format on

std::string classes() {
  return R"(Classes of bytes. Each has a command that asks whether every byte of a string
belongs to it, and one that asks whether some byte does: isdigit("2026"),
hasdigit("May 1"). snarf and random take a class by its name: snarf("42 is",
digit), random(5, lower).

  lower     a-z                    upper     A-Z
  alpha     a-z A-Z                digit     0-9
  alnum     a-z A-Z 0-9            xdigit    0-9 a-f A-F
  bdigit    0 1                    odigit    0-7
  space     blank, tab and others  punct     !-/ :-@ [-` {-~
  graph     !-~                    print     blank and !-~
  cntrl     codes 1-31 and 127     ascii     codes 1-127
  vowel     aeiou AEIOU            dna       ACGT
  ident     letters, digits, _ ?   ident1    letters, _ %

alnum is called alphaNumeric in isalphaNumeric and hasalphaNumeric; snarf and
random say binary for bdigit.

A class can also be described: [a-c_] holds a, b, c and _, [^a-c] all others,
and [:digit:] a class by its name. expandCharClass lists the members.
)";
}

std::string syntax() {
  return R"(A statement is an expression, or name := expression. Enter ends it at a prompt,
where an open bracket or `do' continues on the next line; in files and on
standard input it ends with ; or, when its value is not to be shown, with a
colon. # begins a comment.

  "text"              a string; \n \t \" \\ \351 (octal) \xe9 are escapes
  12, -3, 2.5         numbers; + - * of integers
  x, `a name`         names; one without a value stands for itself
  'x'                 not evaluated: the name, whatever its value is
  [1, 2], {1, 2}      a list and a set
  1, 2, 3             a sequence; in lists and arguments sequences flatten
  NULL                the sequence of nothing; one of one element is that
                      element
  2 .. 5, a = b       a range, an equation
  s[2], s[2 .. -1]    an item, or some, of a list, set or sequence, or bytes of
                      a string; -1 is the last
  a == b, a <> b      whether two values are the same; < <= > >= for two
                      numbers or two strings
  not a and b or c    with true and false
  f(x)                a call of a command or procedure
  x -> length(x) > 3  a procedure; (a, b) -> cap(a, b, b) is one of two
                      arguments

  for w in L do statements end    each statement for every item of L
  size(L)                         how many items L has
  apply(f, L)                     the list of f of each item
  table([f, g], L)                prints a row for each item, in columns
  readfile("name")                the contents of a file

L is a list, set or sequence. Where a command has found one thing, its sequence
is that thing itself: write [searchx(...)] to have a list in any case.

Commands, and true false FAIL NULL, cannot be assigned; for in do end and or not
are reserved, and as names are written in backquotes.

At a prompt: ?take or help take for one command, ? for all, ??word to search;
Tab completes; Ctrl-C interrupts and leaves all names as they were; quit or
Ctrl-D leaves.
)";
}

std::string options() {
  std::string text =
      "Words that commands take as they stand; in parentheses, what holds without them.\n"
      "For the options of the program itself: velmor --help.\n";
  std::string_view command;
  for (const OptionWord& row : kOptionWords) {
    if (row.command != command) text += "\n" + std::string(row.command) + "\n";
    command = row.command;
    std::string word(row.word);
    word.resize(16, ' ');
    text += "  " + word + std::string(row.what) + "\n";
  }
  return text;
}

constexpr Page kPages[] = {
    {"classes", "classes of bytes", classes},
    {"syntax", "the language", syntax},
    {"options", "words that commands take", options},
};

}  // namespace

std::span<const Page> pages() { return kPages; }

std::span<const OptionWord> option_words() { return kOptionWords; }

}  // namespace velmor
