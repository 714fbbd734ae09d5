#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"

// Machine integers as text and back, field by field along a line, under any locale.
//
//   std::uint16_t nPosition = 0;
//   unsigned char bOk = 0;
//   CardToString(7, 3, sLine, &nPosition, &bOk);    // "  7", nPosition 3
//
// Each call works at *pPosition and leaves it behind what it wrote or read. *pOk is 1 for success
// and 0 for failure, and the only report. A null pointer to a position counts as 0, and what a null
// pointer asks for is not stored.
namespace ald {

// Write n right-justified in nWidth characters, more if it needs more, and a terminator behind it.
// What passes out.size - 1 characters is dropped, and *pOk is 0 then.
//   0 in 3 -> "  0"      12345 in 3 -> "12345"      -5 in 4 -> "  -5"
ALDLIB_EXPORT void CardToString(std::uint16_t n, std::uint16_t nWidth, CFixedStringParamRef out,
                                std::uint16_t* pPosition, unsigned char* pOk) noexcept;
ALDLIB_EXPORT void IntToString(std::int16_t n, std::int16_t nWidth, CFixedStringParamRef out,
                               std::uint16_t* pPosition, unsigned char* pOk) noexcept;

// Read digits up to the first other character or the last readable byte. *pOk is 0 without a digit.
// A digit that would take the value past the largest one ends the reading there, with *pOk 0 and
// the value so far.
//   largest value: 65535                    "65536" -> 6553, at the "6"
ALDLIB_EXPORT void StringToCard(const CConstFixedStringParamRef& text, std::uint16_t* pPosition,
                                std::uint16_t* pValue, unsigned char* pOk) noexcept;
//   largest value: 4294967294; the type's own largest is refused, and callers count on that
ALDLIB_EXPORT void StringToUnsignedLong(const CConstFixedStringParamRef& text,
                                        std::uint16_t* pPosition, std::uint32_t* pValue,
                                        unsigned char* pOk) noexcept;
//   largest value: 254, likewise
ALDLIB_EXPORT void StringToUnsignedChar(const CConstFixedStringParamRef& text,
                                        std::uint16_t* pPosition, std::uint8_t* pValue,
                                        unsigned char* pOk) noexcept;

// Read one sign or none, then digits. A failure leaves *pValue untouched.
//   -32768 to 32767
ALDLIB_EXPORT void StringToInt(const CConstFixedStringParamRef& text, std::uint16_t* pPosition,
                               std::int16_t* pValue, unsigned char* pOk) noexcept;
//   -2147483642 to 2147483641: six short of the type at either end, and callers count on that
ALDLIB_EXPORT void StringToLong(const CConstFixedStringParamRef& text, std::uint16_t* pPosition,
                                std::int32_t* pValue, unsigned char* pOk) noexcept;

// Skips spaces and reads as StringToCard does, without telling whether it could.
ALDLIB_EXPORT void MyStringToCard(const CConstFixedStringParamRef& text,
                                  std::uint16_t* pValue) noexcept;

}  // namespace ald
