#include "aldlib/inspect/ResourceMeter.h"

#include <new>
#include <utility>

#include "aldlib/platform/Platform.h"

namespace ald {
namespace {

constexpr int kUnknownFree = 90;

constinit CResourceMeter* g_pMeter = nullptr;

}  // namespace

CResourceMeter* CResourceMeter::GetResourceMeter() noexcept {
  if (g_pMeter == nullptr) g_pMeter = new (std::nothrow) CResourceMeter;
  return g_pMeter;
}

void CResourceMeter::FreeResourceMeter() noexcept {
  delete std::exchange(g_pMeter, nullptr);
}

CResourceMeter::CResourceMeter() {
  m_hLibrary = CurrentPlatform().processes.LoadResourceMeter(m_pRead);
}

CResourceMeter::~CResourceMeter() {
  ReleaseMeter();
}

int CResourceMeter::GetFree(int nSelector) const {
  return IsMeterInstalled() && m_pRead != nullptr ? m_pRead(nSelector) : kUnknownFree;
}

void CResourceMeter::ReleaseMeter() {
  if (IsMeterInstalled()) CurrentPlatform().processes.FreeResourceMeter(m_hLibrary);
  m_hLibrary = ModuleHandle{};
  m_pRead = nullptr;
}

}  // namespace ald
