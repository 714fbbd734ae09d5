#include "aldlib/config/Profile.h"

#include <gtest/gtest.h>

#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

CString ReadText(AlderIniSections eSection, const char* szKey, std::int16_t nSize = 64) {
  char szBuffer[64] = {};
  const std::int16_t nLength = GetALWProfileString(eSection, szKey, "default", szBuffer, nSize);
  EXPECT_GE(nLength, 0);
  return CString(szBuffer, static_cast<std::size_t>(nLength));
}

TEST(ProductIniFile, IsReadBySections) {
  FakePlatform platform;
  platform.m_profile.m_files["PRODUCT.INI"] =
      "[Lib]\nk=lib\n[Install]\nk=install\n[Debug]\nk=debug\nn=-1\n[AmyuniDriver]\nk=driver";
  EXPECT_EQ(ReadText(AlderIniSections::Lib, "k"), "lib");
  EXPECT_EQ(ReadText(AlderIniSections::Install, "K"), "install");
  EXPECT_EQ(ReadText(AlderIniSections::Debug, "k"), "debug");
  EXPECT_EQ(ReadText(AlderIniSections::AmyuniDriver, "k"), "driver");
  EXPECT_EQ(ReadText(AlderIniSections::Lib, "none"), "default");
  EXPECT_EQ(ReadText(AlderIniSections::Lib, "none", 4), "def");
  EXPECT_EQ(ReadText(AlderIniSections::Lib, "none", 0), "");
  EXPECT_EQ(ReadText(AlderIniSections::Lib, "none", -1), "");
  EXPECT_EQ(GetALWProfileInt(AlderIniSections::Debug, "n", 5), 4294967295U);
  EXPECT_EQ(GetALWProfileInt(AlderIniSections::Debug, "none", -2), 4294967294U);
  // A number without a section reads as a null section does.
  for (const int nSection : {5, 2, 7, 10, -1}) {
    EXPECT_EQ(ReadText(AlderIniSections{nSection}, "k"),
              CString("Lib\0Install\0Debug\0AmyuniDriver\0", 31))
        << nSection;
    EXPECT_EQ(GetALWProfileInt(AlderIniSections{nSection}, "n", 5), 5U);
  }
  // The name is asked for at every read.
  platform.m_product.m_sIniFile = "OTHER.INI";
  EXPECT_EQ(ReadText(AlderIniSections::Lib, "k"), "default");
}

TEST(ProductIniFile, AnswersYesForWhatBeginsWithY) {
  FakePlatform platform;
  const struct {
    const char* szLine;
    std::int32_t nDefault;
    std::int32_t nResult;
  } rows[] = {
      {"k=Yes", 0, 1},
      {"k=yellow", 0, 1},
      {"k=Y", 0, 1},
      {"k=No", 1, 0},
      {"k=1", 1, 0},
      {"k=True", 1, 0},
      {"", 7, 1},
      {"", 0, 0},
      {"k=", 7, 7},
      {"k=", 0, 0},
      {"k=yesterday and more", 0, 1},
      {"k=-yes", 1, 0},
  };
  for (const auto& row : rows) {
    platform.m_profile.m_files["PRODUCT.INI"] = CString("[Install]\n") + row.szLine;
    EXPECT_EQ(GetALWProfileBOOL(AlderIniSections::Install, "k", row.nDefault), row.nResult)
        << row.szLine << " default " << row.nDefault;
  }
}

TEST(IniFiles, AreReadByNameAndTheSystemsWithoutOne) {
  FakePlatform platform;
  platform.m_profile.m_files["A.INI"] = "[s]\nk=a";
  platform.m_profile.m_files[""] = "[s]\nk=system\nn=12";
  char szBuffer[8];
  EXPECT_EQ(GetSYSProfileString("s", "k", "d", szBuffer, 8, "A.INI"), 1);
  EXPECT_STREQ(szBuffer, "a");
  EXPECT_EQ(GetSYSProfileString("s", "k", "d", szBuffer, 8, nullptr), 6);
  EXPECT_STREQ(szBuffer, "system");
  EXPECT_EQ(GetWINProfileString("s", "k", "d", szBuffer, 4), 3);
  EXPECT_STREQ(szBuffer, "sys");
  EXPECT_EQ(GetWINProfileInt("s", "n", 5), 12U);
  EXPECT_EQ(GetWINProfileInt("none", "n", 5), 5U);
  EXPECT_EQ(GetWINProfileString("s", "k", "d", nullptr, 8), 0);
}

TEST(ProgramPath, IsCutAt259Characters) {
  FakePlatform platform;
  CPathNameString sPath("before");
  GetALWProgramPath("C:\\HERE ", &sPath);
  EXPECT_EQ(sPath, "C:\\HERE");
  GetALWProgramPath(nullptr, &sPath);
  EXPECT_EQ(sPath, "");
  platform.m_profile.m_files["PRODUCT.INI"] = "[Install]\nPROGRAMPATH=" + CString(300, 'p');
  GetALWProgramPath("", &sPath);
  EXPECT_EQ(sPath, CString(259, 'p'));
  GetALWProgramPath("", nullptr);
}

TEST(DetailsFile, LiesInTheCurrentFolder) {
  FakePlatform platform;
  EXPECT_EQ(GetINIFileName(), "C:\\Details.ini");
  platform.m_disk.Write("C:\\BOOKS\\CHART.DAT", "");
  platform.m_disk.ChangeFolder("C:\\BOOKS");
  EXPECT_EQ(GetINIFileName(), "C:\\BOOKS\\Details.ini");
}

TEST(DataFolder, IsTheUsualOneUntilItIsSet) {
  FakePlatform platform;
  CPathNameString sPath;
  GetDefaultDataPath(sPath, false);
  EXPECT_EQ(sPath, "C:\\ALDERW");
  GetDefaultDataPath(sPath, true);
  EXPECT_EQ(sPath, "C:\\ALDERW\\");
  platform.m_profile.m_files["PRODUCT.INI"] = "[Lib]\nDATAPATH=D:\\BOOKS\\";
  GetDefaultDataPath(sPath, true);
  EXPECT_EQ(sPath, "D:\\BOOKS\\");
  platform.m_profile.m_files["PRODUCT.INI"] = "[Lib]\nDATAPATH=";
  GetDefaultDataPath(sPath, true);
  EXPECT_EQ(sPath, "");
  platform.m_profile.m_files["PRODUCT.INI"] = "[Lib]\nDATAPATH=" + CString(300, 'x');
  GetDefaultDataPath(sPath, true);
  EXPECT_EQ(sPath, CString(259, 'x')) << "no room for a backslash";
}

}  // namespace
}  // namespace ald
