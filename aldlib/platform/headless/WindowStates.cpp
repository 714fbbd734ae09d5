#include "aldlib/platform/headless/internal/HeadlessParts.h"

// Which windows are shown and enabled, and which one the user works in.
namespace ald {

bool HeadlessWindows::IsVisible(WindowHandle hWindow) {
  const HeadlessWindow* pWindow = Find(hWindow);
  while (pWindow != nullptr && pWindow->IsShown()) {
    if (!pWindow->IsChild()) return true;
    pWindow = Find(pWindow->hParent);
  }
  return false;
}

bool HeadlessWindows::IsEnabled(WindowHandle hWindow) {
  const HeadlessWindow* const pWindow = Find(hWindow);
  return pWindow != nullptr && !pWindow->IsDisabled();
}

bool HeadlessWindows::TakesInput(WindowHandle hWindow) {
  if (!IsVisible(hWindow)) return false;
  const HeadlessWindow* pWindow = Find(hWindow);
  while (pWindow != nullptr && !pWindow->IsDisabled()) {
    if (!pWindow->IsChild()) return true;
    pWindow = Find(pWindow->hParent);
  }
  return false;
}

bool HeadlessWindows::Show(WindowHandle hWindow, std::int16_t nShow) {
  HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr) return false;
  const bool bWasShown = pWindow->IsShown();
  const std::uint32_t nActivation = nShow == kShowNoActivate ? kPlaceNoActivate : 0;
  const bool bFront = nShow != kShowHide && !pWindow->IsChild() && nActivation == 0;
  const WindowHandle hOwner = pWindow->IsChild() ? WindowHandle{} : pWindow->hParent;
  Place(hWindow, bFront ? WindowOrder::kTop : WindowOrder::kKeep, 0, 0, 0, 0,
        kPlaceNoMove | kPlaceNoSize | (nShow == kShowHide ? kPlaceHide : kPlaceShow) | nActivation);
  if (nShow == kShowHide && m_hActive == hWindow) ActivateNext(hOwner);
  return bWasShown;
}

bool HeadlessWindows::Enable(WindowHandle hWindow, bool bEnable) {
  HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr) return false;
  const bool bWasDisabled = pWindow->IsDisabled();
  if (bEnable) {
    pWindow->nStyle &= ~kStyleDisabled;
  } else {
    pWindow->nStyle |= kStyleDisabled;
    if (m_hFocus == hWindow) m_hFocus = {};
  }
  if (bWasDisabled == bEnable) pWindow->bToPaint = true;
  m_parts.Changed(hWindow);
  return bWasDisabled;
}

WindowHandle HeadlessWindows::Focus() {
  return m_hFocus;
}

// Hidden windows may have the focus; disabled ones, and what is inside them, may not.
WindowHandle HeadlessWindows::SetFocus(WindowHandle hWindow) {
  const WindowHandle hBefore = m_hFocus;
  if (hWindow == hBefore) return hBefore;
  if (hWindow != WindowHandle{}) {
    const HeadlessWindow* pWindow = Find(hWindow);
    if (pWindow == nullptr || pWindow->nProcess != 0) return hBefore;
    while (pWindow != nullptr) {
      if (pWindow->IsDisabled()) return hBefore;
      pWindow = pWindow->IsChild() ? Find(pWindow->hParent) : nullptr;
    }
    const WindowHandle hTop = TopLevelOf(hWindow);
    m_hFocus = hWindow;
    m_hActive = hTop;
    for (WindowHandle hAbove = hWindow; hAbove != hTop; hAbove = Find(hAbove)->hParent) {
      Find(hAbove)->nUsed = ++m_nUse;
    }
    BringToFront(hTop, Find(hTop)->bTopmost);
    Find(hTop)->hLastFocus = hWindow;
  } else {
    m_hFocus = {};
  }
  Call(hBefore, kMessageKillFocus, WordOf(hWindow), 0);
  // The one that lost the focus may have sent it elsewhere.
  if (m_hFocus == hWindow) Call(hWindow, kMessageSetFocus, WordOf(hBefore), 0);
  return hBefore;
}

WindowHandle HeadlessWindows::Active() {
  return m_hActive;
}

bool HeadlessWindows::SetForeground(WindowHandle hWindow) {
  const WindowHandle hTop = TopLevelOf(hWindow);
  const HeadlessWindow* const pTop = Find(hTop);
  if (pTop == nullptr || pTop->nProcess != 0) return false;
  Activate(hTop);
  return m_hActive == hTop;
}

void HeadlessWindows::Activate(WindowHandle hWindow) {
  HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr || pWindow->IsDisabled() || pWindow->nProcess != 0) return;
  m_hActive = hWindow;
  BringToFront(hWindow, pWindow->bTopmost);
  if (IsInside(m_hFocus, hWindow)) return;
  // A dialog gives the focus back to the control that had it.
  const bool bToControl =
      pWindow->pClass->kind == WindowKind::kDialog && IsInside(pWindow->hLastFocus, hWindow);
  SetFocus(bToControl ? pWindow->hLastFocus : hWindow);
}

void HeadlessWindows::Deactivate() {
  SetFocus({});
  m_hActive = {};
}

// Behind a window that has gone its owner comes, or else the frontmost one that can.
void HeadlessWindows::ActivateNext(WindowHandle hPreferred) {
  m_hActive = {};
  if (TakesInput(hPreferred)) return Activate(hPreferred);
  for (const WindowHandle hWindow : TopLevel()) {
    if (TakesInput(hWindow)) return Activate(hWindow);
  }
  m_hFocus = {};
}

std::uint32_t HeadlessWindows::ForegroundLockTimeout() {
  return m_nForegroundLock;
}

void HeadlessWindows::SetForegroundLockTimeout(std::uint32_t nMilliseconds) {
  m_nForegroundLock = nMilliseconds;
}

bool HeadlessWindows::Flash(WindowHandle hWindow, bool bInvert) {
  HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr) return false;
  const bool bActive = m_hActive == hWindow;
  const bool bWasLit = pWindow->bFlashed != bActive;
  pWindow->bFlashed = bInvert && !pWindow->bFlashed;
  if (bInvert && m_parts.bRecord) m_flashed.push_back(hWindow);
  if (bInvert && m_parts.pView != nullptr) m_parts.pView->Flash(hWindow);
  return bWasLit;
}

void HeadlessWindows::SetFrameAccelerator(AcceleratorHandle hAccelerator) {
  m_hFrameAccelerator = hAccelerator;
}

}  // namespace ald
