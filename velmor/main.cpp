// velmor: runs vstring's commands from the command line, from scripts, and at a prompt.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>

#include "command_line/help.h"
#include "command_line/library.h"
#include "command_line/map.h"
#include "command_line/prompt.h"
#include "language/checker.h"
#include "language/session.h"

namespace {

using velmor::Verdict;

Verdict verdict(bool ok) { return ok ? Verdict::kFine : Verdict::kFailed; }

struct Options {
  std::string library;
  std::vector<std::string> files, expressions;
  bool version = false, symbolic = false;
  std::string map_expression;
  std::vector<std::string> map_init, map_files;
  std::string help_command;
};

std::string contents_of(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  std::ostringstream contents;
  if (!file || !(file.peek() == EOF || contents << file.rdbuf()))
    throw std::runtime_error("cannot read " + name);
  return contents.str();
}

bool show_version(velmor::Session& session, const velmor::Library& library) {
  std::cout << "velmor " VELMOR_VERSION "\nvstring " << session.evaluate("version()").text << " ("
            << library.path().string() << ")\n";
  return true;
}

Verdict map(velmor::Session& session, const Options& options) {
  std::vector<velmor::Source> sources;
  for (const std::string& statements : options.map_init) sources.push_back({statements});
  sources.push_back({options.map_expression});
  if (const Verdict found = check(session, sources, std::cerr); found != Verdict::kFine)
    return found;
  for (const std::string& statements : options.map_init) {
    std::ostringstream unseen;  // standard output is for the lines
    if (const Verdict ran = session.run(statements, unseen, std::cerr); ran != Verdict::kFine)
      return ran;
  }
  return verdict(velmor::map(session, options.map_expression, options.map_files));
}

Verdict run_all(velmor::Session& session, const std::vector<velmor::Source>& sources) {
  Verdict worst = check(session, sources, std::cerr);
  if (worst != Verdict::kFine) return worst;
  for (const velmor::Source& source : sources)
    worst = std::max(worst, session.run(source.text, std::cout, std::cerr, source.name));
  return worst;
}

Verdict evaluate(velmor::Session& session, const Options& options) {
  std::vector<velmor::Source> sources;
  for (const std::string& expression : options.expressions) sources.push_back({expression});
  return run_all(session, sources);
}

Verdict run_files(velmor::Session& session, const Options& options) {
  std::vector<velmor::Source> sources;
  for (const std::string& name : options.files) sources.push_back({contents_of(name), name});
  return run_all(session, sources);
}

Verdict talk(velmor::Session& session) {
  if (isatty(STDIN_FILENO) == 0) return velmor::run_standard_input(session);
  velmor::prompt(session);
  return Verdict::kFine;
}

bool help(const Options& options) {
  if (options.help_command.empty())
    velmor::list_commands(std::cout);
  else if (!velmor::describe_command(std::cout, options.help_command))
    throw std::runtime_error("no such command: " + options.help_command +
                             "; velmor help lists them");
  return true;
}

// What a faulty library did to the host is told even when every statement seemed to go well.
bool without_faults(velmor::Session& session) {
  const std::string faults = velmor_faults(session.heap());
  if (!faults.empty()) std::cerr << "Faults of the library:\n" << faults << std::endl;
  return faults.empty();
}

Verdict run(const CLI::App& app, const Options& options) {
  if (app.got_subcommand("help")) return verdict(help(options));
  const velmor::Library library(options.library);
  velmor::Session session([&](const std::string& name) { return library.resolve(name); });
  session.symbolic = options.symbolic;
  Verdict went;
  if (options.version)
    went = verdict(show_version(session, library));
  else if (app.got_subcommand("map"))
    went = map(session, options);
  else if (!options.expressions.empty())
    went = evaluate(session, options);
  else if (!options.files.empty())
    went = run_files(session, options);
  else
    went = talk(session);
  return std::max(went, verdict(without_faults(session)));
}

void declare(CLI::App& app, Options& options) {
  app.add_option("FILE", options.files, "Scripts to run; without any, standard input");
  app.add_option("-e", options.expressions, "Evaluate EXPR, with Lexiva loaded")
      ->type_name("EXPR")
      ->allow_extra_args(false)
      ->excludes("FILE");
  app.add_option("--library", options.library, "The library to load (or set VSTRING_LIBRARY)")
      ->type_name("PATH");
  app.add_flag("--symbolic", options.symbolic, "Calls of unknown commands stand for themselves");
  app.add_flag("--version", options.version, "Print the versions of velmor and of the library");

  app.require_subcommand(0, 1);  // what follows one is its own, also a file called help
  CLI::App* map = app.add_subcommand("map", "Evaluate EXPR for every line, written _");
  map->fallthrough();
  map->add_option("EXPR", options.map_expression, "For instance reverse(_)")->required();
  map->add_option("--init", options.map_init, "Statements to run first")
      ->type_name("EXPR")
      ->allow_extra_args(false);
  map->add_option("FILE", options.map_files, "Texts to read; without any, standard input");

  app.add_subcommand("help", "List the commands, or explain one")
      ->add_option("COMMAND", options.help_command, "For instance take");
}

}  // namespace

int main(int argc, char** argv) {
  try {
    CLI::App app("velmor runs the commands of the string library vstring.", "velmor");
    Options options;
    declare(app, options);
    try {
      app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
      return app.exit(error) == 0 ? 0 : 2;
    }
    const Verdict went = run(app, options);
    std::cout.flush();
    if (!std::cout) throw std::runtime_error("cannot write");
    return static_cast<int>(went);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "Error, %s\n", error.what());
    return 1;
  }
}
