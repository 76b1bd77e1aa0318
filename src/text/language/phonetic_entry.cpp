// Entry points: soundex, metaphone, nysiis, syllen.
#include <algorithm>

#include "host/args.h"
#include "host/result.h"
#include "text/language/metaphone.h"
#include "text/language/nysiis.h"
#include "text/language/soundex.h"
#include "text/language/syllables.h"

using namespace vstring;

HostObject vstring_soundex(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const text::SoundexKey key = text::soundex(args.text(1));
  TextResult result(args, key.size());
  std::copy(key.begin(), key.end(), result.bytes().begin());
  return result.object();
}

HostObject vstring_metaphone(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  const Bytes text = args.text(1);
  // Every key fits into the scratch buffer.
  TextResult key(args, text::kLongestMetaphoneKey, SMALL_BUFFER_BASE_SIZE);
  return key.object(text::metaphone(text, key.bytes()));
}

HostObject vstring_nysiis(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes name = args.text(1);
  TextResult key(args, name.size());
  return key.object(text::nysiis(name, key.bytes()));
}

HostObject vstring_syllen(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  const std::int32_t syllables = text::SyllableLength(args.text(1));
  if (syllables == text::kTooLong) args.raise(messages::kWordTooLong);
  if (syllables == text::kNotAlphabetic) args.raise(messages::kWordNotAlphabetic);
  return host->HostNewInteger(syllables);
}
