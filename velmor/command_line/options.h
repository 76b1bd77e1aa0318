// The words of the command line.
#pragma once
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "output/form.h"
#include "records/job.h"

namespace CLI {
class App;
}

namespace velmor {

struct Options {
  enum class Mode {
    kTalk,  // at a terminal; else statements from standard input
    kFiles,
    kExpressions,
    kJob,  // map, filter, count
    kHelp,
    kCompletion,
    kManual,
    kVersion,
  };
  Mode mode = Mode::kTalk;
  std::string library;
  bool symbolic = false;                 // calls of unknown commands stand for themselves
  std::vector<std::string> files;        // scripts; "-" is standard input
  std::vector<std::string> expressions;  // of -e
  OutputForm form = OutputForm::kPrinted;
  Job job;
  std::vector<std::string> words;  // to be helped with
  std::string shell;               // to be completed
};

// Parses the command line into `options` while it lives; the manual page and the completions are
// made from what it declares.
class CommandLine {
 public:
  explicit CommandLine(Options& options);
  ~CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  // -1 to go on; else the exit code, after help was written to standard output or what is wrong
  // with the words to standard error.
  int parse(int argc, char** argv);

  // Writes the help of a subcommand; false when there is none of that name.
  bool help(std::ostream& out, const std::string& subcommand) const;

  const CLI::App& app() const { return *app_; }

 private:
  struct Flags;
  void declare_job(const char* name, const char* description, Job::Task task);
  void declare_forms(CLI::App& app);
  void settle();
  void settle_job(Job::Task task);

  Options& options_;
  std::unique_ptr<Flags> flags_;
  std::unique_ptr<CLI::App> app_;
};

}  // namespace velmor
