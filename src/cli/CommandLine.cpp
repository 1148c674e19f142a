#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <ostream>

#include "cli/Commands.h"
#include "platform/Failure.h"
#include "shell/ProgramVersion.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

constexpr const char* programName = "dialwright-cli";

std::string Version() {
  return "Dialwright " + std::to_string(programVersion.iMajor) + "." +
         std::to_string(programVersion.iMinor) + "." + std::to_string(programVersion.iRevision);
}

void AddSlot(CLI::App& app, Command& command, const char* words) {
  app.add_option("--slot", command.slot, words)->check(CLI::Range(1, slotCount));
}

void AddJson(CLI::App& app, Command& command) {
  app.add_flag("--json", command.json, "print one JSON object");
}

/// The commands with their options, each where it means something.
void Describe(CLI::App& app, Command& command) {
  app.set_version_flag("--version", Version());
  app.set_help_flag("--help", "print this help");
  app.require_subcommand(1);
  app.fallthrough();
  app.add_option("--server", command.server,
                 "folder with server.reg and drive_c, in place of this machine's own server")
      ->type_name("FOLDER");
  app.footer(
      "Ends with 0, or 1 where something was found, refused or differs, 2 for wrong use, 3 for a\n"
      "server or file that cannot be read.");

  CLI::App* check = app.add_subcommand("check", "print what a save would refuse, and cautions");
  AddSlot(*check, command, "this slot alone");
  AddJson(*check, command);

  CLI::App* show = app.add_subcommand("show", "print the key map of a slot");
  AddSlot(*show, command, "the slot, 1 if not given");
  AddJson(*show, command);

  CLI::App* write = app.add_subcommand("export", "write a key map file");
  AddSlot(*write, command, "the slot, 1 if not given");
  write->add_option("FILE", command.first, "where to; the standard output if not given");

  CLI::App* apply = app.add_subcommand("apply", "take a key map file in and save");
  apply->add_option("FILE", command.first, "the key map file")->required();
  AddSlot(*apply, command, "the slot, 1 if not given");
  apply->add_flag("--dry-run", command.dryRun, "write nothing; print what would change");

  CLI::App* diff = app.add_subcommand("diff", "print the changes from A to B");
  constexpr const char* side = "a key map file, or a server folder with #N for its slot";
  diff->add_option("A", command.first, side)->required();
  diff->add_option("B", command.second, side)->required();
  AddJson(*diff, command);
}

std::string OneLine(std::string text) {
  std::ranges::replace(text, '\n', ' ');
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

ExitCode Run(const Command& command, const Terminal& terminal) {
  struct Row {
    std::string_view name;
    ExitCode (*run)(const Command&, const Terminal&);
  };
  constexpr Row rows[] = {
      {"check", Check}, {"show", Show}, {"export", Export}, {"apply", Apply}, {"diff", Diff}};
  return std::ranges::find(rows, command.name, &Row::name)->run(command, terminal);
}

}  // namespace

ExitCode RunCommandLine(const std::vector<std::string>& arguments, const Terminal& terminal) {
  Command command;
  CLI::App app("The key maps of a Merid or Merid Tessel server, without a window.", programName);
  Describe(app, command);
  const auto say = [&](const std::string& line) {
    if (!line.empty()) terminal.words << programName << ": " << OneLine(line) << '\n';
  };
  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    command.name = app.get_subcommands().front()->get_name();
    return Run(command, terminal);
  } catch (const CLI::Success& asked) {
    app.exit(asked, terminal.results, terminal.words);
    return ExitCode::done;
  } catch (const CLI::ParseError& fault) {
    say(fault.what());
    return ExitCode::wrongUse;
  } catch (const CommandFailure& failure) {
    say(failure.line);
    return failure.code;
  } catch (const RuntimeFailure& failure) {
    say(failure.description);
    return ExitCode::unreadable;
  }
}

}  // namespace dialwright
