#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace dialwright {

class MeridVersion;
class Program;

/// A server version from which something exists.
struct Gate {
  std::int16_t iMajor = 0;
  std::int16_t iMinor = 0;
  std::int16_t iRelease = 0;
  std::int16_t iBuild = 0;
  bool any = true;  ///< exists on every server

  constexpr Gate() = default;
  constexpr Gate(std::int16_t major, std::int16_t minor, std::int16_t release, std::int16_t build)
      : iMajor(major), iMinor(minor), iRelease(release), iBuild(build), any(false) {}
  bool IsOpen(const MeridVersion& server) const;
};

/// The version from which the goto actions serve all messages, and a few texts changed with them.
inline constexpr Gate gotoForAllMessages{4, 2, 0, 37};

/// Where a row's menu order comes from.
enum class OrderSource {
  none,   ///< the grid has no order keys
  key,    ///< the key "ORDINAL_" and the token
  fixed,  ///< always not voiced, whatever the file says
};

/// When a description carries its note.
enum class NoteWhen { never, always, olderServer };

/// A description: string numbers of the text and its note. The older text, where there is one,
/// stands in for the text and brings the note on a server without `gotoForAllMessages`.
struct Description {
  int text = 0;
  int note = 0;
  NoteWhen when = NoteWhen::never;
  int olderText = 0;
};

/// One action of a menu. The rows of a family stand in the order in which a load adds them.
struct Action {
  std::string_view name;  ///< the token; for message playback what stands behind the prefix
  int label = 0;          ///< string number
  int olderLabel = 0;     ///< the one below `gotoForAllMessages`, if another
  Gate gate;
  bool notOnDomino = false;
  OrderSource order = OrderSource::none;
  Description description;
};

std::span<const Action> MainMenuActions();
std::span<const Action> PlaybackActions();
std::span<const Action> AfterMessageActions();
std::span<const Action> GlobalActions();

/// The three stretches of a message, each with a grid of its own.
struct PlaybackSection {
  std::string_view prefix;
  int grid;
};
std::span<const PlaybackSection> PlaybackSections();

/// Whether this server has an action. Throws RuntimeFailure if the directory that decides it cannot
/// be found out.
bool ExistsOn(MeridVersion& server, const Action& action);

/// The label of an action on this server.
std::string ActionLabel(Program& program, const Action& action);

/// The text that explains an action; a token that is none is told so in the text. Case counts.
std::string FetchDescription(Program& program, std::string_view token);

/// The action of the list that a token names behind the prefix; null if there is none. Case counts.
const Action* FindAction(std::span<const Action> actions, std::string_view token,
                         std::string_view prefix = {});

/// The action of a grid's menu that a token names; null if there is none. Case counts.
const Action* FindAction(int grid, std::string_view token);

}  // namespace dialwright
