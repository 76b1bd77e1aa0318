// The driver that all families' tests go through.
//
// A row is a call, written as a user writes it, and what the host prints for it. Every row runs as
// it stands, then again with each host operation and each allocation failing in turn; after each of
// these runs the arguments must be unchanged, nothing may have leaked and no object may stay
// protected once the next call is over, and the same call must answer right again. A row whose call
// leaves something behind names what takes it back.
#pragma once
#include <string>
#include <vector>

#include "support/separate.h"
#include "support/session.h"

namespace vstring_test {

struct Row {
  std::string call;
  std::string expected;             // the printed value, or "error: <message>"
  std::string without_memory = {};  // what else it may say when memory fails
  std::string undo = {};            // called after each success
};

// Behind the `first` operations and allocations of a row not each of them fails.
void Check(const std::vector<Row>& rows, std::size_t first = 64);

// Calls with "; " between them, which are all refused with this message.
struct Refusal {
  std::string message, calls;
};
void CheckRefusals(const std::vector<Refusal>& refusals);

// What a command makes of words, as "from/to from/to ...".
void CheckWords(const std::string& command, const std::string& pairs);

// Calls of x, with "; " between them, whose result is the argument x itself: whether that is a
// string or a name, when it is a string only, never.
struct Identity {
  std::string x, always, strings, never;
};
void CheckIdentity(const std::vector<Identity>& rows);

// For calls whose answer depends on what was called before: each row runs once, without failures.
void CheckInOrder(const std::vector<Row>& rows);

// True in the long tier (VSTRING_LONG_TESTS=1).
bool long_tier();

}  // namespace vstring_test
