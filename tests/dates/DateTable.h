#pragma once

#include <gtest/gtest.h>

#include <cstdint>

#include "aldlib/dates/Calendar.h"

namespace ald {

constexpr std::int32_t kLastDay = 72684;  // 2099-12-31

inline DatesType DateOfDay(std::int32_t nCount) {
  DatesType date{};
  FileDate(nCount, date);
  return date;
}

inline DatesType Stepped(DatesType date, IncDateFlagType eFlag, int nSteps = 1) {
  for (; nSteps > 0; --nSteps) IncDate(date, eFlag);
  for (; nSteps < 0; ++nSteps) DecDate(date, eFlag);
  return date;
}

}  // namespace ald
