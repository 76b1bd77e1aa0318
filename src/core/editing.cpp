#include "core/editing.h"

#include <algorithm>
#include <cstring>

#include "bytes/byte_scan.h"
#include "bytes/byte_set.h"

namespace vstring::core {
namespace {

// Length of the longest prefix of `text` whose bytes are all in `set`, or all outside of it. Only
// a text of some length is worth the tables of a scan in vectors.
std::size_t prefix_by(Bytes text, Bytes set, bool is_inside) {
  constexpr std::size_t kWorthTables = 64;
  const ByteSet members(set);
  if (text.size() >= kWorthTables) {
    const ByteScan scan(members);
    return is_inside ? scan.find_other(text, 0) : scan.find(text, 0);
  }
  std::size_t n = 0;
  while (n < text.size() && members.has(text[n]) == is_inside) ++n;
  return n;
}

}  // namespace

std::size_t prefix_without(Bytes text, Bytes set) { return prefix_by(text, set, false); }

std::size_t after_last_of(Bytes text, Bytes set) {
  const ByteSet stops(set);
  std::size_t n = text.size();
  while (n > 0 && !stops.has(text[n - 1])) --n;
  return n;
}

std::size_t prefix_of(Bytes text, Bytes set) { return prefix_by(text, set, true); }

std::size_t prefix_of(Bytes text, CharTest test) {
  std::size_t n = 0;
  while (n < text.size() && test(text[n]) != 0) ++n;
  return n;
}

bool is_prefix(Bytes prefix, Bytes text) {
  return prefix.size() <= text.size() && equal(prefix, text.first(prefix.size()));
}

bool is_suffix(Bytes suffix, Bytes text) {
  return suffix.size() <= text.size() && equal(suffix, text.last(suffix.size()));
}

std::size_t find_first(Bytes text, Byte c) {
  if (text.empty()) return npos;
  const void* const found = std::memchr(text.data(), c, text.size());
  if (found == nullptr) return npos;
  return static_cast<std::size_t>(static_cast<const Byte*>(found) - text.data());
}

std::size_t find_last(Bytes text, Byte c) {
  std::size_t n = text.size();
  while (n > 0 && text[n - 1] != c) --n;
  return n == 0 ? npos : n - 1;
}

Byte largest(Bytes text) { return *std::max_element(text.begin(), text.end()); }
Byte smallest(Bytes text) { return *std::min_element(text.begin(), text.end()); }

void repeat(Bytes text, MutableBytes out) {
  if (out.empty()) return;
  // Doubling what is there already keeps the copies long.
  copy_into(out, text);
  for (std::size_t done = text.size(); done < out.size();) {
    const std::size_t more = std::min(done, out.size() - done);
    std::memcpy(out.data() + done, out.data(), more);
    done += more;
  }
}

void rotate_right(Bytes text, std::int64_t distance, MutableBytes out) {
  const std::size_t magnitude = static_cast<std::size_t>(distance < 0 ? -distance : distance);
  const std::size_t moved = magnitude % text.size();
  copy_into(copy_into(out, text.last(moved)), text.first(text.size() - moved));
}

void shift(Bytes text, std::int32_t amount, MutableBytes out) {
  const auto by = static_cast<Byte>(amount);
  for (std::size_t i = 0; i < text.size(); ++i) out[i] = static_cast<Byte>(text[i] + by);
}

void iota(Byte first, MutableBytes out) {
  for (std::size_t i = 0; i < out.size(); ++i) out[i] = static_cast<Byte>(first + i);
}

}  // namespace vstring::core
