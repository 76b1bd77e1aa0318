// Digests beside OpenSSL, and the random generator.
#define OPENSSL_SUPPRESS_DEPRECATED
#include <benchmark/benchmark.h>

#include <array>
#include <vector>

#include "random/digest.h"
#include "random/drawing.h"
#ifdef VSTRING_PEER_OPENSSL
#include <openssl/md4.h>
#include <openssl/md5.h>
#include <openssl/sha.h>
#endif

namespace {

using vstring::Byte;
using vstring::Bytes;

template <typename Digest>
void digest(benchmark::State& state, Digest compute) {
  const std::vector<Byte> message(static_cast<std::size_t>(state.range(0)), 'x');
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(compute(Bytes(message)));
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

#define DIGEST(name) \
  BENCHMARK_CAPTURE(digest, ours, vstring::random::name)->Name(#name "/ours")->Arg(16)->Arg(1 << 20)

DIGEST(md5);
DIGEST(md4);
DIGEST(sha256);
DIGEST(sha1);
DIGEST(sha512);
DIGEST(crc32);

#ifdef VSTRING_PEER_OPENSSL
template <auto one_shot, std::size_t size>
std::array<Byte, size> openssl(Bytes message) {
  std::array<Byte, size> result;
  one_shot(message.data(), message.size(), result.data());
  return result;
}

#define PEER(name, one_shot, size)                            \
  BENCHMARK_CAPTURE(digest, openssl, openssl<one_shot, size>) \
      ->Name(#name "/openssl")                                \
      ->Arg(16)                                               \
      ->Arg(1 << 20)

PEER(md5, MD5, 16);
PEER(md4, MD4, 16);
PEER(sha256, SHA256, 32);
PEER(sha1, SHA1, 20);
PEER(sha512, SHA512, 64);
#endif

template <typename Draw>
void draw(benchmark::State& state, Draw draw_into) {
  vstring::random::Generator generator;
  std::vector<Byte> out(1 << 20);
  for ([[maybe_unused]] auto _ : state) draw_into(generator, out);
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(out.size()));
}

void draw_lower(vstring::random::Generator& generator, vstring::MutableBytes out) {
  static const vstring::ByteSet lower(vstring::bytes_of("abcdefghijklmnopqrstuvwxyz"));
  vstring::random::draw_members(generator, lower, out);
}

BENCHMARK_CAPTURE(draw, any, vstring::random::draw_bytes)->Name("random/any/ours");
BENCHMARK_CAPTURE(draw, binary, vstring::random::draw_bits)->Name("random/binary/ours");
BENCHMARK_CAPTURE(draw, lower, draw_lower)->Name("random/lower/ours");

}  // namespace
