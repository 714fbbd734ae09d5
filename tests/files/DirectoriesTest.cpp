#include "aldlib/files/Directories.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

class DirectoriesTest : public testing::Test {
 protected:
  DirectoriesTest() {
    Disk().AddDrive('D');
    for (const char* szFile : {"BOOKS\\Chart.dat", "BOOKS\\NOTES", "BOOKS\\A.TXT",
                               "BOOKS\\Old\\X.DAT", "BOOKS\\.hidden.DAT", "BOOKS\\closed.DAT"}) {
      Disk().Write(CString("C:\\") + szFile, "12345");
    }
    MemoryNodePtr pNode;
    if (Disk().Find("C:\\BOOKS\\CLOSED.DAT", pNode) == 0) pNode->bReadOnly = true;
    if (Disk().Make("C:\\BOOKS\\SHUT", true, pNode) == 0) pNode->bReadOnly = true;
  }

  MemoryDisk& Disk() { return m_platform.m_disk; }

  // All names that the search finds, one behind the other.
  static CString Found(const char* szMask) {
    CString sNames;
    _finddata_t record;
    for (unsigned char bFound = FindFirst(szMask, &record); bFound != 0;
         bFound = FindNext(&record)) {
      sNames.append(record.name).append(" ");
    }
    return sNames;
  }
  static CString Filtered(const char* szMask, unsigned char nAttribute) {
    CString sNames;
    _finddata_t record;
    CPathNameString sPath(szMask);
    for (unsigned char bFound = ALWFindFirstFile(&record, sPath, nAttribute); bFound != 0;
         bFound = ALWFindNextFile(sPath, &record, nAttribute)) {
      sNames.append(sPath).append(" ");
    }
    return sNames;
  }

  FakePlatform m_platform;
};

TEST_F(DirectoriesTest, TellsTheCurrentFolderOfEachDrive) {
  EXPECT_EQ(GetDrive(), 2);
  CPathNameString sFolder;
  EXPECT_EQ(GetDir(0, sFolder), 1);
  EXPECT_EQ(sFolder, "\\");
  EXPECT_EQ(SetFullDir("c:\\books\\OLD"), 1);
  EXPECT_EQ(GetDir(3, sFolder), 1);
  EXPECT_EQ(sFolder, "\\BOOKS\\Old");
  EXPECT_EQ(GetFullDir(sFolder), 1);
  EXPECT_EQ(sFolder, "C:\\BOOKS\\Old");
  EXPECT_EQ(GetDir(5, sFolder), 0);
  EXPECT_EQ(sFolder, "C:\\BOOKS\\Old");
}

TEST_F(DirectoriesTest, ChangesDriveAndFolder) {
  EXPECT_EQ(SetFullDir("d:"), 0) << "no folder is named";
  EXPECT_EQ(GetDrive(), 3) << "but the drive has changed";
  EXPECT_EQ(SetFullDir("Q:\\BOOKS"), 0) << "looked for on drive D, since there is no Q";
  EXPECT_EQ(MakeDir("\\BOOKS"), 1);
  EXPECT_EQ(SetFullDir("Q:\\BOOKS"), 1);
  CPathNameString sFolder;
  GetFullDir(sFolder);
  EXPECT_EQ(sFolder, "D:\\BOOKS");
  SetDrive(2);
  EXPECT_EQ(SetFullDir("BOOKS"), 1);
  EXPECT_EQ(SetFullDir(""), 0);
  GetFullDir(sFolder);
  EXPECT_EQ(sFolder, "C:\\BOOKS");
}

TEST_F(DirectoriesTest, GivesTheDriveAloneWhenAFolderIsTooLong) {
  CString sLong = "C:";
  while (sLong.size() < 260) {
    sLong += "\\" + CString(99, 'a');
    MemoryNodePtr pFolder;
    ASSERT_EQ(Disk().Make(sLong, true, pFolder), 0U);
  }
  ASSERT_TRUE(Disk().ChangeFolder(sLong));
  CPathNameString sFolder("before");
  EXPECT_EQ(GetFullDir(sFolder), 0);
  EXPECT_EQ(sFolder, "C:");
}

