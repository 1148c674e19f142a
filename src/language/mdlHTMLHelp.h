#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/HelpViewer.h"

namespace dialwright {

class FileSystemObject;
class modLocalize;

/// The compiled help and its window.
class mdlHTMLHelp {
 public:
  /// `helpFolder` is without a backslash at its end; all that is given outlives this.
  mdlHTMLHelp(HelpViewer& helpViewer, FileSystemObject& fileSystem, modLocalize& localize,
              const std::string& helpFolder)
      : viewer(helpViewer), files(fileSystem), language(localize), folder(helpFolder) {}

  /// The help file of the language of the moment, else the English one, else the one without a
  /// code, which nobody looks for here.
  std::string getHelpFileName();
  /// Shows a help file, at a topic if one is given. A failure is not reported.
  void showCHMHelp(std::string_view path, WindowHandle owner,
                   std::optional<std::uint32_t> topic = {});
  /// Tells the help window, if there is one, to close, and pauses in any case.
  void CloseHelpWindow();

  WindowHandle hHelpWindow = 0;

 private:
  HelpViewer& viewer;
  FileSystemObject& files;
  modLocalize& language;
  const std::string& folder;
};

}  // namespace dialwright
