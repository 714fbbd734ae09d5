#include "aldlib/platform/headless/internal/DesktopView.h"
#include "aldlib/platform/headless/internal/HeadlessParts.h"

namespace ald {

DesktopInput::DesktopInput(HeadlessDesktop& desktop) : m_parts(*desktop.m_pParts) {}

void DesktopInput::SetView(DesktopView* pView) {
  m_parts.pView = pView;
}

const HeadlessWindow* DesktopInput::Find(WindowHandle hWindow) const {
  return m_parts.windows.Find(hWindow);
}

Rect DesktopInput::FrameOf(std::uint32_t nStyle) {
  return HeadlessWindows::FrameOf(nStyle);
}

bool DesktopInput::TakesInput(WindowHandle hWindow) const {
  return m_parts.windows.TakesInput(hWindow);
}

tagLOGFONTA DesktopInput::FontOf(FontHandle hFont) const {
  return m_parts.canvas.FontOf(hFont);
}

void DesktopInput::Key(std::uint32_t nKey, const HeldWith& held, std::intptr_t nKeyPress) {
  m_parts.queue.PostViewKey(nKey, KeysOf(held), nKeyPress);
}

void DesktopInput::Click(WindowHandle hButton) {
  m_parts.queue.Post(hButton, kUserClick, 0, 0);
}

void DesktopInput::Choose(WindowHandle hList, int nItem) {
  m_parts.queue.Post(hList, kUserChoose, 0, nItem);
}

void DesktopInput::Edited(WindowHandle hEdit, const CString& sText) {
  HeadlessWindow* const pEdit = m_parts.windows.Find(hEdit);
  if (pEdit == nullptr || pEdit->sText == sText) return;
  pEdit->sText = sText;
  const auto nLength = static_cast<std::int32_t>(sText.size());
  pEdit->content.nSelectionFirst = std::min(pEdit->content.nSelectionFirst, nLength);
  pEdit->content.nSelectionEnd = std::min(pEdit->content.nSelectionEnd, nLength);
  if (pEdit->pClass->kind == WindowKind::kEdit) m_parts.queue.Post(hEdit, kUserEdit, 0, 0);
}

void DesktopInput::Selected(WindowHandle hEdit, std::int32_t nFirst, std::int32_t nEnd) {
  m_parts.controls.SelectText(hEdit, nFirst, nEnd);
}

void DesktopInput::FocusAt(WindowHandle hControl) {
  m_parts.queue.Post(hControl, kUserFocus, 0, 0);
}

void DesktopInput::Activated(WindowHandle hWindow) {
  m_parts.queue.Post(hWindow, kUserActivate, 0, 0);
}

// Posted to the window that is left, so that one which has come to the front since stays there.
void DesktopInput::Left() {
  m_parts.queue.Post(m_parts.windows.Active(), kUserLeave, 0, 0);
}

void DesktopInput::Close(WindowHandle hWindow) {
  m_parts.queue.Post(hWindow, kMessageClose, 0, 0);
}

void DesktopInput::Command(WindowHandle hWindow, std::uint32_t nCommand) {
  m_parts.queue.Post(hWindow, kUserCommand, nCommand, 0);
}

void DesktopInput::Placed(WindowHandle hWindow, const Rect& place) {
  m_parts.windows.Place(hWindow, WindowOrder::kKeep, place.left, place.top, place.Width(),
                        place.Height(), 0);
}

// What the user did, once its turn in the queue has come. Windows change meanwhile, so it may be
// nothing by then.
void HeadlessWindows::UserDid(const WindowMessage& act) {
  const WindowHandle hWindow = act.hWindow;
  switch (act.nMessage) {
    case kUserClick:
      Click(hWindow);
      break;
    case kUserChoose:
      if (TakesInput(hWindow) && m_parts.controls.Select(hWindow, static_cast<int>(act.nLong))) {
        Notify(hWindow, kNoticeSelect);
      }
      break;
    case kUserEdit:
      Notify(hWindow, kNoticeChange);
      break;
    case kUserFocus:
      if (TakesInput(hWindow)) SetFocus(hWindow);
      break;
    case kUserActivate:
      if (TakesInput(hWindow)) Activate(hWindow);
      break;
    case kUserLeave:
      if (m_hActive == hWindow) Deactivate();
      break;
    case kUserCommand:
      ChooseMenu(hWindow, act.nWord);
      break;
    default:
      break;
  }
}

}  // namespace ald
