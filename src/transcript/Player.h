#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "BesideViews.h"
#include "Printer.h"
#include "Transcript.h"
#include "User.h"
#include "World.h"

namespace dialwright {

/// Makes the user of one transcript, at the place where it is played.
using MakeUser = std::function<std::unique_ptr<User>(Program&)>;

/// Plays the steps of one transcript in a fresh world.
class Player {
 public:
  explicit Player(const MakeUser& makeUser);
  ~Player();

  /// What the step prints. An error of the transcript is printed as a line that begins with "error:
  /// ".
  std::vector<std::string> Play(const Step& step);

 private:
  struct Verb;
  static const Verb* Find(const std::string& name);

  void Start();
  /// A user's step; prints "refused" where it is.
  void Act(const std::function<Outcome()>& step);
  Outcome Press(char key);
  Outcome Pause();
  void FindAction(const std::string& text);
  /// Goes to a result of the last search.
  Outcome Pick(int number);
  /// A key map that leaves the editor or comes into it.
  void Exchange(Outcome (User::*step)(std::string_view, KeyMapNews&), const std::string& path);
  /// Runs what may end the program.
  void Guarded(const std::function<void()>& step);
  void WatchAbout(frmAbout& about);

  Printer printer;
  World world;
  std::unique_ptr<User> user;
  Trial trial;
  std::vector<Match> found;
  bool started = false;
  bool ended = false;
};

}  // namespace dialwright
