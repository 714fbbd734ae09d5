#include "aldlib/dates/DateText.h"

#include "aldlib/dates/internal/Calendar.h"
#include "aldlib/dates/internal/DateCustom.h"
#include "aldlib/dates/internal/FieldText.h"
#include "aldlib/platform/Platform.h"

namespace ald {
namespace {

constexpr char kFirstSeparator[] = "-";

constinit DateOrderType g_eOrder = DateOrderMDY;
constinit CFixedString<2> g_sSeparator = kFirstSeparator;

bool IsWritable(DatesType date) {
  return IsLegalDate(date) != 0 && g_eOrder >= DateOrderMDY && g_eOrder <= DateOrderYMD;
}

template <std::size_t N>
void Store(const FieldText<N>& text, const CFixedStringParamRef& ref) {
  sstrcpy(ref.buffer, text.c_str(), ref.size);
}

// The month by its name, cut at nNameLength characters; the text fits a buffer of N bytes.
template <std::size_t N>
FieldText<N> WithName(DatesType date, std::size_t nNameLength) {
  FieldText<N> text;
  if (!IsWritable(date)) return text;
  CFixedString<static_cast<int>(N)> sName;
  GetMonthName(date.month, sName);
  const std::string_view sMonth = sName.view().substr(0, nNameLength);
  switch (g_eOrder) {
    case DateOrderMDY:
      text.Text(sMonth).Text(" ").Number(date.day).Text(", ").Number(date.year);
      break;
    case DateOrderDMY:
      text.Number(date.day).Text(" ").Text(sMonth).Text(" ").Number(date.year);
      break;
    case DateOrderYMD:
      text.Number(date.year).Text(" ").Text(sMonth).Text(" ").Number(date.day);
      break;
  }
  return text;
}

// Day and month in at least nWidth digits, the year in two.
FieldText<12> InNumbers(DatesType date, int nWidth, std::string_view sSeparator) {
  FieldText<12> text;
  if (!IsWritable(date)) return text;
  const int nYear = date.year % 100;
  switch (g_eOrder) {
    case DateOrderMDY:
      text.Number(date.month, nWidth).Text(sSeparator).Number(date.day, nWidth);
      text.Text(sSeparator).Number(nYear, 2);
      break;
    case DateOrderDMY:
      text.Number(date.day, nWidth).Text(sSeparator).Number(date.month, nWidth);
      text.Text(sSeparator).Number(nYear, 2);
      break;
    case DateOrderYMD:
      text.Number(nYear, 2).Text(sSeparator).Number(date.month, nWidth);
      text.Text(sSeparator).Number(date.day, nWidth);
      break;
  }
  return text;
}

int WidthOf(enDateFormattingType eForm) {
  return eForm == DateFieldTwoDigits ? 2 : 1;
}

}  // namespace

void ForgetDateCustom() noexcept {
  g_eOrder = DateOrderMDY;
  g_sSeparator = kFirstSeparator;
}

DateOrderType SetDateOrder(DateOrderType eOrder) noexcept {
  const DateOrderType eBefore = g_eOrder;
  g_eOrder = eOrder;
  return eBefore;
}

DateOrderType GetDateOrder() noexcept {
  return g_eOrder;
}

CFixedString<2> SetDateSeparator(const CFixedString<2>& sSeparator) noexcept {
  const CFixedString<2> sBefore = g_sSeparator;
  g_sSeparator = sSeparator;
  return sBefore;
}

CFixedString<2> GetDateSeparator() noexcept {
  return g_sSeparator;
}

void DateToLongStr(DatesType date, CFixedStringParamRef ref) {
  Store(WithName<19>(date, std::string_view::npos), ref);
}

void DateToMedStr(DatesType date, CFixedStringParamRef ref) {
  Store(WithName<16>(date, 3), ref);
}

void DateToShortStr(DatesType date, CFixedStringParamRef ref) {
  Store(InNumbers(date, 1, g_sSeparator.view()), ref);
}

void DateToShortStr2(DatesType date, CFixedStringParamRef ref, int nSeparators) {
  Store(InNumbers(date, 2, nSeparators != 0 ? g_sSeparator.view() : std::string_view()), ref);
}

void DateToMonthYearStr(DatesType date, CFixedStringParamRef ref) {
  FieldText<6> text;
  if (IsLegalDate(date) != 0) text.Number(date.month, 2).Text("/").Number(date.year % 100, 2);
  Store(text, ref);
}

void DateToShortStrYr4(DatesType date, CFixedStringParamRef ref, enDateFormattingType eYear,
                       enDateFormattingType eMonth, enDateFormattingType eDay) {
  FieldText<11> text;
  if (IsWritable(date)) {
    text.Number(date.month, WidthOf(eMonth)).Text(g_sSeparator.view());
    if (eDay != DateFieldShort) text.Number(date.day, WidthOf(eDay)).Text(g_sSeparator.view());
    if (eYear == DateFieldFourDigits) {
      text.Number(date.year, 4);
    } else {
      text.Number(date.year % 100, 2);
    }
  }
  Store(text, ref);
}

void DateToIsoStr(DatesType date, CFixedStringParamRef ref) {
  FieldText<11> text;
  if (IsLegalDate(date) != 0) {
    text.Number(date.year, 4).Text("-").Number(date.month, 2).Text("-").Number(date.day, 2);
  }
  Store(text, ref);
}

void GetDate(CFixedStringParamRef ref) {
  DatesType today{};
  GetCurrentDate(today);
  DateToShortStr(today, ref);
}

void GetTime(CFixedStringParamRef ref) {
  const LocalTime now = CurrentPlatform().clock.Now();
  FieldText<12> text;
  text.Number(now.hour, 2).Text(":").Number(now.minute, 2).Text(":").Number(now.second, 2);
  text.Text(".").Number(now.millisecond / 10, 2);
  Store(text, ref);
}

}  // namespace ald
