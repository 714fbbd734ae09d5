#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

// Lists and combos whose items carry a 32-bit number of the host's.
namespace ald {

// Return the first item that holds the number, or -1.
ALDLIB_EXPORT int GetComboIndexByItemData(WindowHandle hCombo, std::int32_t nData);
ALDLIB_EXPORT int GetListIndexByItemData(WindowHandle hList, std::int32_t nData);

// Select that item, and nothing if there is none. Return its index or -1.
ALDLIB_EXPORT int SetComboByItemData(WindowHandle hCombo, std::int32_t nData);
ALDLIB_EXPORT int SetListByItemData(WindowHandle hList, std::int32_t nData);

// Return the number of the selected item. *pbOk, which may be null, tells 0 and the result is 0
// if nothing is selected.
ALDLIB_EXPORT std::int32_t GetComboSelItemData(WindowHandle hCombo, int* pbOk);
ALDLIB_EXPORT std::int32_t GetListSelItemData(WindowHandle hList, int* pbOk);

// Add an item with its number to a combo, by its text or by the number of a text of the modules.
// Return the place that it took, or -1.
ALDLIB_EXPORT int SetCBhWndDataAndText(WindowHandle hCombo, std::int32_t nData, const char* szText);
ALDLIB_EXPORT int SetCBDataAndText(WindowHandle hParent, std::uint16_t nId, std::int32_t nData,
                                   const char* szText);
ALDLIB_EXPORT int SetCBhWndDataAndTextFromResource(WindowHandle hCombo, std::int32_t nData,
                                                   std::uint32_t nString);

// Selects the item whose first word is the first word of the edit control's first 40 characters,
// and nothing if none is. An empty list is left alone.
ALDLIB_EXPORT void SetListBoxSelection(WindowHandle hParent, int nEditId, int nListId);

// Fills a list with the names in a folder under the attributes of a folder search, and shows the
// folder in a label. Returns 0 if the path is bad.
ALDLIB_EXPORT int MyDlgDirList(WindowHandle hParent, const char* szPath, int nListId, int nLabelId,
                               std::uint32_t nAttributes);

}  // namespace ald
