// Encodings and escapes. Decoding undoes encoding; what the forms are stands in the rows.
#include <gtest/gtest.h>

#include "support/check.h"
#include "support/direct.h"
#include "words/sample_words.h"

namespace vstring_test {
namespace {

constexpr const char* kSchemes[] = {"null",   "hex",   "base64",  "base64url",
                                    "base32", "rot13", "percent", "quoted"};

// Texts over bytes that some form treats apart, and longer ones of all bytes around the ends of
// groups, blocks and lines.
std::vector<std::string> sample_texts() {
  std::vector<std::string> texts = all_words("a =\n%\\\1\377", 3);
  for (const std::size_t n : {16U, 17U, 73U, 74U, 75U, 76U, 230U, 231U, 232U, 9000U}) {
    std::string all;
    for (std::size_t i = 0; i < n; ++i) all += static_cast<char>(1 + (i * i + 7 * i + n) % 255);
    texts.push_back(all);
    texts.push_back(std::string(n, 'q'));
    texts.push_back(std::string(n, ' ') + "\n" + std::string(n, '\351') + " ");
  }
  return texts;
}

TEST(Codec, DecodingUndoesEncoding) {
  for (const std::string& s : sample_texts()) {
    for (const char* const scheme : kSchemes) {
      const std::string encoded = text(vstring_encode, {s, scheme});
      ASSERT_EQ(s, text(vstring_decode, {encoded, scheme})) << scheme;
      if (scheme == std::string("quoted")) {
        for (std::size_t at = 0, end = 0; end != encoded.npos; at = end + 1) {
          end = encoded.find('\n', at);
          ASSERT_LE(std::min(end, encoded.size()) - at, 76U);
        }
      }
      if (std::string_view(scheme).starts_with("base")) {
        std::string broken;  // into lines, without padding
        for (const char c : encoded.substr(0, encoded.find('='))) {
          broken += c;
          if (broken.size() % 8 == 5) broken += "\r\n";
        }
        ASSERT_EQ(s, text(vstring_decode, {broken, scheme})) << scheme;
      }
    }
    ASSERT_EQ(s, text(vstring_unescape, {text(vstring_escape, {s})}));
    ASSERT_EQ(s, text(vstring_frombytes, {result_of(vstring_bytes, {s})}));
  }
}

TEST(Codec, Forms) {
  Check({
      {R"(encode("", hex), encode("a\377", "hex"), decode("4aFf", hex))", R"("", "61ff", "J\377")"},
      {R"(encode("a b&\351", "percent"), decode("%41+%e9", percent))",
       R"("a%20b%26%E9", "A+\351")"},
      {R"(encode("\377\376", "base64url"), encode("fooba", "base32"), encode("x", "null"))",
       R"("__4=", "MZXW6YTB", "x")"},
      {R"(encode("Hello", "rot13"), decode("A\341z", rot13))", R"("Uryyb", "N\341m")"},
      {R"(encode("f", base32), encode("fo", base32), encode("foo", base32), encode("foob", base32))",
       R"("MY======", "MZXQ====", "MZXW6===", "MZXW6YQ=")"},
      {R"(decode("Z\rg\n=\n=", "base64"), decode("", "base32"), decode("\n", base64))",
       R"("f", "", "")"},
      {R"(encode("a=b \n\tc ", "quoted"), decode("a=\nb=3d", quoted))",
       R"("a=3Db=20\n\tc=20", "ab=")"},
      {R"(decode("a=\r\nb", quoted), encode("\t\r\n", quoted))", R"("ab", "\t=0D\n")"},
      {R"(visible("\t\n"), visible("\211\351\377\212 "), visible("\200\240"))",
       R"("\t\n", "M-^IM-iM-^?M-^J ", "M-^@M- ")"},
      {R"(escape("tab\there \"\351\"\\"), escape("\0017"), escape("\a\b\v\f\r\177\033"))",
       R"("tab\\there \\\"\\351\\\"\\\\", "\\0017", "\\a\\b\\v\\f\\r\\177\\033")"},
      {R"(unescape("\\1234"), unescape("\\x4g"), unescape("\\e\\`\\'\\\"\\\\\\18"))",
       R"("S4", "\004g", "\033`'\"\\\0018")"},
      {R"(bytes("a\351"), bytes(""), bytes("abc", 3 .. 2), bytes("", 7))", "[97, 233], [], [], []"},
      {R"(frombytes([72, 105]), frombytes([]))", R"("Hi", "")"},
  });
  CheckIdentity({
      {"abc",
       "encode(x, null); encode(x, percent); encode(x, quoted); decode(x, null); "
       "decode(x, percent); decode(x, quoted); visible(x); escape(x); unescape(x)",
       "", "encode(x, rot13); decode(x, rot13); encode(x, hex)"},
      {"1 +", "encode(x, rot13); decode(x, rot13); visible(x)", "", "encode(x, percent)"},
  });
}

TEST(Codec, Refusals) {
  CheckRefusals({
      {"unrecognised scheme `\"base85\"'", R"(encode("x", "base85"); decode("x", "base85"))"},
      {"unrecognised scheme `Hex'", "decode(x, Hex)"},
      {"invalid `base64' text",
       R"(decode("SGVsbG9=", base64); decode("A", base64); decode("QQ=", base64); )"
       R"(decode("QQ===", base64); decode("QUJD====", base64); decode("=", base64); )"
       R"(decode("Q=Q=", base64); decode("QR", base64); decode("QQ_-", base64); )"
       R"(decode("SGVsbG8=\n=", base64); decode("QQ ==", base64); decode("AA!", base64))"},
      {"invalid `base64url' text", R"(decode("QQ+/", base64url))"},
      {"invalid `base32' text",
       R"(decode("A", base32); decode("AAA", base32); decode("AAAAAA", base32); )"
       R"(decode("my", base32); decode("MZ", base32); decode("MY=====", base32); )"
       R"(decode("MZXW6YTB========", base32); decode("MY======MY======", base32))"},
      {"invalid `hex' text", R"(decode("4a4", hex); decode("4g", hex); decode("4 a4", hex))"},
      {"invalid `percent' text",
       R"(decode("50%", percent); decode("%4", percent); decode("%00%g1", percent))"},
      {"invalid `quoted' text",
       R"(decode("=", quoted); decode("=4", quoted); decode("=\r", quoted); decode("= \n", quoted))"},
      {"decoded text contains a zero byte",
       R"(decode("6100", hex); decode("AAAA", base64); decode("%00", percent); )"
       R"(decode("=00", quoted); unescape("\\0"); unescape("\\x00"); unescape("\\0\\q"))"},
      {R"(invalid escape sequence `"\\q"')", R"(unescape("a\\q"); unescape("\\q\\0"))"},
      {R"(invalid escape sequence `"\\"')", R"(unescape("\\"); unescape("a\\\\\\"))"},
      {R"(invalid escape sequence `"\\400"')", R"(unescape("\\400"); unescape("\\4001"))"},
      {R"(invalid escape sequence `"\\x"')", R"(unescape("\\xg"); unescape("\\x"))"},
      {"invalid range", R"(bytes("ab", 0 .. 1))"},
      {"argument must be a list of integers",
       R"(frombytes("a"); frombytes({1}); frombytes([1, "a"]); frombytes([1, 2147483648, 0]))"},
      {"byte value 0 is not in 1 .. 255", R"(frombytes([65, 0]); frombytes([0, "a"]))"},
      {"byte value 256 is not in 1 .. 255", "frombytes([256])"},
      {"byte value -1 is not in 1 .. 255", "frombytes([-1])"},
  });
}

}  // namespace
}  // namespace vstring_test
