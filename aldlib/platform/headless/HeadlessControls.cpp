#include <algorithm>

#include "aldlib/platform/Characters.h"
#include "aldlib/platform/headless/internal/HeadlessParts.h"

namespace ald {
namespace {

// Style bits of the lists.
constexpr std::uint32_t kListSorted = 0x0002;
constexpr std::uint32_t kComboSorted = 0x0100;
constexpr std::uint32_t kComboKindMask = 0x0003;  // 1 has its list always down

bool HasItem(const ControlContent& content, int nItem) {
  return nItem >= 0 && static_cast<std::size_t>(nItem) < content.items.size();
}

ListItem& ItemOf(ControlContent& content, int nItem) {
  return content.items[static_cast<std::size_t>(nItem)];
}

bool ComesBefore(const CString& sOne, const CString& sOther) {
  return std::lexicographical_compare(sOne.begin(), sOne.end(), sOther.begin(), sOther.end(),
                                      [](char chOne, char chOther) {
                                        return static_cast<unsigned char>(CharUpper(chOne)) <
                                               static_cast<unsigned char>(CharUpper(chOther));
                                      });
}

}  // namespace

char MnemonicOf(std::string_view sText) {
  for (std::size_t i = 0; i + 1 < sText.size(); ++i) {
    if (sText[i] != '&') continue;
    if (sText[i + 1] != '&') return CharUpper(sText[i + 1]);
    ++i;  // a doubled one stands for itself
  }
  return 0;
}

HeadlessWindow* HeadlessControls::FindList(WindowHandle hList) {
  HeadlessWindow* const pWindow = m_parts.windows.Find(hList);
  if (pWindow == nullptr) return nullptr;
  const WindowKind kind = pWindow->pClass->kind;
  return kind == WindowKind::kList || kind == WindowKind::kCombo ? pWindow : nullptr;
}

HeadlessWindow* HeadlessControls::FindEdit(WindowHandle hEdit) {
  HeadlessWindow* const pWindow = m_parts.windows.Find(hEdit);
  if (pWindow == nullptr) return nullptr;
  return pWindow->pClass->kind == WindowKind::kEdit ? pWindow : nullptr;
}

HeadlessWindow* HeadlessControls::FindButton(WindowHandle hButton) {
  HeadlessWindow* const pWindow = m_parts.windows.Find(hButton);
  if (pWindow == nullptr) return nullptr;
  return pWindow->pClass->kind == WindowKind::kButton ? pWindow : nullptr;
}

int HeadlessControls::Count(WindowHandle hList) {
  const HeadlessWindow* const pList = FindList(hList);
  return pList != nullptr ? static_cast<int>(pList->content.items.size()) : 0;
}

CString HeadlessControls::ItemText(WindowHandle hList, int nItem) {
  HeadlessWindow* const pList = FindList(hList);
  if (pList == nullptr || !HasItem(pList->content, nItem)) return {};
  return ItemOf(pList->content, nItem).sText;
}

std::int32_t HeadlessControls::ItemData(WindowHandle hList, int nItem) {
  HeadlessWindow* const pList = FindList(hList);
  if (pList == nullptr || !HasItem(pList->content, nItem)) return 0;
  return ItemOf(pList->content, nItem).nData;
}

bool HeadlessControls::SetItemData(WindowHandle hList, int nItem, std::int32_t nData) {
  HeadlessWindow* const pList = FindList(hList);
  if (pList == nullptr || !HasItem(pList->content, nItem)) return false;
  ItemOf(pList->content, nItem).nData = nData;
  return true;
}

int HeadlessControls::AddItem(WindowHandle hList, const CString& sText) {
  HeadlessWindow* const pList = FindList(hList);
  if (pList == nullptr) return -1;
  std::vector<ListItem>& items = pList->content.items;
  const bool bCombo = pList->pClass->kind == WindowKind::kCombo;
  const bool bSorted = (pList->nStyle & (bCombo ? kComboSorted : kListSorted)) != 0;
  const auto itPlace = bSorted ? std::upper_bound(items.begin(), items.end(), sText,
                                                  [](const CString& sNew, const ListItem& item) {
                                                    return ComesBefore(sNew, item.sText);
                                                  })
                               : items.end();
  const int nPlace = static_cast<int>(itPlace - items.begin());
  items.insert(itPlace, {sText, 0});
  if (pList->content.nSelection >= nPlace) ++pList->content.nSelection;
  m_parts.Changed(hList);
  return nPlace;
}

bool HeadlessControls::RemoveAllItems(WindowHandle hList) {
  HeadlessWindow* const pList = FindList(hList);
  if (pList == nullptr) return false;
  pList->content.items.clear();
  pList->content.nSelection = -1;
  if (pList->pClass->kind == WindowKind::kCombo) pList->sText.clear();
  m_parts.Changed(hList);
  return true;
}

int HeadlessControls::Selection(WindowHandle hList) {
  const HeadlessWindow* const pList = FindList(hList);
  return pList != nullptr ? pList->content.nSelection : -1;
}

// The text of a combo is that of its selected item.
bool HeadlessControls::Select(WindowHandle hList, int nItem) {
  HeadlessWindow* const pList = FindList(hList);
  if (pList == nullptr || (nItem != -1 && !HasItem(pList->content, nItem))) return false;
  pList->content.nSelection = nItem;
  if (pList->pClass->kind == WindowKind::kCombo) {
    pList->sText = nItem == -1 ? CString() : ItemOf(pList->content, nItem).sText;
  }
  pList->bToPaint = true;
  m_parts.Changed(hList);
  return true;
}

// A list that is down has room for eight lines below the combo.
Rect HeadlessControls::DroppedRect(WindowHandle hCombo) {
  constexpr std::int32_t kLines = 8;
  const HeadlessWindow* const pCombo = FindList(hCombo);
  if (pCombo == nullptr || pCombo->pClass->kind != WindowKind::kCombo) return {};
  Rect place = m_parts.windows.WindowRect(hCombo);
  if ((pCombo->nStyle & kComboKindMask) != 1) {
    const std::int64_t nLine = m_parts.canvas.MetricsOf(pCombo->hFont).nHeight;
    place.bottom = ToMeasure(place.bottom + kLines * nLine);
  }
  return place;
}

bool HeadlessControls::SetLimit(WindowHandle hEdit, std::uint32_t nCharacters) {
  HeadlessWindow* const pEdit = FindEdit(hEdit);
  if (pEdit == nullptr) return false;
  pEdit->content.nLimit = nCharacters;
  m_parts.Changed(hEdit);
  return true;
}

// An end of -1 means the end of the text, a first of -1 an empty selection where the caret is.
bool HeadlessControls::SelectText(WindowHandle hEdit, std::int32_t nFirst, std::int32_t nEnd) {
  HeadlessWindow* const pEdit = FindEdit(hEdit);
  if (pEdit == nullptr) return false;
  const auto nLength = static_cast<std::int32_t>(pEdit->sText.size());
  ControlContent& content = pEdit->content;
  m_parts.Changed(hEdit);
  if (nFirst < 0) {
    content.nSelectionFirst = content.nSelectionEnd;
    return true;
  }
  if (nEnd < 0) nEnd = nLength;
  content.nSelectionFirst = std::min({nFirst, nEnd, nLength});
  content.nSelectionEnd = std::min(std::max(nFirst, nEnd), nLength);
  return true;
}

bool HeadlessControls::SelectedText(WindowHandle hEdit, std::int32_t& nFirst, std::int32_t& nEnd) {
  const HeadlessWindow* const pEdit = FindEdit(hEdit);
  if (pEdit == nullptr) return false;
  nFirst = pEdit->content.nSelectionFirst;
  nEnd = pEdit->content.nSelectionEnd;
  return true;
}

int HeadlessControls::Check(WindowHandle hButton) {
  const HeadlessWindow* const pButton = FindButton(hButton);
  return pButton != nullptr ? pButton->content.nCheck : 0;
}

bool HeadlessControls::SetCheck(WindowHandle hButton, int nCheck) {
  HeadlessWindow* const pButton = FindButton(hButton);
  if (pButton == nullptr || nCheck < 0 || nCheck > 2) return false;
  pButton->content.nCheck = nCheck;
  pButton->bToPaint = true;
  m_parts.Changed(hButton);
  return true;
}

bool HeadlessControls::SetButtonStyle(WindowHandle hButton, std::uint32_t nStyle, bool bRedraw) {
  HeadlessWindow* const pButton = FindButton(hButton);
  if (pButton == nullptr) return false;
  constexpr std::uint32_t kLowBits = 0xFFFF;
  pButton->nStyle = (pButton->nStyle & ~kLowBits) | (nStyle & kLowBits);
  m_parts.Changed(hButton);
  if (bRedraw) m_parts.windows.Invalidate(hButton, nullptr, true);
  return true;
}

std::vector<WindowHandle> HeadlessControls::RadioGroup(WindowHandle hRadio) {
  const HeadlessWindow* const pRadio = FindButton(hRadio);
  if (pRadio == nullptr || (pRadio->nStyle & kButtonKindMask) != kButtonAutoRadio) return {};
  std::vector<WindowHandle> group;
  bool bPassed = false;
  for (const WindowHandle hOther : m_parts.windows.Children(pRadio->hParent)) {
    const HeadlessWindow* const pOther = m_parts.windows.Find(hOther);
    if ((pOther->nStyle & kStyleGroup) != 0) {
      if (bPassed) break;
      group.clear();
    }
    if (hOther == hRadio) bPassed = true;
    const HeadlessWindow* const pButton = FindButton(hOther);
    if (pButton != nullptr && (pButton->nStyle & kButtonKindMask) == kButtonAutoRadio) {
      group.push_back(hOther);
    }
  }
  if (group.empty()) group.push_back(hRadio);  // no child: a group by itself
  return group;
}

}  // namespace ald
