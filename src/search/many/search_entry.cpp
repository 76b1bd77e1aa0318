// Entry points: search, searchx.
#include "host/args.h"
#include "host/result.h"
#include "host/texts.h"
#include "search/exact/exact.h"
#include "search/exact/reported_count.h"
#include "search/many/many.h"

using namespace vstring;

namespace {

bool is_collection(HostObject object) { return is_list(object) || is_set(object); }

// A list or set in place of an argument: many patterns in one text, or one in many texts.
struct Query {
  enum Shape : unsigned char { one_in_one, many_in_one, one_in_many } shape;
  Bytes pattern;
  Bytes text;
  Elements many;
};

Query decoded(const Args& args) {
  const bool has_patterns = is_collection(args.object(1));
  const bool has_texts = is_collection(args.object(2));
  if (has_patterns && has_texts) args.raise("at most one argument can be a list of strings");
  if (has_patterns) {
    const Bytes text = args.text(2);
    return {Query::many_in_one, {}, text, args.strings(1, /*sets_too=*/true)};
  }
  const Bytes pattern = args.text(1);
  if (has_texts) return {Query::one_in_many, pattern, {}, args.strings(2, /*sets_too=*/true)};
  return {Query::one_in_one, pattern, args.text(2), {}};
}

HeldArray<Bytes> patterns_of(const Args& args, const Query& query) {
  HeldArray<Bytes> patterns;
  args.require(texts_of(query.many, patterns));
  return patterns;
}

void require_matches(const Args& args, Status status) {
  if (status == Status::not_prepared) args.raise("cannot preprocess pattern list");
  args.require(status);
}

HostObject new_pair(const Args& args, const search::PatternMatch& match) {
  return vstring::new_pair(args.host(), static_cast<std::int64_t>(match.position) + 1,
                           match.pattern);
}

HostObject first_of_many(const Args& args, const Query& query) {
  HeldArray<Bytes> patterns = patterns_of(args, query);
  if (patterns.empty()) {
    patterns.free();
    return new_integer(args, 0);
  }
  const Result<search::PatternMatch> match = search::first_of(patterns.view(), query.text);
  patterns.free();
  require_matches(args, match.status());
  if (match->pattern == 0) return vstring::new_pair(args.host(), 0, 0);
  return new_pair(args, *match);
}

HostObject all_of_many(const Args& args, const Query& query) {
  HeldArray<Bytes> patterns = patterns_of(args, query);
  HeldArray<search::PatternMatch> matches;
  const Status status = search::all_of(patterns.view(), query.text, matches);
  patterns.free();
  require_matches(args, status);
  return new_findings(args, matches,
                      [&](const search::PatternMatch& match) { return new_pair(args, match); });
}

HostObject first_position(const Args& args, Bytes pattern, Bytes text) {
  return new_position(args, search::find(pattern, text));
}

HostObject first_in_each(const Args& args, const search::Needle& needle, Bytes text) {
  return new_position(args, search::find(needle, text));
}

// Positions of the pattern in `text` as a list, however many there are.
HostObject list_of_positions(const Args& args, const search::Needle& needle, Bytes text) {
  HeldArray<std::size_t> offsets;
  args.require(search::find_all(needle, text, offsets));
  const HostObject list =
      new_list(args, offsets.size(), [&](std::size_t i) { return new_position(args, offsets[i]); });
  offsets.free();
  return list;
}

HostObject all_positions(const Args& args, Bytes pattern, Bytes text) {
  HeldArray<std::size_t> offsets;
  args.require(search::find_all(pattern, text, offsets));
  if (!search::counts_as_found(offsets.size())) offsets.clear();
  return new_findings(args, offsets,
                      [&](std::size_t offset) { return new_position(args, offset); });
}

using InText = HostObject(const Args& args, Bytes pattern, Bytes text);
using InEach = HostObject(const Args& args, const search::Needle& needle, Bytes text);
using OfMany = HostObject(const Args& args, const Query& query);

// What is looked for in a single text, in each text of a list, and for many patterns.
HostObject answer(const HostTable* host, HostObject argseq, InText* in_text, InEach* in_each,
                  OfMany* of_many) {
  const Args args(host, argseq, kTwo);
  const Query query = decoded(args);
  switch (query.shape) {
    case Query::many_in_one:
      return of_many(args, query);
    case Query::one_in_many: {
      const search::Needle needle(query.pattern, 0);
      return new_list(args, query.many.size(),
                      [&](std::size_t i) { return in_each(args, needle, text_of(query.many[i])); });
    }
    case Query::one_in_one:
      break;
  }
  return in_text(args, query.pattern, query.text);
}

}  // namespace

HostObject vstring_search(const HostTable* host, HostObject argseq) {
  return answer(host, argseq, first_position, first_in_each, first_of_many);
}

HostObject vstring_searchx(const HostTable* host, HostObject argseq) {
  return answer(host, argseq, all_positions, list_of_positions, all_of_many);
}