TEST_F(DirectoriesTest, MakesAndRemovesOneFolder) {
  EXPECT_EQ(MakeDir("C:\\NEW"), 1);
  EXPECT_EQ(MakeDir("C:\\new"), 0);
  EXPECT_EQ(MakeDir("C:\\A\\B"), 0);
  EXPECT_EQ(RemoveDir("C:\\New"), 1);
  EXPECT_EQ(RemoveDir("C:\\NEW"), 0);
  EXPECT_EQ(RemoveDir("C:\\BOOKS"), 0) << "it is not empty";
  EXPECT_EQ(RemoveDir("C:\\BOOKS\\NOTES"), 0) << "it is no folder";
}

TEST_F(DirectoriesTest, FindsWhatAMaskStandsFor) {
  const struct {
    const char* szMask;
    const char* szNames;
  } rows[] = {
      {"C:\\BOOKS\\*.*", ". .. .hidden.DAT A.TXT Chart.dat closed.DAT NOTES Old SHUT "},
      {"C:\\BOOKS\\*", ". .. .hidden.DAT A.TXT Chart.dat closed.DAT NOTES Old SHUT "},
      {"c:\\books\\*.dat", ".hidden.DAT Chart.dat closed.DAT "},
      {"C:\\BOOKS\\C*", "Chart.dat closed.DAT "},
      {"C:\\BOOKS\\C????.DAT", "Chart.dat "},
      {"C:\\BOOKS\\C???????.DAT", "Chart.dat closed.DAT "},
      {"C:\\BOOKS\\??TES???", "NOTES "},
      {"C:\\BOOKS\\*.", "NOTES Old SHUT "},
      {"C:\\BOOKS\\*A*T", ".hidden.DAT A.TXT Chart.dat closed.DAT "},
      {"C:\\BOOKS\\CHART.DAT", "Chart.dat "},
      {"C:\\BOOKS\\CHART", ""},
      {"C:\\BOOKS", "BOOKS "},
      {"C:\\*.*", "BOOKS "},
      {"C:\\BOOKS\\", ""},
      {"C:\\NONE\\*.*", ""},
      {"C:\\BOOKS\\NOTES\\*.*", ""},
      {"", ""},
      {"Q:\\*.*", ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Found(row.szMask), row.szNames) << row.szMask;
  }
  EXPECT_EQ(FindFirst(nullptr, nullptr), 0);
  EXPECT_EQ(m_platform.m_volumes.OpenSearches(), 0U);
}

TEST_F(DirectoriesTest, FiltersByTheWholeAttributeWord) {
  EXPECT_EQ(Filtered("C:\\BOOKS\\*.*", 0), "A.TXT Chart.dat closed.DAT NOTES Old SHUT ");
  EXPECT_EQ(Filtered("C:\\BOOKS\\*.*", 0x20), "A.TXT Chart.dat NOTES ");
  EXPECT_EQ(Filtered("C:\\BOOKS\\*.*", 0x21), "closed.DAT ");
  EXPECT_EQ(Filtered("C:\\BOOKS\\*.*", 0x10), "Old ") << "not the one that is read-only";
  EXPECT_EQ(Filtered("C:\\BOOKS\\*.*", 0x11), "SHUT ");
  EXPECT_EQ(Filtered("C:\\BOOKS\\*.*", 0x02), "");
  EXPECT_EQ(m_platform.m_volumes.OpenSearches(), 0U);
  CPathNameString sPath("C:\\BOOKS\\.h*");
  _finddata_t record;
  EXPECT_EQ(ALWFindFirstFile(&record, sPath, 0), 0);
  EXPECT_EQ(sPath, "C:\\BOOKS\\.h*");
}

