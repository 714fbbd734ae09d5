#include "aldlib/platform/FrameworkDialog.h"

#include <utility>

#include "aldlib/platform/Platform.h"

namespace ald {
namespace {

constexpr std::uint32_t kIdMask = 0xFFFF;

WindowHandle ControlOf(const CDataExchange* pExchange, int nId) {
  if (pExchange == nullptr || pExchange->m_pDlgWnd == nullptr) return {};
  return CurrentPlatform().desktop.windows.Child(pExchange->m_pDlgWnd->m_hWnd, nId);
}

}  // namespace

void DDX_Control(CDataExchange* pExchange, int nId, CWnd& control) {
  control.m_hWnd = ControlOf(pExchange, nId);
}

void DDX_Text(CDataExchange* pExchange, int nId, CString& sText) {
  Windows& windows = CurrentPlatform().desktop.windows;
  const WindowHandle hControl = ControlOf(pExchange, nId);
  if (hControl == WindowHandle{}) return;
  if (pExchange->m_bSaveAndValidate) {
    sText = windows.Text(hControl);
  } else {
    windows.SetText(hControl, sText);
  }
}

CDialog::CDialog(DialogTemplate dialog, CWnd* pParent)
    : m_template(std::move(dialog)), m_pParent(pParent) {}

CDialog::~CDialog() = default;

// No exception leaves: what there is no memory for is a dialog that cannot be made.
int CDialog::DoModal() try {
  const WindowHandle hOwner = m_pParent != nullptr ? m_pParent->m_hWnd : WindowHandle{};
  const std::intptr_t nResult = CurrentPlatform().desktop.presenter.RunDialog(
      hOwner, ModuleHandle{}, m_template,
      [this](WindowHandle hDialog, std::uint32_t nMessage, std::uint32_t nWord,
             std::intptr_t nLong) { return Handle(hDialog, nMessage, nWord, nLong); },
      0);
  return static_cast<int>(nResult);
} catch (...) {
  return -1;
}

void CDialog::EndDialog(int nResult) {
  CurrentPlatform().desktop.presenter.EndDialog(m_hWnd, nResult);
}

bool CDialog::UpdateData(bool bSaveAndValidate) {
  CDataExchange exchange{this, bSaveAndValidate};
  DoDataExchange(&exchange);
  return true;
}

int CDialog::OnInitDialog() {
  UpdateData(false);
  return 1;
}

int CDialog::OnCommand(std::uint32_t nWord, std::intptr_t) {
  switch (nWord & kIdMask) {
    case kButtonOk:
      UpdateData(true);
      EndDialog(kButtonOk);
      return 1;
    case kButtonCancel:
      EndDialog(kButtonCancel);
      return 1;
    default:
      return 0;
  }
}

int CDialog::OnHelpInfo(std::intptr_t) {
  return 0;
}

void CDialog::OnDestroy() {}

void CDialog::DoDataExchange(CDataExchange*) {}

// An exception ends here, since the presenter's loop that the message came from must be left in
// good order.
std::intptr_t CDialog::Handle(WindowHandle hDialog, std::uint32_t nMessage, std::uint32_t nWord,
                              std::intptr_t nLong) try {
  switch (nMessage) {
    case kMessageInitDialog:
      m_hWnd = hDialog;
      return OnInitDialog();
    case kMessageCommand:
      return OnCommand(nWord, nLong);
    case kMessageHelp:
      return OnHelpInfo(nLong);
    case kMessageDestroy:
      OnDestroy();
      m_hWnd = {};
      return 0;
    default:
      return 0;
  }
} catch (...) {
  if (nMessage == kMessageInitDialog) EndDialog(-1);
  if (nMessage == kMessageDestroy) m_hWnd = {};
  return 0;
}

}  // namespace ald
