#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"
#include "aldlib/text/Justify.h"
#include "aldlib/text/LineWrapper.h"
#include "aldlib/text/ReferenceNumbers.h"

// Changing, comparing and measuring text in fixed strings.
//
//   CFixedString<20> sLine("Check ### of $$$");
//   InsertCard(sLine, 104);                       // "Check 104 of $$$"
//   InsertString(sLine, "First Bank");            // "Check 104 of First "
//
// All of them keep one rule: they stay inside the `size` bytes of their target, leave its text
// terminated and report nothing. What does not fit is cut, what is not found changes nothing, a
// null text counts as empty, and a target without a byte is left alone. Positions count from 0. No
// text but the target's own may lie in the target's buffer. `sstrcpy` stands in FixedString.h.
namespace ald {

// Appends szSource with sstrcpy, in what is left of nSize bytes. Returns where the copy starts.
// If no terminator lies within nSize bytes, nothing is written and szDestination is returned.
ALDLIB_EXPORT char* sstrcat(char* szDestination, const char* szSource, std::int32_t nSize) noexcept;

// Copies characters to *ppWrite while the source lasts and *pnRoom is above 0, moves *ppWrite
// behind them and lowers *pnRoom by their number, which is returned. Writes no terminator.
ALDLIB_EXPORT std::uint16_t RunningStringCopy(const char* szSource, char** ppWrite,
                                              std::uint16_t* pnRoom) noexcept;

// The first text with the second behind it.
ALDLIB_EXPORT void Concat(const char* szFirst, const char* szSecond,
                          CFixedStringParamRef ref) noexcept;

// Puts szText in at nPosition and zeroes everything behind the text. A position past the end
// appends. What does not fit is lost from the old text first: the new text is cut only where it
// alone passes the end of the buffer.
//   Insert("XY", "abcd" in CFixedString<6>, 1)  -> "aXYbc"
//   Insert("XY", "abcd" in CFixedString<6>, 4)  -> "abcdX"
// A negative position counts as 0, and only its low 16 bits count; of a buffer above 65,536 bytes,
// only that many are used.
ALDLIB_EXPORT void Insert(const char* szText, CFixedStringParamRef ref,
                          std::int32_t nPosition) noexcept;

// Takes nCount characters out from nPosition on and zeroes everything behind the text. Nothing
// happens if nCount is below 1 or nPosition lies outside the text; its end lies inside.
ALDLIB_EXPORT void Delete(CFixedStringParamRef ref, std::int32_t nPosition,
                          std::int32_t nCount) noexcept;

// Index of the first szSought in szSearched, or -1. The empty text is found at the end: callers
// take the result as the searched text's length.
//   PosInString("", "abc") -> 3
[[nodiscard]] ALDLIB_EXPORT std::int32_t PosInString(const char* szSought,
                                                     const char* szSearched) noexcept;

// -1, 0 or 1, by the first byte that differs; the end of a text takes part as a zero. Bytes count
// as signed, so a character above 127 sorts before every plain one and before the end of a shorter
// text.
[[nodiscard]] ALDLIB_EXPORT int CompareStr(const char* szFirst, const char* szSecond) noexcept;
// The same after raising a to z; accented letters keep their case.
[[nodiscard]] ALDLIB_EXPORT int CompareStrNoCase(const char* szFirst,
                                                 const char* szSecond) noexcept;

// In place, accented letters included.
ALDLIB_EXPORT void UpperCase(CFixedStringParamRef ref) noexcept;
ALDLIB_EXPORT void LowerCase(CFixedStringParamRef ref) noexcept;

// Turns the text end for end.
ALDLIB_EXPORT void Reverse(CFixedStringParamRef ref) noexcept;

// Lays szText, cut at 80 characters and right-justified in nWidth, over the nWidth characters at
// nPosition. Nothing happens if nPosition is negative.
//   Replace("Qty     each", 4, "12", 4)  -> "Qty   12each"
ALDLIB_EXPORT void Replace(CFixedStringParamRef ref, std::int32_t nPosition, const char* szText,
                           std::int32_t nWidth) noexcept;

// Deletes the characters of szSet (bExclude true), or all but those (false).
ALDLIB_EXPORT void ExcludeCharsFromString(CFixedStringParamRef ref, const char* szSet,
                                          bool bExclude) noexcept;

// Replaces the first szOld by szNew. The empty szOld is found at the end, so szNew is appended.
ALDLIB_EXPORT void FindAndReplace(CFixedStringParamRef ref, const char* szOld,
                                  const char* szNew) noexcept;

// Fill the first "###" with the digits of a number, or the first "$$$" with a text.
ALDLIB_EXPORT void InsertCard(CFixedStringParamRef ref, std::uint16_t nValue) noexcept;
ALDLIB_EXPORT void InsertString(CFixedStringParamRef ref, const char* szText) noexcept;

// Doubles every "&", so that a label shows it instead of underlining what follows.
//   "R&D" -> "R&&D" -> "R&&&&D"
ALDLIB_EXPORT void FixPrefix(CFixedStringParamRef ref) noexcept;

// True if the text is not empty and has only digits; a sign makes it false.
[[nodiscard]] ALDLIB_EXPORT bool IsInteger(const char* szText) noexcept;
// True if the text is not empty, whatever it holds. Callers use it where a field may be left blank.
[[nodiscard]] ALDLIB_EXPORT bool IsPseudoNumber(const char* szText) noexcept;

// A copy of szText from the memory store, to be freed with _RealDeAllocate; null if there is no
// memory, which the store has told the user by then.
[[nodiscard]] ALDLIB_EXPORT char* ALW_strdup(const char* szText);

// Copies nCount characters of szText from nStart on, both within the characters of szText that the
// buffer can hold: the text is cut before it is looked at.
inline void CopyPart(const char* szText, CFixedStringParamRef ref, std::int32_t nStart,
                     std::int32_t nCount) noexcept {
  sstrcpy(ref.buffer, szText, ref.size);
  Delete(ref, 0, nStart);
  if (nCount < 0) nCount = 0;
  if (nCount < ref.size - 1 && ref.buffer != nullptr) {
    sstrcpy(ref.buffer + nCount, "", ref.size - nCount);
  }
}

// Deletes the first szText and returns where it stood, or -1 if there is none.
inline std::int32_t DeleteFirst(const char* szText, CFixedStringParamRef ref) noexcept {
  const std::int32_t nPosition = ref.Find(szText);
  if (nPosition >= 0) {
    Delete(ref, nPosition, static_cast<std::int32_t>(internal::ViewOrEmpty(szText).size()));
  }
  return nPosition;
}

}  // namespace ald
