#include <new>

#include "aldlib/platform/SystemPlatform.h"
#include "aldlib/platform/TableResources.h"
#include "aldlib/platform/posix/PosixLocale.h"
#include "aldlib/platform/posix/PosixMachine.h"

namespace ald {
namespace {

struct Ports {
  TableResources resources;
  PosixMachine machine;
  PosixLocale locale;
  Platform platform{resources, machine, locale};
};

}  // namespace

// Built in place on the first call, whichever static initialiser makes it, and never destroyed: the
// library's unloading and a host's exit handlers still find it.
const Platform& SystemPlatform() {
  alignas(Ports) static unsigned char s_storage[sizeof(Ports)];
  static const Ports* const s_pPorts = new (s_storage) Ports;
  return s_pPorts->platform;
}

}  // namespace ald
