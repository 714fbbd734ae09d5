#pragma once

namespace ald {

// Puts back what holds before any setting has been read. For the unloading of the library.
void ForgetSettings();

}  // namespace ald
