#include <errno.h>

#include "aldlib/platform/MemoryRegistry.h"
#include "aldlib/platform/TableResources.h"
#include "aldlib/platform/internal/NeverDestroyed.h"
#include "aldlib/platform/internal/SystemPlatform.h"
#include "aldlib/platform/posix/IniProfile.h"
#include "aldlib/platform/posix/PathMapper.h"
#include "aldlib/platform/posix/PosixClock.h"
#include "aldlib/platform/posix/PosixFiles.h"
#include "aldlib/platform/posix/PosixLocale.h"
#include "aldlib/platform/posix/PosixMachine.h"
#include "aldlib/platform/posix/PosixProduct.h"
#include "aldlib/platform/posix/PosixTerminal.h"
#include "aldlib/platform/posix/PosixVolumes.h"
#include "aldlib/platform/posix/ProcProcesses.h"
#include "aldlib/platform/posix/SettingsFolders.h"
#include "aldlib/platform/posix/SqliteRegistry.h"
#include "aldlib/platform/terminal/TerminalDesktop.h"

namespace ald {
namespace {

struct Ports {
  Ports() { desktop.SetApplicationName(::program_invocation_short_name); }

  PathMapper paths;
  TableResources resources;
  PosixMachine machine;
  IniProfile profile;
  PosixLocale locale{&profile};
#ifdef ALDLIB_SQLITE
  SqliteRegistry registry{UserPreferencesFile(), MachinePreferencesFile()};
#else
  MemoryRegistry registry;
#endif
  PosixProduct product;
  PosixClock clock;
  PosixFiles files{paths};
  PosixVolumes volumes{paths};
  ProcProcesses processes{paths};
  PosixTerminal terminal;
  TerminalDesktop desktop{clock, terminal};
  Platform platform{resources, machine, locale,  profile,   registry,       product,
                    clock,     files,   volumes, processes, desktop.Ports()};
};

Ports& SystemPorts() {
  static const NeverDestroyed<Ports> s_ports;
  return *s_ports;
}

}  // namespace

const Platform& SystemPlatform() {
  return SystemPorts().platform;
}

PathMapper& SystemPaths() {
  return SystemPorts().paths;
}

PosixProduct& SystemProduct() {
  return SystemPorts().product;
}

TerminalDesktop& SystemDesktop() {
  return SystemPorts().desktop;
}

}  // namespace ald
