#pragma once

namespace ald {

// What unload forgets of the screens, so that the next load begins as the first one did.
void ForgetHelpLevels();
void ForgetWindows();
void ForgetAccelerators();
void ForgetColours();

}  // namespace ald
