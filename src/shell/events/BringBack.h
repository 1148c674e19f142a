#pragma once

namespace dialwright {

struct frmMain;

/// Brings an earlier version of the selected slot back, the newest being number 1: keeps what
/// stands now, replaces each script in one step and loads. Returns false, and has done nothing, if
/// there is no such version or its contents cannot be read.
bool BringEarlierVersion(frmMain& form, int number);

}  // namespace dialwright
