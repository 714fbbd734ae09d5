#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/TempFolder.h"
#include "tests/tools/RunAldtool.h"

namespace {

using ald::TempFolder;
using aldtool::Outcome;
using aldtool::RunAldtool;
using testing::HasSubstr;

TEST(Date, ShowsHowATextIsReadWrittenAndCounted) {
  const Outcome outcome = RunAldtool("date 704 --fill 2003-06-15");
  EXPECT_EQ(outcome.nStatus, 0);
  for (const char* szPart : {" July 4, 2003\n", " Jul 4, 2003\n", " 7-4-03\n", " 07-04-03\n",
                             " 070403\n", " 07-04-2003\n", " 07/03\n", " 2003-07-04\n", " 37440\n",
                             " Friday\n", " 2003-09-30\n", " 7, from 2003-07-01 to 2003-07-31\n"}) {
    EXPECT_THAT(outcome.sOutput, HasSubstr(szPart));
  }
}

TEST(Date, IsReadByTheOrderAndCountedFromTheStartGiven) {
  const struct {
    const char* szArguments;
    const char* szPart;
  } rows[] = {
      {"4/7/03 --order dmy", "4 July 2003\n"},
      {"03/7/4 --order ymd", "2003 July 4\n"},
      {"20 --fill 2003-06-15", "June 20, 2003\n"},
      {"2003-07-04 --order dmy", "4 July 2003\n"},
      {"'jul 4, 2003'", "July 4, 2003\n"},
      {"7/4/03 --start 4/1", "2003-04-01\n  period                              4, from"},
      {"2/4/03 --start 4/1", "2002-04-01\n  period                              11, from"},
      {"7/4/03 --start 4/1/80", "2003-04-01\n"},
      {"12/31/2099", "2099-01-01\n  period                              12, from"},
      {"1/1/1901 --start 2/1", "1901-01-01\n  period                              1, from"},
  };
  for (const auto& row : rows) {
    const Outcome outcome = RunAldtool(std::string("date ") + row.szArguments);
    EXPECT_EQ(outcome.nStatus, 0) << row.szArguments;
    EXPECT_THAT(outcome.sOutput, HasSubstr(row.szPart)) << row.szArguments;
  }
}

TEST(Date, ThatIsNoneIsRefused) {
  const struct {
    const char* szArguments;
    const char* szTrouble;
  } rows[] = {
      {"2/29/2003", "the date '2/29/2003' is no day of the calendar from 1901 to 2099.\n"},
      {"31 --fill 2003-06-15", "is no day of the calendar"},
      {"7/4/2100", "is no day of the calendar"},
      {"'4 Jul 2003'", "is no day of the calendar"},
      {"''", "is missing"},
      {"12/3", "would be read as '01/02'"},
      {"7/4 --fill 13/1/03", "the date to fill from '13/1/03' is no day"},
      {"7/4/03 --start never", "the start 'never' is no day"},
  };
  for (const auto& row : rows) {
    const Outcome outcome = RunAldtool(std::string("date ") + row.szArguments);
    EXPECT_EQ(outcome.nStatus, 2) << row.szArguments;
    EXPECT_THAT(outcome.sOutput, testing::StartsWith("aldtool: the ")) << row.szArguments;
    EXPECT_THAT(outcome.sOutput, HasSubstr(row.szTrouble)) << row.szArguments;
  }
}

TEST(Periods, ArePrintedAndChecked) {
  const Outcome quarters = RunAldtool("periods 8 4/1/2003");
  EXPECT_EQ(quarters.nStatus, 0);
  EXPECT_EQ(quarters.sOutput,
            "period        from          to   days\n"
            "     1  2003-04-01  2003-06-30     91\n"
            "     2  2003-07-01  2003-09-30     92\n"
            "     3  2003-10-01  2003-12-31     92\n"
            "     4  2004-01-01  2004-03-31     91\n"
            "     5  2004-04-01  2004-06-30     91\n"
            "     6  2004-07-01  2004-09-30     92\n"
            "     7  2004-10-01  2004-12-31     92\n"
            "     8  2005-01-01  2005-03-31     90\n");
  const Outcome tooMany = RunAldtool("periods 48 1/1/2003");
  EXPECT_EQ(tooMany.nStatus, 1);
  EXPECT_THAT(tooMany.sOutput, HasSubstr("Period 24 ends before it begins"));
  EXPECT_NE(RunAldtool("periods 1 1/1/2003").nStatus, 0);
  EXPECT_EQ(RunAldtool("periods 24 2/30/2003").nStatus, 2);
}

TEST(Cheques, TakeWhatTheirDatesLackFromTheLineBefore) {
  TempFolder folder;
  folder.Write("list.txt",
               "12/30;A;1;1\n"  // nothing stands before it
               "12/30/23;A;1;1\n"
               "31;A;1;1\n"
               "1/2/24;A;none;1\n"  // its date is good all the same
               "3;A;1;1\n"
               "2/30;A;1;1\n"
               "4;A;1;1\n"
               "1/1/25;A;1;1\n");
  const std::string sPath = folder.Path("list.txt");
  const Outcome outcome = RunAldtool("checks " + sPath);
  EXPECT_EQ(outcome.nStatus, 1);
  for (const char* szPart :
       {"    1  ! the date '12/30' is not complete, and there is no date to take the rest from\n",
        "    2  Dec 30, 2023      12  A ", "    3  Dec 31, 2023      12  A ",
        "    5  Jan 3, 2024       13  A ", "    6  ! the date '2/30' is no day",
        "    7  Jan 4, 2024       13  A ",
        "    8  ! the date '1/1/25' lies outside of the fiscal years from 2023-01-01 to "
        "2024-12-31\n",
        "Total of 4 cheques"}) {
    EXPECT_THAT(outcome.sOutput, HasSubstr(szPart));
  }
  const Outcome fiscal = RunAldtool("checks " + sPath + " --start 7/1/2023");
  EXPECT_THAT(fiscal.sOutput, HasSubstr("    1  Dec 30, 2023       6  A "));
  EXPECT_THAT(fiscal.sOutput, HasSubstr("    8  Jan 1, 2025       19  A "));
  EXPECT_EQ(RunAldtool("checks " + sPath + " --start 2/30/2023").nStatus, 2);
}

}  // namespace
