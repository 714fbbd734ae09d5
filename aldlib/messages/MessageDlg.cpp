#include "aldlib/messages/MessageDlg.h"

#include <algorithm>
#include <string_view>

#include "aldlib/messages/internal/ShowMessage.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/screens/HelpLevel.h"
#include "aldlib/screens/WindowTable.h"
#include "aldlib/text/ResourceStrings.h"

namespace ald {
namespace {

constexpr int kDialogId = 7015;
constexpr int kTextId = 5003;
constexpr int kCheckBoxId = 5004;
constexpr int kIconId = 5005;
constexpr int kHelpId = 57670;
constexpr std::uint32_t kIdMask = 0xFFFF;

constexpr std::uint32_t kIconStyle = 0x50020003;
constexpr std::uint32_t kButtonStyle = 0x50030000;
constexpr std::uint32_t kCheckBoxStyle = 0x50030003;
constexpr std::uint32_t kCenterTextStyle = 1;
constexpr unsigned kContinueBit = 8;

// A button in dialog units.
constexpr std::int32_t kButtonWidth = 50;
constexpr std::int32_t kButtonHeight = 15;

constexpr std::uint32_t kContinueCaption = 61491;
constexpr std::uint32_t kHelpCaption = 61453;

struct ButtonSpec {
  int nId;
  std::uint32_t nCaption;
};

// The rows by the low bits of the styles.
constexpr ButtonSpec kNone{0, 0};
constexpr ButtonSpec kOk{1, 61446};
constexpr ButtonSpec kCancel{2, 61447};
constexpr ButtonSpec kRetry{4, 61449};
constexpr ButtonSpec kYes{6, 61451};
constexpr ButtonSpec kNo{7, 61452};
constexpr ButtonSpec kRows[][3] = {
    {kOk, kNone, kNone},  {kOk, kCancel, kNone}, {{3, 61448}, kRetry, {5, 61450}},
    {kYes, kNo, kCancel}, {kYes, kNo, kNone},    {kRetry, kCancel, kNone},
};

std::vector<ButtonSpec> ButtonsOf(unsigned nStyles) {
  unsigned nRow = nStyles & kBoxButtonsMask;
  const bool bContinue = (nRow & kContinueBit) != 0;
  nRow &= ~kContinueBit;
  std::vector<ButtonSpec> buttons;
  if (nRow < std::size(kRows)) {
    for (ButtonSpec button : kRows[nRow]) {
      if (button.nId == 0) continue;
      if (bContinue && button.nId == kOk.nId) button.nCaption = kContinueCaption;
      buttons.push_back(button);
    }
  }
  if ((nStyles & kBoxHelp) != 0) buttons.push_back({kHelpId, kHelpCaption});
  return buttons;
}

IconHandle IconOf(unsigned nStyles) {
  constexpr std::intptr_t kFirstIcon = 0x7F01;
  const unsigned nIcon = (nStyles & kBoxIconMask) >> 4;
  if (nIcon < 1 || nIcon > 4) return {};
  return CurrentPlatform().desktop.canvas.SystemIcon(kFirstIcon + nIcon - 1);
}

// The dialog as it is before it is laid out. Where its text stands sets the margins.
DialogTemplate EmptyBox() {
  DialogTemplate box;
  box.nStyle = 0x80C000C0;
  box.cx = 22;
  box.cy = 22;
  box.nPointSize = 8;
  box.sFace = "MS Sans Serif";
  box.items.push_back({0x50020000, 7, 7, 8, 8, kTextId, "STATIC", ""});
  return box;
}

CString Caption(std::uint32_t nString) {
  CFixedString<256> sCaption;
  MyLoadString(nString, sCaption);
  return CString(sCaption.view());
}

}  // namespace

struct CAFMessageDlg::Sizes {
  Point margin;
  Size icon{0, 0};  // nothing without an icon
  Size message{0, 0};
  Size button{0, 0};
  Size check{0, 0};  // nothing without a check box
  std::int32_t nRow = 0;
  std::vector<ButtonSpec> buttons;
};

CAFMessageDlg::CAFMessageDlg(CWnd* pParent) : CDialog(EmptyBox(), pParent) {}

CAFMessageDlg::~CAFMessageDlg() = default;

void CAFMessageDlg::SetMessageBoxInfo(const CString& sMessage, const CString& sCaption,
                                      unsigned nStyles) {
  m_sMessage = sMessage;
  m_sCaption = sCaption;
  m_nStyles = nStyles;
}

int CAFMessageDlg::DoModal() {
  Windows& windows = CurrentPlatform().desktop.windows;
  const WindowHandle hFocus = windows.Focus();
  const int nPressed = CDialog::DoModal();
  if (hFocus != WindowHandle{} && windows.Focus() != hFocus) windows.SetFocus(hFocus);
  return nPressed;
}

CSize CAFMessageDlg::CalculateControlSize(const CString& sText) {
  Canvas& canvas = CurrentPlatform().desktop.canvas;
  const ContextHandle hContext = canvas.Context(m_hWnd);
  const FontHandle hBefore =
      canvas.SelectFont(hContext, CurrentPlatform().desktop.windows.Font(m_hWnd));
  Size size{0, 0};
  const auto measure = [&](std::string_view sLine) {
    const Size line = canvas.TextExtent(hContext, sLine.empty() ? std::string_view(" ") : sLine);
    size.cx = std::max(size.cx, line.cx);
    size.cy = ToMeasure(std::int64_t{size.cy} + line.cy);
  };
  std::string_view sRest = sText;
  std::size_t nEnd = sRest.find('\n');
  if (nEnd == std::string_view::npos) {
    measure(sRest);
  } else {
    for (; nEnd != std::string_view::npos; nEnd = sRest.find('\n')) {
      measure(sRest.substr(0, nEnd));
      sRest.remove_prefix(nEnd + 1);
    }
    // Without its final character: that narrows the result by one letter at most.
    if (!sRest.empty()) sRest.remove_suffix(1);
    measure(sRest);
  }
  canvas.SelectFont(hContext, hBefore);
  canvas.Release(hContext);
  return size;
}

CAFMessageDlg::Sizes CAFMessageDlg::Measure(Point margin) {
  Windows& windows = CurrentPlatform().desktop.windows;
  Sizes sizes{.margin = margin, .buttons = ButtonsOf(m_nStyles)};
  sizes.message = CalculateControlSize(m_sMessage);
  sizes.message.cx = ToMeasure(std::int64_t{sizes.message.cx} + margin.x);
  sizes.message.cy = ToMeasure(std::int64_t{sizes.message.cy} + margin.y);
  const Rect button = windows.MapDialogRect(m_hWnd, {0, 0, kButtonWidth, kButtonHeight});
  sizes.button = {button.Width(), button.Height()};
  const auto nButtons = static_cast<std::int64_t>(sizes.buttons.size());
  sizes.nRow = ToMeasure((nButtons - 1) * margin.x + nButtons * sizes.button.cx);
  if (IsApplyToAllCheckEnabled() != 0) {
    sizes.check = CalculateControlSize(m_sApplyToAll);
    sizes.check.cx = ToMeasure(sizes.check.cx + std::int64_t{2} * margin.x);
    sizes.nRow = std::max(sizes.nRow, sizes.check.cx);
  }
  sizes.message.cx = std::max(sizes.message.cx, sizes.nRow);
  return sizes;
}

WindowHandle CAFMessageDlg::CreateControl(const char* szClass, const CString& sText,
                                          std::uint32_t nStyle, Point at, Size size, int nId) {
  Windows& windows = CurrentPlatform().desktop.windows;
  const WindowHandle hControl = windows.Create({.sClass = szClass,
                                                .sText = sText,
                                                .nStyle = nStyle,
                                                .place = RectAt(at, size.cx, size.cy),
                                                .hParent = m_hWnd,
                                                .nId = nId});
  windows.SetFont(hControl, windows.Font(m_hWnd), false);
  return hControl;
}

void CAFMessageDlg::CreateButtons(const Sizes& sizes, Point at) {
  const bool bSecond = (m_nStyles & kBoxDefaultSecond) != 0;
  const bool bThird = (m_nStyles & kBoxDefaultThird) != 0;
  for (std::size_t i = 0; i < sizes.buttons.size(); ++i) {
    const bool bDefault =
        (i == 0 && !bSecond && !bThird) || (i == 1 && bSecond) || (i == 2 && bThird);
    const std::uint32_t nStyle = kButtonStyle | (bDefault ? kButtonDefaultPush : kButtonPush);
    const ButtonSpec& button = sizes.buttons[i];
    const WindowHandle hButton =
        CreateControl("BUTTON", Caption(button.nCaption), nStyle, at, sizes.button, button.nId);
    if (bDefault) CurrentPlatform().desktop.windows.SetFocus(hButton);
    m_buttons.push_back(hButton);
    at = Moved(at, std::int64_t{sizes.button.cx} + sizes.margin.x, 0);
  }
}

int CAFMessageDlg::OnInitDialog() {
  CDialog::OnInitDialog();
  const Desktop& desktop = CurrentPlatform().desktop;
  Windows& windows = desktop.windows;
  SetDialogID(m_hWnd, kDialogId);
  windows.SetText(m_hWnd, m_sCaption);
  m_buttons.clear();
  m_bApplyToAll = 0;

  const Rect first = windows.WindowRect(m_wndMessage.m_hWnd);
  const Point margin = windows.ToClient(m_hWnd, {first.left, first.top});
  Sizes sizes = Measure(margin);
  Point text = margin;
  if (const IconHandle hIcon = IconOf(m_nStyles); hIcon != IconHandle{}) {
    sizes.icon = {windows.Metric(kMetricIconWidth), windows.Metric(kMetricIconHeight)};
    m_wndIcon.m_hWnd = CreateControl("STATIC", "", kIconStyle, margin, sizes.icon, kIconId);
    desktop.queue.Send(m_wndIcon.m_hWnd, kMessageSetIcon, static_cast<std::uint32_t>(hIcon), 0);
    text = Moved(text, std::int64_t{sizes.icon.cx} + margin.x, 0);
  }
  if (m_bCenterText != 0) {
    const WindowHandle hText = m_wndMessage.m_hWnd;
    windows.SetStyle(hText, windows.Style(hText) | kCenterTextStyle);
  }

  const std::int32_t nContent = std::max(sizes.message.cy, sizes.icon.cy);
  const Rect box = windows.WindowRect(m_hWnd);
  windows.Place(
      m_hWnd, WindowOrder::kKeep, 0, 0,
      ToMeasure(std::int64_t{box.Width()} + sizes.icon.cx + std::max(sizes.nRow, sizes.message.cx)),
      ToMeasure(std::int64_t{box.Height()} + nContent + sizes.button.cy + sizes.check.cy),
      kPlaceNoMove | kPlaceNoOrder | kPlaceNoActivate);
  windows.Place(m_wndMessage.m_hWnd, WindowOrder::kKeep, text.x, text.y, sizes.message.cx,
                sizes.message.cy, kPlaceNoOrder | kPlaceNoActivate);

  const Rect client = windows.ClientRect(m_hWnd);
  const bool bCheckBox = IsApplyToAllCheckEnabled() != 0;
  std::int64_t yRow = std::int64_t{client.Height()} - sizes.button.cy - margin.y;
  if (bCheckBox) yRow -= std::int64_t{sizes.check.cy} + margin.y;
  std::int64_t xRow = text.x;
  if (m_bCenterButtons != 0) {
    const std::int64_t nRow = sizes.nRow;
    xRow = sizes.icon.cx == 0 ? (client.Width() - nRow) / 2
                              : std::max((sizes.message.cx - nRow) / 2 + text.x, xRow);
  }
  const Point row{ToMeasure(xRow), ToMeasure(yRow)};
  CreateButtons(sizes, row);
  if (bCheckBox) {
    m_hCheckBox =
        CreateControl("BUTTON", m_sApplyToAll, kCheckBoxStyle,
                      Moved(Point{text.x, row.y}, 0, std::int64_t{sizes.button.cy} + margin.y),
                      sizes.check, kCheckBoxId);
  }
  if (m_bTopLevel != 0) {
    windows.Place(m_hWnd, WindowOrder::kTopmost, 0, 0, 0, 0,
                  kPlaceNoSize | kPlaceNoMove | kPlaceShow);
  }
  return 0;
}

int CAFMessageDlg::OnCommand(std::uint32_t nWord, std::intptr_t) {
  const auto nId = static_cast<int>(nWord & kIdMask);
  if (nId == kHelpId) {
    const int nBefore = SetHelpLevel(m_nHelpLevel);
    ShowMessageHelp(m_hWnd);
    SetHelpLevel(nBefore);
    return 1;
  }
  Windows& windows = CurrentPlatform().desktop.windows;
  const bool bOurs = std::any_of(m_buttons.begin(), m_buttons.end(), [&](WindowHandle hButton) {
    return windows.ControlId(hButton) == nId;
  });
  if (bOurs) {
    if (IsApplyToAllCheckEnabled() != 0) {
      m_bApplyToAll = CurrentPlatform().desktop.controls.Check(m_hCheckBox);
    }
    EndDialog(nId);
  }
  return 1;
}

int CAFMessageDlg::OnHelpInfo(std::intptr_t nLong) {
  const int nBefore = SetHelpLevel(-m_nHelpLevel);
  CDialog::OnHelpInfo(nLong);
  SetHelpLevel(nBefore);
  return 1;
}

void CAFMessageDlg::OnDestroy() {
  CDialog::OnDestroy();
  RemoveWindowFromALWInternals(m_hWnd);
}

void CAFMessageDlg::DoDataExchange(CDataExchange* pExchange) {
  CDialog::DoDataExchange(pExchange);
  DDX_Control(pExchange, kTextId, m_wndMessage);
  DDX_Text(pExchange, kTextId, m_sMessage);
}

}  // namespace ald
