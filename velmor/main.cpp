// velmor: runs vstring's commands from the command line, from scripts, and at a prompt.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>

#include "command_line/help.h"
#include "command_line/library.h"
#include "command_line/map.h"
#include "command_line/prompt.h"
#include "language/session.h"

namespace {

struct Options {
  std::string library;
  std::vector<std::string> files, expressions;
  bool version = false;
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
  session.load_lexiva();
  std::cout << "velmor " VELMOR_VERSION "\nvstring " << session.evaluate("version()").text << " ("
            << library.path().string() << ")\n";
  return true;
}

bool map(velmor::Session& session, const Options& options) {
  session.load_lexiva();
  for (const std::string& statements : options.map_init) {
    std::ostringstream unseen;  // standard output is for the lines
    if (!session.run(statements, unseen, std::cerr, "--init")) return false;
  }
  return velmor::map(session, options.map_expression, options.map_files);
}

bool evaluate(velmor::Session& session, const Options& options) {
  session.load_lexiva();
  bool ok = true;
  for (const std::string& expression : options.expressions)
    ok = session.run(expression, std::cout, std::cerr) && ok;
  return ok;
}

bool run_files(velmor::Session& session, const Options& options) {
  bool ok = true;
  for (const std::string& name : options.files)
    ok = session.run(contents_of(name), std::cout, std::cerr, name) && ok;
  return ok;
}

bool talk(velmor::Session& session) {
  if (isatty(STDIN_FILENO) == 0) return velmor::run_standard_input(session);
  velmor::prompt(session);
  return true;
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

bool run(const CLI::App& app, const Options& options) {
  if (app.got_subcommand("help")) return help(options);
  const velmor::Library library(options.library);
  velmor::Session session([&](const std::string& name) { return library.resolve(name); });
  bool ok;
  if (options.version)
    ok = show_version(session, library);
  else if (app.got_subcommand("map"))
    ok = map(session, options);
  else if (!options.expressions.empty())
    ok = evaluate(session, options);
  else if (!options.files.empty())
    ok = run_files(session, options);
  else
    ok = talk(session);
  return without_faults(session) && ok;
}

void declare(CLI::App& app, Options& options) {
  app.add_option("FILE", options.files, "Scripts to run; without any, standard input");
  app.add_option("-e", options.expressions, "Evaluate EXPR, with Lexiva loaded")
      ->type_name("EXPR")
      ->allow_extra_args(false)
      ->excludes("FILE");
  app.add_option("--library", options.library, "The library to load (or set VSTRING_LIBRARY)")
      ->type_name("PATH");
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
    const bool ok = run(app, options);
    std::cout.flush();
    if (!std::cout) throw std::runtime_error("cannot write");
    return ok ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "Error, %s\n", error.what());
    return 1;
  }
}
