#include <algorithm>
#include <utility>

#include "aldlib/platform/headless/internal/HeadlessParts.h"
#include "aldlib/platform/internal/FoldedName.h"
#include "aldlib/platform/internal/Undo.h"

// How windows come, hang together and go, and what each carries.
namespace ald {

WindowHandle HeadlessWindows::Create(const WindowSpec& spec) {
  const auto itClass = m_classes.find(FoldedName(spec.sClass));
  if (itClass == m_classes.end()) return {};
  const bool bChild = (spec.nStyle & kStyleChild) != 0;
  if (bChild) {
    // One that is going would leave behind what comes into it now.
    const HeadlessWindow* const pParent = Find(spec.hParent);
    if (pParent == nullptr || pParent->bDying) return {};
  }

  HeadlessWindow window;
  window.pClass = itClass->second;
  window.sText = spec.sText;
  window.nStyle = spec.nStyle;
  window.place = spec.place;
  window.hParent = bChild ? spec.hParent : TopLevelOf(spec.hParent);
  window.nId = bChild ? spec.nId : 0;
  window.hModule = spec.hModule;
  window.bToPaint = true;
  window.nUsed = ++m_nUse;
  const WindowHandle hWindow = m_windows.Add(std::move(window));
  if (hWindow == WindowHandle{}) return {};
  bool bMade = false;
  const UndoAtEnd end([&] {
    if (!bMade) Destroy(hWindow);
  });
  m_parts.Changed(hWindow);
  if (bChild) {
    Find(spec.hParent)->children.push_back(hWindow);
  } else {
    BringToFront(hWindow, false);
    if ((spec.nStyle & kStyleVisible) != 0) Activate(hWindow);
  }
  bMade = true;
  return hWindow;
}

bool HeadlessWindows::Destroy(WindowHandle hWindow) {
  const HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr || pWindow->bDying) return false;
  const WindowHandle hOwner = pWindow->IsChild() ? WindowHandle{} : pWindow->hParent;
  const bool bActive = m_hActive == hWindow;
  const UndoAtEnd end([&] {
    if (bActive) ActivateNext(hOwner);
  });
  DestroyTree(hWindow);
  return true;
}

void HeadlessWindows::DestroyTree(WindowHandle hWindow) {
  HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr || pWindow->bDying) return;
  pWindow->bDying = true;
  // Whatever the handler throws, the window goes, and all that hangs on it. Each handler may take
  // others away, so the lists are looked at anew after each.
  const UndoAtEnd end([&] {
    const auto destroyEach = [&](const std::vector<WindowHandle>& windows) {
      for (std::size_t i = 0; i < windows.size();) {
        const HeadlessWindow* const pOther = Find(windows[i]);
        if (pOther->hParent != hWindow || pOther->bDying) {
          ++i;
          continue;
        }
        Undo([&] { DestroyTree(windows[i]); });
        i = 0;
      }
    };
    destroyEach(Find(hWindow)->children);
    destroyEach(m_order);
    Forget(hWindow);
  });
  Call(hWindow, kMessageDestroy, 0, 0);
}

void HeadlessWindows::Forget(WindowHandle hWindow) {
  HeadlessWindow* const pWindow = Find(hWindow);
  if (std::vector<WindowHandle>* const pSiblings = SiblingsOf(*pWindow)) {
    std::erase(*pSiblings, hWindow);
  }
  std::erase(m_foreign, hWindow);
  m_parts.queue.Forget(hWindow);
  m_parts.canvas.DeleteFont(pWindow->hDialogFont);
  m_parts.menus.DestroyMenu(pWindow->hMenu);
  if (m_hFocus == hWindow) m_hFocus = {};
  if (m_hActive == hWindow) m_hActive = {};
  if (m_hMain == hWindow) m_hMain = {};
  m_windows.Remove(hWindow);
  if (m_parts.pView != nullptr) m_parts.pView->Gone(hWindow);
}

// Null for a window of another program.
std::vector<WindowHandle>* HeadlessWindows::SiblingsOf(const HeadlessWindow& window) {
  if (!window.IsChild()) return window.nProcess == 0 ? &m_order : nullptr;
  HeadlessWindow* const pParent = Find(window.hParent);
  return pParent != nullptr ? &pParent->children : nullptr;
}

bool HeadlessWindows::IsWindow(WindowHandle hWindow) {
  return Find(hWindow) != nullptr;
}

CString HeadlessWindows::Text(WindowHandle hWindow) {
  const HeadlessWindow* const pWindow = Find(hWindow);
  return pWindow != nullptr ? pWindow->sText : CString();
}

bool HeadlessWindows::SetText(WindowHandle hWindow, const CString& sText) {
  HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr) return false;
  pWindow->sText = sText;
  pWindow->content.nSelectionFirst = pWindow->content.nSelectionEnd = 0;
  pWindow->bToPaint = true;
  m_parts.Changed(hWindow);
  return true;
}

std::uint32_t HeadlessWindows::Style(WindowHandle hWindow) {
  const HeadlessWindow* const pWindow = Find(hWindow);
  return pWindow != nullptr ? pWindow->nStyle : 0;
}

bool HeadlessWindows::SetStyle(WindowHandle hWindow, std::uint32_t nStyle) {
  HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr) return false;
  // Whether a window lives inside another one is settled when it is made.
  pWindow->nStyle = (nStyle & ~kStyleChild) | (pWindow->nStyle & kStyleChild);
  m_parts.Changed(hWindow);
  return true;
}

