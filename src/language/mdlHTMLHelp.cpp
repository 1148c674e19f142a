#include "language/mdlHTMLHelp.h"

#include "files/FileSystemObject.h"
#include "language/modLocalize.h"
#include "platform/Failure.h"

namespace dialwright {

namespace {

constexpr unsigned displayTopic = 0;
constexpr unsigned helpContext = 15;
constexpr unsigned closeMessage = 16;
constexpr unsigned closePause = 500;  // milliseconds

}  // namespace

std::string mdlHTMLHelp::getHelpFileName() {
  const std::string start = folder + "\\Dialwright";
  const std::string code = language.GetLanguageCode(language.lCurrentLanguage);
  for (const std::string& path : {start + "_" + code + ".chm", start + "_ENU.chm"})
    if (files.FileExists(path)) return path;
  return start + ".chm";
}

void mdlHTMLHelp::showCHMHelp(std::string_view path, WindowHandle owner,
                              std::optional<std::uint32_t> topic) {
  try {
    hHelpWindow =
        viewer.HtmlHelpA(owner, path, topic ? helpContext : displayTopic, topic.value_or(0));
  } catch (const RuntimeFailure&) {
    // Help that cannot be shown is the viewer's to report.
  }
}

void mdlHTMLHelp::CloseHelpWindow() {
  if (viewer.IsWindow(hHelpWindow)) viewer.SendMessageA(hHelpWindow, closeMessage, 0, 0);
  viewer.Sleep(closePause);
}

}  // namespace dialwright