TEST_F(DirectoriesTest, RunsOneSearchAtATime) {
  _finddata_t record;
  ASSERT_EQ(FindFirst("C:\\BOOKS\\*.DAT", &record), 1);
  ASSERT_EQ(FindFirst("C:\\BOOKS\\*.TXT", &record), 1);
  EXPECT_EQ(m_platform.m_volumes.OpenSearches(), 1U) << "the second has ended the first";
  EXPECT_EQ(FindNext(&record), 0);
  EXPECT_EQ(FindNext(&record), 0) << "there is none now";

  ASSERT_EQ(FindFirst("C:\\BOOKS\\*.DAT", &record), 1);
  CloseFinds();
  EXPECT_EQ(m_platform.m_volumes.OpenSearches(), 0U);
  EXPECT_EQ(FindNext(&record), 0);

  ASSERT_EQ(FindFirst("C:\\BOOKS\\*.DAT", &record), 1);
  MoveToPlatform(nullptr);
  EXPECT_EQ(m_platform.m_volumes.OpenSearches(), 0U) << "unloading ends it";
}

TEST_F(DirectoriesTest, LeavesOutWhatHasGoneDuringTheSearch) {
  _finddata_t record;
  ASSERT_EQ(FindFirst("C:\\BOOKS\\*.DAT", &record), 1);
  Disk().Remove("C:\\BOOKS\\CHART.DAT");
  Disk().Write("C:\\BOOKS\\LATE.DAT", "");
  ASSERT_EQ(FindNext(&record), 1);
  EXPECT_STREQ(record.name, "closed.DAT");
  EXPECT_EQ(FindNext(&record), 0);
}

TEST_F(DirectoriesTest, TellsFreeSpaceOfBothKindsOfSystem) {
  const std::uint64_t nBig = std::uint64_t{5} << 32;
  Disk().AddDrive('E', nBig);
  Disk().Write("E:\\A\\B.DAT", CString(8192, 'x'));
  for (const bool bOld : {false, true}) {
    m_platform.m_volumes.m_bOldDiskSpace = bOld;
    std::uint64_t nFree = 0;
    std::uint64_t nTotal = 0;
    GetDiskSpaceEx("E:\\A", &nFree, &nTotal);
    EXPECT_EQ(nFree, nBig - 8192) << bOld;
    EXPECT_EQ(nTotal, nBig) << bOld;
    GetDiskSpaceEx("E:\\A", nullptr, nullptr);
    GetDiskSpaceEx("Q:\\", &nFree, &nTotal);
    EXPECT_EQ(nFree, 4294967295U) << bOld;
    EXPECT_EQ(nTotal, 4294967295U) << bOld;
    std::uint32_t nCut = 0;
    GetDiskSpace("E:\\", &nCut, nullptr);
    EXPECT_EQ(nCut, 4294967295U) << bOld;
    GetDiskSpace("D:\\", nullptr, &nCut);
    EXPECT_EQ(nCut, 1U << 30) << bOld;
    EXPECT_EQ(GetDiskSpace(4), 1U << 30) << bOld;
    EXPECT_EQ(GetDiskSpace(17), 4294967295U) << bOld;
    Disk().ChangeDrive('D');
    EXPECT_EQ(GetDiskSpace(0), 1U << 30) << bOld;
  }
}

TEST(AddBackSlashToPath, StopsAtWhatIsThereAlready) {
  const struct {
    const char* szPath;
    const char* szResult;
  } rows[] = {
      {"C:", "C:\\"}, {"C:\\", "C:\\"}, {"", ""}, {"123456", "123456\\"}, {"1234567", "1234567"}};
  for (const auto& row : rows) {
    CFixedString<8> sPath(row.szPath);
    AddBackSlash(sPath);
    EXPECT_EQ(sPath, row.szResult);
  }
  AddBackSlash({});
}

