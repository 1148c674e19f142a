#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "controls/Control.h"
#include "controls/EditBox.h"
#include "controls/Focus.h"
#include "controls/Form.h"
#include "controls/KeyGrid.h"
#include "controls/TabStrip.h"
#include "server/MeridVersion.h"
#include "shell/FileSafety.h"
#include "shell/SaveOutcome.h"

namespace dialwright {

class Program;

/// The grids and their tabs, by menu; the Setup tab, which has no grid, comes behind them.
enum MenuTab : int {
  mainMenuGrid,
  headerGrid,
  bodyGrid,
  footerGrid,
  afterMessageGrid,
  globalsGrid,
  gridCount,
  setupTab = gridCount,
};
inline constexpr int setupOptionCount = 8;
inline constexpr int slotCount = 3;

template <class T>
using ControlArray = std::array<T, gridCount>;

/// The element of a control array for a grid number.
template <class Array>
auto& At(Array& controls, int index) {
  return controls.at(static_cast<std::size_t>(index));
}

/// The one working window: its controls by name and its few variables. The grids are the key map:
/// there is no other copy in memory. Unsaved changes are `cmdSave.Enabled`; the selected slot is
/// which of the three menu items is checked.
struct frmMain : Form {
  explicit frmMain(Program& theProgram);

  Program& program;
  Focus focus{SSTab1};

  CommandButton cmdSave, cmdExit;
  TabStrip SSTab1;
  CheckBox chkGenerateHelp, chkGeneratePDF;

  ControlArray<KeyGrid> gridKeyMap;
  ControlArray<EditBox> txtKeyAssignment;
  ControlArray<CheckBox> chkDontVoiceAction;
  ControlArray<SpinButton> UpDownMenuOrder;
  ControlArray<Label> txtDescription;  ///< its text is its caption
  ControlArray<Label> frameDescription, frameMenuOrder, labelKeyMap, lblKeyMap, LabelTabDescription;

  Label frameSetup, Label1;
  CheckBox chkMAIN_GREETINGS, chkMAIN_MESSAGE_SETTINGS, chkMAIN_PERSONAL_SETTINGS, chkMAIN_TRANSFER;
  CheckBox chkMESSAGE_NOTIFICATION, chkMESSAGE_FAX, chkMESSAGE_MENU_STYLE, chkMESSAGE_PRIVATE_LISTS;

  MenuItem mnuFile, mnuRestoreScripts, mnuExit;
  MenuItem mnuSelectKeyMap, mnuSelectDialwright, mnuSelectDialwright2, mnuSelectDialwright3;
  MenuItem mnuResetKeyMaps, mnuResetKeysToStandardConversation, mnuResetKeysToOptionalConversation1,
      mnuResetKeysToAlternateKeyMappingN, mnuResetKeysToAlternateKeyMappingS,
      mnuResetKeysToAlternateKeyMappingX, mnuResetKeysToVarloInternal;
  MenuItem mnuWalletCard, mnuWKWStandard, mnuWKWOptional1, mnuWKWAlternateN, mnuWKWAlternateS,
      mnuWKWAlternateX;
  MenuItem mnuHelpMenu, mnuHelp, mnuAbout;

  /// Full paths of the selected slot's files.
  std::string strMainMenuScript, strMessagePlaybackScript, strSetupMenuScript;
  std::string strXMLKeyMapFile;
  Boolean16 bSingleKeyMap = false16;  ///< -1 while only the first slot is in use
  std::int16_t iKeyMapErrorCount = 0;
  int loads = 0;         ///< how often the key map has come from its files
  SaveOutcome lastSave;  ///< since the last load
  FileSafety safety;
  std::uintptr_t hWnd = 0;  ///< the window's handle, 0 without one

  /// The control of that name; null if there is none.
  Control* Find(std::string_view name) const;

 private:
  void Adopt(Control& control, std::string name, int tab, std::string_view caption = {});
  void AdoptMenus();
};

/// The paths of the selected slot's files: that of the setup script only where there is a Setup
/// tab.
std::vector<std::string> SlotScripts(const frmMain& form);

/// "Dialwright 1" has the number 1, and so on: the slot that is checked, the third if neither of
/// the first two is.
int SelectedSlot(const frmMain& form);

/// Takes a tab away. The document boxes move below the tabs when the Setup tab goes.
void RemoveTab(frmMain& form, int tab);

}  // namespace dialwright
