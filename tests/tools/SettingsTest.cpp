#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/TempFolder.h"
#include "tests/tools/RunAldtool.h"

namespace {

using ald::ScopedVariable;
using ald::TempFolder;
using aldtool::Outcome;
using aldtool::RunAldtool;
using testing::HasSubstr;

// A user and a machine of the test's own.
class SettingsTest : public testing::Test {
 protected:
  std::string UserFile() const { return m_folder.Path("user/preferences.sqlite"); }
  std::string MachineFile() const { return m_folder.Path("machine/preferences.sqlite"); }

  TempFolder m_folder;
  ScopedVariable m_user{"ALDLIB_USER_DIR", m_folder.Path("user")};
  ScopedVariable m_machine{"ALDLIB_MACHINE_DIR", m_folder.Path("machine")};
};

TEST_F(SettingsTest, AreFoundByWhere) {
  const Outcome outcome = RunAldtool("where");
  EXPECT_EQ(outcome.nStatus, 0);
  EXPECT_THAT(outcome.sOutput, HasSubstr("product                 ALDERW\n"));
  EXPECT_THAT(outcome.sOutput,
              HasSubstr(m_folder.Path("machine/ALDERW13.INI") + "  (not there: defaults hold)\n"));
  EXPECT_THAT(outcome.sOutput, HasSubstr(m_folder.Path("user/system.ini") + "  (not there"));
}

TEST_F(SettingsTest, OfTheUserDecideHowAmountsAreWritten) {
  std::filesystem::create_directory(m_folder.Path("user"));
  m_folder.Write("user/system.ini", "[intl]\nsDecimal=,\nsThousand=.\n");
  EXPECT_THAT(RunAldtool("amount 1.234,50").sOutput, HasSubstr("1.234,50"));
}

TEST_F(SettingsTest, PrintTheirUsageForAnUnknownCommand) {
  EXPECT_NE(RunAldtool("prefs").nStatus, 0);
  EXPECT_NE(RunAldtool("prefs set Options autodecimal 1 --type colour").nStatus, 0);
  const Outcome outcome = RunAldtool("prefs get Choices autodecimal");
  EXPECT_EQ(outcome.nStatus, 2);
  EXPECT_THAT(outcome.sOutput, HasSubstr("there is no group 'Choices', only:\n  33401  Options\n"));
}

#ifdef ALDLIB_SQLITE

TEST_F(SettingsTest, AreListedWithoutMakingAStore) {
  EXPECT_EQ(RunAldtool("prefs list").sOutput, "Nothing is set.\n");
  EXPECT_EQ(RunAldtool("prefs export").sOutput, "");
  EXPECT_EQ(RunAldtool("prefs get Options autodecimal").nStatus, 2);
  EXPECT_FALSE(std::filesystem::exists(m_folder.Path("user")));
  EXPECT_THAT(RunAldtool("where").sOutput, HasSubstr(UserFile() + "  (not there yet)\n"));
}

TEST_F(SettingsTest, AreSetReadAndRemovedByNameAndNumber) {
  EXPECT_EQ(RunAldtool("prefs set options 33566 --type yesno yes").nStatus, 0);
  EXPECT_EQ(RunAldtool("prefs set Options lasttip -- -5").nStatus, 0);
  EXPECT_EQ(RunAldtool("prefs set Options defaultuser 7 --type text").nStatus, 0);
  EXPECT_EQ(RunAldtool("prefs set Options defaultuser 8").nStatus, 0);  // still a text
  EXPECT_EQ(RunAldtool(R"(prefs set Positions 'Größe "x"' 'a\b')").nStatus, 0);
  EXPECT_EQ(RunAldtool("prefs list").sOutput,
            "UserPreferencesConverted = 1\n"
            "Options\\autodecimal = 1\n"
            "Options\\defaultuser = \"8\"\n"
            "Options\\lasttip = -5\n"
            "Positions\\Größe \"x\" = \"a\\\\b\"\n");
  EXPECT_EQ(RunAldtool("prefs get 33401 AUTODECIMAL").sOutput, "1\n");
  EXPECT_EQ(RunAldtool("prefs get Options defaultuser").sOutput, "8\n");
  EXPECT_THAT(RunAldtool("prefs export").sOutput,
              HasSubstr("\n[SOFTWARE\\Alderfell\\ALDERW\\13\\Positions]\n"
                        "\"Größe \\\"x\\\"\"=\"a\\\\b\"\n"));

  EXPECT_EQ(RunAldtool("prefs remove Options lasttip").nStatus, 0);
  EXPECT_EQ(RunAldtool("prefs remove Options lasttip").nStatus, 2);
  EXPECT_EQ(RunAldtool("prefs remove Positions").nStatus, 0);
  EXPECT_EQ(RunAldtool("prefs remove Positions").nStatus, 2);
  EXPECT_EQ(RunAldtool("prefs list").sOutput,
            "UserPreferencesConverted = 1\n"
            "Options\\autodecimal = 1\n"
            "Options\\defaultuser = \"8\"\n");
}

TEST_F(SettingsTest, OfTheMachineAreTakenOverAtTheUsersFirstUse) {
  EXPECT_EQ(RunAldtool("prefs set --machine Options defaultuser everybody").nStatus, 0);
  EXPECT_EQ(RunAldtool("prefs list").sOutput, "Nothing is set.\n");
  EXPECT_EQ(RunAldtool("prefs set Options lasttip 3").nStatus, 0);
  EXPECT_EQ(RunAldtool("prefs get Options defaultuser").sOutput, "everybody\n");
  EXPECT_THAT(RunAldtool("prefs list --machine").sOutput,
              HasSubstr("Options\\defaultuser = \"everybody\"\n"));
}

TEST_F(SettingsTest, AreRefusedWhenTheyMeanNothing) {
  const struct {
    const char* szArguments;
    const char* szTrouble;
  } rows[] = {
      {"Options autodecimel 1", "no preference is called 'autodecimel'"},
      {"Options lasttip many --type number", "a number from"},
      {"Options lasttip 4294967296 --type number", "a number from"},
      {"Options tipflag maybe --type yesno", "a yes or no is wanted"},
  };
  for (const auto& row : rows) {
    const Outcome outcome = RunAldtool(std::string("prefs set ") + row.szArguments);
    EXPECT_THAT(outcome.sOutput, HasSubstr(row.szTrouble));
    EXPECT_EQ(outcome.nStatus, 2) << row.szArguments;
  }
}

TEST_F(SettingsTest, InAFileThatIsNoStoreAreReportedAndLeftAlone) {
  std::filesystem::create_directory(m_folder.Path("user"));
  m_folder.Write("user/preferences.sqlite", "my notes");
  for (const char* szArguments :
       {"list", "export", "get Options lasttip", "set Options lasttip 3", "remove Options"}) {
    const Outcome outcome = RunAldtool(std::string("prefs ") + szArguments);
    EXPECT_EQ(outcome.nStatus, 2) << szArguments;
    EXPECT_THAT(outcome.sOutput, HasSubstr(UserFile() + " cannot be ")) << szArguments;
  }
  EXPECT_EQ(std::filesystem::file_size(UserFile()), 8U);
}

TEST_F(SettingsTest, BringMessagesBackThatWereSwitchedOff) {
  EXPECT_THAT(RunAldtool("onetime list").sOutput, HasSubstr("shown  CLOSECOMPANYMSG\n"));
  EXPECT_FALSE(std::filesystem::exists(UserFile()));  // looking makes no store
  EXPECT_EQ(RunAldtool("prefs set 'One Time Messages' CLOSECOMPANYMSG yes --type yesno").nStatus,
            0);
  EXPECT_THAT(RunAldtool("onetime list").sOutput, HasSubstr("off    CLOSECOMPANYMSG\n"));
  EXPECT_EQ(RunAldtool("onetime reset NeedIE5").nStatus, 2);
  EXPECT_EQ(RunAldtool("onetime reset CLOSECOMPANYMSG").nStatus, 0);
  EXPECT_THAT(RunAldtool("onetime list").sOutput, HasSubstr("shown  CLOSECOMPANYMSG\n"));
  EXPECT_EQ(RunAldtool("onetime reset").nStatus, 0);
}

#endif

}  // namespace
