#include "aldlib/platform/Platform.h"

#include <utility>

#include "aldlib/platform/internal/SystemPlatform.h"

namespace ald {
namespace {

// Constant-initialised, and a plain pointer: it has its value before any code runs and keeps it to
// the last.
constinit const Platform* g_pInstalled = nullptr;

}  // namespace

const Platform& CurrentPlatform() {
  return g_pInstalled != nullptr ? *g_pInstalled : SystemPlatform();
}

void InstallPlatform(const Platform* pPlatform) {
  g_pInstalled = pPlatform;
}

ModuleHandle RegisterStringModule(StringTable strings) {
  return CurrentPlatform().resources.AddModule(std::move(strings));
}

}  // namespace ald
