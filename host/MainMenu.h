#pragma once

#include <cstdint>

#include "aldlib/platform/WindowTypes.h"

namespace alder_checks {

// Makes the menu bar of the main window. It belongs to the window once it has been given to one.
ald::MenuHandle CreateMainMenu();

// Ticks a command of a menu, or takes the tick away.
void TickCommand(ald::MenuHandle hMenu, std::uint16_t nCommand, bool bTick);

}  // namespace alder_checks
