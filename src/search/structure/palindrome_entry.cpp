// Entry points: ispalindrome, longestpalindrome, palindromes.
#include <algorithm>

#include "host/args.h"
#include "host/result.h"
#include "search/structure/palindrome.h"

using namespace vstring;

HostObject vstring_ispalindrome(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  return new_boolean(args, search::is_palindrome(args.text(1)));
}

HostObject vstring_longestpalindrome(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes text = args.text(1);
  const Result<Bytes> longest = search::longest_palindrome(text);
  args.require(longest.status());
  return longest->size() == text.size() ? args.object(1) : new_string(args, *longest);
}

HostObject vstring_palindromes(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  const Bytes text = args.text(1);
  const std::uint32_t least = args.has(2) ? static_cast<std::uint32_t>(args.positive(2)) : 2;
  const std::size_t centres = search::centre_count(text);
  HeldArray<std::uint32_t> lengths;
  // No list holds 2^32 elements: its length in words is a 32-bit number.
  if (centres >= UINT32_MAX || !lengths.resize(centres)) args.raise(Status::out_of_memory);
  search::palindrome_lengths(text, {lengths.data(), lengths.size()});

  const auto is_long = [least](std::uint32_t length) { return length >= least; };
  const auto count = std::count_if(lengths.begin(), lengths.end(), is_long);
  std::size_t next = 0;
  const HostObject list = new_list(args, static_cast<std::size_t>(count), [&](std::size_t) {
    while (!is_long(lengths[next])) ++next;
    const std::uint32_t length = lengths[next];
    const std::size_t start = search::palindrome_start(next++, length);
    return new_pair(host, static_cast<std::int64_t>(start + 1), length);
  });
  lengths.free();
  return list;
}
