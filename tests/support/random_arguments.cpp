#include "support/random_arguments.h"

#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

#include "support/separate.h"

namespace vstring_test {
namespace {

// Words that commands know: options, classes, keywords, and texts that exercise several families.
const std::vector<std::string> kWords = separate(
    "true  false  FAIL  builtin  last  binary  alpha  digit  space  method  md4  stemmer  "
    "lancaster  plural  prefix  timestamp  offset  words  characters  paragraphs  countbytes  "
    "obeylines  obeyspaces  expandtabs  porter  [a-c]  [^:alpha:]  a*b?[c-]  (a|b)+c?  "
    "^(a*)b$  \\1&\\\\  %1 %-2 %0  %Y-%m-%d %V %G  relational  hello, world  latin1  hex  "
    "base64  base64url  base32  rot13  percent  quoted  null  overlapping  left  right  both  "
    "SHA256  sha512  crc32  match  mismatch  gap  damerau  osa  jarowinkler  tokenset  grade  "
    "rna  =C3=A9  SGVsbG8=  %41%e9  \\x41\\102  caf\303\251  Dr. No. Yes! It's  ATGRAYtaa  "
    "((a)[b])  %d %b %Y %T %z  31 dec 1969 23:59:59 Z",
    "  ");

constexpr std::int64_t kIntegers[] = {
    0,  1,   2,   3,   4,   5,    8,    -1,        -2,        -3,         10,           64,
    80, 255, 256, 511, 512, 8190, 8191, INT32_MAX, INT32_MIN, 2147483648, 1099511627776};

// What texts that are decoded may be read as; several read nearly everything.
const std::vector<std::string> kSchemes =
    separate("base64  hex  null  percent  quoted  rot13", "  ");

// Argument kinds that commands ask for: s text, i integer, a 1 to 3, r range, l list of strings, n
// list of codes, m list of equations, e equation, k word, c scheme, p procedure, w weights, v
// anything.
const std::vector<std::string> kShapes = separate(
    "  s  ss  sss  ssi  ssia  si  sii  sis  i  l  ls  sl  sr  e  es  se  sie  k  ik  ssw  r  "
    "w  sk  ske  a  aa  as  saa  ksr  n  ps  pvs  pa  ssk  sa  sm  sma  aas  la  sse  sla  "
    "ssee  slak  sak  saks  sslk  ssa  kk  sc",
    "  ");

constexpr const char* kAlphabets[] = {"ab", "abc", "ACGT", "aeiou xyz\t\n", "AbCdEf ghi-_."};

}  // namespace

HostObject RandomArguments::sequence() {
  std::vector<HostObject> items;
  if (below_(2) == 0) {
    for (const char kind : kShapes[below_(kShapes.size())]) items.push_back(of_kind(kind));
  } else {
    items.resize(below_(16) == 0 ? below_(15) : below_(5));
    for (HostObject& item : items) item = value(2);
  }
  return velmor_sequence(heap_, items.size(), items.data());
}

HostObject RandomArguments::of_kind(char kind) {
  if (kind == 's') return text();
  if (kind == 'i') return integer();
  if (kind == 'a') return small_integer();
  if (kind == 'r') return range();
  if (kind == 'l') return list(0);
  if (kind == 'e') return equation(0);
  if (kind == 'k') return word_of(kWords);
  if (kind == 'c') return word_of(kSchemes);
  if (kind == 'p') return procedure();
  if (kind == 'v') return value(2);
  if (kind == 'n') return list_of([&] { return below_(4) == 0 ? integer() : small_integer(); });
  if (kind == 'm') return list_of([&] { return equation(0); });
  const HostObject weight = velmor_equation(heap_, velmor_string(heap_, "a"), integer());
  return velmor_list(heap_, 1, &weight);
}

HostObject RandomArguments::value(int depth) {
  const std::size_t kind = below_(depth > 0 ? 12 : 8);
  if (kind == 6) return word_of(kWords);
  if (kind == 7 && below_(8) == 0) return velmor_float(heap_, 1.5);
  if (kind >= 4 && kind <= 7) return integer();
  if (kind == 8) return list(depth - 1);
  if (kind == 9) return range();
  if (kind == 10) return equation(depth - 1);
  return kind < 4 || below_(4) != 0 ? text() : procedure();
}

HostObject RandomArguments::text() {
  std::string bytes;
  const std::size_t kind = below_(40);
  const std::size_t length = kind == 0 ? 8185 + below_(10) : kind < 8 ? below_(80) : below_(8);
  const bool any_byte = below_(4) == 0;
  const std::string alphabet = kAlphabets[below_(std::size(kAlphabets))];
  for (std::size_t i = 0; i < length; ++i) {
    bytes += any_byte ? static_cast<char>(1 + below_(255)) : alphabet[below_(alphabet.size())];
  }
  if (below_(6) == 0) return velmor_name(heap_, bytes.c_str());
  return velmor_string_n(heap_, bytes.data(), bytes.size());
}

HostObject RandomArguments::integer() {
  if (below_(20) == 0) return velmor_big_integer(heap_, "-123456789012345678901234567890");
  return velmor_integer(heap_, kIntegers[below_(std::size(kIntegers))]);
}

HostObject RandomArguments::small_integer() {
  return velmor_integer(heap_, static_cast<std::int64_t>(1 + below_(3)));
}

HostObject RandomArguments::word_of(const std::vector<std::string>& words) {
  const char* const chosen = words[below_(words.size())].c_str();
  return below_(2) == 0 ? velmor_name(heap_, chosen) : velmor_string(heap_, chosen);
}

// A name that the host can call, or a call that has not been evaluated.
HostObject RandomArguments::procedure() {
  const HostObject name = velmor_name(heap_, below_(2) == 0 ? "f" : "uppercase");
  return below_(3) != 0 ? name : velmor_function(heap_, name, velmor_sequence(heap_, 0, nullptr));
}

template <typename Element>
HostObject RandomArguments::list_of(Element element) {
  std::vector<HostObject> items(below_(5));
  for (HostObject& item : items) item = element();
  return below_(8) == 0 ? velmor_set(heap_, items.size(), items.data())
                        : velmor_list(heap_, items.size(), items.data());
}

HostObject RandomArguments::list(int depth) {
  const bool texts_only = below_(3) != 0;
  return list_of([&] { return texts_only ? text() : value(depth); });
}

HostObject RandomArguments::range() {
  const bool is_any = below_(4) == 0;
  const auto end = [&] {
    return is_any ? value(0) : velmor_integer(heap_, static_cast<std::int64_t>(below_(12)) - 4);
  };
  const HostObject low = end();  // one after the other, so that every compiler makes the same
  return velmor_range(heap_, low, end());
}

HostObject RandomArguments::equation(int depth) {
  const HostObject left = below_(2) == 0 ? word_of(kWords) : text();
  return velmor_equation(heap_, left, value(depth));
}

}  // namespace vstring_test
