#pragma once

#include "aldlib/platform/Clock.h"
#include "aldlib/platform/Desktop.h"
#include "aldlib/platform/Export.h"
#include "aldlib/platform/Files.h"
#include "aldlib/platform/Locale.h"
#include "aldlib/platform/Machine.h"
#include "aldlib/platform/Processes.h"
#include "aldlib/platform/Product.h"
#include "aldlib/platform/Profile.h"
#include "aldlib/platform/Registry.h"
#include "aldlib/platform/Resources.h"
#include "aldlib/platform/Volumes.h"
#include "aldlib/platform/Windows.h"

namespace ald {

// The system beneath the library, one reference for each port; those of the desktop stand together.
// The ports' own headers say what each of them promises.
struct Platform {
  Resources& resources;
  Machine& machine;
  Locale& locale;
  Profile& profile;
  Registry& registry;
  Product& product;
  Clock& clock;
  Files& files;
  Volumes& volumes;
  Processes& processes;
  Desktop desktop;

  // The same system beneath another desktop, as a host or a test wants it.
  Platform WithDesktop(const Desktop& other) const {
    return {resources, machine, locale,  profile,   registry, product,
            clock,     files,   volumes, processes, other};
  }
};

// Returns the platform in use: the installed one, or else the system's own. Answers at any time,
// also before the first static initialiser of the process and after exit has begun.
ALDLIB_EXPORT const Platform& CurrentPlatform();

// Puts another platform in place: a test's fakes, a host's own backends. Null puts the system's own
// back. The caller keeps the platform and its ports alive while they are installed. What the
// library got from a platform (handles, atoms) means nothing to another one, so a host installs
// before it uses the library, and a test unloads the library first.
ALDLIB_EXPORT void InstallPlatform(const Platform* pPlatform);

// Hands a module's texts to the platform in use and returns the module's handle, for
// RegisterInstanceForStringSearch; 0 if there is no room.
ALDLIB_EXPORT ModuleHandle RegisterStringModule(StringTable strings);

}  // namespace ald
