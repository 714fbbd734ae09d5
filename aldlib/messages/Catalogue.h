#pragma once

#include <cstdint>
#include <string_view>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/StringTable.h"
#include "aldlib/platform/Types.h"

// What the numbered texts of the library and its host look like, and a check of a file of them. The
// library's own stand in aldlib/frame/LibraryStrings.txt; MyLoadString fetches a text.
//
// What a text begins with chooses the box, and is not shown:
//
//   @   stop, OK                              ?   question, Yes, No and Cancel; No is the default
//   %   exclamation, OK                       ??  the same; Yes is the default
//   !   exclamation, OK and Cancel            ^   question, Yes and No; Yes is the default
//   !!  exclamation, Yes and No               ^^  the same; No is the default
//   *   information, OK                       ~   no icon, OK and Cancel
//   **  information, OK and Cancel            #   information, OK and Cancel; Cancel is the default
//
// Behind that, "|" stands for a Help button and "|!" for a help topic without a button.
// Placeholders are "###" for a number, "$$$" for a text, "%$%" for an amount or a text, and those
// of printf.
namespace ald {

// The first signs of a message text.
struct MessageSigns {
  std::uint32_t nFlags;  // of the box that they choose
  std::int32_t nLength;  // how many characters they are; 0 if the text begins without them
};

// Reads the signs that a text begins with. With none the flags are 0x35: exclamation, Retry and
// Cancel.
ALDLIB_EXPORT MessageSigns ReadMessageSigns(std::string_view sText) noexcept;

// Checks a file of texts, in the form that StringTable reads, and returns whether it is good. Each
// fault is added to `faults` as "file:line: what is wrong":
//
//   a line that cannot be read, or a number that stands there twice
//   a first sign that means nothing, more signs than one box can have, or a text of signs alone
//   a placeholder at the very start, whose first character would be taken for a sign
//   "|" anywhere but behind the signs, where it would be shown
//   placeholders that nothing fills: "##", "$$", "%n"; or of kinds that no one operation fills
//   a blank at the end of a line, which the next editor would drop: it is written "\x20"
//
// A text whose number is in `model` must also have the signs, the "|" and the placeholders of that
// one, those of printf in the same order; and the stored names of preferences (33401 to 33577) must
// be the same. So LibraryStringTable() as the model checks a translation, and an empty table checks
// texts of a host. With no memory the answer is false and `faults` may be incomplete.
ALDLIB_EXPORT bool CheckCatalogue(std::string_view lines, std::string_view sourceName,
                                  const StringTable& model, CStringArray& faults) noexcept;

}  // namespace ald
