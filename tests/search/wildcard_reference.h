// Wildcards by definition.
#pragma once

namespace vstring_test {

// The rules, one byte of the pattern after the other, trying every place for a star. Texts are read
// up to their terminator, as signed bytes.
inline bool matches(const char* p, const char* t) {
  for (;; ++p) {
    if (*p == '\0') return *t == '\0';
    if (*t == '\0' && *p != '*') return false;
    if (*p == '*') {
      while (*p == '*') ++p;
      if (*p == '\0') return true;
      for (; *t != '\0'; ++t) {
        if (matches(p, t)) return true;
      }
      return false;
    }
    if (*p == '[') {
      const bool negated = p[1] == '^';
      const char* x = p + (negated ? 2 : 1);
      if (*x == '\0') return false;
      bool member = *x == *t;
      for (const char* c = x + 1; *c != ']'; ++c) {
        if (*c == '\0') return false;
        if (*c == '-' && c[1] == ']') {
          member |= *t >= *x;
        } else if (*c == '-') {
          ++c;
          if (*c == '\0') return false;
          member |= *t == *x || *t == *c || (*x < *t && *t < *c);
        } else {
          member |= *t == *c;
        }
        x = c;
      }
      p = x + 1;  // the closing bracket
      if (member == negated) return false;
    } else if (*p == '\\') {
      if (p[1] != '\0') ++p;
    } else if (*p != '?' && *p != *t) {
      return false;
    }
    ++t;
  }
}

}  // namespace vstring_test
