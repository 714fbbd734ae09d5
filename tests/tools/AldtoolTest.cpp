#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/tools/RunAldtool.h"

namespace {

using aldtool::Outcome;
using aldtool::RunAldtool;

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

Outcome RunChecksOn(const std::string& sContents) {
  const std::filesystem::path path =
      std::filesystem::path(testing::TempDir()) /
      (std::string(testing::UnitTest::GetInstance()->current_test_info()->name()) + ".txt");
  std::ofstream(path, std::ios::binary) << sContents;
  Outcome outcome = RunAldtool("checks '" + path.string() + "'");
  std::filesystem::remove(path);
  return outcome;
}

TEST(Calc, EvaluatesByTheUsualPrecedence) {
  const struct {
    const char* szExpression;
    const char* szOutput;
    int nStatus;
  } rows[] = {
      {"'12.50 * 3 / 7'", "5.357142857  DEC_OK\n", 0},
      {"'2 + 3 * (4 - 1)'", "11  DEC_OK\n", 0},
      {"'-3 - -(.5)'", "-2.5  DEC_OK\n", 0},
      {"'-7'", "-7  DEC_OK\n", 0},
      {"'5 / 0'", "0  DEC_OK\n", 0},
      {"'99999999999999.5 + 1 - 2'", "99999999999998.5  DEC_OK\n", 0},
      {"'99999999999999 + 5'", "100000000000004  DEC_OVERFLOW\n", 1},
      {"'0.000000001 * 0.1'", "0  DEC_UNDERFLOW\n", 1},
  };
  for (const auto& row : rows) {
    const Outcome outcome = RunAldtool(std::string("calc ") + row.szExpression);
    EXPECT_EQ(outcome.sOutput, row.szOutput) << row.szExpression;
    EXPECT_EQ(outcome.nStatus, row.nStatus) << row.szExpression;
  }
}

TEST(Name, IsReadASecondTimeOnlyIfASuffixMayBeALastName) {
  const Outcome plain = RunAldtool("name '-Jos\xC3\xA9 Pell jr.'");
  EXPECT_THAT(plain.sOutput, HasSubstr("first name          -Jos\xC3\xA9\n"));
  EXPECT_THAT(plain.sOutput, HasSubstr("last name first     Pell jr, -Jos\xC3\xA9\n"));
  EXPECT_THAT(plain.sOutput, Not(HasSubstr("Without")));
  EXPECT_EQ(plain.nStatus, 0);
  const Outcome doubtful = RunAldtool("name 'Andrew Ma'");
  EXPECT_THAT(doubtful.sOutput, HasSubstr("last name           (none)\n"));
  EXPECT_THAT(doubtful.sOutput, HasSubstr("last name           Ma\n"));
}

TEST(Calc, PointsAtWhatItCannotRead) {
  const struct {
    std::string sExpression;
    const char* szTrouble;
  } rows[] = {
      {"2 * (3 + x)", "a number is wanted here:\n  2 * (3 + x)\n           ^\n"},
      {"2 3", "an operator is wanted here"},
      {"(2", "a closing parenthesis is wanted here"},
      {"1.2.3", "DEC_BAD_FORMAT"},
      {"", "a number is wanted here"},
      {"1e5", "an operator is wanted here"},
      {std::string(100000, '('), "nested too deep"},
  };
  for (const auto& row : rows) {
    const Outcome outcome = RunAldtool("calc '" + row.sExpression + "'");
    EXPECT_THAT(outcome.sOutput, HasSubstr(row.szTrouble));
    EXPECT_EQ(outcome.nStatus, 2) << row.sExpression.substr(0, 40);
  }
}

TEST(Checks, CarriesTheRunningTotalThroughTheLimitAndBack) {
  const Outcome outcome = RunAldtool("checks " EXAMPLES "/checks/march.txt");
  EXPECT_EQ(outcome.nStatus, 0);
  EXPECT_THAT(outcome.sOutput, HasSubstr("245000000021983.114915118 *\n"));
  EXPECT_THAT(outcome.sOutput, EndsWith("Total of 44 cheques: 22148.604915118\n"));
}

TEST(Checks, NamesEveryBadLineAndItsStatusAndCountsTheGoodOnes) {
  const Outcome outcome = RunAldtool("checks " EXAMPLES "/checks/damaged.txt");
  EXPECT_EQ(outcome.nStatus, 1);
  for (const char* szLine :
       {"    8  ! the amount 'twelve' cannot be read: it is no number (DEC_BAD_FORMAT)\n",
        "   10  ! the amount '12,50' has ',' where no group of three digits begins\n",
        "   15  ! the amount is missing\n",
        "   25  ! the split count '0' is no whole number from 1 to 65535\n",
        "   30  ! the amount '123456789012345.00' cannot be read: more than 14 digits stand before "
        "the point (DEC_TEXT_OVERFLOW)\n",
        "   32  ! the amount '0.1234567891' has more than 9 decimals\n",
        "   34  ! the amount '$1987.25' cannot be read: '$' is no part of a number "
        "(DEC_TRUNCATED)\n",
        "   37  ! the amount '400.00-' cannot be read: a sign or a point stands where a number has "
        "none (DEC_BAD_FORMAT)\n"}) {
    EXPECT_THAT(outcome.sOutput, HasSubstr(szLine));
  }
  EXPECT_THAT(outcome.sOutput, HasSubstr("Total of 3 cheques: -647.55\n28 lines were not good"));
}

TEST(Checks, RefusesWhatIsNoListOfChequesWithoutPrintingPartOfIt) {
  const struct {
    std::string sContents;
    const char* szTrouble;
  } rows[] = {
      {"", "is empty"},
      {"# nothing\n\n", "holds no cheque"},
      {"3/1/24;A;1;1\n" + std::string(1 << 20, 'x') + ";1;1\n",
       "line 2 is longer than 1000 characters"},
      {std::string("3/1/24;A;1;1\n\0\x01\x02", 16), "line 2 holds a control character"},
  };
  for (const auto& row : rows) {
    const Outcome outcome = RunChecksOn(row.sContents);
    EXPECT_THAT(outcome.sOutput, HasSubstr(row.szTrouble));
    EXPECT_THAT(outcome.sOutput, Not(HasSubstr("running total"))) << row.szTrouble;
    EXPECT_EQ(outcome.nStatus, 2) << row.szTrouble;
  }
  const Outcome missing = RunAldtool("checks " EXAMPLES "/checks/april.txt");
  EXPECT_THAT(missing.sOutput, HasSubstr("cannot be opened: No such file or directory"));
  EXPECT_EQ(missing.nStatus, 2);
  const Outcome folder = RunAldtool("checks " EXAMPLES);
  EXPECT_THAT(folder.sOutput, HasSubstr("is a folder"));
  EXPECT_EQ(folder.nStatus, 2);
}

TEST(Checks, WritesTheChequeBelowEachAmount) {
  const std::string sDots(256, '*');
  const struct {
    const char* szAmount;
    const char* szWords;
    const char* szField;
  } rows[] = {
      {"1,234.50", "One Thousand Two Hundred Thirty-Four and 50/100  ", "$       1,234.50"},
      {"(12.505)", "Twelve and 51/100  ", "$        (12.51)"},
      {"1000000000", "One Billion and 00/100  ", "$???????????????"},
      {"99999999999999.99", "Void  ", "$???????????????"},
  };
  for (const auto& row : rows) {
    const Outcome outcome = RunChecksOn(std::string("3/1/24;A;") + row.szAmount + ";1\n");
    const std::string sWords = (row.szWords + sDots).substr(0, 80);
    EXPECT_THAT(outcome.sOutput, HasSubstr("\n       " + sWords + "  ")) << row.szAmount;
    const std::size_t nField = outcome.sOutput.find('$');
    std::string sField =
        outcome.sOutput.substr(nField, outcome.sOutput.find('\n', nField) - nField);
    std::string sWanted = row.szField;
    for (std::string* pText : {&sField, &sWanted}) std::erase(*pText, ' ');
    EXPECT_EQ(sField, sWanted) << row.szAmount;
  }
}

TEST(Amount, ShowsHowATextIsReadAndWritten) {
  const Outcome outcome = RunAldtool("amount '(1,234.505)'");
  EXPECT_EQ(outcome.nStatus, 0);
  for (const char* szPart :
       {"money (MyStringToReal)            -1234.505\n",
        "quantity (MyStringToQty)          -1234.51\n", "-1,234.51\n", "(1,234.51)\n",
        " 1,234.51\n", "[           -1,234.51]\n", "[ -1,234.51]\n", "-1234.51\n",
        "One Thousand Two Hundred Thirty-Four and 51/100 Dollars\n"}) {
    EXPECT_THAT(outcome.sOutput, HasSubstr(szPart));
  }
  EXPECT_THAT(RunAldtool("amount 12,50").sOutput, HasSubstr("Beware"));
  const Outcome refused = RunAldtool("amount 12-");
  EXPECT_EQ(refused.nStatus, 2);
  EXPECT_THAT(refused.sOutput, testing::StartsWith("aldtool: the amount '12-' cannot be read"));
}

TEST(Words, WritesTheLineOfACheque) {
  const Outcome outcome = RunAldtool("words -- -21.5");
  EXPECT_EQ(outcome.nStatus, 0);
  EXPECT_EQ(outcome.sOutput,
            "Twenty-One and 50/100 Dollars\nTwenty-One and 50/100  " + std::string(57, '*') + "\n");
  EXPECT_EQ(RunAldtool("words 1e5").nStatus, 2);
  const Outcome tooLarge = RunAldtool("words 1,000,000,000,000");
  EXPECT_EQ(tooLarge.nStatus, 1);
  EXPECT_THAT(tooLarge.sOutput, testing::StartsWith("Void\nVoid  ***"));
}

TEST(Checks, ReadsLinesThatEndInTheOldWay) {
  const Outcome outcome = RunChecksOn("3/1/24; A; 1.50; 1\r\n2; B; 2.25; 2");
  EXPECT_EQ(outcome.nStatus, 0);
  EXPECT_THAT(outcome.sOutput, EndsWith("Total of 2 cheques: 3.75\n"));
}

TEST(Find, TellsLineAndColumnsInEitherDirection) {
  const Outcome outcome = RunAldtool("find -c -b 1250 " EXAMPLES "/checks/march.txt");
  EXPECT_EQ(outcome.nStatus, 0);
  const std::size_t nCheque = outcome.sOutput.find("   21  3/1/2024");
  const std::size_t nComment = outcome.sOutput.find("   10  #");
  EXPECT_LT(nCheque, nComment);
  EXPECT_NE(nComment, std::string::npos);
  EXPECT_THAT(outcome.sOutput, EndsWith("at 58-61, 48-52\n"));
  EXPECT_EQ(RunAldtool("find Zz " EXAMPLES "/checks/march.txt").nStatus, 1);
  EXPECT_EQ(RunAldtool("find Zz no-such-file").nStatus, 2);
}

// A wildcard leads a search backward to the same match for ever.
TEST(Find, ComesToAnEndBackwardWithWildcards) {
  const Outcome outcome = RunAldtool("find -w -b 'H*P' " EXAMPLES "/checks/march.txt");
  EXPECT_EQ(outcome.nStatus, 0);
  EXPECT_THAT(outcome.sOutput, HasSubstr("at 14-25"));
}

TEST(Ps, ListsItselfAndWhoHasLoadedALibrary) {
  const Outcome all = RunAldtool("ps");
  EXPECT_EQ(all.nStatus, 0);
  EXPECT_THAT(all.sOutput, HasSubstr("\\aldtool\n"));
  const Outcome library = RunAldtool("ps LIBALDLIB.so.1.0.0");
  EXPECT_EQ(library.nStatus, 0);
  EXPECT_THAT(library.sOutput, HasSubstr("\\libaldlib.so.1.0.0\n"));
  EXPECT_EQ(RunAldtool("ps no-such-library").nStatus, 1);
}

}  // namespace
