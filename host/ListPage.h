#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "aldlib/platform/WindowTypes.h"

namespace alder_checks {

// The controls of a page.
constexpr std::int32_t kPageLines = 11;
constexpr std::int32_t kPageRefresh = 12;
constexpr std::int32_t kPageClose = 2;

// What stands on a page now, a text a line.
using PageLines = std::function<std::vector<ald::CString>()>;

// Opens a window with a list of lines and the buttons Refresh and Close, and enters it into the
// dialog table under the menu id. Returns 0, and the user has been told, if there is no room.
ald::WindowHandle OpenListPage(ald::WindowHandle hOwner, const ald::CString& sTitle,
                               std::uint16_t nMenuId, PageLines lines);

}  // namespace alder_checks
