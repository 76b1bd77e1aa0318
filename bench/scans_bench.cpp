// Scans over a megabyte of prose, beside the standard algorithms, libc and plain loops (built for
// this machine).
#include <strings.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <numeric>

#include "harness/job.h"
#include "harness/texts.h"

namespace bench {
namespace {

// The same with a byte in a hundred changed.
const std::string& changed() {
  static const std::string text = [] {
    std::string made = megabyte();
    for (std::size_t i = 0; i < made.size(); i += 100) made[i] = '#';
    return made;
  }();
  return text;
}

std::size_t lee(const std::string& s, const std::string& t) {
  std::size_t sum = 0;
  for (std::size_t i = 0; i < s.size(); ++i) {
    const auto d = static_cast<unsigned char>(s[i] - t[i]);
    sum += std::min<unsigned char>(d, static_cast<unsigned char>(-d));
  }
  return sum;
}

const Jobs added([] {
  const auto scan = [](const char* row, auto make) {
    job("scans/" + std::string(row), [=] { return make(argument(megabyte())); });
  };
  scan("hd", [](HostObject text) {
    return against(call(vstring_hd, {text, argument(changed())}), {peer("std::inner_product", [] {
                     return std::inner_product(megabyte().begin(), megabyte().end(),
                                               changed().begin(), std::size_t{0}, std::plus<>(),
                                               [](char a, char b) { return std::size_t{a != b}; });
                   })});
  });
  scan("leedist", [](HostObject text) {
    return against(call(vstring_leedist, {text, argument(changed())}),
                   {peer("plain loop", [] { return lee(megabyte(), changed()); })});
  });
  scan("prefixdist", [](HostObject text) {
    static const std::string other = megabyte().substr(0, megabyte().size() - 1) + "#";
    return against(call(vstring_prefixdist, {text, argument(other)}), {peer("std::mismatch", [] {
                     const auto at =
                         std::mismatch(megabyte().begin(), megabyte().end(), other.begin());
                     return std::size_t{2} * static_cast<std::size_t>(megabyte().end() - at.first);
                   })});
  });
  scan("numboccur", [](HostObject text) {
    return against(
        call(vstring_numboccur, {text, argument("e")}), {peer("std::count", [] {
          return static_cast<std::int64_t>(std::count(megabyte().begin(), megabyte().end(), 'e'));
        })});
  });
  job("scans/issorted", [] {
    static const std::string sorted = [] {
      std::string made = megabyte();
      std::sort(made.begin(), made.end());
      return made;
    }();
    return against(
        call(vstring_issorted, {argument(sorted)}),
        {peer("std::is_sorted", [] { return std::is_sorted(sorted.begin(), sorted.end()); })});
  });
  const auto add_compareci = [&](const char* row, std::size_t step) {
    scan(row, [=](HostObject text) {
      static std::string other;
      other = megabyte();
      for (std::size_t i = 0; i < other.size(); i += step) {
        other[i] = static_cast<char>(std::toupper(other[i]));
      }
      return against(
          call(vstring_compareci, {text, argument(other)}),
          {peer("strcasecmp", [] { return strcasecmp(megabyte().c_str(), other.c_str()) <= 0; })});
    });
  };
  add_compareci("compareci", 100);
  add_compareci("compareci, all capitals", 1);
  scan("strchr", [](HostObject text) {
    return against(call(vstring_strchr, {argument("@"), text}), {peer("memchr", [] {
                     const void* const at = std::memchr(megabyte().data(), '@', megabyte().size());
                     return at == nullptr ? 0 : 1;
                   })});
  });
  scan("isascii", [](HostObject text) {
    return against(call(vstring_isascii, {text}), {peer("std::all_of", [] {
                     return std::all_of(megabyte().begin(), megabyte().end(),
                                        [](char c) { return static_cast<unsigned char>(c) < 128; });
                   })});
  });
  job("scans/hasxdigit", [] {
    static const std::string text(1 << 20, 'x');
    return against(call(vstring_hasxdigit, {argument(text)}), {peer("strpbrk", [] {
                     return std::strpbrk(text.c_str(), "0123456789abcdefABCDEF") != nullptr;
                   })});
  });
});

}  // namespace
}  // namespace bench
