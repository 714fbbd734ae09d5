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

const std::string kGood = EXAMPLES "/payroll/TaxInfo.Dat";

TEST(TaxInfo, FindsNothingWrongWithTheExample) {
  const Outcome outcome = RunAldtool("taxinfo check " + kGood);
  EXPECT_EQ(outcome.sOutput, kGood + ": nothing is wrong\n");
  EXPECT_EQ(outcome.nStatus, 0);
}

// Each line of the damaged example has its faults told, and no other line has any.
TEST(TaxInfo, SaysLineSectionAndKeyOfEachFault) {
  const std::string sPath = EXAMPLES "/payroll/damaged.dat";
  const Outcome outcome = RunAldtool("taxinfo check " + sPath);
  EXPECT_EQ(outcome.nStatus, 1);
  std::string sExpected;
  for (const char* szLine : {
           "1: only the first 8 characters of the version are kept",
           "3: SIT: stands before the first section",
           "4: a section's name has no ] behind it",
           "6: [General] FilingStatuses: ' Widowed' has blanks around it, which count",
           "6: [General] FilingStatuses: there is nothing between two commas, which counts as a "
           "status",
           "6: [General] FilingStatuses: 'Single' is there twice",
           "6: [General] FilingStatuses: 'A Status That Is Far Too Long For It' is longer than 31 "
           "characters: it counts as several and moves those behind it",
           "7: [General] StateList: 'Ohio' is no code of two letters",
           "7: [General] StateList: 'QA' is there twice",
           "7: [General] StateList: 'QX' has no section of its own",
           "8: [General] Filingstatus: is no key of this section",
           "10: [Federal] 401kLimit: '11,111' is no amount such as 12000.00: it is read as 11.00",
           "12: [QA] HasLocalities: Localities does not name them, so the state cannot be read",
           "13: [QA] SUILimit: 40000 is more than 32767, the most that there is room for",
           "14: [QA] SIT: 'True' counts as no: write Yes or No",
           "15: [QA] SIT: is there already, in line 14, and only that one counts",
           "16: [QA] SIT_CAG: only the first 31 characters are kept",
           "17: [QA] Statefilingstatus: 'Maried' is no filing status",
           "18: [QA] a line without = says nothing",
           "19: [QA] there is no name before the =",
           "21: [QB] HasLocalites: is no key of this section",
           "22: [QB] SUILimit: '7,100' is no whole number without signs and commas",
           "23: [QC] the state is not in StateList of General",
           "24: [Federal] the section is there already, in line 9, and only that one counts",
           "25: [Quebec] the section is neither General nor Federal nor a state's two letters",
       }) {
    sExpected += sPath + ':' + szLine + '\n';
  }
  EXPECT_EQ(outcome.sOutput, sExpected);
}

TEST(TaxInfo, MissesAListOfStatesAndAVersion) {
  const TempFolder folder;
  const std::string sPath = folder.Write("any.dat", "[General]\r\nStateList=\r\n");
  const Outcome outcome = RunAldtool("taxinfo check " + sPath);
  EXPECT_EQ(outcome.sOutput,
            sPath +
                ":1: the file does not begin with ;VERSION~ and a version: its version is "
                "unknown\n" +
                sPath + ": [General] StateList: is missing: there are no states\n");
  EXPECT_EQ(outcome.nStatus, 1);
  EXPECT_EQ(RunAldtool("taxinfo check " + folder.Path("gone")).nStatus, 2);
}

TEST(TaxInfo, ShowsWhatPayrollReads) {
  Outcome outcome = RunAldtool("taxinfo show " + kGood);
  EXPECT_EQ(outcome.nStatus, 0);
  EXPECT_THAT(outcome.sOutput, HasSubstr("version               2003-07\n"));
  EXPECT_THAT(outcome.sOutput, HasSubstr("401(k) limit          11111.00\n"));
  EXPECT_THAT(outcome.sOutput, HasSubstr("states                QA,QB+QC\n"));
  EXPECT_THAT(outcome.sOutput, HasSubstr("filing status 3       Not Required\n"));
  outcome = RunAldtool("taxinfo show " + kGood + " qa");
  EXPECT_EQ(outcome.nStatus, 0);
  EXPECT_THAT(outcome.sOutput, HasSubstr("SUILimit              7100\n"));
  EXPECT_THAT(outcome.sOutput, HasSubstr("state default         Married\n"));
  EXPECT_NE(RunAldtool("taxinfo show " + kGood + " QAB").nStatus, 0);
}

TEST(TaxInfo, ShowsNothingOfAFileThatPayrollWouldNotFind) {
  const TempFolder folder;
  const std::string sOther = folder.Write("other.dat", "[General]\nStateList=QA\n");
  EXPECT_EQ(RunAldtool("taxinfo show " + sOther).nStatus, 2);
  EXPECT_EQ(RunAldtool("taxinfo show " + folder.Path("TaxInfo.Dat")).nStatus, 2);
  const std::string sLocal = folder.Write("TAXINFO.DAT", "[QA]\nHasLocalities=Yes\n");
  const Outcome outcome = RunAldtool("taxinfo show " + sLocal + " QA");
  EXPECT_THAT(outcome.sOutput, HasSubstr("has localities but does not name them"));
  EXPECT_EQ(outcome.nStatus, 1);
}

}  // namespace
