#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/TempFolder.h"
#include "tests/tools/RunAldtool.h"

namespace {

using ald::TempFolder;
using aldtool::Outcome;
using aldtool::RunAldtool;
using testing::HasSubstr;
using testing::StartsWith;

TEST(MessageCommand, ShowsTheBoxAndTheTextWithItsValues) {
  const TempFolder folder;
  const std::string sTexts = folder.Write("texts.txt", "20311 *|!Kein Datum\n300 @%d von %s\n");
  const struct {
    std::string sArguments;
    std::string sOutput;
    int nStatus;
  } rows[] = {
      {"20302 'delete it'",
       "icon     question\nbuttons  Yes, No (default), Cancel\n\nThis procedure will delete it.  "
       "Do "
       "you want to proceed?\n",
       0},
      {"20311",
       "icon     information\nbuttons  OK (default), Help\nhelp     topic 20311\n\nInvalid date\n",
       0},
      {"20311 --texts " + sTexts,
       "icon     information\nbuttons  OK (default)\nhelp     topic 20311\n\nKein Datum\n", 0},
      {"300 7 zehn --texts " + sTexts, "icon     stop\nbuttons  OK (default)\n\n7 von zehn\n", 0},
      {"20500 1",
       "icon     exclamation\nbuttons  Retry (default), Cancel\n\nNumber must be between 1 and "
       "###.\n",
       0},
      {"20500 1 x", "aldtool: 'x' is no number from 0 to 65535\n", 2},
      {"20311 x", "aldtool: the text has no place for 'x'\n", 2},
      {"300 7 --texts " + sTexts, "aldtool: the text has more placeholders than there are values\n",
       2},
      {"12345", "aldtool: there is no text of number 12345\n", 2},
  };
  for (const auto& row : rows) {
    const Outcome outcome = RunAldtool("message " + row.sArguments);
    EXPECT_EQ(outcome.sOutput, row.sOutput) << row.sArguments;
    EXPECT_EQ(outcome.nStatus, row.nStatus) << row.sArguments;
  }
}

TEST(TextsCommand, NamesTheLinesThatATranslationHasWrong) {
  const TempFolder folder;
  const std::string sPath = folder.Write("texts.txt", "20500 Zahl ###.\n20311 *|Kein Datum\n");
  const Outcome outcome = RunAldtool("texts " + sPath);
  EXPECT_EQ(outcome.nStatus, 1);
  EXPECT_EQ(outcome.sOutput, sPath + ":1: the placeholders are not those of the library's text\n");
}

TEST(ErrorLogCommand, PrintsTheBadLinesOfTheLastChecksNewestFirst) {
  const TempFolder folder;
  const Outcome checks =
      RunAldtool("checks --log " + folder.Path() + " " EXAMPLES "/checks/damaged.txt");
  EXPECT_EQ(checks.nStatus, 1);
  const std::string sLog = folder.Path("ERRORLOG.TXT");
  EXPECT_EQ(std::filesystem::file_size(sLog), 3950U);
  const Outcome outcome = RunAldtool("errorlog " + sLog);
  EXPECT_EQ(outcome.nStatus, 0);
  EXPECT_THAT(outcome.sOutput, StartsWith("30001  Line "));
  EXPECT_THAT(
      outcome.sOutput,
      HasSubstr("30001  Line 25: the split count '0' is no whole number from 1 to 65535\n"));
  EXPECT_LT(outcome.sOutput.find("Line 25"), outcome.sOutput.find("Line 15"));

  const Outcome other = RunAldtool("errorlog " EXAMPLES "/checks/march.txt");
  EXPECT_EQ(other.nStatus, 2);
  EXPECT_THAT(other.sOutput, HasSubstr("is no log of messages"));
}

}  // namespace
