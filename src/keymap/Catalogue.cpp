#include "keymap/Catalogue.h"

#include <algorithm>

#include "server/MeridVersion.h"
#include "shell/Program.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

constexpr int unknownToken = 1063;

/// The help of the after message menu has a description, but no row.
constexpr Action afterMessageHelp{"MSGMENU_HELP", 0, 0, {}, false, OrderSource::none, {1108}};

std::string Compose(Program& program, const Description& description) {
  const bool older = !gotoForAllMessages.IsOpen(program.server);
  const bool olderText = older && description.olderText != 0;
  std::string text = program.mymyLoadString(olderText ? description.olderText : description.text);
  if (description.when == NoteWhen::always || (description.when == NoteWhen::olderServer && older))
    text += "\r\n" + program.mymyLoadString(description.note);
  return text;
}

const Action* FindDescribed(std::string_view token) {
  for (const PlaybackSection& section : PlaybackSections())
    if (const Action* action = FindAction(PlaybackActions(), token, section.prefix)) return action;
  for (const auto& actions : {MainMenuActions(), AfterMessageActions(), GlobalActions(),
                              std::span<const Action>(&afterMessageHelp, 1)})
    if (const Action* action = FindAction(actions, token)) return action;
  return nullptr;
}

}  // namespace

bool Gate::IsOpen(const MeridVersion& server) const {
  return any || server.bIsVersionGreaterThanOrEqualTo(iMajor, iMinor, iRelease, iBuild, 0);
}

bool ExistsOn(MeridVersion& server, const Action& action) {
  return action.gate.IsOpen(server) && (!action.notOnDomino || server.iGetDirectoryBinding() == 1);
}

std::string ActionLabel(Program& program, const Action& action) {
  const bool older = action.olderLabel != 0 && !gotoForAllMessages.IsOpen(program.server);
  return program.mymyLoadString(older ? action.olderLabel : action.label);
}

std::string FetchDescription(Program& program, std::string_view token) {
  if (const Action* action = FindDescribed(token)) return Compose(program, action->description);
  return program.mymyLoadString(unknownToken) + std::string(token);
}

const Action* FindAction(std::span<const Action> actions, std::string_view token,
                         std::string_view prefix) {
  if (!token.starts_with(prefix)) return nullptr;
  const auto action = std::ranges::find(actions, token.substr(prefix.size()), &Action::name);
  return action == actions.end() ? nullptr : &*action;
}

const Action* FindAction(int grid, std::string_view token) {
  for (const PlaybackSection& section : PlaybackSections())
    if (section.grid == grid) return FindAction(PlaybackActions(), token, section.prefix);
  return FindAction(grid == mainMenuGrid       ? MainMenuActions()
                    : grid == afterMessageGrid ? AfterMessageActions()
                                               : GlobalActions(),
                    token);
}

}  // namespace dialwright
