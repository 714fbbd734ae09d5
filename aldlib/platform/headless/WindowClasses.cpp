#include <algorithm>
#include <utility>

#include "aldlib/platform/headless/internal/HeadlessParts.h"
#include "aldlib/platform/internal/FoldedName.h"

// Window classes, and how a message goes down from a window's own procedure through its class and
// the classes that this one stands on, to what the desktop does by itself.
namespace ald {

HeadlessWindows::HeadlessWindows(HeadlessParts& parts) : m_parts(parts) {
  AddBuiltIn("BUTTON", WindowKind::kButton);
  AddBuiltIn("EDIT", WindowKind::kEdit);
  AddBuiltIn("STATIC", WindowKind::kStatic);
  AddBuiltIn("LISTBOX", WindowKind::kList);
  AddBuiltIn("COMBOBOX", WindowKind::kCombo);
  AddBuiltIn("COMBO", WindowKind::kCombo);
  AddBuiltIn("ABD_Edit", WindowKind::kEdit);
  AddBuiltIn("DIALOG", WindowKind::kDialog);
}

void HeadlessWindows::AddBuiltIn(const char* szName, WindowKind kind) {
  auto pClass = std::make_shared<WindowClass>();
  pClass->sName = szName;
  pClass->kind = kind;
  pClass->bBuiltIn = true;
  m_classes[FoldedName(szName)] = std::move(pClass);
}

bool HeadlessWindows::RegisterClass(const CString& sName, const CString& sBase,
                                    WindowProcedure procedure) {
  if (sName.empty() || m_classes.contains(FoldedName(sName))) return false;
  auto pClass = std::make_shared<WindowClass>();
  if (!sBase.empty()) {
    const auto itBase = m_classes.find(FoldedName(sBase));
    if (itBase == m_classes.end()) return false;
    pClass->pBase = itBase->second;
    pClass->kind = itBase->second->kind;
  }
  pClass->sName = sName;
  pClass->procedure = std::move(procedure);
  m_classes[FoldedName(sName)] = std::move(pClass);
  return true;
}

bool HeadlessWindows::UnregisterClass(const CString& sName) {
  const auto it = m_classes.find(FoldedName(sName));
  // Besides the table, a window or a class that stands on it may hold the class.
  if (it == m_classes.end() || it->second->bBuiltIn || it->second.use_count() > 1) return false;
  m_classes.erase(it);
  return true;
}

bool HeadlessWindows::SetProcedure(WindowHandle hWindow, WindowProcedure procedure) {
  HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr) return false;
  pWindow->procedure = std::move(procedure);
  return true;
}

CString HeadlessWindows::ClassName(WindowHandle hWindow) {
  const HeadlessWindow* const pWindow = Find(hWindow);
  return pWindow != nullptr ? pWindow->pClass->sName : CString();
}

bool HeadlessWindows::IsOfClass(WindowHandle hWindow, const CString& sClass) {
  const HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr) return false;
  const CString sFolded = FoldedName(sClass);
  for (const WindowClass* pClass = pWindow->pClass.get(); pClass != nullptr;
       pClass = pClass->pBase.get()) {
    if (FoldedName(pClass->sName) == sFolded) return true;
  }
  return false;
}

std::intptr_t HeadlessWindows::Call(WindowHandle hWindow, std::uint32_t nMessage,
                                    std::uint32_t nWord, std::intptr_t nLong) {
  return CallFrom(0, hWindow, nMessage, nWord, nLong);
}

// Level 0 is the window's own procedure or its class's, each level above it the next base's.
std::intptr_t HeadlessWindows::CallFrom(std::size_t nLevel, WindowHandle hWindow,
                                        std::uint32_t nMessage, std::uint32_t nWord,
                                        std::intptr_t nLong) {
  const HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr) return 0;
  std::size_t nAt = 0;
  for (auto pClass = pWindow->pClass; pClass != nullptr; pClass = pClass->pBase, ++nAt) {
    if (nAt < nLevel) continue;
    // A copy, since the procedure may be replaced or its window destroyed while it runs.
    const WindowProcedure procedure =
        nAt == 0 && pWindow->procedure ? pWindow->procedure : pClass->procedure;
    if (!procedure) continue;
    struct Running {
      std::vector<ActiveCall>& calls;
      ~Running() { calls.pop_back(); }
    };
    m_calls.push_back({hWindow, nAt});
    const Running running{m_calls};
    return procedure(hWindow, nMessage, nWord, nLong);
  }
  return BuiltIn(hWindow, nMessage, nWord, nLong);
}

std::intptr_t HeadlessWindows::DefaultProcedure(WindowHandle hWindow, std::uint32_t nMessage,
                                                std::uint32_t nWord, std::intptr_t nLong) {
  // The innermost procedure of the window that runs now is the one that passes the message on.
  const auto it = std::find_if(m_calls.rbegin(), m_calls.rend(), [hWindow](const ActiveCall& call) {
    return call.hWindow == hWindow;
  });
  const std::size_t nLevel = it != m_calls.rend() ? it->nLevel + 1 : 1;
  return CallFrom(nLevel, hWindow, nMessage, nWord, nLong);
}

void HeadlessWindows::Notify(WindowHandle hControl, std::uint32_t nNotice) {
  const HeadlessWindow* const pControl = Find(hControl);
  if (pControl == nullptr || !pControl->IsChild()) return;
  const std::uint32_t nId = static_cast<std::uint32_t>(pControl->nId) & 0xFFFF;
  Call(pControl->hParent, kMessageCommand, nNotice << 16 | nId, LongOf(hControl));
}

}  // namespace ald
