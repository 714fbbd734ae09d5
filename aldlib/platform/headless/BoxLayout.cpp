#include "aldlib/platform/headless/internal/BoxLayout.h"

#include <algorithm>

namespace ald {

std::vector<BoxButton> ButtonsOf(std::uint32_t nFlags) {
  constexpr BoxButton kOk{kButtonOk, "OK"};
  constexpr BoxButton kCancel{kButtonCancel, "Cancel"};
  constexpr BoxButton kAbort{kButtonAbort, "&Abort"};
  constexpr BoxButton kRetry{kButtonRetry, "&Retry"};
  constexpr BoxButton kIgnore{kButtonIgnore, "&Ignore"};
  constexpr BoxButton kYes{kButtonYes, "&Yes"};
  constexpr BoxButton kNo{kButtonNo, "&No"};
  std::vector<BoxButton> buttons;
  switch (nFlags & kBoxButtonsMask) {
    case kBoxOkCancel:
      buttons = {kOk, kCancel};
      break;
    case kBoxAbortRetryIgnore:
      buttons = {kAbort, kRetry, kIgnore};
      break;
    case kBoxYesNoCancel:
      buttons = {kYes, kNo, kCancel};
      break;
    case kBoxYesNo:
      buttons = {kYes, kNo};
      break;
    case kBoxRetryCancel:
      buttons = {kRetry, kCancel};
      break;
    default:
      buttons = {kOk};
      break;
  }
  if ((nFlags & kBoxHelp) != 0) buttons.push_back({kButtonHelp, "&Help"});
  return buttons;
}

int DefaultButtonOf(std::uint32_t nFlags) {
  const std::vector<BoxButton> buttons = ButtonsOf(nFlags);
  const std::size_t nPlace = (nFlags & kBoxDefaultMask) >> 8;
  const BoxButton& button = nPlace < buttons.size() ? buttons[nPlace] : buttons.front();
  // A box whose default is its Help button would never end by itself.
  return button.nId != kButtonHelp ? button.nId : buttons.front().nId;
}

int EscapeButtonOf(std::uint32_t nFlags) {
  switch (nFlags & kBoxButtonsMask) {
    case kBoxAbortRetryIgnore:
    case kBoxYesNo:
      return 0;
    case kBoxOkCancel:
    case kBoxYesNoCancel:
    case kBoxRetryCancel:
      return kButtonCancel;
    default:
      return kButtonOk;
  }
}

Size BoxTextUnits(const CString& sText) {
  constexpr int kLongestLine = 200;  // of characters; a line beyond it is shown as far as it fits
  constexpr int kMostLines = 60;
  int nLines = 1;
  int nWidest = 0;
  int nLine = 0;
  for (const char ch : sText) {
    nLine = ch == '\n' ? 0 : nLine + 1;
    nWidest = std::max(nWidest, nLine);
    if (ch == '\n') ++nLines;
  }
  return {4 * std::min(nWidest, kLongestLine), 8 * std::min(nLines, kMostLines)};
}

DialogTemplate BoxTemplate(const CString& sText, Size textUnits, const CString& sCaption,
                           std::uint32_t nFlags) {
  constexpr std::int16_t kMargin = 7;
  constexpr std::int16_t kButtonWidth = 50;
  constexpr std::int16_t kButtonHeight = 14;
  constexpr std::int16_t kGap = 4;
  constexpr std::int16_t kIconSize = 20;
  const bool bIcon = (nFlags & kBoxIconMask) != 0;
  const auto nTextWidth = static_cast<std::int16_t>(textUnits.cx);
  const auto nTextHeight = static_cast<std::int16_t>(textUnits.cy);

  const std::vector<BoxButton> buttons = ButtonsOf(nFlags);
  const auto nCount = static_cast<int>(buttons.size());
  const int nRow = nCount * kButtonWidth + (nCount - 1) * kGap;
  const int nTextLeft = kMargin + (bIcon ? kIconSize + kMargin : 0);
  const int nWidth = std::max(nTextLeft + nTextWidth, kMargin + nRow) + kMargin;
  const int nButtonTop = 2 * kMargin + std::max<int>(nTextHeight, bIcon ? kIconSize : 0);

  DialogTemplate dialog;
  dialog.nStyle = kStylePopup | kStyleCaption | kStyleSystemMenu;
  dialog.sTitle = sCaption;
  dialog.cx = static_cast<std::int16_t>(nWidth);
  dialog.cy = static_cast<std::int16_t>(nButtonTop + kButtonHeight + kMargin);
  if (bIcon) {
    dialog.items.push_back(
        {kStyleVisible, kMargin, kMargin, kIconSize, kIconSize, kBoxIconId, "STATIC", {}});
  }
  dialog.items.push_back({kStyleVisible | kBoxTextStyle, static_cast<std::int16_t>(nTextLeft),
                          kMargin, nTextWidth, nTextHeight, kBoxTextId, "STATIC", sText});
  int x = (nWidth - nRow) / 2;
  for (const BoxButton& button : buttons) {
    const std::uint32_t nKind =
        button.nId == DefaultButtonOf(nFlags) ? kButtonDefaultPush : kButtonPush;
    dialog.items.push_back({kStyleVisible | kStyleTabStop | nKind, static_cast<std::int16_t>(x),
                            static_cast<std::int16_t>(nButtonTop), kButtonWidth, kButtonHeight,
                            button.nId, "BUTTON", button.szCaption});
    x += kButtonWidth + kGap;
  }
  return dialog;
}

}  // namespace ald
