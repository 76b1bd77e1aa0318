// Texts that many entry points share. A text of a single command stands in that command's
// signature, next to its function.
#pragma once

namespace vstring::messages {

inline constexpr int kPositions = 4;

// The ordinary refusals, by argument position.
#define VSTRING_BY_POSITION(text) \
  "first argument " text, "second argument " text, "third argument " text, "fourth argument " text
inline constexpr const char* kStringExpected[kPositions] = {
    VSTRING_BY_POSITION("must be a string")};
inline constexpr const char* kInteger32Expected[kPositions] = {
    VSTRING_BY_POSITION("must be a 32-bit integer")};
inline constexpr const char* kRangeExpected[kPositions] = {VSTRING_BY_POSITION("must be a range")};
inline constexpr const char* kStringsExpected[kPositions] = {
    VSTRING_BY_POSITION("must be a list of strings")};
inline constexpr const char* kNonNegativeExpected[kPositions] = {
    VSTRING_BY_POSITION("must be non-negative")};
inline constexpr const char* kPositiveExpected[kPositions] = {
    VSTRING_BY_POSITION("must be positive")};
#undef VSTRING_BY_POSITION

// Of commands whose only argument needs no number.
inline constexpr const char* kArgumentString = "argument must be a string";
inline constexpr const char* kArgumentInteger32 = "argument must be a 32-bit integer";

inline constexpr const char* kInvalidRange = "invalid range";
inline constexpr const char* kResultTooLong = "result would be too long";
inline constexpr const char* kRepeatedCharacter = "repeated character `%1' found";
inline constexpr const char* kInvalidOption = "invalid option: %1";
inline constexpr const char* kZeroByteDecoded = "decoded text contains a zero byte";
inline constexpr const char* kOutOfMemory = "out of memory";
inline constexpr const char* kWordTooLong = "word is too long";
inline constexpr const char* kWordNotAlphabetic =
    "word must consist entirely of alphabetic characters";

// Formats of the count check; the count is a long.
inline constexpr const char* kOneArgument = "expecting one argument, but got %ld";
inline constexpr const char* kSeveralArguments = "expecting %d arguments, but got %ld";

}  // namespace vstring::messages
