#include "aldlib/platform/Framework.h"

#include <map>
#include <memory>

#include "aldlib/platform/internal/NeverDestroyed.h"

namespace ald {

CException::~CException() = default;
COleException::~COleException() = default;
CUserException::~CUserException() = default;

bool CException::GetErrorMessage(char* szError, unsigned nMaxError) noexcept {
  if (szError != nullptr && nMaxError > 0) szError[0] = '\0';
  return false;
}

CRuntimeClass* CObject::GetRuntimeClass() const {
  static CRuntimeClass s_class{"CObject"};
  return &s_class;
}
CObject::~CObject() = default;
void CObject::Serialize(CArchive&) {}
void CObject::AssertValid() const {}
void CObject::Dump(CDumpContext&) const {}

CWnd::~CWnd() = default;

namespace {

// Never destroyed: a host may still hold such an object while the process ends.
std::map<WindowHandle, std::unique_ptr<CWnd>>& TemporaryWindows() {
  static const NeverDestroyed<std::map<WindowHandle, std::unique_ptr<CWnd>>> s_windows;
  return *s_windows;
}

}  // namespace

CWnd* CWnd::FromHandle(WindowHandle hWindow) try {
  if (hWindow == WindowHandle{}) return nullptr;
  std::unique_ptr<CWnd>& pWindow = TemporaryWindows()[hWindow];
  if (pWindow == nullptr) pWindow = std::make_unique<CWnd>();
  pWindow->m_hWnd = hWindow;
  return pWindow.get();
} catch (...) {
  return nullptr;
}

void CWnd::DeleteTempMap() {
  TemporaryWindows().clear();
}

}  // namespace ald
