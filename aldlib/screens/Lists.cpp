#include "aldlib/screens/Lists.h"

#include "aldlib/screens/internal/ControlOf.h"
#include "aldlib/text/Justify.h"
#include "aldlib/text/ResourceStrings.h"

namespace ald {
namespace {

constexpr std::size_t kComparedCharacters = 40;

Controls& CurrentControls() {
  return CurrentPlatform().desktop.controls;
}

int IndexOf(WindowHandle hList, std::int32_t nData) {
  const int nCount = CurrentControls().Count(hList);
  for (int i = 0; i < nCount; ++i) {
    if (CurrentControls().ItemData(hList, i) == nData) return i;
  }
  return -1;
}

int SelectData(WindowHandle hList, std::int32_t nData) {
  const int nItem = IndexOf(hList, nData);
  CurrentControls().Select(hList, nItem);
  return nItem;
}

std::int32_t SelectedData(WindowHandle hList, int* pbOk) {
  const int nItem = CurrentControls().Selection(hList);
  if (pbOk != nullptr) *pbOk = nItem >= 0 ? 1 : 0;
  return nItem >= 0 ? CurrentControls().ItemData(hList, nItem) : 0;
}

CString FirstWord(CString sText) {
  sText.erase(0, sText.find_first_not_of(' '));
  return sText.substr(0, sText.find(' '));
}

}  // namespace

int GetComboIndexByItemData(WindowHandle hCombo, std::int32_t nData) {
  return IndexOf(hCombo, nData);
}

int GetListIndexByItemData(WindowHandle hList, std::int32_t nData) {
  return IndexOf(hList, nData);
}

int SetComboByItemData(WindowHandle hCombo, std::int32_t nData) {
  return SelectData(hCombo, nData);
}

int SetListByItemData(WindowHandle hList, std::int32_t nData) {
  return SelectData(hList, nData);
}

std::int32_t GetComboSelItemData(WindowHandle hCombo, int* pbOk) {
  return SelectedData(hCombo, pbOk);
}

std::int32_t GetListSelItemData(WindowHandle hList, int* pbOk) {
  return SelectedData(hList, pbOk);
}

int SetCBhWndDataAndText(WindowHandle hCombo, std::int32_t nData, const char* szText) try {
  const int nItem = CurrentControls().AddItem(hCombo, szText != nullptr ? szText : "");
  if (nItem >= 0) CurrentControls().SetItemData(hCombo, nItem, nData);
  return nItem;
} catch (...) {
  return -1;
}

int SetCBDataAndText(WindowHandle hParent, std::uint16_t nId, std::int32_t nData,
                     const char* szText) {
  return SetCBhWndDataAndText(ControlOf(hParent, nId), nData, szText);
}

int SetCBhWndDataAndTextFromResource(WindowHandle hCombo, std::int32_t nData,
                                     std::uint32_t nString) {
  CFixedString<256> sText;
  MyLoadString(nString, sText);
  return SetCBhWndDataAndText(hCombo, nData, sText);
}

void SetListBoxSelection(WindowHandle hParent, int nEditId, int nListId) try {
  const WindowHandle hList = ControlOf(hParent, nListId);
  const CString sEdit = CurrentWindows().Text(ControlOf(hParent, nEditId));
  const CString sWanted = FirstWord(sEdit.substr(0, kComparedCharacters));
  const int nCount = CurrentControls().Count(hList);
  if (nCount <= 0) return;
  int nItem = 0;
  while (nItem < nCount && FirstWord(CurrentControls().ItemText(hList, nItem)) != sWanted) ++nItem;
  CurrentControls().Select(hList, nItem < nCount ? nItem : -1);
} catch (...) {
}

int MyDlgDirList(WindowHandle hParent, const char* szPath, int nListId, int nLabelId,
                 std::uint32_t nAttributes) try {
  const CString sPath = szPath != nullptr ? szPath : "";
  return CurrentControls().ListFolder(hParent, sPath, nListId, nLabelId, nAttributes) ? 1 : 0;
} catch (...) {
  return 0;
}

}  // namespace ald
