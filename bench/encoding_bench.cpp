// Encodings beside OpenSSL and plain loops.
#include <cstring>

#include "harness/job.h"
#include "harness/texts.h"
#ifdef VSTRING_PEER_OPENSSL
#include <openssl/evp.h>
#endif

namespace bench {
namespace {

const std::string& plain() {
  static const std::string text = prose().substr(0, std::size_t{3} << 18);  // no padding
  return text;
}

std::string hexadecimal(const std::string& text) {
  std::string made(2 * text.size(), '\0');
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    made[2 * i] = "0123456789abcdef"[c >> 4];
    made[2 * i + 1] = "0123456789abcdef"[c & 15];
  }
  return made;
}

std::string from_hexadecimal(const std::string& text) {
  const auto value = [](char c) { return c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10; };
  std::string made(text.size() / 2, '\0');
  for (std::size_t i = 0; i < text.size(); i += 2) {
    made[i / 2] = static_cast<char>(value(text[i]) * 16 + value(text[i + 1]));
  }
  return made;
}

#ifdef VSTRING_PEER_OPENSSL
template <auto convert>
std::string openssl(const std::string& text) {
  std::string made(2 * text.size(), '\0');
  const int n =
      convert(reinterpret_cast<unsigned char*>(made.data()),
              reinterpret_cast<const unsigned char*>(text.data()), static_cast<int>(text.size()));
  made.resize(static_cast<std::size_t>(n));
  return made;
}
#endif

using Convert = std::string (*)(const std::string&);

void add(const char* scheme, const char* who, Convert encode, Convert decode) {
  const auto convert = [=](const char* what, VelmorCommand command, Convert peer,
                           std::function<std::string()> text) {
    job("encodings/" + std::string(what) + " " + scheme, [=] {
      const std::string given = text();
      return std::vector<Contestant>{{"ours", call(command, {argument(given), argument(scheme)})},
                                     {who, [=] { return result(peer(given)); }}};
    });
  };
  convert("encode", vstring_encode, encode, plain);
  convert("decode", vstring_decode, decode, [=] { return encode(plain()); });
}

const Jobs added([] {
  add("hex", "plain loop", hexadecimal, from_hexadecimal);
#ifdef VSTRING_PEER_OPENSSL
  add("base64", "OpenSSL", openssl<EVP_EncodeBlock>, openssl<EVP_DecodeBlock>);
#endif
});

}  // namespace
}  // namespace bench