TEST_F(DirectoriesTest, ShortensAPathPieceByPiece) {
  Disk().ChangeFolder("C:\\BOOKS");
  const struct {
    const char* szPath;
    const char* szShort;
  } rows[] = {
      {"c:\\books\\chart.dat", "c:\\BOOKS\\Chart.dat"},
      {"C:\\books\\old\\", "C:\\BOOKS\\Old\\"},
      {"C:\\", "C:\\"},
      {"Q:", "Q:"},  // nothing is looked up
      {"C:chart.dat", "C:Chart.dat"},
      {"old\\x.dat", "Old\\X.DAT"},
      {"C:\\BOOKS\\NONE.DAT", ""},
      {"C:\\NONE\\", ""},
      {"C:\\BOOKS\\\\OLD", ""},
      {"\\BOOKS", ""},  // nothing stands before its first backslash
      {"", ""},
  };
  for (const auto& row : rows) {
    CPathNameString sShort("before");
    EXPECT_EQ(GoodGetShortPathName(row.szPath, sShort), CString(row.szShort).size()) << row.szPath;
    EXPECT_EQ(sShort, row.szShort) << row.szPath;
  }
  CPathNameString sSame("books\\Old");
  Disk().ChangeFolder("C:\\");
  EXPECT_EQ(GoodGetShortPathName(sSame, sSame), 9U);
  EXPECT_EQ(sSame, "BOOKS\\Old");
}

TEST_F(DirectoriesTest, UsesShortNamesWhereThereAreSome) {
  Disk().Write("C:\\Alder Books\\Chart of accounts.dat", "");
  m_platform.m_volumes.m_shortNames = {{"Alder Books", "ALDERB~1"},
                                       {"Chart of accounts.dat", "CHARTO~1.DAT"}};
  CPathNameString sShort;
  EXPECT_EQ(GoodGetShortPathName("c:\\alder books\\chart of accounts.dat", sShort), 24U);
  EXPECT_EQ(sShort, "C:\\ALDERB~1\\CHARTO~1.DAT");
}

TEST_F(DirectoriesTest, LengthensAPathElementByElement) {
  const struct {
    const char* szPath;
    const char* szLong;
  } rows[] = {
      {"c:\\books\\OLD\\x.dat", "c:\\BOOKS\\Old\\X.DAT"},
      {"C:\\books\\", "C:\\BOOKS\\"},
      {"C:\\", "C:\\"},
      {"C:\\NONE", ""},
      {"C:\\BOOKS\\NONE\\X.DAT", ""},
      {"BOOKS", ""},
      {"C:BOOKS\\OLD", ""},
      {"\\\\SERVER\\BOOKS", ""},
      {"\\BOOKS", ""},
      {"", ""},
  };
  for (const auto& row : rows) EXPECT_EQ(ALWGetLongPathName(row.szPath), row.szLong) << row.szPath;
}

TEST(SafeFileName, LosesItsDotAsWell) {
  CPathNameString sName("a?b*c\\d/e:f|g>h<i.j\"k l'&\xE9");
  ALW_EnsureSafeFileName(sName);
  EXPECT_EQ(sName, "a_b_c_d_e_f_g_h_i_j_k l'&\xE9");
}

TEST_F(DirectoriesTest, NamesABackupAfterTheDay) {
  EXPECT_EQ(GenerateBaseDefaultBackupName("Alder & Co."), "Alder & Co_-070403");
  EXPECT_EQ(GenerateBaseDefaultBackupName(nullptr), "-070403");
  m_platform.m_clock.m_now.year = 2000;
  EXPECT_EQ(GenerateBaseDefaultBackupName("a"), "a-070400");
  EXPECT_EQ(GenerateBaseDefaultBackupName(CString(300, 'x').c_str()), CString(259, 'x'));
}

