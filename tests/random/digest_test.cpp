// Digests: published vectors, and every length of up to four blocks beside OpenSSL.
#define OPENSSL_SUPPRESS_DEPRECATED
#include <gtest/gtest.h>
#include <openssl/md4.h>
#include <openssl/md5.h>
#include <openssl/sha.h>

#include "bytes/cpu.h"
#include "support/check.h"
#include "support/direct.h"
#include "words/sample_words.h"

namespace vstring_test {
namespace {

using OneShot = unsigned char* (*)(const unsigned char*, std::size_t, unsigned char*);

std::string hexadecimal(OneShot digest, const std::string& message, std::size_t size = 16) {
  unsigned char bytes[64];
  digest(reinterpret_cast<const unsigned char*>(message.data()), message.size(), bytes);
  std::string text;
  for (const unsigned char byte : std::span(bytes, size)) {
    char digits[3];
    std::snprintf(digits, sizeof digits, "%02x", byte);
    text += digits;
  }
  return text;
}

// Bit by bit, as the polynomial division is written down.
std::string crc32_by_division(const std::string& message) {
  std::uint32_t remainder = 0xffffffff;
  for (const char c : message) {
    remainder ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit)
      remainder = (remainder >> 1) ^ (remainder % 2 != 0 ? 0xedb88320 : 0);
  }
  char digits[9];
  std::snprintf(digits, sizeof digits, "%08x", ~remainder);
  return digits;
}

TEST(Digests, SecureHashesOfEveryLengthOfTwoBlocks) {
  for (std::size_t n = 0; n <= 257; ++n) {
    const std::string message = random_word(n, 255, static_cast<unsigned>(n));
    const auto digest = [&](const char* method) {
      return call(vstring_digest, {message, equation("method", method)});
    };
    EXPECT_EQ(quoted(hexadecimal(SHA256, message, 32)), call(vstring_digest, {message})) << n;
    vstring::plain_kernels_only = true;
    EXPECT_EQ(quoted(hexadecimal(SHA256, message, 32)), digest("sha256")) << n;
    vstring::plain_kernels_only = false;
    EXPECT_EQ(quoted(hexadecimal(SHA1, message, 20)), digest("sha1")) << n;
    EXPECT_EQ(quoted(hexadecimal(SHA512, message, 64)), digest("SHA512")) << n;
    EXPECT_EQ(quoted(crc32_by_division(message)), digest("CRC32")) << n;
  }
}

TEST(Digests, EveryLengthOfFourBlocks) {
  for (std::size_t n = 0; n <= 257; ++n) {
    const std::string message = random_word(n, 255, static_cast<unsigned>(n));
    const HostObject md4 = equation("method", "md4");
    EXPECT_EQ(quoted(hexadecimal(MD5, message)), call(vstring_hash, {message})) << n;
    EXPECT_EQ(quoted(hexadecimal(MD4, message)), call(vstring_hash, {message, md4})) << n;
  }
  const std::string million(1000000, 'a');
  EXPECT_EQ(quoted(hexadecimal(MD5, million)), call(vstring_hash, {million}));
}

// Appendix A.5 of RFC 1321 and of RFC 1320; all spellings of the methods.
TEST(Digests, PublishedVectors) {
  Check({
      {R"(hash(""), hash("", method = md4))",
       R"("d41d8cd98f00b204e9800998ecf8427e", "31d6cfe0d16ae931b73c59d7e0c089c0")"},
      {R"(hash("abc", method = MD5), hash(`abc`, `method` = "md4", 7))",
       R"("900150983cd24fb0d6963f7d28e17f72", "a448017aaf21d8525fc10ae87aa6729d")"},
      {R"(hash("message digest", "method" = "md5"), hash("message digest", method = MD4))",
       R"("f96b697d7cb7938d525a2f31aaf161d0", "d9130a8164549fe818874806e1c7014b")"},
  });
}

// FIPS 180-4 and the check value of CRC-32.
TEST(Digests, ValuesOfDigest) {
  Check({
      {R"(digest("abc"))", R"("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad")"},
      {R"(digest("123456789", method = "crc32"), digest("", "method" = crc32, 7))",
       R"("cbf43926", "00000000")"},
      {R"(digest("", method = SHA1))", R"("da39a3ee5e6b4b0d3255bfef95601890afd80709")"},
      {R"(digest("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"))",
       R"("248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1")"},
      {R"(digest("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq", method = sha1))",
       R"("84983e441c3bd26ebaae4aa1f95129e5e54670f1")"},
      {R"(digest("abc", method = "sha512"))",
       R"("ddaf35a193617abacc417349ae20413112e6fa4e89a97ea20a9eeee64b55d39a)"
       R"(2192992a274fc1a836ba3c23a3feebbd454d4423643ce80e2a9ac94fa54ca49f")"},
      {R"(digest(repeat("a", 1000000)))",
       R"("cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0")"},
  });
}

TEST(Digests, Refusals) {
  Check({
      {"digest()", "error: expecting one argument, but got 0"},
      {"digest(7, md5)", "error: first argument must be a string"},
      {"digest(a, 5)", "error: invalid option: 5"},
      {"digest(a, 5 = sha1)", "error: invalid option: 5 = sha1"},
      {"digest(a, method = 5)", "error: method must be a string, but received 5"},
      {"digest(a, method = \"md5\")", "error: unrecognised method `\"md5\"'"},
      {"digest(a, method = Sha1)", "error: unrecognised method `Sha1'"},
      {"hash()", "error: arguments expected"},
      {"hash(7, md5)", "error: invalid option: md5"},
      {"hash(7, method = 4)", "error: method must be a string, but received 4"},
      {"hash(7, \"method\" = \"Md5\")", "error: unrecognised method `\"Md5\"'"},
      {"hash(7, method = `md-5`)", "error: unrecognised method ``md-5`'"},
  });
}

}  // namespace
}  // namespace vstring_test
