#pragma once

#include <cstdint>
#include <string_view>

#include "aldlib/platform/Types.h"
#include "aldlib/text/FixedString.h"

// The boxes under the message operations. Not for callers.
namespace ald {

// Waits until the application is active and shows a text, without its first signs, that is complete
// but for a "|" at its start, which is taken out here. Returns the button; 0 without memory.
std::uint16_t ShowComposed(std::uint32_t nFlags, CFixedStringParamRef text, std::int32_t nHelpTopic,
                           WindowHandle hParent);

// Shows the library's own box, without memory of its own once ReserveLibraryBox has been called.
// Returns the button; 2 if the desktop has no window for it.
std::uint16_t ShowLibraryBox(std::uint32_t nFlags, std::string_view sText);

// Takes the memory that the library's box needs, while there is some.
void ReserveLibraryBox() noexcept;

// Opens "Msghelp.chm" at the topic of the help level, whatever its sign. The file lies in the
// folder "ALDERWHELPPATH" of the product's INI file, or else in "Help" of its "PROGRAMPATH";
// without these nothing happens.
void ShowMessageHelp(WindowHandle hOwner);

}  // namespace ald
