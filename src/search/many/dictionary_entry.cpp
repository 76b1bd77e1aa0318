// Entry points: dictCreate, dictObjSize, dictObjGet, dictObjSearch, dictObjFree.
#include <cstdio>

#include "host/args.h"
#include "host/release.h"
#include "host/result.h"
#include "host/texts.h"
#include "search/many/automaton.h"
#include "search/many/builtin_words.h"
#include "search/many/dictionary.h"

using namespace vstring;
using namespace vstring::search;

namespace {

constexpr const char* kTooMany = "too many dictionaries";
constexpr const char* kInvalidDictionary = "invalid dictionary ID";
constexpr const char* kInfoSubject = "PatternDictionary";
constexpr std::int64_t kInfoLevel = 10;
constexpr std::size_t kBuiltinPrefix = 7;

// The list that a dictionary was made from, which the host keeps for us while it lives; 0 for none.
HostObject list_of[kDictionaries];

bool is_dictionary_id(std::int32_t id) { return id >= 0 && id < kDictionaries; }

// Any name that begins so, to leave room for further builtin dictionaries.
bool names_builtin(HostObject object) {
  if (!is_name(object)) return false;
  const Bytes name = text_of(object);
  return name.size() >= kBuiltinPrefix && equal(name.first(kBuiltinPrefix), "builtin");
}

void forget(const HostTable* host, std::int32_t id) {
  clear_dictionary(id);
  const HostObject list = list_of[id];
  list_of[id] = 0;
  if (list != 0) host->HostGcAllow(list);
}

HostObject create_from_list(const Args& args, HostObject list) {
  std::int32_t id = free_dictionary();
  if (id == 0) args.raise(kTooMany);
  const Elements words = args.strings(1);
  HeldArray<Bytes> texts;
  args.require(texts_of(words, texts));
  // Whatever may raise comes before the automaton, which no later call would release.
  HostObject result = args.host()->HostNewInteger(id);
  args.host()->HostGcProtect(list);
  while (dictionary(id) != nullptr) {  // by a command that the host has called meanwhile
    args.host()->HostGcAllow(list);
    id = free_dictionary();
    if (id == 0) args.raise(kTooMany);
    result = args.host()->HostNewInteger(id);
    args.host()->HostGcProtect(list);
  }
  const Status status = build_dictionary(id, texts.view());
  texts.free();
  if (status != Status::ok) {
    args.host()->HostGcAllow(list);
    args.raise(status);
  }
  list_of[id] = list;
  return result;
}

}  // namespace

void vstring::forget_dictionaries(const HostTable* host) {
  for (std::int32_t id = 0; id < kDictionaries; ++id) forget(host, id);
}

HostObject vstring_dictCreate(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  const HostObject words = args.object(1);
  if (is_list(words)) return create_from_list(args, words);
  if (!names_builtin(words)) {
    args.raise("argument must be a list of strings, or the special name `builtin'");
  }
  if (dictionary(0) == nullptr) args.require(build_builtin_dictionary());
  return host->HostNewInteger(0);
}

constexpr Signature kDictObjSize = {1, {{messages::kArgumentInteger32}}};

HostObject vstring_dictObjSize(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kDictObjSize);
  const std::int32_t id = args.integer32(1);
  if (id == 0) return new_integer(args, kBuiltinWordCount);
  if (!is_dictionary_id(id) || dictionary(id) == nullptr) args.raise(kInvalidDictionary);
  return new_integer(args, Elements::of_list(list_of[id]).size());
}

constexpr Signature kDictObjGet = {
    2,
    {{messages::kArgumentInteger32},
     {messages::kArgumentInteger32, "invalid word ID for dictionary"}}};

HostObject vstring_dictObjGet(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kDictObjGet);
  const std::int32_t id = args.integer32(1);
  const std::int32_t number = args.integer32(2);
  const bool is_list_slot = is_dictionary_id(id) && list_of[id] != 0;
  if (number == 0 || (id != 0 && !is_list_slot)) return empty_string(args);
  const auto k = static_cast<std::size_t>(args.positive(2));
  if (id == 0) {
    if (k > kBuiltinWordCount) args.refuse(2);
    return new_string(args, builtin_word(k - 1));
  }
  const Elements words = Elements::of_list(list_of[id]);
  if (k > words.size()) args.refuse(2);
  return new_string(args, text_of(words[k - 1]));
}

HostObject vstring_dictObjSearch(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const std::int32_t id = args.integer32(1);
  if (!is_dictionary_id(id) || dictionary(id) == nullptr) args.raise(kInvalidDictionary);
  const Bytes text = args.text(2);
  HeldArray<PatternMatch> matches;
  args.require(collect(*dictionary(id), text, matches));
  return new_findings(args, matches, [&](const PatternMatch& match) {
    return new_pair(host, static_cast<std::int64_t>(match.position) + 1, match.pattern);
  });
}

constexpr Signature kDictObjFree = {1, {{messages::kArgumentInteger32}}};

HostObject vstring_dictObjFree(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kDictObjFree);
  const std::int32_t id = args.integer32(1);
  if (!is_dictionary_id(id)) args.raise(kInvalidDictionary);
  if (id == 0) {
    host->HostUserInfo(kInfoLevel, kInfoSubject, "freeing builtin dictionary search automaton");
  } else {
    char message[40];
    std::snprintf(message, sizeof message, "freeing dictionary ID #%d", id);
    host->HostUserInfo(kInfoLevel, kInfoSubject, message);
  }
  const bool exists = dictionary(id) != nullptr;
  if (id != 0 && !exists) args.raise(kInvalidDictionary);
  const HostObject result = host->HostNewInteger(exists ? 1 : 0);
  forget(host, id);
  return result;
}
