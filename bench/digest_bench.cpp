// Digests beside OpenSSL, and the random generator.
#define OPENSSL_SUPPRESS_DEPRECATED
#include <benchmark/benchmark.h>

#include <vector>

#include "random/digest.h"
#include "random/drawing.h"
#ifdef VSTRING_PEER_OPENSSL
#include <openssl/md4.h>
#include <openssl/md5.h>
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

#ifdef VSTRING_PEER_OPENSSL
vstring::random::Digest openssl_md5(Bytes message) {
  vstring::random::Digest result;
  MD5(message.data(), message.size(), result.data());
  return result;
}
vstring::random::Digest openssl_md4(Bytes message) {
  vstring::random::Digest result;
  MD4(message.data(), message.size(), result.data());
  return result;
}
#endif

BENCHMARK_CAPTURE(digest, ours, vstring::random::md5)->Name("md5/ours")->Arg(16)->Arg(1 << 20);
BENCHMARK_CAPTURE(digest, ours, vstring::random::md4)->Name("md4/ours")->Arg(16)->Arg(1 << 20);
#ifdef VSTRING_PEER_OPENSSL
BENCHMARK_CAPTURE(digest, openssl, openssl_md5)->Name("md5/openssl")->Arg(16)->Arg(1 << 20);
BENCHMARK_CAPTURE(digest, openssl, openssl_md4)->Name("md4/openssl")->Arg(16)->Arg(1 << 20);
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