TEST_F(DirectoriesTest, MakesATemporaryFile) {
  CPathNameString sPath("before");
  EXPECT_EQ(ALW_GetTempFileName("rpt", sPath), 0U) << "there is no such folder";
  EXPECT_EQ(sPath, "before");
  MakeDir("C:\\TEMP");
  EXPECT_EQ(ALW_GetTempFileName("report", sPath), 2U) << "number 1 has been tried";
  EXPECT_EQ(sPath, "C:\\TEMP\\rep2.TMP");
  EXPECT_EQ(ALW_GetTempFileName(nullptr, sPath), 3U);
  EXPECT_EQ(Found("C:\\TEMP\\*.TMP"), "3.TMP rep2.TMP ");
  m_platform.m_volumes.m_sTempFolder.clear();
  EXPECT_EQ(ALW_GetTempFileName("rpt", sPath), 0U);
  EXPECT_EQ(ALW_GetTempFileNameExt("rpt", "TXT", sPath), 0U);
}

TEST_F(DirectoriesTest, NumbersTemporaryFilesFromTheTimeOn) {
  MakeDir("C:\\TEMP");
  m_platform.m_clock.m_nSeconds = 0x12340FFE;
  CPathNameString sPath;
  EXPECT_EQ(ALW_GetTempFileNameExt("report", "txt", sPath), 0x0FFEU);
  EXPECT_EQ(sPath, "C:\\TEMP\\report0ffe.txt");
  EXPECT_EQ(ALW_GetTempFileNameExt("report", "txt", sPath), 0x0FFFU);
  EXPECT_EQ(Found("C:\\TEMP\\*.TXT"), "report0ffe.txt report0fff.txt ");
  EXPECT_EQ(m_platform.m_files.OpenHandles(), 0U);

  Disk().Write("C:\\TEMP\\REPORT1000.TXT", "somebody's");
  EXPECT_EQ(ALW_GetTempFileNameExt("report", "txt", sPath), 0x1001U) << "nothing was made";
  EXPECT_EQ(sPath, "C:\\TEMP\\report1000.txt");
  EXPECT_EQ(ALW_GetTempFileNameExt("report", "txt", sPath), 0x1001U) << "and now it is";
  EXPECT_EQ(sPath, "C:\\TEMP\\report1001.txt");
}

TEST_F(DirectoriesTest, GoesOnToAFreeNumberPastTheLastOne) {
  MakeDir("C:\\TEMP");
  m_platform.m_clock.m_nSeconds = 0xFFFF;
  Disk().Write("C:\\TEMP\\affff.b", "");
  Disk().Write("C:\\TEMP\\a10000.b", "");
  CPathNameString sPath;
  EXPECT_EQ(ALW_GetTempFileNameExt("a", "b", sPath), 0x10001U);
  EXPECT_EQ(sPath, "C:\\TEMP\\a10001.b");
  EXPECT_EQ(ALW_GetTempFileNameExt("a", "b", sPath), 0U) << "a file by the number 0";
  EXPECT_EQ(sPath, "C:\\TEMP\\a0000.b");
  EXPECT_EQ(ALW_GetTempFileNameExt("a", "b", sPath), 1U);
}

TEST_F(DirectoriesTest, MakesNoTemporaryFileWithoutRoomForItsName) {
  MakeDir("C:\\TEMP");
  CPathNameString sPath("before");
  EXPECT_EQ(ALW_GetTempFileNameExt(CString(250, 'a').c_str(), "txt", sPath), 0U);
  EXPECT_EQ(sPath, "before");
  EXPECT_EQ(ALW_GetTempFileNameExt("NONE\\a", "txt", sPath), 0U);
  EXPECT_EQ(Found("C:\\TEMP\\*.txt"), "");

  const CString sDeep = "C:\\TEMP\\" + CString(120, 'd') + '\\' + CString(125, 'e') + '\\';
  MakeDir(sDeep.substr(0, 128).c_str());
  MakeDir(sDeep.c_str());
  m_platform.m_volumes.m_sTempFolder = sDeep;
  sPath = "before";
  EXPECT_EQ(ALW_GetTempFileName("rpt", sPath), 0U);
  EXPECT_EQ(sPath, "before");
}

}  // namespace
}  // namespace ald
