#include "aldlib/screens/Visibility.h"

#include <algorithm>
#include <limits>
#include <span>

#include "aldlib/platform/internal/Undo.h"
#include "aldlib/screens/Layout.h"
#include "aldlib/screens/internal/ControlKinds.h"
#include "aldlib/screens/internal/ControlOf.h"

namespace ald {
namespace {

constexpr char kMnemonic = '&';
constexpr char kMaskedMnemonic = '\x1F';

// The first id from nFrom on that a control of the screen has; past every id if there is none. Ids
// mostly follow each other. Over a gap, which may be billions wide, the controls tell.
std::int64_t NextId(WindowHandle hParent, std::int64_t nFrom) {
  if (ControlOf(hParent, static_cast<int>(nFrom)) != WindowHandle{}) return nFrom;
  std::int64_t nNext = std::int64_t{std::numeric_limits<int>::max()} + 1;
  for (const WindowHandle hControl : CurrentWindows().Children(hParent)) {
    const std::int64_t nId = CurrentWindows().ControlId(hControl);
    if (nId > nFrom) nNext = std::min(nNext, nId);
  }
  return nNext;
}

// Calls `use` for the id and control of each control of the range that exists, in the order of
// their ids, until it returns true. Each one is looked for when its turn has come, since what was
// done to those before may have destroyed it.
template <class Use>
void ForRange(WindowHandle hParent, int nFirst, int nLast, Use use) {
  for (std::int64_t nId = nFirst; nId <= nLast; ++nId) {
    nId = NextId(hParent, nId);
    if (nId > nLast || use(nId, ControlOf(hParent, static_cast<int>(nId)))) return;
  }
}

void ReplaceFirst(WindowHandle hControl, char cOld, char cNew) {
  if (!CarriesMnemonic(hControl)) return;
  CString sText = CurrentWindows().Text(hControl);
  const std::size_t nAt = sText.find(cOld);
  if (nAt == CString::npos) return;
  sText[nAt] = cNew;
  CurrentWindows().SetText(hControl, sText);
}

// Hides or shows controls without painting, and paints what they cover at the end.
class Change {
 public:
  Change(WindowHandle hParent, bool bShow) : m_hParent(hParent), m_bShow(bShow) {}
  Change(const Change&) = delete;
  Change& operator=(const Change&) = delete;
  ~Change() {
    if (!m_bAny) return;
    Undo([this] { CurrentWindows().Invalidate(m_hParent, &m_covered, true); });
  }

  void Apply(WindowHandle hControl) {
    ReplaceFirst(hControl, m_bShow ? kMaskedMnemonic : kMnemonic,
                 m_bShow ? kMnemonic : kMaskedMnemonic);
    Cover(hControl);
    CurrentWindows().Place(hControl, WindowOrder::kKeep, 0, 0, 0, 0,
                           kPlaceNoSize | kPlaceNoMove | kPlaceNoOrder | kPlaceNoRedraw |
                               (m_bShow ? kPlaceShow : kPlaceHide));
  }

 private:
  void Cover(WindowHandle hControl) {
    Rect rect{};
    if (GetALWWindowRect(hControl, &rect) == 0) return;
    ScreenToClientRect(m_hParent, &rect);
    if (!m_bAny) m_covered = rect;
    m_bAny = true;
    m_covered = {std::min(m_covered.left, rect.left), std::min(m_covered.top, rect.top),
                 std::max(m_covered.right, rect.right), std::max(m_covered.bottom, rect.bottom)};
  }

