#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"
#include "aldlib/text/DynamicHeapFixedString.h"

namespace ald {

#pragma pack(push, 1)

// One button of a box. A list of them ends with an entry of id 0.
struct MessageBoxButton {
  std::int16_t nId;
  const char* szCaption;
  std::int16_t nWidth;  // in pixels; 0 for the usual 58
};

#pragma pack(pop)
static_assert(sizeof(MessageBoxButton) == 4 + sizeof(const char*));

// Shows a text over the caller's own row of buttons and returns the id of the one pressed; 0 if
// there is no memory. The box has no default button and the application's name as its title. A
// button of id 9 opens help at the help level and leaves the box up. The icon is one of the
// system's (Canvas::SystemIcon).
//
// While the box is up bInMessage is set and the help level is the given one. Without memory both
// stay so: callers treat that as the end of the program.
ALDLIB_EXPORT int ALWMessageBoxEx(WindowHandle hOwner, CDynamicHeapFixedString& sText,
                                  int nHelpLevel, std::intptr_t nIcon,
                                  const MessageBoxButton* pButtons);

// The same with a text of the modules, at most 2047 characters of it; its number is the help level.
ALDLIB_EXPORT int ALWMessageBoxEx(WindowHandle hOwner, int nString, std::intptr_t nIcon,
                                  const MessageBoxButton* pButtons);

// What answers the messages of such a box, and of its icon.
ALDLIB_EXPORT int MsgBoxDlgProc(WindowHandle hDialog, std::uint32_t nMessage, std::uint32_t nWord,
                                std::intptr_t nLong);
ALDLIB_EXPORT std::intptr_t IconProc(WindowHandle hIcon, std::uint32_t nMessage,
                                     std::uint32_t nWord, std::intptr_t nLong);

}  // namespace ald
