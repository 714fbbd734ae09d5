#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Platform.h"

namespace ald {

// Why AlderLibEntry is called.
enum LoadReason : std::uint32_t {
  kProcessDetach = 0,
  kProcessAttach = 1,
  kThreadAttach = 2,
  kThreadDetach = 3,
};

// Loads and unloads the library. The shared library calls it by itself when the process takes it in
// and lets it go; a host has no need to. Unloading and loading again leaves a library as if new.
//
// kProcessAttach: returns 0 if the framework refuses the module, and nothing else has happened
// then; else 1, with the record zeroed, the library entered as ModuleId::AlderLib, its window atoms
// added, the regional settings read and its own texts registered at search order 9. kProcessDetach:
// releases all that the library holds of the platform; returns 1. Any other reason does nothing and
// returns 1.
ALDLIB_EXPORT int AlderLibEntry(ModuleHandle hModule, std::uint32_t nReason, void* pReserved);

// Unloads the library, installs another platform (null: the system's own) and loads it there, with
// its texts as a module of that platform. Returns what the load returned. This is how a host
// chooses its backends: first of all, since modules and memory of the platform before mean nothing
// afterwards.
ALDLIB_EXPORT int MoveToPlatform(const Platform* pPlatform);

}  // namespace ald
