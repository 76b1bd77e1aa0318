// Digests: the test suites of the RFCs, and every length of up to four blocks beside OpenSSL.
#define OPENSSL_SUPPRESS_DEPRECATED
#include <gtest/gtest.h>
#include <openssl/md4.h>
#include <openssl/md5.h>

#include "support/direct.h"
#include "words/sample_words.h"

namespace vstring_test {
namespace {

using OneShot = unsigned char* (*)(const unsigned char*, std::size_t, unsigned char*);

std::string hexadecimal(OneShot digest, const std::string& message) {
  unsigned char bytes[16];
  digest(reinterpret_cast<const unsigned char*>(message.data()), message.size(), bytes);
  std::string text;
  for (const unsigned char byte : bytes) {
    char digits[3];
    std::snprintf(digits, sizeof digits, "%02x", byte);
    text += digits;
  }
  return text;
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

TEST(Digests, Refusals) {
  Check({
      {"hash()", "error: arguments expected"},
      {"hash(7, md5)", "error: invalid option: md5"},
      {"hash(7, method = 4)", "error: method must be a string, but received 4"},
      {"hash(7, \"method\" = \"Md5\")", "error: unrecognised method `\"Md5\"'"},
      {"hash(7, method = `md-5`)", "error: unrecognised method ``md-5`'"},
  });
}

}  // namespace
}  // namespace vstring_test
