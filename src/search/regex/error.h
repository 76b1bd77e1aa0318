// The engine's messages and the buffer in which the last one is recorded.
#pragma once

namespace vstring::regex {

namespace errors {

// Of the compiler.
inline constexpr const char* kNullArgument = "NULL argument";
inline constexpr const char* kTooBig = "regexp too big";
inline constexpr const char* kOutOfSpace = "out of space";  // of the matcher too
inline constexpr const char* kTooManyGroups = "too many ()";
inline constexpr const char* kUnmatchedGroup = "unmatched ()";
inline constexpr const char* kJunk = "junk on end";
inline constexpr const char* kEmptyOperand = "*+ operand could be empty";
inline constexpr const char* kNested = "nested *?+";
inline constexpr const char* kInvalidRange = "invalid [] range";
inline constexpr const char* kUnmatchedSet = "unmatched []";
inline constexpr const char* kNoAtom = "internal urp";
inline constexpr const char* kNoOperand = "?+* follows nothing";
inline constexpr const char* kTrailingEscape = "trailing \\";
inline constexpr const char* kNoLiteral = "internal disaster";
// Of the matcher.
inline constexpr const char* kNullParameter = "NULL parameter";
inline constexpr const char* kCorruptedProgram = "corrupted program";
inline constexpr const char* kMemoryCorruption = "memory corruption";
inline constexpr const char* kCorruptedPointers = "corrupted pointers";
inline constexpr const char* kFoulup = "internal foulup";

}  // namespace errors

// The message recorded last; empty when there has been none. No command clears it.
const char* recorded_error();
void forget_error();

}  // namespace vstring::regex
