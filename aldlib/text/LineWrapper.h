#pragma once

#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"

namespace ald {

// Moves the first line of the source, at most the destination's size - 1 characters, into the
// destination, and takes it and the white space behind it off the source.
//
//   for (CFixedString<21> sLine; !sMemo.IsEmpty();) {
//     if (LineWrapper(sLine, sMemo)) Print(sLine);
//   }
//
// A line ends at a line feed or where the last whole word does; a word longer than the line is
// broken at the end of the line. White space at a line's end and at the next line's start, blank
// lines included, is dropped. Returns 1 if the line holds a character, else 0: an empty source
// gives 0, and so does one that begins with a line feed, which is taken off all the same. The
// destination must have room for a character, or the source never ends.
ALDLIB_EXPORT int LineWrapper(CFixedStringParamRef destination,
                              CFixedStringParamRef source) noexcept;

}  // namespace ald
