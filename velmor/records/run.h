// Runs a job.
#pragma once
#include "language/session.h"
#include "records/job.h"

namespace velmor {

// Evaluates the job's expression for every record of its files and writes what its task makes of
// the values. Failures are told on standard error with their place and do not stop the run; nor
// does a file that cannot be read. What has come in is answered when the input pauses. Memory is
// that of the longest record, for counting also that of the different values.
//
// Throws SyntaxError for the expression, and std::runtime_error when the output cannot be written.
Verdict run_job(Session& session, const Job& job);

}  // namespace velmor
