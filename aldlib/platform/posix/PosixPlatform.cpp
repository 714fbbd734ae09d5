#include "aldlib/platform/MemoryRegistry.h"
#include "aldlib/platform/TableResources.h"
#include "aldlib/platform/headless/HeadlessDesktop.h"
#include "aldlib/platform/internal/NeverDestroyed.h"
#include "aldlib/platform/internal/SystemPlatform.h"
#include "aldlib/platform/posix/IniProfile.h"
#include "aldlib/platform/posix/PathMapper.h"
#include "aldlib/platform/posix/PosixClock.h"
#include "aldlib/platform/posix/PosixFiles.h"
#include "aldlib/platform/posix/PosixLocale.h"
#include "aldlib/platform/posix/PosixMachine.h"
#include "aldlib/platform/posix/PosixProduct.h"
#include "aldlib/platform/posix/PosixVolumes.h"
#include "aldlib/platform/posix/ProcProcesses.h"
#include "aldlib/platform/posix/SettingsFolders.h"
#include "aldlib/platform/posix/SqliteRegistry.h"

namespace ald {
namespace {

struct Ports {
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
  ProcProcesses processes;
  HeadlessDesktop desktop{clock};
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

}  // namespace ald
