#include "text/language/plural.h"

namespace vstring::text {
namespace {

struct Exception {
  const char* plural;
  const char* singular;
};

constexpr Exception kExceptions[] = {
    {"has", "has"},
};

const Exception* exception_for(Bytes word) {
  for (const Exception& exception : kExceptions) {
    if (equal(word, exception.plural)) return &exception;
  }
  return nullptr;
}

// Whether `c` is that lower-case letter in either case.
bool is(Byte c, Byte letter) { return c == letter || c == letter - 'a' + 'A'; }

// One pass over w[0, n); returns the new length.
std::size_t pass(Byte* w, std::size_t n) {
  if (n < 4 || !is(w[n - 1], 's') || is(w[n - 2], 'u') || is(w[n - 2], 's')) return n;
  if (!is(w[n - 2], 'e')) return n - 1;
  const Byte before_e = w[n - 3];
  if (is(before_e, 'a') || is(before_e, 'e') || is(before_e, 'o')) return n - 1;
  if (is(before_e, 'i') && n >= 5 && !is(w[n - 4], 'e') && !is(w[n - 4], 'a')) {
    w[n - 3] = before_e == 'I' ? 'Y' : 'y';
  }
  return n - 2;
}

}  // namespace

std::size_t singular(Bytes word, MutableBytes out) {
  if (const Exception* const exception = exception_for(word)) {
    const Bytes replacement = bytes_of(exception->singular);
    copy_into(out, replacement);
    return replacement.size();
  }
  copy_into(out, word);
  return pass(out.data(), pass(out.data(), word.size()));
}

}  // namespace vstring::text
