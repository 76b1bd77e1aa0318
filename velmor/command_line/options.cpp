#include "command_line/options.h"

#include <CLI/CLI.hpp>
#include <ostream>

#include "command_line/read_file.h"
#include "records/fields.h"

namespace velmor {
namespace {

constexpr std::size_t kMostWorkers = 256;

struct TaskName {
  Job::Task task;
  const char* name;
  const char* description;
};

constexpr TaskName kTasks[] = {
    {Job::Task::kMap, "map", "Write the value of EXPR for every line, which is called _"},
    {Job::Task::kFilter, "filter", "Write the lines for which EXPR is true"},
    {Job::Task::kCount, "count",
     "Write how often each value of EXPR occurs: number, tab, value, the most frequent first"},
};

constexpr const char* kJobFooter =
    "In EXPR\n"
    "  _             the line, as a string\n"
    "  _1 _2 ...     its fields; \"\" where there is none\n"
    "  _n _file      its number within its file, and the file's name\n"
    "  _id           with --fasta: the first word of the header\n"
    "\n"
    "A string is written as it is, any other value as it prints. An evaluation that fails is told "
    "on standard error and does not stop the run; the exit code is then 1.\n";

constexpr const char* kFooter =
    "Examples\n"
    "  velmor                                      a prompt\n"
    "  velmor -e 'levenshtein(\"kitten\", \"sitting\")'\n"
    "  velmor map 'capitalise(_)' names.txt\n"
    "  velmor filter -F '\\t' 'search(\"na\", _2) > 0' table.tsv\n"
    "  velmor count 'soundex(_)' names.txt\n"
    "  velmor help take\n"
    "\n"
    "Exit codes: 0; 1 when an evaluation failed or a file could not be read or written; 2 for "
    "wrong usage and unknown commands.\n";

}  // namespace

// Names of options with what they take, and nothing of how they are declared.
class PlainFormatter : public CLI::Formatter {
 public:
  std::string make_option_opts(const CLI::Option* option) const override {
    const std::string type = option->get_type_name();
    return type.empty() ? "" : " " + type.substr(0, type.find(':'));
  }
};

// What the command line says, before it is known to be sound.
struct CommandLine::Flags {
  bool version = false, json = false, tsv = false, raw = false;
  bool zero = false, paragraphs = false, fasta = false;
  std::string separator;
  std::vector<std::string> init, init_files;
};

CommandLine::CommandLine(Options& options)
    : options_(options),
      flags_(std::make_unique<Flags>()),
      app_(std::make_unique<CLI::App>("Runs the commands of the string library vstring.",
                                      "velmor")) {
  CLI::App& app = *app_;
  app.formatter(std::make_shared<PlainFormatter>());
  app.set_help_flag("-h,--help", "Show this help");
  app.footer(kFooter);
  app.failure_message([](const CLI::App*, const CLI::Error& error) {
    return std::string("Error, ") + error.what() + "\nRun velmor --help for more information.\n";
  });
  app.add_option("FILE", options.files,
                 "Scripts to run, - for standard input; a prompt without any")
      ->type_name("");
  app.add_option("-e", options.expressions, "Evaluate EXPR and print its value")
      ->type_name("EXPR")
      ->allow_extra_args(false);
  declare_forms(app);
  app.add_flag("-r", flags_->raw, "With -e: write a string as it is")
      ->excludes("--json")
      ->excludes("--tsv");
  app.add_option("--library", options.library, "The library to load (or set VSTRING_LIBRARY)")
      ->type_name("PATH");
  app.add_flag("--symbolic", options.symbolic,
               "Let calls of unknown commands stand for themselves");
  app.add_flag("--version", flags_->version, "Print the versions of velmor and of the library");

  app.require_subcommand(0, 1);  // what follows one is its own, also a file called help
  for (const TaskName& task : kTasks) declare_job(task.name, task.description, task.task);
  app.add_subcommand("help", "List the commands, or explain what WORD stands for")
      ->add_option("WORD", options.words, "For instance take")
      ->type_name("");
  app.add_subcommand("completion", "Print the completion of a shell: bash, zsh or fish")
      ->add_option("SHELL", options.shell, "bash, zsh or fish")
      ->type_name("")
      ->required()
      ->check(CLI::IsMember({"bash", "zsh", "fish"}));
  app.add_subcommand("manual", "Print the manual page velmor(1)");
}

CommandLine::~CommandLine() = default;

void CommandLine::declare_forms(CLI::App& app) {
  CLI::Option* const json =
      app.add_flag("--json", flags_->json, "Write each value as a line of JSON");
  app.add_flag("--tsv", flags_->tsv, "Write the items of a sequence or list with tabs between")
      ->excludes(json);
}

void CommandLine::declare_job(const char* name, const char* description, Job::Task task) {
  Job& job = options_.job;
  CLI::App& app = *app_->add_subcommand(name, description);
  app.fallthrough();
  app.footer(kJobFooter);
  app.add_option(
         "EXPR", job.expression,
         task == Job::Task::kFilter ? "For instance ispalindrome(_)" : "For instance reverse(_)")
      ->type_name("")
      ->required();
  app.add_option("FILE", job.files, "Texts to read, - for standard input, as without any")
      ->type_name("");
  app.add_option("-F", flags_->separator, "Separate fields by SEP, \\t for a tab; else by blanks")
      ->type_name("SEP");
  CLI::Option* const paragraphs =
      app.add_flag("--paragraphs", flags_->paragraphs, "_ is a paragraph; empty lines end it");
  CLI::Option* const fasta = app.add_flag("--fasta", flags_->fasta,
                                          "_ is the sequence of a FASTA record, its lines joined");
  CLI::Option* const zero =
      app.add_flag("-0", flags_->zero, "_ ends with a zero byte, in and out, not with a newline");
  paragraphs->excludes(fasta)->excludes(zero);
  fasta->excludes(zero);
  app.add_flag("--crlf", job.format.drops_carriage_return,
               "Drop the carriage return at the end of a line");
  app.add_option("--init", flags_->init, "Statements to run first")
      ->type_name("EXPR")
      ->allow_extra_args(false);
  app.add_option("--init-file", flags_->init_files, "A script to run first")
      ->type_name("PATH")
      ->allow_extra_args(false);
  app.add_option("-j", job.workers, "Share the work among N processes")
      ->type_name("N")
      ->check(CLI::Range(std::size_t{1}, kMostWorkers));
  app.add_option("--max-errors", job.most_errors, "Show the first N errors only; else 20")
      ->type_name("N")
      ->check(CLI::NonNegativeNumber);
  if (task != Job::Task::kFilter) declare_forms(app);
}

int CommandLine::parse(int argc, char** argv) {
  try {
    app_->parse(argc, argv);
    settle();
    return -1;
  } catch (const CLI::ParseError& error) {
    return app_->exit(error) == 0 ? 0 : 2;
  }
}

bool CommandLine::help(std::ostream& out, const std::string& subcommand) const {
  for (const TaskName& task : kTasks) {
    if (subcommand != task.name) continue;
    out << app_->get_subcommand(subcommand)->help("velmor");
    return true;
  }
  return false;
}

// What CLI11 cannot tell to be wrong, and what the words come to.
void CommandLine::settle() {
  Options& options = options_;
  const std::vector<CLI::App*> subcommands = app_->get_subcommands();
  const std::string subcommand = subcommands.empty() ? "" : subcommands[0]->get_name();
  const bool forms = flags_->json || flags_->tsv || flags_->raw;
  if (flags_->version && (app_->count_all() > (options.library.empty() ? 2U : 3U)))
    throw CLI::ValidationError("--version goes with no other words");
  if (!subcommand.empty() && (!options.expressions.empty() || flags_->raw))
    throw CLI::ValidationError("-e and -r do not go with " + subcommand);
  if (!options.expressions.empty() && !options.files.empty())
    throw CLI::ValidationError("either scripts or -e, and -e takes the next word");
  if (!subcommand.empty() && !options.files.empty())
    throw CLI::ValidationError("either scripts or " + subcommand);
  if (subcommand == "filter" && forms)
    throw CLI::ValidationError("filter writes records as they are");
  if (subcommand.empty() && forms && options.expressions.empty())
    throw CLI::ValidationError("--json, --tsv and -r go with -e");
  options.form = flags_->json  ? OutputForm::kJson
                 : flags_->tsv ? OutputForm::kTsv
                 : flags_->raw ? OutputForm::kRaw
                               : OutputForm::kPrinted;
  using Mode = Options::Mode;
  if (flags_->version)
    options.mode = Mode::kVersion;
  else if (subcommand == "help")
    options.mode = Mode::kHelp;
  else if (subcommand == "completion")
    options.mode = Mode::kCompletion;
  else if (subcommand == "manual")
    options.mode = Mode::kManual;
  else if (!options.expressions.empty())
    options.mode = Mode::kExpressions;
  else if (!options.files.empty())
    options.mode = Mode::kFiles;
  for (const TaskName& task : kTasks)
    if (subcommand == task.name) settle_job(task.task);
}

void CommandLine::settle_job(Job::Task task) {
  options_.mode = Options::Mode::kJob;
  Job& job = options_.job;
  job.task = task;
  if (job.files.empty()) job.files = {"-"};
  job.format.kind = flags_->zero         ? RecordKind::kZero
                    : flags_->paragraphs ? RecordKind::kParagraph
                    : flags_->fasta      ? RecordKind::kFasta
                                         : RecordKind::kLine;
  job.form = options_.form == OutputForm::kPrinted ? OutputForm::kRaw : options_.form;
  CLI::App& app = *app_->get_subcommands()[0];
  if (app.count("-F") > 0) try {
      job.separator = unescaped_separator(flags_->separator);
    } catch (const std::invalid_argument& error) {
      throw CLI::ValidationError(error.what());
    }
  // Definitions run in the order in which they stand.
  auto init = flags_->init.begin();
  auto init_file = flags_->init_files.begin();
  for (const CLI::Option* option : app.parse_order()) {
    if (option->check_name("--init")) job.definitions.push_back({*init++, "--init"});
    if (option->check_name("--init-file")) {
      job.definitions.push_back({read_script(*init_file), *init_file});
      ++init_file;
    }
  }
}

}  // namespace velmor
