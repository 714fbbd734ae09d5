#include <algorithm>
#include <utility>

#include "aldlib/platform/Characters.h"
#include "aldlib/platform/headless/internal/HeadlessParts.h"
#include "aldlib/platform/internal/Undo.h"

// Dialogs out of templates, and what the keyboard does in them.
namespace ald {
namespace {

constexpr std::uint32_t kKeyTab = 0x09;
constexpr std::uint32_t kKeyEnter = 0x0D;
constexpr std::uint32_t kKeyEscape = 0x1B;
constexpr std::uint32_t kKeyLeft = 0x25;
constexpr std::uint32_t kKeyUp = 0x26;
constexpr std::uint32_t kKeyRight = 0x27;
constexpr std::uint32_t kKeyDown = 0x28;
constexpr std::uint32_t kKeyF1 = 0x70;

// Multiplies first and rounds halves away from zero, as dialog units are turned everywhere.
std::int32_t Scaled(std::int32_t nValue, std::int32_t nTimes, std::int32_t nOver) {
  const std::int64_t nProduct = std::int64_t{nValue} * nTimes;
  const std::int64_t nHalf = nProduct < 0 ? -nOver / 2 : nOver / 2;
  return ToMeasure((nProduct + nHalf) / nOver);
}

// A font's height of so many points on a screen of 96 dots an inch, as fonts are asked for.
std::int32_t HeightOfPoints(std::uint16_t nPoints) {
  return -Scaled(nPoints, 96, 72);
}

}  // namespace

tagLOGFONTA DialogFont(const DialogTemplate& dialog) {
  tagLOGFONTA font{};
  font.lfHeight = HeightOfPoints(dialog.nPointSize != 0 ? dialog.nPointSize : 8);
  font.lfWeight = 400;
  dialog.sFace.copy(font.lfFaceName, sizeof font.lfFaceName - 1);
  return font;
}

WindowHandle HeadlessWindows::CreateDialog(WindowHandle hOwner, ModuleHandle hModule,
                                           const DialogTemplate& dialog, DialogProcedure procedure,
                                           std::intptr_t nInit) {
  const bool bShow = (dialog.nStyle & kStyleVisible) != 0;
  return MakeDialog(hOwner, hModule, dialog, std::move(procedure), nInit, bShow);
}

WindowHandle HeadlessWindows::MakeDialog(WindowHandle hOwner, ModuleHandle hModule,
                                         const DialogTemplate& dialog, DialogProcedure procedure,
                                         std::intptr_t nInit, bool bShow) {
  WindowSpec spec;
  spec.sClass = "DIALOG";
  spec.sText = dialog.sTitle;
  spec.nStyle = dialog.nStyle & ~kStyleVisible;
  spec.hParent = hOwner;
  spec.hModule = hModule;
  const WindowHandle hDialog = Create(spec);
  HeadlessWindow* pDialog = Find(hDialog);
  if (pDialog == nullptr) return {};
  bool bMade = false;
  const UndoAtEnd end([&] {
    if (!bMade) Destroy(hDialog);
  });

  pDialog->hDialogFont = m_parts.canvas.CreateFont(DialogFont(dialog));
  pDialog->hFont = pDialog->hDialogFont;
  const TextMetrics metrics = m_parts.canvas.MetricsOf(pDialog->hDialogFont);
  pDialog->baseUnits = {metrics.nAverageWidth, metrics.nHeight};

  // The template's size is that of the inside.
  const Rect inside =
      MapDialogRect(hDialog, {dialog.x, dialog.y, dialog.x + dialog.cx, dialog.y + dialog.cy});
  const Rect frame = FrameOf(pDialog->nStyle);
  const Point origin = pDialog->IsChild() ? Point{0, 0} : ToScreen(pDialog->hParent, {0, 0});
  pDialog->place = RectAt(Moved(origin, inside.left, inside.top),
                          std::int64_t{inside.Width()} + frame.left + frame.right,
                          std::int64_t{inside.Height()} + frame.top + frame.bottom);

  for (const DialogItem& item : dialog.items) {
    WindowSpec control;
    control.sClass = item.sClass;
    control.sText = item.sText;
    control.nStyle = item.nStyle | kStyleChild;
    control.place = MapDialogRect(hDialog, {item.x, item.y, item.x + item.cx, item.y + item.cy});
    control.hParent = hDialog;
    control.nId = item.nId;
    control.hModule = hModule;
    const WindowHandle hControl = Create(control);
    if (hControl == WindowHandle{}) return {};
    if (Find(hControl)->IsPushButton() && (item.nStyle & kButtonKindMask) == kButtonDefaultPush) {
      pDialog->nDefaultId = item.nId;
    }
    SetFont(hControl, pDialog->hDialogFont, false);
    pDialog = Find(hDialog);
    if (pDialog == nullptr) return {};  // a class of the host's took it away
  }

  if (procedure) {
    pDialog->procedure = [this, handler = std::move(procedure)](
                             WindowHandle hWindow, std::uint32_t nMessage, std::uint32_t nWord,
                             std::intptr_t nLong) {
      const std::intptr_t nAnswer = handler(hWindow, nMessage, nWord, nLong);
      if (nAnswer != 0 || nMessage == kMessageInitDialog) return nAnswer;
      return DefaultProcedure(hWindow, nMessage, nWord, nLong);
    };
  }
  WindowHandle hFirst{};
  for (const WindowHandle hChild : Children(hDialog)) {
    const HeadlessWindow* const pChild = Find(hChild);
    const bool bStop = (pChild->nStyle & kStyleTabStop) != 0;
    if (bStop && pChild->IsShown() && !pChild->IsDisabled()) {
      hFirst = hChild;
      break;
    }
  }
  const bool bPlaceFocus = Call(hDialog, kMessageInitDialog, WordOf(hFirst), nInit) != 0;
  if (bPlaceFocus && IsWindow(hFirst)) SetFocus(hFirst);
  if (bShow && IsWindow(hDialog)) Show(hDialog, kShowNormal);
  bMade = IsWindow(hDialog);
  return bMade ? hDialog : WindowHandle{};
}

Rect HeadlessWindows::MapDialogRect(WindowHandle hDialog, const Rect& units) {
  const HeadlessWindow* const pDialog = Find(hDialog);
  if (pDialog == nullptr) return {};
  const Size base = pDialog->baseUnits == Size{} ? DialogBaseUnits() : pDialog->baseUnits;
  return {Scaled(units.left, base.cx, 4), Scaled(units.top, base.cy, 8),
          Scaled(units.right, base.cx, 4), Scaled(units.bottom, base.cy, 8)};
}

std::int32_t HeadlessWindows::DefaultId(WindowHandle hDialog) {
  const HeadlessWindow* const pDialog = Find(hDialog);
  return pDialog != nullptr && pDialog->nDefaultId != 0 ? pDialog->nDefaultId : kButtonOk;
}

bool HeadlessWindows::IsDialogMessage(WindowHandle hDialog, const WindowMessage& message) {
  if (!IsInside(message.hWindow, hDialog)) return false;
  if (message.nMessage == kMessageKeyDown && DialogKey(hDialog, message)) return true;
  m_parts.queue.Translate(message);
  m_parts.queue.Dispatch(message);
  return true;
}

// True for a key that means something to the dialog and not to the control that it went to.
bool HeadlessWindows::DialogKey(WindowHandle hDialog, const WindowMessage& message) {
  const bool bShift = m_parts.queue.IsKeyDown(kKeyShift);
  if (m_parts.queue.IsKeyDown(kKeyAlt)) {
    return ChooseMnemonic(hDialog, static_cast<char>(message.nWord));
  }
  switch (message.nWord) {
    case kKeyTab:
      return MoveFocus(hDialog, message.hWindow, bShift);
    case kKeyF1:
      Call(message.hWindow, kMessageHelp, 0, 0);
      return true;
    case kKeyEscape:
      Command(hDialog, kButtonCancel);
      return true;
    case kKeyEnter: {
      const HeadlessWindow* const pFocus = Find(m_hFocus);
      const bool bOnButton =
          pFocus != nullptr && IsInside(m_hFocus, hDialog) && pFocus->IsPushButton();
      Command(hDialog, bOnButton ? pFocus->nId : DefaultId(hDialog));
      return true;
    }
    case kKeyLeft:
    case kKeyUp:
      return MoveInGroup(message.hWindow, true);
    case kKeyRight:
    case kKeyDown:
      return MoveInGroup(message.hWindow, false);
    default:
      return false;
  }
}

// A disabled button keeps its command to itself; an id without a control is told as it is.
void HeadlessWindows::Command(WindowHandle hDialog, std::int32_t nId) {
  const WindowHandle hControl = Child(hDialog, nId);
  if (hControl != WindowHandle{} && !IsEnabled(hControl)) return;
  Call(hDialog, kMessageCommand, static_cast<std::uint32_t>(nId) & 0xFFFF, LongOf(hControl));
}

bool HeadlessWindows::MoveFocus(WindowHandle hDialog, WindowHandle hFrom, bool bBack) {
  std::vector<WindowHandle> stops = Children(hDialog);
  if (bBack) std::reverse(stops.begin(), stops.end());
  // Begin behind the control that has the focus now, and come round to it.
  const auto itFrom = std::find(stops.begin(), stops.end(), hFrom);
  if (itFrom != stops.end()) std::rotate(stops.begin(), itFrom + 1, stops.end());
  const auto itNext = std::find_if(stops.begin(), stops.end(), [this](WindowHandle hControl) {
    return (Find(hControl)->nStyle & kStyleTabStop) != 0 && TakesInput(hControl);
  });
  if (itNext != stops.end()) SetFocus(*itNext);
  return true;
}

// The arrows go round among the radio buttons from one group style to the next.
bool HeadlessWindows::MoveInGroup(WindowHandle hFrom, bool bBack) {
  const std::vector<WindowHandle> group = m_parts.controls.RadioGroup(hFrom);
  const auto itFrom = std::find(group.begin(), group.end(), hFrom);
  if (itFrom == group.end()) return false;
  const std::size_t nCount = group.size();
  const std::size_t nFrom = static_cast<std::size_t>(itFrom - group.begin());
  for (std::size_t n = 1; n < nCount; ++n) {
    const WindowHandle hNext = group[(nFrom + (bBack ? nCount - n : n)) % nCount];
    if (!TakesInput(hNext)) continue;
    SetFocus(hNext);
    Click(hNext);
    break;
  }
  return true;
}

// The letter behind a single & of a button presses it; that of a label leads to the control behind
// the label.
bool HeadlessWindows::ChooseMnemonic(WindowHandle hDialog, char chMnemonic) {
  bool bPassOn = false;
  for (const WindowHandle hControl : Children(hDialog)) {
    const HeadlessWindow* const pControl = Find(hControl);
    if (!TakesInput(hControl)) continue;
    if (bPassOn && (pControl->nStyle & kStyleTabStop) != 0) {
      SetFocus(hControl);
      return true;
    }
    const WindowKind kind = pControl->pClass->kind;
    if (kind != WindowKind::kButton && kind != WindowKind::kStatic) continue;
    if (MnemonicOf(pControl->sText) != CharUpper(chMnemonic)) continue;
    const bool bLabel =
        kind == WindowKind::kStatic || (pControl->nStyle & kButtonKindMask) == kButtonGroupBox;
    if (!bLabel) {
      SetFocus(hControl);
      return Click(hControl);
    }
    bPassOn = true;
  }
  return bPassOn;
}

}  // namespace ald
