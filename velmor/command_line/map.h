// `velmor map`: an expression evaluated for every line of a text.
#pragma once
#include <string>
#include <vector>

#include "language/session.h"

namespace velmor {

// Evaluates `expression` for each line of the files, or of standard input when there are none, with
// the name _ standing for the line without its newline, and writes one line to standard output for
// each: the bytes of a string, anything else as it prints, nothing for NULL or where the evaluation
// failed. A last line without a newline is answered by one without. Failures are reported on
// standard error with their line, and do not stop the run. Memory is that of the longest line.
//
// True when nothing failed. Throws SyntaxError for the expression, and std::runtime_error when a
// file cannot be read or the output not be written.
bool map(Session& session, const std::string& expression, const std::vector<std::string>& files);

}  // namespace velmor