ModuleHandle HeadlessWindows::Module(WindowHandle hWindow) {
  const HeadlessWindow* const pWindow = Find(hWindow);
  return pWindow != nullptr ? pWindow->hModule : ModuleHandle{};
}

FontHandle HeadlessWindows::Font(WindowHandle hWindow) {
  const HeadlessWindow* const pWindow = Find(hWindow);
  return pWindow != nullptr ? pWindow->hFont : FontHandle{};
}

bool HeadlessWindows::SetFont(WindowHandle hWindow, FontHandle hFont, bool bRedraw) {
  HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr) return false;
  pWindow->hFont = hFont;
  m_parts.Changed(hWindow);
  Call(hWindow, kMessageSetFont, static_cast<std::uint32_t>(hFont), bRedraw ? 1 : 0);
  if (bRedraw) Invalidate(hWindow, nullptr, true);
  return true;
}

WindowHandle HeadlessWindows::Parent(WindowHandle hWindow) {
  const HeadlessWindow* const pWindow = Find(hWindow);
  return pWindow != nullptr ? pWindow->hParent : WindowHandle{};
}

WindowHandle HeadlessWindows::Child(WindowHandle hParent, std::int32_t nId) {
  const HeadlessWindow* const pParent = Find(hParent);
  if (pParent == nullptr) return {};
  for (const WindowHandle hChild : pParent->children) {
    if (Find(hChild)->nId == nId) return hChild;
  }
  return {};
}

std::int32_t HeadlessWindows::ControlId(WindowHandle hWindow) {
  const HeadlessWindow* const pWindow = Find(hWindow);
  return pWindow != nullptr ? pWindow->nId : 0;
}

std::vector<WindowHandle> HeadlessWindows::Children(WindowHandle hParent) {
  const HeadlessWindow* const pParent = Find(hParent);
  return pParent != nullptr ? pParent->children : std::vector<WindowHandle>();
}

std::vector<WindowHandle> HeadlessWindows::TopLevel() {
  return m_order;
}

std::vector<WindowHandle> HeadlessWindows::OfThread(std::uint32_t nThread) {
  std::vector<WindowHandle> found;
  for (const WindowHandle hWindow : m_foreign) {
    if (Find(hWindow)->nThread == nThread) found.push_back(hWindow);
  }
  return found;
}

std::uint32_t HeadlessWindows::ProcessOf(WindowHandle hWindow) {
  const HeadlessWindow* const pWindow = Find(hWindow);
  return pWindow != nullptr ? pWindow->nProcess : 0;
}

WindowHandle HeadlessWindows::AddForeign(std::uint32_t nThread, std::uint32_t nProcess,
                                         const CString& sClass, const CString& sText) {
  auto pClass = std::make_shared<WindowClass>();
  pClass->sName = sClass;
  HeadlessWindow window;
  window.pClass = std::move(pClass);
  window.sText = sText;
  window.nStyle = kStyleVisible | kStyleCaption;
  window.nThread = nThread;
  window.nProcess = nProcess;
  const WindowHandle hWindow = m_windows.Add(std::move(window));
  if (hWindow != WindowHandle{}) m_foreign.push_back(hWindow);
  return hWindow;
}

bool HeadlessWindows::SetProperty(WindowHandle hWindow, Atom nName, std::intptr_t nValue) {
  HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr || nName == Atom{}) return false;
  pWindow->properties[nName] = nValue;
  return true;
}

std::intptr_t HeadlessWindows::Property(WindowHandle hWindow, Atom nName) {
  const HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr) return 0;
  const auto it = pWindow->properties.find(nName);
  return it != pWindow->properties.end() ? it->second : 0;
}

std::intptr_t HeadlessWindows::RemoveProperty(WindowHandle hWindow, Atom nName) {
  const std::intptr_t nValue = Property(hWindow, nName);
  if (HeadlessWindow* const pWindow = Find(hWindow)) pWindow->properties.erase(nName);
  return nValue;
}

WindowHandle HeadlessWindows::MainWindow() {
  return m_hMain;
}

void HeadlessWindows::SetMainWindow(WindowHandle hWindow) {
  m_hMain = IsWindow(hWindow) ? hWindow : WindowHandle{};
}

WindowHandle HeadlessWindows::ActiveDocument(WindowHandle hClient) {
  WindowHandle hFront{};
  std::uint64_t nLastUse = 0;
  for (const WindowHandle hChild : Children(hClient)) {
    const HeadlessWindow* const pChild = Find(hChild);
    if (pChild->IsShown() && pChild->nUsed > nLastUse) {
      hFront = hChild;
      nLastUse = pChild->nUsed;
    }
  }
  return hFront;
}

WindowHandle HeadlessWindows::TopLevelOf(WindowHandle hWindow) {
  const HeadlessWindow* pWindow = Find(hWindow);
  while (pWindow != nullptr && pWindow->IsChild()) {
    hWindow = pWindow->hParent;
    pWindow = Find(hWindow);
  }
  return pWindow != nullptr ? hWindow : WindowHandle{};
}

bool HeadlessWindows::IsInside(WindowHandle hWindow, WindowHandle hAncestor) {
  while (IsWindow(hWindow)) {
    if (hWindow == hAncestor) return true;
    const HeadlessWindow* const pWindow = Find(hWindow);
    if (!pWindow->IsChild()) return false;
    hWindow = pWindow->hParent;
  }
  return false;
}

}  // namespace ald
