#pragma once

#include <string_view>

namespace dialwright {

struct frmMain;

/// Before a row becomes the current one: the length limit of its key, so that it is in force when
/// the box receives the key. `Cancel` is left alone.
void gridKeyMap_BeforeRowColChange(frmMain& form, int Index, int OldRow, int OldCol, int NewRow,
                                   int NewCol, bool& Cancel);

/// After a row became the current one: its values move into the edit controls. It can sort the
/// grid, since a check box that changes runs its handler.
void gridKeyMap_AfterRowColChange(frmMain& form, int Index, int OldRow, int OldCol, int NewRow,
                                  int NewCol);

void txtKeyAssignment_KeyPress(frmMain& form);
void txtKeyAssignment_LostFocus(frmMain& form, int Index);
/// Puts the key of the box into the grid, or refuses it and sets `Cancel`.
void txtKeyAssignment_Validate(frmMain& form, int Index, bool& Cancel);

void chkDontVoiceAction_Click(frmMain& form, int Index);
void UpDownMenuOrder_DownClick(frmMain& form, int Index);
void UpDownMenuOrder_UpClick(frmMain& form, int Index);

/// The longest key that an action's box takes, in characters.
int KeyLengthLimit(std::string_view token, bool singleKeyMap);

/// Whether the conversation never announces the action.
bool IsNeverVoiced(std::string_view token);

/// The test that a text must pass to leave its box: what is left of it without "*" and "#" is
/// nothing or a number.
bool IsKeyText(std::string_view text);

/// Whether a text is a whole number without sign or point, as the classic test sees it: blanks
/// around it, a plus sign and an exponent pass. The empty text passes. A minimum or maximum other
/// than 0 refuses values outside it.
bool MyIsNumber(std::string_view text, double minimum = 0, double maximum = 0);

}  // namespace dialwright
