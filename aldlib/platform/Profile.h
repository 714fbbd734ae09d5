#pragma once

#include <cstdint>

namespace ald {

// What the library asks of the system about settings in INI files. There are no writers: nothing of
// the library ever changes such a file. IniText tells the form of a file.
//
// Each read names its file; a null name means the system's own profile, where the section "intl"
// holds the user's regional settings:
//
//   sDecimal, sThousand    the separators of a number
//   iCurrDigits            decimals of an amount of money
//   sDate, iDate           the separator of a date, and its order: 0 month-day-year,
//                          1 day-month-year, 2 year-month-day
//
// A file that is not there or cannot be read has no section.
class Profile {
 public:
  virtual ~Profile() = default;

  // Reads a value into `szBuffer`, which has room for `nSize` bytes, and returns its length there
  // without the terminator. What is missing reads as the default, without the blanks at its end; a
  // null default is an empty one, and it may stand in the buffer itself. A value longer than
  // nSize - 1 is cut.
  //
  // A null section lists the names of all sections, a null key those of the section's keys: each
  // name ended by a zero and the list by one more. The result counts the zeros of the names but not
  // the last one. A list that is cut ends by two zeros and the result is nSize - 2; a list of
  // nothing is two zeros and 0. Of a missing file or section the default stands as the only name.
  //
  // A null buffer or size 0 gives 0.
  virtual std::uint32_t ReadString(const char* szFile, const char* szSection, const char* szKey,
                                   const char* szDefault, char* szBuffer, std::uint32_t nSize) = 0;

  // Reads a value as a number: an optional sign, then decimal digits, or hexadecimal ones behind
  // "0x", up to the first other character. A value without a digit there is 0, a negative one and
  // one past 32 bits wrap. A missing or empty value, a null section or a null key give the default.
  //
  //   "12 months" -> 12     "-1" -> 4294967295     "0x1F" -> 31     "on" -> 0     "" -> nDefault
  virtual std::uint32_t ReadInt(const char* szFile, const char* szSection, const char* szKey,
                                std::int32_t nDefault) = 0;
};

}  // namespace ald
