#include "aldlib/platform/Resources.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "aldlib/platform/Platform.h"
#include "aldlib/platform/TableResources.h"

namespace ald {
namespace {

TEST(StringTableLines, HoldOneTextEach) {
  StringTable table;
  CString sError;
  ASSERT_TRUE(
      table.AddLines("# Messages\r\n"
                     "\r\n"
                     "30100 @The table is missing.\r\n"
                     "  30101\t  two blanks and a # sign \n"
                     "0 \\\\ \\t\\r\\n\\x80\\x4a\n"
                     "65535 last",
                     "texts", sError))
      << sError;
  EXPECT_EQ(table.Count(), 4U);
  EXPECT_EQ(*table.Find(30100), "@The table is missing.");
  EXPECT_EQ(*table.Find(30101), "  two blanks and a # sign ");
  EXPECT_EQ(*table.Find(0), "\\ \t\r\n\x80J");
  EXPECT_EQ(*table.Find(65535), "last");
  EXPECT_EQ(table.Find(1), nullptr);
  EXPECT_EQ(table.Find(65536), nullptr);
}

TEST(StringTableLines, AreRefusedAsAWholeWithThePlaceAndTheReason) {
  const struct {
    const char* szLine;
    const char* szReason;
  } rows[] = {
      {"7 again", "number 7 stands here for the second time"},
      {"5 kept from before", "number 5 stands here for the second time"},
      {"65536 far", "the number is not between 0 and 65535"},
      {"99999999999 far", "the number is not between 0 and 65535"},
      {"-1 below", "a line begins with a number or \"#\""},
      {"text", "a line begins with a number or \"#\""},
      {"8text", "a blank must follow the number"},
      {"8", "no text follows the number"},
      {"8 ", "no text follows the number"},
      {"8 a\\q", "unknown escape \\q"},
      {"8 a\\", "a lone \\ ends the line"},
      {"8 a\\x4", "\\x needs two hexadecimal digits other than 00"},
      {"8 a\\xg0", "\\x needs two hexadecimal digits other than 00"},
      {"8 a\\x00", "\\x needs two hexadecimal digits other than 00"},
  };
  for (const auto& row : rows) {
    StringTable table;
    table.Add(5, "five");
    CString sError;
    const CString sLines = CString("6 six\n# comment\n7 seven\n") + row.szLine + "\n9 nine\n";
    EXPECT_FALSE(table.AddLines(sLines, "de/texts.txt", sError)) << row.szLine;
    EXPECT_EQ(sError, CString("de/texts.txt:4: ") + row.szReason);
    EXPECT_EQ(table.Count(), 1U) << row.szLine;
  }
}

TEST(StringTableFile, IsReadWholeOrNotAtAll) {
  const std::filesystem::path folder =
      std::filesystem::path(testing::TempDir()) / "aldlib_string_table";
  std::filesystem::create_directories(folder);
  const CString sFile = (folder / "texts.txt").string();
  const CString sLong(10000, 'x');
  std::ofstream(sFile) << "1 one\n2 " << sLong << "\n";
  StringTable table;
  CString sError = "old";
  EXPECT_TRUE(table.AddFile(sFile, sError)) << sError;
  EXPECT_EQ(sError, "");
  EXPECT_EQ(*table.Find(2), sLong);

  std::ofstream(sFile) << "3 three\nfour\n";
  EXPECT_FALSE(table.AddFile(sFile, sError));
  EXPECT_EQ(sError, sFile + ":2: a line begins with a number or \"#\"");
  EXPECT_FALSE(table.AddFile(folder.string(), sError));
  EXPECT_EQ(sError.find(folder.string() + ": cannot be read"), 0U) << sError;
  std::filesystem::remove_all(folder);
  EXPECT_FALSE(table.AddFile(sFile, sError));
  EXPECT_EQ(sError.find(sFile + ": cannot be read"), 0U) << sError;
  EXPECT_EQ(table.Count(), 2U);
}

TEST(ModuleStrings, AreCopiedCutAndTerminated) {
  TableResources resources;
  StringTable table;
  table.Add(10, "ledger");
  EXPECT_FALSE(table.Add(10, "other"));
  EXPECT_FALSE(table.Add(11, ""));
  const ModuleHandle hModule = resources.AddModule(table);
  const struct {
    std::uint32_t nNumber;
    int nSize;
    int nLength;
    const char* pBuffer;
  } rows[] = {
      {10, 8, 6, "ledger\0#"}, {10, 7, 6, "ledger\0#"},   {10, 4, 3, "led\0####"},
      {10, 1, 0, "\0#######"}, {10, 0, 0, "########"},    {10, -1, 0, "########"},
      {11, 8, 0, "########"},  {65546, 8, 0, "########"},
  };
  for (const auto& row : rows) {
    char buffer[] = "########";
    EXPECT_EQ(resources.LoadString(hModule, row.nNumber, buffer, row.nSize), row.nLength);
    EXPECT_EQ(CString(buffer, 8), CString(row.pBuffer, 8)) << row.nNumber << ", " << row.nSize;
  }
  EXPECT_EQ(resources.LoadString(hModule, 10, nullptr, 8), 0);
}

TEST(ModuleStrings, LeaveWithTheirModule) {
  TableResources resources;
  StringTable table;
  table.Add(1, "one");
  const ModuleHandle hOld = resources.AddModule(table);
  EXPECT_TRUE(resources.RemoveModule(hOld));
  const ModuleHandle hNew = resources.AddModule(table);
  char szBuffer[8];
  EXPECT_EQ(resources.LoadString(hNew, 1, szBuffer, 8), 3);
  EXPECT_EQ(resources.LoadString(hOld, 1, szBuffer, 8), 0);
  EXPECT_EQ(resources.LoadString(ModuleHandle{}, 1, szBuffer, 8), 0);
  EXPECT_FALSE(resources.RemoveModule(hOld));
  EXPECT_FALSE(resources.AttachExtension(hOld));
  EXPECT_TRUE(resources.AttachExtension(hNew));
}

TEST(Atoms, AreSharedByNameAndCounted) {
  TableResources resources;
  const Atom nFirst = resources.AddAtom("Window_Data");
  const Atom nOther = resources.AddAtom("other");
  EXPECT_NE(nFirst, Atom{});
  EXPECT_NE(nFirst, nOther);
  EXPECT_EQ(resources.AddAtom("WINDOW_DATA"), nFirst);
  EXPECT_TRUE(resources.DeleteAtom(nFirst));
  EXPECT_EQ(resources.AddAtom("window_data"), nFirst);  // still there
  EXPECT_TRUE(resources.DeleteAtom(nFirst));
  EXPECT_TRUE(resources.DeleteAtom(nFirst));
  EXPECT_FALSE(resources.DeleteAtom(nFirst));
  EXPECT_FALSE(resources.DeleteAtom(Atom{}));
  EXPECT_FALSE(resources.DeleteAtom(Atom{0xFFFF}));
  for (const char* szNone : {static_cast<const char*>(nullptr), ""}) {
    EXPECT_EQ(resources.AddAtom(szNone), Atom{});
  }
  EXPECT_EQ(resources.AddAtom(CString(256, 'a').c_str()), Atom{});
  EXPECT_NE(resources.AddAtom(CString(255, 'a').c_str()), Atom{});
}

}  // namespace
}  // namespace ald
