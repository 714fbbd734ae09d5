#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"

// The numbered texts of the application and the library, wherever they are: each module that has
// called RegisterInstanceForStringSearch brings its own.
namespace ald {

// Fetches text `nString` into the buffer, cut to fit, and returns its length there; 0, with the
// whole buffer zero, if no module has it. Every byte behind the text is zero.
//
// The module that answered last is asked first, then the others in their search order. So of a
// number that two modules have, the one that answered last gives its text:
//
//   module A (order 1) has 100 "one";  module B (order 9) has 100 "nine" and 200 "more"
//   MyLoadString(100) -> "one"      MyLoadString(200) -> "more"      MyLoadString(100) -> "nine"
ALDLIB_EXPORT std::int32_t MyLoadString(std::uint32_t nString, CFixedStringParamRef output);

// Finds a text in the run of numbered texts that starts at `nFirst` and ends before the first
// number without a text. Returns how far from the start it stands, counted from 1; 0 if it is not
// there. The case of a to z does not matter, and a text of the run counts with its first 255
// characters.
//
//   run 300 "Ohio", 301 "Utah":   ("UTAH", 300) -> 2     ("Iowa", 300) -> 0     ("Ohio", 301) -> 0
ALDLIB_EXPORT std::uint16_t FindStrInResource(const char* szText, std::uint16_t nFirst);

}  // namespace ald
