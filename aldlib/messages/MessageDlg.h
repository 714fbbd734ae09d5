#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/FrameworkDialog.h"

namespace ald {

// A message dialog that lays itself out from a text and the usual bits of a box: its buttons (low
// four bits), icon, default button and Help button, and 8 among the low four bits for "Continue" in
// place of "OK".
//
//   CAFMessageDlg dialog(nullptr);
//   dialog.SetMessageBoxInfo("Print the check now?", "Checks", 0x24);
//   dialog.EnableApplyToAllCheck("&Apply to all checks");
//   if (dialog.DoModal() == 6 && dialog.ApplyToAll()) ...
class ALDLIB_EXPORT CAFMessageDlg : public CDialog {
 public:
  // The parent may be null.
  explicit CAFMessageDlg(CWnd* pParent);
  ~CAFMessageDlg() override;

  // Runs the dialog and returns the id of the button pressed. The focus goes back to where it was.
  int DoModal() override;

  void SetMessageBoxInfo(const CString& sMessage, const CString& sCaption, unsigned nStyles);
  void SetMessageText(const CString& sMessage) { m_sMessage = sMessage; }
  CString GetMessageText() const { return m_sMessage; }
  void SetCaptionText(const CString& sCaption) { m_sCaption = sCaption; }
  CString GetCaptionText() const { return m_sCaption; }
  void SetMessageBoxStyles(unsigned nStyles) { m_nStyles = nStyles; }
  unsigned GetMessageBoxStyles() const { return m_nStyles; }

  // Centres each line of the text. Off at first.
  void CenterMessageText(int bCenter) { m_bCenterText = bCenter; }
  int IsMessageTextCentered() const { return m_bCenterText; }
  // Centres the row of buttons; otherwise it begins below the text. On at first.
  void CenterButtons(int bCenter) { m_bCenterButtons = bCenter; }
  int AreButtonsCentered() const { return m_bCenterButtons; }
  // Puts the dialog in front of all windows. Off at first.
  void SetTopLevel(int bTopLevel) { m_bTopLevel = bTopLevel; }
  int IsTopLevel() const { return m_bTopLevel; }

  // The help topic of the Help button; 0 at first.
  void SetupHelpLoadLevel(int nHelpLevel) { m_nHelpLevel = nHelpLevel; }

  // Gives the dialog a check box with that text; an empty text gives none.
  void EnableApplyToAllCheck(const CString& sText) { m_sApplyToAll = sText; }
  int IsApplyToAllCheckEnabled() const { return m_sApplyToAll.empty() ? 0 : 1; }
  // Whether the box was ticked when a button was pressed.
  int ApplyToAll() const { return m_bApplyToAll; }

 protected:
  // The room of a text in the dialog's font, line by line, in pixels. An empty text has the room of
  // a blank. Of several lines the last one is measured without its last character.
  CSize CalculateControlSize(const CString& sText);

  int OnInitDialog() override;
  int OnCommand(std::uint32_t nWord, std::intptr_t nLong) override;
  int OnHelpInfo(std::intptr_t nLong) override;
  void OnDestroy() override;
  void DoDataExchange(CDataExchange* pExchange) override;

 private:
  struct Sizes;

  Sizes Measure(Point margin);
  void CreateButtons(const Sizes& sizes, Point at);
  WindowHandle CreateControl(const char* szClass, const CString& sText, std::uint32_t nStyle,
                             Point at, Size size, int nId);

  CWnd m_wndMessage;
  CWnd m_wndIcon;
  CString m_sCaption;
  CString m_sMessage;
  CString m_sApplyToAll;
  int m_bCenterText = 0;
  unsigned m_nStyles = 0;
  std::vector<WindowHandle> m_buttons;
  WindowHandle m_hCheckBox{};
  int m_bCenterButtons = 1;
  int m_nHelpLevel = 0;
  int m_bTopLevel = 0;
  int m_bApplyToAll = 0;
};

}  // namespace ald
