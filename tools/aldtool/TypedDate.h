#pragma once

#include <string>

#include "aldlib/dates/Periods.h"

namespace aldtool {

// Reads a date as a date field of the application does, in the order of the region: "20", "7/4",
// "070403", and besides "Jul 4, 2003" and "2003-07-04" as they are written. What is missing comes
// from `fill`, which may be empty. Returns a sentence without a subject that says what is wrong, or
// an empty text; then the date is legal.
//   "2/30/2003" -> "is no day of the calendar from 1901 to 2099"
// Refused as well is what would be read as another date than it looks like: "12/3".
std::string ReadTypedDate(const std::string& sText, ald::DatesType fill, ald::DatesType& date);

// The same for an argument of a command, in UTF-8: complains on standard error, naming it szWhat,
// and returns false.
bool ReadDateArgument(const char* szWhat, const std::string& sTyped, ald::DatesType fill,
                      ald::DatesType& date);

// The order of the fields by its name, mdy, dmy or ymd; nothing for an empty name.
void UseDateOrder(const std::string& sOrder);

std::string Iso(ald::DatesType date);
std::string Medium(ald::DatesType date);  // in UTF-8

// Two fiscal years of twelve months each.
class FiscalYears {
 public:
  static constexpr int kPeriods = 24;

  FiscalYears() = default;
  explicit FiscalYears(const ald::DatesType& start);

  bool IsEmpty() const { return m_aPeriods[0].From == ald::DatesType{}; }
  ald::FromTo Range() const { return {m_aPeriods[0].From, m_aPeriods[kPeriods - 1].To}; }
  // The number of the period that holds the date, from 1 on, or 0.
  int Find(ald::DatesType date) const;
  const ald::FromTo& Period(int nNumber) const { return m_aPeriods[nNumber - 1]; }

 private:
  ald::FromTo m_aPeriods[kPeriods]{};
};

}  // namespace aldtool
