// What the evaluation of records gave, in order.
#pragma once
#include <cstddef>
#include <string>
#include <vector>

namespace velmor {

struct Message {
  enum class Kind : unsigned char {
    kError,           // of a record
    kUnknownCommand,  // such an error
    kCarriageReturn,  // the file's line end in CR LF
    kInformation,     // what a command told the user
    kPrinted,         // what a command printed to standard output
  };
  Kind kind;
  std::size_t at;  // how much of Answers::out came before it
  std::string text;
};

struct Answers {
  std::string out;  // what the task made of the records
  std::vector<Message> messages;
  bool ended = true;  // whether the last record of `out` was ended

  bool empty() const { return out.empty() && messages.empty(); }
  void clear() {
    out.clear();
    messages.clear();
    ended = true;
  }
};

}  // namespace velmor
