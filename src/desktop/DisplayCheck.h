#pragma once

namespace dialwright {

/// To be called right before the application is made: a display that is not there then ends the
/// process with one line on standard error and status 1. The toolkit itself would abort.
void ExpectDisplay();

/// To be called right behind it: the toolkit's messages are its own again.
void DisplayFound();

}  // namespace dialwright
