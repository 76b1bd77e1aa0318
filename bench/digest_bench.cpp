// Digests beside OpenSSL, and random texts beside the Mersenne twister.
#define OPENSSL_SUPPRESS_DEPRECATED
#include <random>

#include "harness/job.h"
#include "harness/texts.h"
#ifdef VSTRING_PEER_OPENSSL
#include <openssl/md4.h>
#include <openssl/md5.h>
#include <openssl/sha.h>
#endif

namespace bench {
namespace {

#ifdef VSTRING_PEER_OPENSSL
using OneShot = unsigned char* (*)(const unsigned char*, std::size_t, unsigned char*);

HostObject openssl(OneShot digest, std::size_t size, const std::string& text) {
  unsigned char raw[64];
  digest(reinterpret_cast<const unsigned char*>(text.data()), text.size(), raw);
  std::string hexadecimal;
  for (std::size_t i = 0; i < size; ++i) {
    hexadecimal += "0123456789abcdef"[raw[i] >> 4];
    hexadecimal += "0123456789abcdef"[raw[i] & 15];
  }
  return result(hexadecimal);
}
#endif

struct Method {
  const char* name;
  VelmorCommand command;
#ifdef VSTRING_PEER_OPENSSL
  OneShot peer;
  std::size_t size;
#define PEER(function, size) , function, size
#else
#define PEER(function, size)
#endif
};

const Method kMethods[] = {
    {"md5", vstring_hash PEER(MD5, 16)},         {"md4", vstring_hash PEER(MD4, 16)},
    {"sha1", vstring_digest PEER(SHA1, 20)},     {"sha256", vstring_digest PEER(SHA256, 32)},
    {"sha512", vstring_digest PEER(SHA512, 64)},
};

std::string drawn(std::size_t n, unsigned low, unsigned high) {
  static std::mt19937 engine;
  std::string made(n, '\0');
  for (std::size_t i = 0; i < n;) {
    std::uint32_t number = static_cast<std::uint32_t>(engine());
    for (int k = 0; k < 4 && i < n; ++k, number >>= 8) {
      const unsigned byte = number & 255;
      made[i] = static_cast<char>(byte);  // overwritten by the next one when it is refused
      if (byte >= low && byte <= high) ++i;
    }
  }
  return made;
}

const Jobs added([] {
  for (const Method& method : kMethods) {
    for (const auto& [length, called] : {std::pair{1 << 20, "1 MB"}, {1 << 10, "1 KB"}}) {
      job("digests and random/" + std::string(method.name) + " " + called,
          [=, n = static_cast<std::size_t>(length)] {
            const std::string text = megabyte().substr(0, n);
            const HostObject chosen = equation(name("method"), name(method.name));
            std::vector<Contestant> all{{"ours", call(method.command, {argument(text), chosen})}};
#ifdef VSTRING_PEER_OPENSSL
            all.push_back({"OpenSSL", [=] { return openssl(method.peer, method.size, text); }});
#endif
            return all;
          });
    }
  }
  // On both sides the letters are those bytes of a stream that belong to the set.
  const auto random = [](const char* row, const std::vector<const char*>& set, unsigned low,
                         unsigned high) {
    job("digests and random/" + std::string(row), [=] {
      constexpr std::size_t kLength = 1 << 20;
      std::vector<HostObject> arguments{argument(std::int64_t{kLength})};
      for (const char* const each : set) arguments.push_back(name(each));
      return std::vector<Contestant>{
          {"ours", call(vstring_random, arguments)},
          {"mt19937", [=] { return result(drawn(kLength, low, high)); }, Does::something}};
    });
  };
  random("random string", {}, 1, 255);
  random("random of a class", {"lower"}, 'a', 'z');
});

}  // namespace
}  // namespace bench
