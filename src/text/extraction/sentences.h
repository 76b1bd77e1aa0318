// The sentences of a text.
//
// They are parted by white space: two newlines or more, or any behind a full stop, exclamation or
// question mark, closing quotation marks and brackets in between. No sentence ends where a
// lower-case letter follows, nor at the full stop of an initial (J. S. Bach) or of an English
// abbreviation (Dr. Smith).
#pragma once
#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::text {

// Appends the sentences in order, without white space at their ends. O(n).
Status find_sentences(Bytes text, HeldArray<Bytes>& sentences);

}  // namespace vstring::text
