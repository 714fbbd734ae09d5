#include "aldlib/messages/Catalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "aldlib/frame/LibraryStrings.h"
#include "aldlib/text/ResourceStrings.h"

namespace ald {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

CString FileText(const char* szPath) {
  std::ifstream file(szPath, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

CStringArray FaultsOf(std::string_view lines, const StringTable& model = {}) {
  CStringArray faults;
  const bool bGood = CheckCatalogue(lines, "f", model, faults);
  EXPECT_EQ(bGood, faults.empty());
  return faults;
}

TEST(LibraryTexts, PassTheCheckAndAreAllInTheLibrary) {
  const CString sLines = FileText(LIBRARY_STRINGS);
  EXPECT_THAT(FaultsOf(sLines, LibraryStringTable()), ElementsAre());

  StringTable file;
  CString sError;
  ASSERT_TRUE(file.AddFile(LIBRARY_STRINGS, sError)) << sError;
  const StringTable built = LibraryStringTable();
  EXPECT_EQ(built.Count(), file.Count());
  for (std::uint32_t nNumber = 0; nNumber <= 65535; ++nNumber) {
    const CString* const pText = file.Find(nNumber);
    ASSERT_EQ(pText == nullptr, built.Find(nNumber) == nullptr) << nNumber;
    if (pText != nullptr) {
      EXPECT_EQ(*built.Find(nNumber), *pText);
    }
  }
}

TEST(LibraryTexts, AreFoundByTheSearchForNumberedTexts) {
  CFixedString<1024> sText;
  EXPECT_EQ(MyLoadString(20315, sText), 85);
  EXPECT_STREQ(sText,
               "@|Not enough Memory to print Report.  Please close another Application and "
               "try again.");
  EXPECT_GT(MyLoadString(20378, sText), 0);
  EXPECT_NE(sText.view().find("database\r\nis installed"), std::string_view::npos);
  EXPECT_GT(MyLoadString(31658, sText), 0);
  EXPECT_TRUE(sText.view().ends_with("a selection. "));
  EXPECT_GT(MyLoadString(61491, sText), 0);
  EXPECT_STREQ(sText, "Continue");
}

TEST(Signs, ChooseTheFlagsAndAreRemovedTogether) {
  const struct {
    const char* szText;
    std::uint32_t nFlags;
    std::int32_t nLength;
  } rows[] = {
      {"@a", 0x10, 1},  {"!a", 0x31, 1},   {"!!a", 0x34, 2}, {"%a", 0x30, 1},  {"*a", 0x40, 1},
      {"**a", 0x41, 2}, {"?a", 0x123, 1},  {"??a", 0x23, 2}, {"^a", 0x24, 1},  {"^^a", 0x124, 2},
      {"~a", 0x1, 1},   {"#a", 0x141, 1},  {"a*", 0x35, 0},  {"", 0x35, 0},    {"|a", 0x35, 0},
      {"!|a", 0x31, 1}, {"!|!a", 0x31, 1}, {"@@a", 0x10, 1}, {"%%a", 0x30, 1}, {"***", 0x41, 2},
      {"*?a", 0x40, 1}, {"*", 0x40, 1},    {"~~a", 0x1, 1},  {"##", 0x141, 1},
  };
  for (const auto& row : rows) {
    const MessageSigns signs = ReadMessageSigns(row.szText);
    EXPECT_EQ(signs.nFlags, row.nFlags) << row.szText;
    EXPECT_EQ(signs.nLength, row.nLength) << row.szText;
  }
}

TEST(CatalogueCheck, NamesTheLineOfEachFaultAndWhatIsWrong) {
  const struct {
    const char* szText;
    const char* szFault;  // "" for a good text
  } rows[] = {
      {"Plain.", ""},
      {"*|Help [$$$] (5 % of #1, $5).", ""},
      {"~|!%$% of ###", ""},
      {"~%s: %5.2f, %-3d, %i%%", ""},
      {"%done", ""},
      {"/100", ""},
      {"$$$ is missing.", ""},
      {"=Title", "\"=\" is no sign"},
      {"***Note", "the sign \"*\" would be shown"},
      {"*|?Sure", "the sign \"?\" would be shown"},
      {"@", "no text stands behind"},
      {"*|!", "no text stands behind"},
      {"*A|B", "\"|\" would be shown"},
      {"*||A", "\"|\" would be shown"},
      {"Number ##.", "\"##\" is no placeholder"},
      {"Number ####.", "\"####\" is no placeholder"},
      {"Name $$.", "\"$$\" is no placeholder"},
      {"Name %n.", "\"%n\" is no placeholder"},
      {"Name %ls.", "\"%l\" is no placeholder"},
      {"$$$ has ###", "no operation fills"},
      {"Has ### or %d", "no operation fills"},
      {"%s has it", "placeholder at the start"},
      {"### of it", "placeholder at the start"},
      {"Ends in a blank ", "a blank at the end"},
      {"Ends in a blank\\x20", ""},
      {"Bad \\q", "unknown escape"},
  };
  for (const auto& row : rows) {
    const CStringArray faults = FaultsOf("# head\n\n7 " + CString(row.szText) + "\r\n");
    if (*row.szFault == '\0') {
      EXPECT_THAT(faults, ElementsAre()) << row.szText;
    } else {
      EXPECT_THAT(faults, ElementsAre(HasSubstr(CString("f:3: ")))) << row.szText;
      EXPECT_THAT(faults, ElementsAre(HasSubstr(row.szFault))) << row.szText;
    }
  }
}

TEST(CatalogueCheck, ReadsOnBehindAFaultAndFindsNumbersThatStandTwice) {
  EXPECT_THAT(FaultsOf("1 One\n2 Two\nthree\n1 Uno\n\n2 Due\n65536 Much"),
              ElementsAre(HasSubstr("f:3: a line begins"), "f:4: number 1 stands on line 1 already",
                          "f:6: number 2 stands on line 2 already", HasSubstr("f:7: the number")));
}

TEST(CatalogueCheck, HoldsATranslationToItsModel) {
  StringTable model;
  model.Add(1, "*|From ### to ###.");
  model.Add(2, "!%s has %d of %s");
  model.Add(33401, "Options");
  EXPECT_THAT(
      FaultsOf("1 *|Von ### bis ###.\n2 !%s hat %5d von %-8s\n3 @Neu\n33401 Options", model),
      ElementsAre());
  for (const char* szLine : {"1 *Von ### bis ###.", "1 @|Von ### bis ###.", "1 *|!Von ### bis ###",
                             "1 *|Von ###.", "2 !Von %s hat %s %d", "33401 Optionen"}) {
    EXPECT_EQ(FaultsOf(szLine, model).size(), 1U) << szLine;
  }
}

}  // namespace
}  // namespace ald
