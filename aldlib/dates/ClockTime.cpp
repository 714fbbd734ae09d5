#include "aldlib/dates/ClockTime.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "aldlib/dates/internal/FieldText.h"
#include "aldlib/platform/Characters.h"

namespace ald {
namespace {

bool IsBetween(int nValue, int nLow, int nHigh) {
  return nValue >= nLow && nValue <= nHigh;
}

std::int16_t Narrow(int nValue) {
  return static_cast<std::int16_t>(nValue);
}

int HourOfDay(const TimeStruct& time) {
  if (time.pm == 1) return time.hours == 12 ? 12 : time.hours + 12;
  return time.pm == 0 && time.hours == 12 ? 0 : time.hours;
}

// Seconds and minutes that fell below zero borrow once.
DurationStruct Borrowed(int nHours, int nMinutes, int nSeconds) {
  if (nSeconds < 0) {
    nSeconds += 60;
    --nMinutes;
  }
  if (nMinutes < 0) {
    nMinutes += 60;
    --nHours;
  }
  return {Narrow(nHours), Narrow(nMinutes), Narrow(nSeconds)};
}

using ClockText = FieldText<kClockTextSize>;

ClockText Written(int nHours, int nMinutes, int nSeconds, int nWithSeconds) {
  ClockText text;
  text.Number(nHours).Text(":").Number(nMinutes, 2);
  if (nWithSeconds != 0) text.Text(":").Number(nSeconds, 2);
  return text;
}

int Store(const ClockText& text, char* szBuffer) {
  if (szBuffer == nullptr) return 0;
  std::memcpy(szBuffer, text.c_str(), text.view().size() + 1);
  return 1;
}

// The next part between colons, or an empty one at the end; a part itself is never empty.
std::string_view NextPart(std::string_view& sRest) {
  sRest.remove_prefix(std::min(sRest.find_first_not_of(':'), sRest.size()));
  const std::string_view sPart = sRest.substr(0, sRest.find(':'));
  sRest.remove_prefix(sPart.size());
  return sPart;
}

// The number that a part begins with, as atoi has it but for one past any range, which stops there.
int NumberOf(std::string_view sPart) {
  constexpr int kPastEveryRange = 1000;
  std::size_t i = 0;
  while (i < sPart.size() && IsSpaceAscii(sPart[i])) ++i;
  const bool bNegative = i < sPart.size() && sPart[i] == '-';
  if (i < sPart.size() && (sPart[i] == '-' || sPart[i] == '+')) ++i;
  int nValue = 0;
  for (; i < sPart.size() && IsDigitAscii(sPart[i]) && nValue < kPastEveryRange; ++i) {
    nValue = nValue * 10 + (sPart[i] - '0');
  }
  return bNegative ? -nValue : nValue;
}

bool Read(std::string_view sText, DurationStruct& parts) {
  const std::string_view sHours = NextPart(sText);
  const std::string_view sMinutes = NextPart(sText);
  const std::string_view sSeconds = NextPart(sText);
  if (sHours.empty() || sMinutes.empty()) return false;
  parts = {Narrow(NumberOf(sHours)), Narrow(NumberOf(sMinutes)), Narrow(NumberOf(sSeconds))};
  return bIsValidDuration(&parts) != 0;
}

}  // namespace

int bIsValidTime(const TimeStruct* pTime) noexcept {
  if (pTime == nullptr) return 0;
  return IsBetween(pTime->hours, 1, 12) && IsBetween(pTime->minutes, 0, 59) &&
                 IsBetween(pTime->seconds, 0, 59) && pTime->pm <= 1
             ? 1
             : 0;
}

int bIsValidDuration(const DurationStruct* pDuration) noexcept {
  if (pDuration == nullptr) return 0;
  return IsBetween(pDuration->hours, 0, 23) && IsBetween(pDuration->minutes, 0, 59) &&
                 IsBetween(pDuration->seconds, 0, 59)
             ? 1
             : 0;
}

void vTimeDiff(const TimeStruct* pFirst, const TimeStruct* pSecond,
               DurationStruct* pResult) noexcept {
  if (pFirst == nullptr || pSecond == nullptr || pResult == nullptr) return;
  *pResult = Borrowed(HourOfDay(*pFirst) - HourOfDay(*pSecond), pFirst->minutes - pSecond->minutes,
                      pFirst->seconds - pSecond->seconds);
  if (pResult->hours < 0) pResult->hours = Narrow(pResult->hours + 24);
}

void vDurationDiff(const DurationStruct* pFirst, const DurationStruct* pSecond,
                   DurationStruct* pResult) noexcept {
  if (pFirst == nullptr || pSecond == nullptr || pResult == nullptr) return;
  *pResult = Borrowed(pFirst->hours - pSecond->hours, pFirst->minutes - pSecond->minutes,
                      pFirst->seconds - pSecond->seconds);
}

void vDurationSum(const DurationStruct* pFirst, const DurationStruct* pSecond,
                  DurationStruct* pResult) noexcept {
  if (pFirst == nullptr || pSecond == nullptr || pResult == nullptr) return;
  int nHours = pFirst->hours + pSecond->hours;
  int nMinutes = pFirst->minutes + pSecond->minutes;
  int nSeconds = pFirst->seconds + pSecond->seconds;
  if (nSeconds >= 60) {
    nSeconds -= 60;
    ++nMinutes;
  }
  if (nMinutes >= 60) {
    nMinutes -= 60;
    ++nHours;
  }
  if (nHours >= 24) nHours -= 24;
  *pResult = {Narrow(nHours), Narrow(nMinutes), Narrow(nSeconds)};
}

int bDurationToString(const DurationStruct* pDuration, char* szBuffer, int nSeconds) {
  if (pDuration == nullptr) return 0;
  return Store(Written(pDuration->hours, pDuration->minutes, pDuration->seconds, nSeconds),
               szBuffer);
}

int bTimeToString(const TimeStruct* pTime, char* szBuffer, int nSeconds, int nMeridian) {
  if (pTime == nullptr) return 0;
  ClockText text = Written(pTime->hours, pTime->minutes, pTime->seconds, nSeconds);
  if (nMeridian != 0) text.Text(pTime->pm != 0 ? " PM" : " AM");
  return Store(text, szBuffer);
}

int bStringToDuration(const char* szText, DurationStruct* pDuration) noexcept {
  if (pDuration == nullptr) return 0;
  if (szText != nullptr && Read(szText, *pDuration)) return 1;
  *pDuration = {};
  return 0;
}

int bStringToTime(const char* szText, TimeStruct* pTime) noexcept {
  if (pTime == nullptr) return 0;
  *pTime = {};
  DurationStruct parts{};
  if (szText == nullptr || !Read(szText, parts)) return 0;
  const bool bPm = std::strstr(szText, "PM") != nullptr || std::strstr(szText, "pm") != nullptr;
  *pTime = {parts.hours, parts.minutes, parts.seconds, static_cast<std::uint16_t>(bPm)};
  return 1;
}

CDecimal fHoursToUnits(const DurationStruct* pDuration) {
  if (pDuration == nullptr) return {};
  CDecimal units(pDuration->minutes);
  units /= 60;
  units += pDuration->hours;
  return units.Round(2);
}

void vUnitsToHours(const CDecimal& units, DurationStruct* pDuration) {
  if (pDuration == nullptr) return;
  *pDuration = {};
  CDecimal whole;
  CDecimal fraction;
  units.Split(whole, fraction);
  fraction *= 60;
  pDuration->hours = whole.toIntType<short>(false);
  pDuration->minutes = fraction.toIntType<short>(true);
}

}  // namespace ald
