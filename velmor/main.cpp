// velmor: runs vstring's commands from the command line, from scripts, and at a prompt.
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <iostream>
#include <sstream>

#include "command_line/completion.h"
#include "command_line/library.h"
#include "command_line/manual.h"
#include "command_line/options.h"
#include "command_line/read_file.h"
#include "help/answer.h"
#include "help/pager.h"
#include "language/checker.h"
#include "language/session.h"
#include "output/form.h"
#include "output/standard_output.h"
#include "prompt/checkpoint.h"
#include "prompt/prompt.h"
#include "prompt/terminal.h"
#include "records/run.h"

namespace {

using velmor::Options;
using velmor::Source;
using velmor::Verdict;

Verdict verdict(bool ok) { return ok ? Verdict::kFine : Verdict::kFailed; }

void show_version(velmor::Session& session, const velmor::Library& library) {
  std::cout << "velmor " VELMOR_VERSION "\nvstring " << session.evaluate("version()").text << " ("
            << library.path().string() << ")\n";
}

// Nothing runs when anything is found to be wrong.
Verdict run_all(velmor::Session& session, const std::vector<Source>& sources) {
  Verdict worst = check(session, sources, std::cerr);
  if (worst != Verdict::kFine) return worst;
  for (const Source& source : sources)
    worst = std::max(worst, session.run(source.text, std::cout, std::cerr, source.name));
  return worst;
}

Verdict answer_records(velmor::Session& session, const velmor::Job& job) {
  std::vector<Source> sources = job.definitions;
  sources.push_back({job.expression});
  const Verdict found = check(session, sources, std::cerr);
  if (found != Verdict::kFine) return found;
  for (const Source& source : job.definitions) {
    std::ostringstream unseen;  // standard output is for the answers
    const Verdict ran = session.run(source.text, unseen, std::cerr, source.name);
    if (ran != Verdict::kFine) return ran;
  }
  return velmor::run_job(session, job);
}

Verdict evaluate(velmor::Session& session, const Options& options) {
  if (options.form != velmor::OutputForm::kPrinted)
    session.write_value = [&](std::ostream& out, HostObject value) {
      std::string line;
      velmor::append_value(line, value, options.form);
      out << line << '\n';
    };
  std::vector<Source> sources;
  for (const std::string& expression : options.expressions) sources.push_back({expression});
  return run_all(session, sources);
}

// A file that cannot be read does not keep the others from running.
Verdict run_files(velmor::Session& session, const Options& options) {
  std::vector<Source> sources;
  Verdict worst = Verdict::kFine;
  for (const std::string& name : options.files) {
    try {
      sources.push_back({velmor::read_script(name), name});
    } catch (const std::runtime_error& error) {
      std::cerr << "Error, " << error.what() << '\n';
      worst = Verdict::kFailed;
    }
  }
  return std::max(worst, run_all(session, sources));
}

Verdict talk(velmor::Session& session) {
  if (isatty(STDIN_FILENO) == 0) return velmor::run_standard_input(session);
  velmor::prompt(session);
  return Verdict::kFine;
}

bool help(const velmor::CommandLine& line, const Options& options) {
  std::string request;
  for (const std::string& word : options.words) request += (request.empty() ? "" : " ") + word;
  std::ostringstream subcommand;
  const bool is_subcommand = line.help(subcommand, request);
  const auto text = velmor::help_text(request, is_subcommand);
  if (!text && !is_subcommand) throw std::runtime_error(velmor::no_help(request));
  velmor::show_help(subcommand.str() + (is_subcommand && text ? "\n" : "") + text.value_or(""));
  return true;
}

// What a faulty library did to the host is told even when every statement seemed to go well.
bool without_faults(velmor::Session& session) {
  const std::string faults = velmor_faults(session.heap());
  if (!faults.empty()) std::cerr << "Faults of the library:\n" << faults << std::endl;
  return faults.empty();
}

Verdict run_session(const Options& options) {
  const velmor::Library library(options.library);
  velmor::Session session([&](const std::string& name) { return library.resolve(name); });
  session.symbolic = options.symbolic;
  velmor::display_for_terminal(session);
  // What commands print is to stand among what velmor prints.
  velmor_set_output(
      session.heap(), [](void*, const char* text) { std::cout << text; }, nullptr);
  Verdict went = Verdict::kFine;
  switch (options.mode) {
    case Options::Mode::kVersion:
      show_version(session, library);
      break;
    case Options::Mode::kJob:
      went = answer_records(session, options.job);
      break;
    case Options::Mode::kExpressions:
      went = evaluate(session, options);
      break;
    case Options::Mode::kFiles:
      went = run_files(session, options);
      break;
    default:
      went = talk(session);
  }
  return std::max(went, verdict(without_faults(session)));
}

Verdict run(const velmor::CommandLine& line, const Options& options) {
  switch (options.mode) {
    case Options::Mode::kHelp:
      return verdict(help(line, options));
    case Options::Mode::kCompletion:
      velmor::write_completion(std::cout, velmor::outline_of(line.app()), options.shell);
      return Verdict::kFine;
    case Options::Mode::kManual:
      velmor::write_manual(std::cout, velmor::outline_of(line.app()));
      return Verdict::kFine;
    default:
      return run_session(options);
  }
}

int run(int argc, char** argv) {
  Options options;
  velmor::CommandLine line(options);
  const int parsed = line.parse(argc, argv);
  if (parsed >= 0) return parsed;
  return static_cast<int>(run(line, options));
}

int told(const std::exception& error) {
  std::cout.flush();
  std::cerr << "Error, " << error.what() << '\n';
  return 1;
}

// A standard descriptor that is closed would be given to the next file or pipe. What holds its
// place cannot be read, or written, either.
void hold_standard_descriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(descriptor, F_GETFD) < 0)
      open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

}  // namespace

int main(int argc, char** argv) {
  hold_standard_descriptors();
  if (const auto code = velmor::placeholder(argc, argv)) return *code;
  // Who reads no further has what he wants.
  std::signal(SIGPIPE, [](int) { _exit(0); });
  velmor::StandardOutput output;
  int code;
  try {
    code = run(argc, argv);
  } catch (const std::exception& error) {
    code = told(error);
  }
  try {
    output.finish();
  } catch (const std::exception& error) {
    code = told(error);
  }
  return code;
}
