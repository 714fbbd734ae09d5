#include "aldlib/dates/ClockTime.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "aldlib/arith/DecimalLiteral.h"

namespace ald {

using namespace literals;

static void PrintTo(const DurationStruct& duration, std::ostream* pOut) {
  *pOut << duration.hours << ':' << duration.minutes << ':' << duration.seconds;
}
static void PrintTo(const TimeStruct& time, std::ostream* pOut) {
  *pOut << time.hours << ':' << time.minutes << ':' << time.seconds << " pm " << time.pm;
}

namespace {

using namespace std::chrono_literals;

TimeStruct TimeOf(int nMinuteOfDay, int nSecond = 0) {
  const int nHour = nMinuteOfDay / 60;
  return {static_cast<std::int16_t>(nHour % 12 == 0 ? 12 : nHour % 12),
          static_cast<std::int16_t>(nMinuteOfDay % 60), static_cast<std::int16_t>(nSecond),
          static_cast<std::uint16_t>(nHour / 12)};
}

DurationStruct DurationOf(std::chrono::seconds time) {
  const auto nSeconds = static_cast<int>(time.count());
  return {static_cast<std::int16_t>(nSeconds / 3600), static_cast<std::int16_t>(nSeconds / 60 % 60),
          static_cast<std::int16_t>(nSeconds % 60)};
}

std::string Text(const DurationStruct& duration, int nSeconds) {
  char szText[kClockTextSize];
  EXPECT_EQ(bDurationToString(&duration, szText, nSeconds), 1);
  return szText;
}

std::string Text(const TimeStruct& time, int nSeconds, int nMeridian) {
  char szText[kClockTextSize];
  EXPECT_EQ(bTimeToString(&time, szText, nSeconds, nMeridian), 1);
  return szText;
}

TEST(ClockTime, IsValidOnATwelveHourFace) {
  const struct {
    TimeStruct time;
    int nValid;
  } rows[] = {{{0, 30, 0, 0}, 0}, {{1, 0, 0, 0}, 1},  {{12, 59, 59, 1}, 1},
              {{13, 0, 0, 0}, 0}, {{1, 60, 0, 0}, 0}, {{1, -1, 0, 0}, 0},
              {{1, 0, 60, 0}, 0}, {{1, 0, -1, 0}, 0}, {{1, 0, 0, 2}, 0}};
  for (const auto& row : rows) EXPECT_EQ(bIsValidTime(&row.time), row.nValid);
  const std::pair<DurationStruct, int> durations[] = {
      {{0, 0, 0}, 1},  {{23, 59, 59}, 1}, {{24, 0, 0}, 0}, {{-1, 0, 0}, 0},
      {{0, 60, 0}, 0}, {{0, -1, 0}, 0},   {{0, 0, 60}, 0}, {{0, 0, -1}, 0}};
  for (const auto& [duration, nValid] : durations) EXPECT_EQ(bIsValidDuration(&duration), nValid);
}

TEST(ClockTime, DiffersForwardAcrossMidnight) {
  for (int nFirst = 0; nFirst < 24 * 60; nFirst += 7) {
    for (int nSecond = 0; nSecond < 24 * 60; nSecond += 11) {
      const TimeStruct first = TimeOf(nFirst, nFirst % 60);
      const TimeStruct second = TimeOf(nSecond, nSecond % 60);
      DurationStruct result{};
      vTimeDiff(&first, &second, &result);
      ASSERT_EQ(result, DurationOf((ToChrono(first) - ToChrono(second) + 24h) % 24h));
    }
  }
  const TimeStruct midnight{12, 0, 0, 0};
  const TimeStruct noon{12, 0, 0, 1};
  DurationStruct result{};
  vTimeDiff(&midnight, &noon, &result);
  EXPECT_EQ(result, (DurationStruct{12, 0, 0}));
}

TEST(Durations, AddWithinADayAndSubtractBelowZero) {
  for (int nFirst = 0; nFirst < 86400; nFirst += 1237) {
    for (int nSecond = 0; nSecond < 86400; nSecond += 1571) {
      const DurationStruct first = DurationOf(std::chrono::seconds(nFirst));
      const DurationStruct second = DurationOf(std::chrono::seconds(nSecond));
      DurationStruct result{};
      vDurationSum(&first, &second, &result);
      ASSERT_EQ(result, DurationOf(std::chrono::seconds((nFirst + nSecond) % 86400)));
      vDurationDiff(&first, &second, &result);
      ASSERT_EQ(ToChrono(result), ToChrono(first) - ToChrono(second));
      ASSERT_TRUE(result.minutes >= 0 && result.seconds >= 0);
    }
  }
  DurationStruct sum{23, 30, 0};
  vDurationSum(&sum, &sum, &sum);  // into one of the operands
  EXPECT_EQ(sum, (DurationStruct{23, 0, 0}));
}

TEST(ClockText, HasSecondsAndMeridianOnRequest) {
  EXPECT_EQ(Text(DurationStruct{1, 5, 9}, 0), "1:05");
  EXPECT_EQ(Text(DurationStruct{1, 5, 9}, 1), "1:05:09");
  EXPECT_EQ(Text(DurationStruct{-1, -5, 100}, 1), "-1:-5:100");
  const TimeStruct time{11, 5, 9, 1};
  EXPECT_EQ(Text(time, 0, 0), "11:05");
  EXPECT_EQ(Text(time, 2, 0), "11:05:09");
  EXPECT_EQ(Text(time, 0, 1), "11:05 PM");
  EXPECT_EQ(Text(time, 1, 1), "11:05:09 PM");
  EXPECT_EQ(Text(TimeStruct{-32768, -32768, -32768, 0}, 1, 1), "-32768:-32768:-32768 AM");
}

TEST(ClockText, IsReadAsFarAsItIsANumber) {
  const struct {
    const char* szText;
    int nResult;
    TimeStruct time;
  } rows[] = {
      {"13:05", 1, {13, 5, 0, 0}},
      {"1:05 PM", 1, {1, 5, 0, 1}},
      {"1:05 pm", 1, {1, 5, 0, 1}},
      {"1:05 Pm", 1, {1, 5, 0, 0}},
      {"PM 1:05", 1, {0, 5, 0, 1}},
      {"0:00", 1, {0, 0, 0, 0}},
      {"::1::5:", 1, {1, 5, 0, 0}},
      {" +1: 05:09:77", 1, {1, 5, 9, 0}},
      {"a:b:c", 1, {0, 0, 0, 0}},
      {"23:59:59", 1, {23, 59, 59, 0}},
      {"5", 0, {}},
      {"5:", 0, {}},
      {"", 0, {}},
      {":::", 0, {}},
      {nullptr, 0, {}},
      {"24:00 PM", 0, {}},
      {"-1:00", 0, {}},
      {"1:60", 0, {}},
      {"1:05:60", 0, {}},
      {"4294967297:00", 0, {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.szText ? row.szText : "null");
    TimeStruct time{7, 7, 7, 7};
    EXPECT_EQ(bStringToTime(row.szText, &time), row.nResult);
    EXPECT_EQ(time, row.time);
    DurationStruct duration{7, 7, 7};
    EXPECT_EQ(bStringToDuration(row.szText, &duration), row.nResult);
    EXPECT_EQ(duration, (DurationStruct{row.time.hours, row.time.minutes, row.time.seconds}));
  }
}

TEST(ClockText, IsReadBackAsItWasWritten) {
  for (int nSecond = 0; nSecond < 86400; nSecond += 61) {
    const DurationStruct duration = DurationOf(std::chrono::seconds(nSecond));
    DurationStruct read{};
    ASSERT_EQ(bStringToDuration(Text(duration, 1).c_str(), &read), 1);
    ASSERT_EQ(read, duration);
    const TimeStruct time = TimeOf(nSecond / 60, nSecond % 60);
    TimeStruct readTime{};
    ASSERT_EQ(bStringToTime(Text(time, 1, 1).c_str(), &readTime), 1);
    ASSERT_EQ(readTime, time);
  }
}

TEST(DecimalHours, RoundToTwoDecimalsAndBackWithoutACarry) {
  for (int nMinutes = 0; nMinutes < 24 * 60; ++nMinutes) {
    const DurationStruct duration = DurationOf(std::chrono::minutes(nMinutes) + 59s);
    const CDecimal units = fHoursToUnits(&duration);
    ASSERT_EQ((units * 100).toIntType<int>(false), (nMinutes * 10 + 3) / 6) << nMinutes;
    DurationStruct back{};
    vUnitsToHours(units, &back);
    ASSERT_EQ(ToChrono(back), std::chrono::minutes(nMinutes)) << "a minute is more than 0.01 hours";
  }
  const std::pair<CDecimal, DurationStruct> rows[] = {{1.5_dec, {1, 30, 0}},
                                                      {1.999_dec, {1, 60, 0}},
                                                      {0.008_dec, {0, 0, 0}},
                                                      {-1.5_dec, {-1, -30, 0}},
                                                      {0_dec, {0, 0, 0}}};
  for (const auto& [units, duration] : rows) {
    DurationStruct result{7, 7, 7};
    vUnitsToHours(units, &result);
    EXPECT_EQ(result, duration);
  }
}

TEST(ClockTime, LeavesNullAlone) {
  const TimeStruct time{1, 0, 0, 0};
  const DurationStruct duration{1, 0, 0};
  DurationStruct result{7, 7, 7};
  char szText[kClockTextSize] = "as it was";
  vTimeDiff(&time, nullptr, &result);
  vDurationSum(nullptr, &duration, &result);
  vDurationDiff(&duration, &duration, nullptr);
  vUnitsToHours(1_dec, nullptr);
  EXPECT_EQ(result, (DurationStruct{7, 7, 7}));
  EXPECT_EQ(bIsValidTime(nullptr) + bIsValidDuration(nullptr), 0);
  EXPECT_EQ(bStringToTime("1:00", nullptr) + bStringToDuration("1:00", nullptr), 0);
  EXPECT_EQ(bTimeToString(nullptr, szText, 1, 1) + bDurationToString(&duration, nullptr, 1), 0);
  EXPECT_STREQ(szText, "as it was");
  EXPECT_EQ(fHoursToUnits(nullptr), 0_dec);
}

}  // namespace
}  // namespace ald
