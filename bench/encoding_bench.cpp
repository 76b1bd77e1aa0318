// Encodings beside OpenSSL and the textbook, on 1 MB of English.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <vector>

#include "encoding/base_digits.h"
#include "encoding/hexadecimal.h"
#include "texts.h"
#ifdef VSTRING_PEER_OPENSSL
#include <openssl/evp.h>
#endif

namespace {

using vstring::Byte;
using vstring::Bytes;
using vstring::MutableBytes;
using vstring_bench::bytes;

constexpr std::size_t kSize = std::size_t{3} << 18;  // no padding

const std::string& plain() {
  static const std::string text =
      vstring_bench::repeated_files({"/usr/share/common-licenses/GPL-3"}, kSize);
  return text;
}

template <typename Encode>
std::string encoded(Encode encode) {
  std::string text(2 * kSize, '\0');
  text.resize(encode(bytes(plain()), {reinterpret_cast<Byte*>(text.data()), text.size()}));
  return text;
}

// Reads `text` once per iteration; bytes are those of the plain text.
template <typename Convert>
void convert(benchmark::State& state, const std::string& text, Convert to) {
  std::vector<Byte> out(2 * kSize + 64);
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(to(bytes(text), MutableBytes(out)));
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * std::int64_t{kSize});
}

std::size_t textbook_hexadecimal(Bytes text, MutableBytes out) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    out[2 * i] = static_cast<Byte>("0123456789abcdef"[text[i] >> 4]);
    out[2 * i + 1] = static_cast<Byte>("0123456789abcdef"[text[i] & 15]);
  }
  return 2 * text.size();
}

std::size_t textbook_from_hexadecimal(Bytes text, MutableBytes out) {
  const auto value = [](Byte c) { return c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10; };
  for (std::size_t i = 0; i < text.size(); i += 2) {
    out[i / 2] = static_cast<Byte>(value(text[i]) * 16 + value(text[i + 1]));
  }
  return text.size() / 2;
}

#ifdef VSTRING_PEER_OPENSSL
int openssl_base64(Bytes text, MutableBytes out) {
  return EVP_EncodeBlock(out.data(), text.data(), static_cast<int>(text.size()));
}
int openssl_from_base64(Bytes text, MutableBytes out) {
  return EVP_DecodeBlock(out.data(), text.data(), static_cast<int>(text.size()));
}
#endif

const bool registered = [] {
  namespace encoding = vstring::encoding;
  static const std::string base64 = encoded(encoding::encode_base64);
  static const std::string hexadecimal = encoded(encoding::encode_hexadecimal);
  const auto add = [](const char* name, const std::string& text, auto to) {
    benchmark::RegisterBenchmark(
        name, [&text, to](benchmark::State& state) { convert(state, text, to); });
  };
  const auto length = [](auto decode) {
    return [decode](Bytes text, MutableBytes out) { return *decode(text, out); };
  };
  add("encode/base64/ours", plain(), encoding::encode_base64);
  add("decode/base64/ours", base64, length(encoding::decode_base64));
#ifdef VSTRING_PEER_OPENSSL
  add("encode/base64/openssl", plain(), openssl_base64);
  add("decode/base64/openssl", base64, openssl_from_base64);
#endif
  add("encode/hex/ours", plain(), encoding::encode_hexadecimal);
  add("encode/hex/textbook", plain(), textbook_hexadecimal);
  add("decode/hex/ours", hexadecimal, length(encoding::decode_hexadecimal));
  add("decode/hex/textbook", hexadecimal, textbook_from_hexadecimal);
  return true;
}();

}  // namespace
