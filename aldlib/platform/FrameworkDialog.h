#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Framework.h"
#include "aldlib/platform/WindowTypes.h"

namespace ald {

// On its way between a dialog's fields and its controls.
struct CDataExchange {
  CWnd* m_pDlgWnd;
  bool m_bSaveAndValidate;  // from the controls into the fields; else the other way
};

// Binds the object to the dialog's control of that id.
ALDLIB_EXPORT void DDX_Control(CDataExchange* pExchange, int nId, CWnd& control);
// Moves a text between a field and the dialog's control of that id.
ALDLIB_EXPORT void DDX_Text(CDataExchange* pExchange, int nId, CString& sText);

// The framework's dialog: it is made from a template, runs until EndDialog, and hands its messages
// to handlers that a class derived from it overrides. An exception of a handler leaves its message
// unhandled, and the dialog unmade if that was OnInitDialog.
class ALDLIB_EXPORT CDialog : public CWnd {
 public:
  // The parent may be null.
  CDialog(DialogTemplate dialog, CWnd* pParent);
  ~CDialog() override;

  // Runs the dialog over the parent and returns what it was ended with; -1 if it cannot be made.
  virtual int DoModal();
  void EndDialog(int nResult);

  // Runs DoDataExchange.
  bool UpdateData(bool bSaveAndValidate);

 protected:
  // The dialog is there and not yet seen. This one fills the controls. Returns 1 to have the focus
  // on the first control, 0 if the handler has placed it.
  virtual int OnInitDialog();
  // A button was pressed or a control has something to tell. Returns 1 if it was handled. This one
  // ends the dialog on "OK", with the fields filled, and on "Cancel".
  virtual int OnCommand(std::uint32_t nWord, std::intptr_t nLong);
  // The user asks for help on a control. Returns 1 if it was handled.
  virtual int OnHelpInfo(std::intptr_t nLong);
  virtual void OnDestroy();
  // This one has nothing to move.
  virtual void DoDataExchange(CDataExchange* pExchange);

  // The template, until the dialog is made.
  DialogTemplate& Template() { return m_template; }

 private:
  std::intptr_t Handle(WindowHandle hDialog, std::uint32_t nMessage, std::uint32_t nWord,
                       std::intptr_t nLong);

  DialogTemplate m_template;
  CWnd* m_pParent;
};

}  // namespace ald
