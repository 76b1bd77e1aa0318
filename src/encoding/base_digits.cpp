#include "encoding/base_digits.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace vstring::encoding {
namespace {

constexpr Byte kNoDigit = 0x80;

// Digits of kBits bits, in groups that make whole bytes.
template <unsigned kBits>
struct Alphabet {
  static constexpr std::size_t kDigits = kBits == 6 ? 4 : 8;  // in a group
  static constexpr std::size_t kBytes = kDigits * kBits / 8;
  static constexpr std::size_t kMostPadding = kDigits - 2;

  static constexpr std::size_t kPairs = std::size_t{1} << (2 * kBits);

  Byte digits[1U << kBits] = {};
  std::array<Byte, 256> values = {};
  Byte pairs[kPairs][2] = {};  // of digits, by what both say

  explicit consteval Alphabet(const char* text) {
    values.fill(kNoDigit);
    for (unsigned i = 0; i < sizeof digits; ++i) {
      digits[i] = static_cast<Byte>(text[i]);
      values[digits[i]] = static_cast<Byte>(i);
    }
    for (std::size_t i = 0; i < kPairs; ++i) {
      pairs[i][0] = digits[i >> kBits];
      pairs[i][1] = digits[i % sizeof digits];
    }
  }

  static std::size_t length(Bytes text) { return (text.size() + kBytes - 1) / kBytes * kDigits; }

  void write_group(const Byte* bytes, Byte* out) const {
    std::uint64_t group = 0;
    for (std::size_t i = 0; i < kBytes; ++i) group = group << 8 | bytes[i];
    for (std::size_t i = 0; i < kDigits; i += 2) {
      std::memcpy(out + i, pairs[group >> (kBits * (kDigits - 2 - i)) & (kPairs - 1)], 2);
    }
  }

  std::size_t encode(Bytes text, MutableBytes out) const {
    std::size_t n = 0;
    std::size_t at = 0;
    for (; text.size() - at >= kBytes; at += kBytes, n += kDigits) {
      write_group(text.data() + at, out.data() + n);
    }
    text = text.subspan(at);
    if (text.empty()) return n;
    Byte last[kBytes] = {};
    copy_into(last, text);
    write_group(last, out.data() + n);
    const std::size_t used = (8 * text.size() + kBits - 1) / kBits;
    for (std::size_t i = used; i < kDigits; ++i) out[n + i] = '=';
    return n + kDigits;
  }

  // Writes the first bytes of a group whose digits, `bits` bits of them, stand in the low end.
  static void write_bytes(std::uint64_t group, std::size_t bits, Byte* out) {
    for (std::size_t i = 0; 8 * (i + 1) <= bits; ++i) {
      out[i] = static_cast<Byte>(group >> (bits - 8 * (i + 1)));
    }
  }

  // Reads whole groups without line ends between, and returns how many; what stops these is looked
  // at by itself. Each is written as a word, whose bytes behind the group the next one covers.
  std::size_t decode_groups(Bytes text, Byte* out) const {
    const std::size_t most = text.size() / kDigits;
    for (std::size_t k = 0; k < most; ++k) {
      const Byte* const from = text.data() + k * kDigits;
      unsigned all = 0;
      std::uint64_t group = 0;
      for (std::size_t i = 0; i < kDigits; ++i) {
        const Byte value = values[from[i]];
        all |= value;
        group = group << kBits | value;
      }
      if ((all & kNoDigit) != 0) return k;
      const std::uint64_t word = __builtin_bswap64(group << (64 - 8 * kBytes));
      std::memcpy(out + k * kBytes, &word, kDigits);
    }
    return most;
  }

  Result<std::size_t> decode(Bytes text, MutableBytes out) const {
    std::size_t at = 0;
    std::size_t n = 0;
    std::size_t met = 0;  // digits
    std::uint64_t group = 0;
    for (;;) {
      if (met % kDigits == 0) {
        const std::size_t groups = decode_groups(text.subspan(at), out.data() + n);
        n += groups * kBytes;
        at += groups * kDigits;
      }
      if (at == text.size()) break;
      const Byte c = text[at];
      if (!is_line_end(c)) {
        if (values[c] == kNoDigit) break;
        group = met % kDigits == 0 ? values[c] : group << kBits | values[c];
        if (++met % kDigits == 0) {
          write_bytes(group, 8 * kBytes, out.data() + n);
          n += kBytes;
        }
      }
      ++at;
    }

    std::size_t padding = 0;
    for (; at < text.size(); ++at) {
      if (is_line_end(text[at])) continue;
      if (text[at] != '=') return Status::refused;
      ++padding;
    }
    const std::size_t left = met % kDigits;
    if (padding != 0 && (padding > kMostPadding || (left + padding) % kDigits != 0)) {
      return Status::refused;
    }
    if (left == 0) return n;
    // The last digit must be needed, and what is needed of it must be all that it says.
    const std::size_t bits = left * kBits;
    const std::size_t spare = bits % 8;
    if (spare >= kBits || (group & ((1U << spare) - 1)) != 0) return Status::refused;
    write_bytes(group, bits, out.data() + n);
    return n + bits / 8;
  }

  static bool is_line_end(Byte c) { return c == '\n' || c == '\r'; }
};

constexpr Alphabet<6> kBase64("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/");
constexpr Alphabet<6> kBase64Url(
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_");
constexpr Alphabet<5> kBase32("ABCDEFGHIJKLMNOPQRSTUVWXYZ234567");

}  // namespace

std::size_t base64_length(Bytes text) { return kBase64.length(text); }
std::size_t base32_length(Bytes text) { return kBase32.length(text); }

std::size_t encode_base64(Bytes text, MutableBytes out) { return kBase64.encode(text, out); }
std::size_t encode_base64url(Bytes text, MutableBytes out) { return kBase64Url.encode(text, out); }
std::size_t encode_base32(Bytes text, MutableBytes out) { return kBase32.encode(text, out); }

Result<std::size_t> decode_base64(Bytes text, MutableBytes out) {
  return kBase64.decode(text, out);
}
Result<std::size_t> decode_base64url(Bytes text, MutableBytes out) {
  return kBase64Url.decode(text, out);
}
Result<std::size_t> decode_base32(Bytes text, MutableBytes out) {
  return kBase32.decode(text, out);
}

}  // namespace vstring::encoding
