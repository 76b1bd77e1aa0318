// Values as lines of output.
#pragma once
#include <string>

#include "host/vstring.h"

namespace velmor {

enum class OutputForm {
  kPrinted,  // as the language writes it: "abc", [1, 2]
  kRaw,      // the bytes of a string; anything else as it prints
  kJson,     // one JSON value, see json.h
  kTsv,      // fields with tabs between, see tsv.h
};

// Appends `value`, without a newline behind it.
void append_value(std::string& out, HostObject value, OutputForm form);

}  // namespace velmor
