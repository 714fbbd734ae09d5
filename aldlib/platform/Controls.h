#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

namespace ald {

// The contents and state of the system's own kinds of control, whatever class name they go by: a
// host's class can stand on one of them. A window that is not of the kind answers as one that is
// empty, and a change to it is false.
class ALDLIB_EXPORT Controls {
 public:
  virtual ~Controls() = default;

  // Lists and combos: items from 0 on, each with a text and a 32-bit number of the host's.
  virtual int Count(WindowHandle hList) = 0;
  virtual CString ItemText(WindowHandle hList, int nItem) = 0;
  virtual std::int32_t ItemData(WindowHandle hList, int nItem) = 0;
  virtual bool SetItemData(WindowHandle hList, int nItem, std::int32_t nData) = 0;
  // Returns the place that the text took, or -1.
  virtual int AddItem(WindowHandle hList, const CString& sText) = 0;
  virtual bool RemoveAllItems(WindowHandle hList) = 0;
  // -1 for none. Selecting by program tells the parent nothing. False if the item is not there.
  virtual int Selection(WindowHandle hList) = 0;
  virtual bool Select(WindowHandle hList, int nItem) = 0;
  // What the combo covers with its list down, in screen terms.
  virtual Rect DroppedRect(WindowHandle hCombo) = 0;

  // Edit controls. The limit counts the characters that a user may type, 0 for none. A selection
  // goes from the first character up to, not including, the end; an end of -1 means that of the
  // text, and a first of -1 selects nothing.
  virtual bool SetLimit(WindowHandle hEdit, std::uint32_t nCharacters) = 0;
  virtual bool SelectText(WindowHandle hEdit, std::int32_t nFirst, std::int32_t nEnd) = 0;

  // Buttons, radio buttons and check boxes: 0 off, 1 on, 2 neither.
  virtual int Check(WindowHandle hButton) = 0;
  virtual bool SetCheck(WindowHandle hButton, int nCheck) = 0;
  // Changes the low bits of the style, and the looks with them.
  virtual bool SetButtonStyle(WindowHandle hButton, std::uint32_t nStyle, bool bRedraw) = 0;

  // Fills a list with the names of a folder that match the last element of the path, under the
  // attributes of a directory search, and shows the folder in the label; without a wildcard in the
  // path it means "*.*" there. The path is one of the Volumes. False if it is bad.
  virtual bool ListFolder(WindowHandle hParent, const CString& sPath, std::int32_t nList,
                          std::int32_t nLabel, std::uint32_t nAttributes) = 0;
};

}  // namespace ald
