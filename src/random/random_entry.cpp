// Entry points: random, randperm, randomise.
#include <algorithm>
#include <ctime>

#include "host/args.h"
#include "host/release.h"
#include "host/result.h"
#include "random/drawing.h"
#include "runtime/small_array.h"

using namespace vstring;

namespace {

// What a text is drawn from. The alphabet of a filter is kept by the filter itself.
struct Class {
  enum Kind : unsigned char { any, binary, filtered };
  Kind kind = any;
  CharTest test = nullptr;
};

// What the name `last` stands for, from one call to the next.
constinit Class last_class;

bool is_keyword(HostObject object, const char* keyword) {
  return is_name(object) && equal(text_of(object), keyword);
}

Class decode_class(const Args& args, int position) {
  const HostObject argument = args.object(position);
  if (is_keyword(argument, "binary")) return {Class::binary, nullptr};
  if (is_keyword(argument, "last")) return last_class;
  return {Class::filtered, GetFilter(args.host(), argument)};
}

}  // namespace

void vstring::forget_last_class() { last_class = {}; }

constexpr Signature kRandom = {
    1,
    {{nullptr, "first argument must be a non-negative integer, but received %1"},
     {nullptr, "unrecognised character class `%1'"}}};

HostObject vstring_random(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kRandom);
  const std::int32_t n = args.integer32(1);
  if (n < 0) args.refuse(1, args.object(1));
  const Class source = args.has(2) ? decode_class(args, 2) : Class{};
  random::Members members;
  if (source.kind == Class::filtered && n > 0) {
    members = random::drawable(source.test);
    if (std::count(members.begin(), members.end(), 1) == 0) args.refuse(2, args.object(2));
  }
  if (source.kind != Class::any) last_class = source;

  TextResult result(args, static_cast<std::size_t>(n));
  switch (source.kind) {
    case Class::any:
      random::draw_bytes(random::process_generator, result.bytes());
      break;
    case Class::binary:
      random::draw_bits(random::process_generator, result.bytes());
      break;
    case Class::filtered:
      random::draw_members(random::process_generator, members, result.bytes());
      break;
  }
  return result.object();
}

HostObject vstring_randperm(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  const auto n = static_cast<std::size_t>(args.non_negative(1));
  SmallArray<std::uint32_t, 512> permutation;
  if (!permutation.allocate(n)) return host->HostNull();
  random::draw_permutation(random::process_generator, permutation.view());
  const HostObject list = new_list(args, n, [&](std::size_t i) {
    return new_integer(args, std::size_t{permutation.view()[i]} + 1);
  });
  permutation.free();
  return list;
}

constexpr Signature kRandomise = {0, {{nullptr, "bad seed"}}};

HostObject vstring_randomise(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kRandomise);
  const auto seed =
      static_cast<std::uint32_t>(args.has(1) ? args.integer32(1) : std::time(nullptr));
  if (seed == 0) args.refuse(1);
  random::process_generator.seed(seed);
  return host->HostNull();
}
