#pragma once

#include <string_view>
#include <vector>

#include "aldlib/platform/Controls.h"

namespace ald {

struct HeadlessParts;
struct HeadlessWindow;

// The letter, in upper case, behind the first single & of a text; 0 if there is none.
char MnemonicOf(std::string_view sText);

class HeadlessControls : public Controls {
 public:
  explicit HeadlessControls(HeadlessParts& parts) : m_parts(parts) {}

  int Count(WindowHandle hList) override;
  CString ItemText(WindowHandle hList, int nItem) override;
  std::int32_t ItemData(WindowHandle hList, int nItem) override;
  bool SetItemData(WindowHandle hList, int nItem, std::int32_t nData) override;
  int AddItem(WindowHandle hList, const CString& sText) override;
  bool RemoveAllItems(WindowHandle hList) override;
  int Selection(WindowHandle hList) override;
  bool Select(WindowHandle hList, int nItem) override;
  Rect DroppedRect(WindowHandle hCombo) override;
  bool SetLimit(WindowHandle hEdit, std::uint32_t nCharacters) override;
  bool SelectText(WindowHandle hEdit, std::int32_t nFirst, std::int32_t nEnd) override;
  int Check(WindowHandle hButton) override;
  bool SetCheck(WindowHandle hButton, int nCheck) override;
  bool SetButtonStyle(WindowHandle hButton, std::uint32_t nStyle, bool bRedraw) override;
  bool ListFolder(WindowHandle hParent, const CString& sPath, std::int32_t nList,
                  std::int32_t nLabel, std::uint32_t nAttributes) override;

  // The radio buttons that belong with one, itself among them: from the last control with the group
  // style at or before it up to the next such control. Empty for any other window.
  std::vector<WindowHandle> RadioGroup(WindowHandle hRadio);
  // The selected stretch of an edit control's text; false for any other window.
  bool SelectedText(WindowHandle hEdit, std::int32_t& nFirst, std::int32_t& nEnd);

 private:
  HeadlessWindow* FindList(WindowHandle hList);
  HeadlessWindow* FindEdit(WindowHandle hEdit);
  HeadlessWindow* FindButton(WindowHandle hButton);

  HeadlessParts& m_parts;
};

}  // namespace ald
