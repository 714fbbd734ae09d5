#pragma once

#include <cstdint>

namespace alder_checks {

// The commands of the main window, which are the menu ids of the screens as well.
enum Command : std::uint16_t {
  kCommandWriteChecks = 101,
  kCommandAnotherScreen = 102,
  kCommandProcesses = 111,
  kCommandLog = 112,
  kCommandFirstScheme = 120,  // one for each colour scheme
  kCommandLastScheme = 124,
  kCommandAddOn = 130,
  kCommandAskAgain = 131,
  kCommandAbout = 132,
  kCommandExit = 140,
  kCommandTotals = 201,  // of the add-on module
};

}  // namespace alder_checks
