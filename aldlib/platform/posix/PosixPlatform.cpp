#include "aldlib/platform/NeverDestroyed.h"
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

const Platform& SystemPlatform() {
  static const NeverDestroyed<Ports> s_ports;
  return (*s_ports).platform;
}

}  // namespace ald
