// Times out of texts: the way back from a formatted time.
#pragma once
#include <cstdint>
#include <optional>

#include "bytes/bytes.h"

namespace vstring::time {

// The first conversion of `format` that parse_time does not know: a % and the byte behind it, or a
// % alone at the end. Empty when it knows them all.
Bytes unknown_conversion(Bytes format);

// The time, in seconds from the beginning of 1970, UTC, that `text` shows under `format`; nothing
// when it shows none. `format` has known conversions only:
//   %Y %m %d %H %I %M %S %j %y and %e %k %l, behind blanks     numbers in their ranges
//   %b %B %h %a %A %p   names of months and weekdays, whole or their first three letters; AM or PM
//   %z                  how far ahead of UTC the clock is: Z, +01, +0100, +01:00
//   %D %x %R %r %T %X %c %v   as these are formatted
//   %n %t and white space     any white space, also none
// Of a field that is given twice the last one counts; left out, they are those of the beginning of
// 1970. Weekday, day of the year and the rest must agree. Without %z the clock is that of the local
// zone, and the first of two times at which it shows this is meant. Linear in the texts.
std::optional<std::int64_t> parse_time(Bytes text, Bytes format);

}  // namespace vstring::time
