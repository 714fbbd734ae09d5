#include <algorithm>
#include <utility>

#include "aldlib/platform/headless/internal/HeadlessParts.h"

// What the windows of the desktop's own classes do with messages by themselves.
namespace ald {
namespace {

constexpr char kBackspace = 8;

std::uint32_t ColorMessageOf(WindowKind kind) {
  switch (kind) {
    case WindowKind::kDialog:
      return kMessageColorDialog;
    case WindowKind::kButton:
      return kMessageColorButton;
    case WindowKind::kEdit:
    case WindowKind::kCombo:
      return kMessageColorEdit;
    case WindowKind::kList:
      return kMessageColorListBox;
    case WindowKind::kStatic:
      return kMessageColorStatic;
    case WindowKind::kArea:
      return 0;
  }
  return 0;
}

}  // namespace

std::intptr_t HeadlessWindows::BuiltIn(WindowHandle hWindow, std::uint32_t nMessage,
                                       std::uint32_t nWord, std::intptr_t nLong) {
  HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr) return 0;
  const WindowKind kind = pWindow->pClass->kind;
  switch (nMessage) {
    case kMessagePaint:
      PaintControl(hWindow);
      return 0;
    case kMessageSetFont:
      pWindow->hFont = static_cast<FontHandle>(nWord);
      m_parts.Changed(hWindow);
      return 0;
    case kMessageGetFont:
      return static_cast<std::intptr_t>(pWindow->hFont);
    case kMessageInitDialog:
      return 1;
    case kMessageSetDefaultId:
      if (kind != WindowKind::kDialog) return 0;
      pWindow->nDefaultId = static_cast<std::int32_t>(nWord);
      m_parts.Changed(hWindow);
      return 1;
    case kMessageClose:
      if (kind == WindowKind::kDialog) {
        Command(hWindow, kButtonCancel);
      } else {
        Destroy(hWindow);
      }
      return 0;
    case kMessageHelp:
      // A control has its dialog asked for help.
      return pWindow->IsChild() ? Call(pWindow->hParent, nMessage, nWord, nLong) : 0;
    case kMessageSetIcon:
      if (kind != WindowKind::kStatic) return 0;
      m_parts.Changed(hWindow);
      return static_cast<std::intptr_t>(
          std::exchange(pWindow->content.hIcon, static_cast<IconHandle>(nWord)));
    case kMessageKeyDown:
      // A key of a real keyboard; what it types comes as characters.
      if (m_parts.pView != nullptr && nLong != 0) m_parts.pView->DoKey(hWindow, nLong);
      return 0;
    case kMessageChar: {
      const char chTyped = static_cast<char>(nWord);
      if (kind == WindowKind::kEdit) TypeInto(hWindow, chTyped);
      if (kind == WindowKind::kButton && chTyped == ' ') Click(hWindow);
      return 0;
    }
    default:
      return 0;
  }
}

// Puts the character in place of the selected text. A backspace takes that, or the character in
// front of the caret.
void HeadlessWindows::TypeInto(WindowHandle hEdit, char chTyped) {
  HeadlessWindow* const pEdit = Find(hEdit);
  CString& sText = pEdit->sText;
  ControlContent& content = pEdit->content;
  std::size_t nFirst = static_cast<std::size_t>(content.nSelectionFirst);
  const std::size_t nEnd = static_cast<std::size_t>(content.nSelectionEnd);
  if (chTyped == kBackspace) {
    if (nFirst == nEnd && nFirst > 0) --nFirst;
    if (nFirst == nEnd) return;
    sText.erase(nFirst, nEnd - nFirst);
  } else {
    if (static_cast<unsigned char>(chTyped) < ' ') return;
    if (content.nLimit != 0 && sText.size() - (nEnd - nFirst) >= content.nLimit) return;
    sText.replace(nFirst, nEnd - nFirst, 1, chTyped);
    ++nFirst;
  }
  content.nSelectionFirst = content.nSelectionEnd = static_cast<std::int32_t>(nFirst);
  pEdit->bToPaint = true;
  m_parts.Changed(hEdit);
  Notify(hEdit, kNoticeChange);
}

bool HeadlessWindows::Click(WindowHandle hButton) {
  HeadlessWindow* const pButton = Find(hButton);
  if (pButton == nullptr || pButton->pClass->kind != WindowKind::kButton || !TakesInput(hButton)) {
    return false;
  }
  switch (pButton->nStyle & kButtonKindMask) {
    case kButtonGroupBox:
      return false;
    case kButtonAutoCheck:
      m_parts.controls.SetCheck(hButton, pButton->content.nCheck == 0);
      break;
    case kButtonAutoRadio:
      for (const WindowHandle hOther : m_parts.controls.RadioGroup(hButton)) {
        m_parts.controls.SetCheck(hOther, hOther == hButton);
      }
      break;
    default:
      break;
  }
  Notify(hButton, kNoticeClick);
  return true;
}

// A control asks its parent for its colours, a dialog itself, and then shows its text in them.
void HeadlessWindows::PaintControl(WindowHandle hWindow) {
  const ContextHandle hContext = m_parts.canvas.BeginPaint(hWindow);
  const HeadlessWindow* pWindow = Find(hWindow);
  if (pWindow->hFont != FontHandle{}) m_parts.canvas.SelectFont(hContext, pWindow->hFont);
  const WindowKind kind = pWindow->pClass->kind;
  if (const std::uint32_t nAsk = ColorMessageOf(kind); nAsk != 0) {
    const WindowHandle hAsked = pWindow->IsChild() ? pWindow->hParent : hWindow;
    const std::intptr_t nBrush =
        Call(hAsked, nAsk, static_cast<std::uint32_t>(hContext), LongOf(hWindow));
    if (nBrush != 0 && m_parts.pView != nullptr) {
      m_parts.canvas.TellColors(hContext, hWindow, static_cast<BrushHandle>(nBrush));
    } else if (nBrush != 0) {
      m_parts.canvas.Fill(hContext, ClientRect(hWindow), static_cast<BrushHandle>(nBrush));
    }
  }
  pWindow = Find(hWindow);
  if (pWindow != nullptr && kind != WindowKind::kDialog && kind != WindowKind::kArea &&
      !pWindow->sText.empty() && m_parts.pView == nullptr) {
    Rect place = ClientRect(hWindow);
    const bool bLine = kind == WindowKind::kEdit || kind == WindowKind::kCombo;
    m_parts.canvas.DrawText(hContext, pWindow->sText, place,
                            bLine ? kTextSingleLine | kTextNoPrefix : kTextWordBreak);
  }
  m_parts.canvas.EndPaint(hWindow, hContext);
}

}  // namespace ald
