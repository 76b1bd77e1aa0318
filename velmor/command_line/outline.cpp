#include "command_line/outline.h"

#include <CLI/CLI.hpp>

namespace velmor {
namespace {

OptionOutline outline_of(const CLI::Option& option) {
  OptionOutline outline;
  for (const std::string& name : option.get_snames()) outline.names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) outline.names.push_back("--" + name);
  const std::string type = option.get_type_name();
  if (option.get_expected_max() > 0) outline.argument = type.substr(0, type.find(':'));
  outline.description = option.get_description();
  return outline;
}

}  // namespace

Outline outline_of(const CLI::App& app) {
  Outline outline;
  outline.name = app.get_name();
  outline.description = app.get_description();
  outline.footer = app.get_footer();
  for (const CLI::Option* option : app.get_options()) {
    if (option->get_positional())
      outline.positionals.push_back({option->get_name(), option->get_description(),
                                     option->get_required(), option->get_expected_max() > 1});
    else
      outline.options.push_back(outline_of(*option));
  }
  for (const CLI::App* subcommand : app.get_subcommands([](const CLI::App*) { return true; }))
    outline.subcommands.push_back(outline_of(*subcommand));
  return outline;
}

}  // namespace velmor