  WindowHandle m_hParent;
  bool m_bShow;
  bool m_bAny = false;
  Rect m_covered{};
};

void ChangeRange(WindowHandle hParent, int nFirst, int nLast, bool bShow) {
  Change change(hParent, bShow);
  ForRange(hParent, nFirst, nLast, [&](std::int64_t, WindowHandle hControl) {
    change.Apply(hControl);
    return false;
  });
}

void ChangeSet(WindowHandle hParent, const int* pnIds, int nCount, bool bShow) {
  if (pnIds == nullptr || nCount <= 0) return;
  Change change(hParent, bShow);
  for (const int nId : std::span(pnIds, static_cast<std::size_t>(nCount))) {
    const WindowHandle hControl = ControlOf(hParent, nId);
    if (hControl != WindowHandle{}) change.Apply(hControl);
  }
}

}  // namespace

void EnableDlgWindow(WindowHandle hParent, int nId, int bEnable) {
  EnableDlgWindowRange(hParent, nId, nId, bEnable);
}

void EnableDlgWindowRange(WindowHandle hParent, int nFirst, int nLast, int bEnable) try {
  ForRange(hParent, nFirst, nLast, [&](std::int64_t, WindowHandle hControl) {
    CurrentWindows().Enable(hControl, bEnable != 0);
    return false;
  });
} catch (...) {
}

void ShowDlgWindow(WindowHandle hParent, int nId, std::int16_t nShow) {
  ShowDlgWindowRange(hParent, nId, nId, nShow);
}

void ShowDlgWindowRange(WindowHandle hParent, int nFirst, int nLast, std::int16_t nShow) try {
  ForRange(hParent, nFirst, nLast, [&](std::int64_t, WindowHandle hControl) {
    CurrentWindows().Show(hControl, nShow);
    return false;
  });
} catch (...) {
}

void HideDlgCtlRange(WindowHandle hParent, int nFirst, int nLast) try {
  ChangeRange(hParent, nFirst, nLast, false);
} catch (...) {
}

void ShowDlgCtlRange(WindowHandle hParent, int nFirst, int nLast) try {
  ChangeRange(hParent, nFirst, nLast, true);
} catch (...) {
}

void SwapDlgCtlRange(WindowHandle hParent, int nHideFirst, int nHideLast, int nShowFirst,
                     int nShowLast) {
  HideDlgCtlRange(hParent, nHideFirst, nHideLast);
  ShowDlgCtlRange(hParent, nShowFirst, nShowLast);
}

void SwapDlgCtlSet(WindowHandle hParent, const int* pnHide, int nHide, const int* pnShow,
                   int nShow) try {
  ChangeSet(hParent, pnHide, nHide, false);
  ChangeSet(hParent, pnShow, nShow, true);
} catch (...) {
}

void SetDlgFocus(WindowHandle hParent, int nId) {
  const WindowHandle hControl = ControlOf(hParent, nId);
  if (hControl != WindowHandle{}) CurrentWindows().SetFocus(hControl);
}

void SetFocusToButton(WindowHandle hParent, int nId) {
  const Desktop& desktop = CurrentPlatform().desktop;
  const WindowHandle hButton = ControlOf(hParent, nId);
  if (hButton == WindowHandle{}) return;
  desktop.controls.SetButtonStyle(hButton, kButtonDefaultPush, true);
  desktop.queue.Send(hParent, kMessageSetDefaultId, static_cast<std::uint32_t>(nId), 0);
  desktop.windows.SetFocus(hButton);
}

void ForceRePaint(WindowHandle hWindow) {
  CurrentWindows().Invalidate(hWindow, nullptr, true);
}

int IsInDlg(WindowHandle hAncestor, WindowHandle hWindow) {
  Windows& windows = CurrentWindows();
  if (!windows.IsWindow(hAncestor) || !windows.IsWindow(hWindow)) return 0;
  for (WindowHandle h = windows.Parent(hWindow); h != WindowHandle{}; h = windows.Parent(h)) {
    if (h == hAncestor) return 1;
  }
  return 0;
}

void SetDlgEditLimit(WindowHandle hParent, int nId, int nCharacters) {
  CurrentPlatform().desktop.controls.SetLimit(ControlOf(hParent, nId),
                                              static_cast<std::uint32_t>(std::max(nCharacters, 0)));
}

int GetDlgRadioCheck(WindowHandle hParent, int nFirst, int nLast) try {
  int nOffset = 0;
  ForRange(hParent, nFirst, nLast, [&](std::int64_t nId, WindowHandle hButton) {
    if (CurrentPlatform().desktop.controls.Check(hButton) != 1) return false;
    nOffset = static_cast<int>(nId - nFirst);
    return true;
  });
  return nOffset;
} catch (...) {
  return 0;
}

int IsKeyShifted() {
  return CurrentPlatform().desktop.queue.IsKeyDown(kKeyShift) ? 1 : 0;
}

}  // namespace ald
