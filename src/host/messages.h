// Texts that many entry points share. A text of a single command stands in that command's
// signature, next to its function.
#pragma once

namespace vstring::messages {

inline constexpr int kPositions = 4;

// The ordinary refusals, by argument position.
inline constexpr const char* kStringExpected[kPositions] = {
    "first argument must be a string",
    "second argument must be a string",
    "third argument must be a string",
    "fourth argument must be a string",
};

inline constexpr const char* kInteger32Expected[kPositions] = {
    "first argument must be a 32-bit integer",
    "second argument must be a 32-bit integer",
    "third argument must be a 32-bit integer",
    "fourth argument must be a 32-bit integer",
};

inline constexpr const char* kRangeExpected[kPositions] = {
    "first argument must be a range",
    "second argument must be a range",
    "third argument must be a range",
    "fourth argument must be a range",
};

inline constexpr const char* kStringsExpected[kPositions] = {
    "first argument must be a list of strings",
    "second argument must be a list of strings",
    "third argument must be a list of strings",
    "fourth argument must be a list of strings",
};

inline constexpr const char* kNonNegativeExpected[kPositions] = {
    "first argument must be non-negative",
    "second argument must be non-negative",
    "third argument must be non-negative",
    "fourth argument must be non-negative",
};

inline constexpr const char* kPositiveExpected[kPositions] = {
    "first argument must be positive",
    "second argument must be positive",
    "third argument must be positive",
    "fourth argument must be positive",
};

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
