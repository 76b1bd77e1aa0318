// Entry points: search, searchx; the plain routine Search.
#include "host/args.h"
#include "host/result.h"
#include "host/texts.h"
#include "search/exact/exact.h"
#include "search/many/many.h"

namespace vstring {
namespace {

// The argument that is a list or set, if any: many patterns in one text, or one in many texts.
enum class Shape { one_in_one, many_in_one, one_in_many };

bool is_collection(HostObject object) { return is_list(object) || is_set(object); }

Shape checked_shape(const Args& args) {
  const bool has_patterns = is_collection(args.object(1));
  const bool has_texts = is_collection(args.object(2));
  if (has_patterns && has_texts) args.raise("at most one argument can be a list of strings");
  if (has_patterns) {
    args.text(2);
    args.strings(1, /*sets_too=*/true);
    return Shape::many_in_one;
  }
  args.text(1);
  if (!has_texts) {
    args.text(2);
    return Shape::one_in_one;
  }
  if (!all_texts(Elements::of_list(args.object(2)))) {
    args.raise("second argument must be a list of strings");
  }
  return Shape::one_in_many;
}

HeldArray<Bytes> patterns_of(const Args& args) {
  HeldArray<Bytes> patterns;
  args.require(texts_of(Elements::of_list(args.object(1)), patterns));
  return patterns;
}

void require_matches(const Args& args, Status status) {
  if (status == Status::refused) args.raise("cannot preprocess pattern list");
  args.require(status);
}

HostObject new_pair(const Args& args, const search::PatternMatch& match) {
  return vstring::new_pair(args.host(), static_cast<std::int64_t>(match.position) + 1,
                           match.pattern);
}

HostObject first_of_many(const Args& args) {
  HeldArray<Bytes> patterns = patterns_of(args);
  if (patterns.empty()) {
    patterns.free();
    return new_integer(args, 0);
  }
  const Result<search::PatternMatch> match = search::first_of(patterns.view(), args.text(2));
  patterns.free();
  require_matches(args, match.status());
  if (match->pattern == 0) return vstring::new_pair(args.host(), 0, 0);
  return new_pair(args, *match);
}

HostObject all_of_many(const Args& args) {
  HeldArray<Bytes> patterns = patterns_of(args);
  HeldArray<search::PatternMatch> matches;
  const Status status = search::all_of(patterns.view(), args.text(2), matches);
  patterns.free();
  require_matches(args, status);
  return new_findings(args, matches,
                      [&](const search::PatternMatch& match) { return new_pair(args, match); });
}

HostObject first_position(const Args& args, Bytes text) {
  const std::size_t offset = search::find(args.text(1), text);
  return new_integer(args, offset == npos ? 0 : offset + 1);
}

// Positions of the pattern in `text` as a list, however many there are.
HostObject list_of_positions(const Args& args, Bytes text) {
  HeldArray<std::size_t> offsets;
  args.require(search::find_all(args.text(1), text, offsets));
  const HostObject list = new_list(
      args, offsets.size(), [&](std::size_t i) { return new_integer(args, offsets[i] + 1); });
  offsets.free();
  return list;
}

HostObject all_positions(const Args& args) {
  HeldArray<std::size_t> offsets;
  args.require(search::find_all(args.text(1), args.text(2), offsets));
  if (!search::counts_as_found(offsets.size())) offsets.clear();
  return new_findings(args, offsets,
                      [&](std::size_t offset) { return new_integer(args, offset + 1); });
}

template <typename OfText>
HostObject list_over_texts(const Args& args, OfText of_text) {
  const Elements texts = Elements::of_list(args.object(2));
  return new_list(args, texts.size(),
                  [&](std::size_t i) { return of_text(args, text_of(texts[i])); });
}

constexpr Signature kSearch = {2};

}  // namespace
}  // namespace vstring

using namespace vstring;

HostObject vstring_search(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kSearch);
  switch (checked_shape(args)) {
    case Shape::many_in_one:
      return first_of_many(args);
    case Shape::one_in_many:
      return list_over_texts(args, first_position);
    case Shape::one_in_one:
      break;
  }
  return first_position(args, args.text(2));
}

HostObject vstring_searchx(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kSearch);
  switch (checked_shape(args)) {
    case Shape::many_in_one:
      return all_of_many(args);
    case Shape::one_in_many:
      return list_over_texts(args, list_of_positions);
    case Shape::one_in_one:
      break;
  }
  return all_positions(args);
}

int64_t Search(const char* pattern, int64_t m, const char* text, int64_t n) {
  if (m <= 0 || n < m) return 0;
  const Bytes sought(reinterpret_cast<const Byte*>(pattern), static_cast<std::size_t>(m));
  const Bytes searched(reinterpret_cast<const Byte*>(text), static_cast<std::size_t>(n));
  const std::size_t offset = search::find(sought, searched);
  return offset == npos ? 0 : static_cast<int64_t>(offset) + 1;
}
