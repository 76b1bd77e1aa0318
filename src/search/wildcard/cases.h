// What every build of the matcher must answer: run by wildTest, printed as a script by wildTester,
// and part of our own tests.
#pragma once
#include <array>

namespace vstring::search {

struct WildcardCase {
  const char* pattern;
  const char* text;
};

// clang-format off
inline constexpr WildcardCase kMatching[] = {
    {"*", ""},
    {"*", "a"},
    {"*", "abc"},
    {"?", "a"},
    {"[--z]", "-"},
    {"[--z]", "a"},
    {"[-]abc", "-abc"},
    {"[-a-]?", "zd"},
    {"[-abc]?", "-b"},
    {"[a-c][a-c][a-c]", "abc"},
    {"[]-z]abc", "^abc"},
    {"[]]abc", "]abc"},
    {"[]abc[a]", "a"},
    {"[]abc[de]", "["},
    {"[]abc[de]", "]"},
    {"[]abc[de]", "d"},
    {"[^a-z]", "A"},
    {"[a-z]", "a"},
    {"[abc]??[def]", "abcd"},
    {"[z-a]", "a"},
    {"[z-a]", "z"},
    {"\\?\\?\\*!\\[abc\\]", "??*![abc]"},
    {"ab[a-z]?a*b", "abcdab"},
    {"ab[a-z]?a*b", "abcdaxxxxb"},
    {"xxx", "xxx"},
};

inline constexpr WildcardCase kNotMatching[] = {
    {"?", ""},
    {"?", "ab"},
    {"[a-e]", "f"},
    {"[a-e]", "bc"},
    {"ab[a-z]?a*b", "abCdaxxxxb"},
    {"ab[a-z]?a*b", "abc"},
    {"[b-", "a"},
    {"[ab", "a"},
    {"[abc]??[def]", "abca"},
    {"[abc]??[def]", "abcg"},
    {"[]", "a"},
    {"[-abc]?", "dd"},
    {"[^a-z]", "a"},
};
// clang-format on

// A pattern of these as a string of the host's language spells it: every backslash twice.
inline std::array<char, 32> spelled(const char* pattern) {
  std::array<char, 32> spelling = {};
  char* out = spelling.data();
  for (; *pattern != '\0'; ++pattern) {
    if (*pattern == '\\') *out++ = '\\';
    *out++ = *pattern;
  }
  return spelling;
}

}  // namespace vstring::search
