// The words of a text: runs of letters, digits and bytes from 128 on, in which single apostrophes
// may stand (don't). Hyphens and underscores separate words; so does the punctuation of Unicode's
// blocks Latin-1 Supplement and General Punctuation in UTF-8, but no other byte from 128 on:
// letters of UTF-8 and of ISO 8859-1 stay in their words.
#pragma once
#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::text {

// Appends the words in order. O(n).
Status find_words(Bytes text, HeldArray<Bytes>& words);

}  // namespace vstring::text
