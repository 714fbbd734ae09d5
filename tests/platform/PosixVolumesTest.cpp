#include "aldlib/platform/posix/PosixVolumes.h"

#include <algorithm>
#include <filesystem>

#include <gtest/gtest.h>

#include "tests/support/TempFolder.h"

namespace ald {
namespace {

namespace fs = std::filesystem;

// Drive D is a folder of the test.
class PosixVolumesTest : public testing::Test {
 protected:
  PosixVolumesTest() { m_paths.SetDrive('D', m_folder.Path()); }
  ~PosixVolumesTest() override {
    fs::current_path(m_before);
    EXPECT_EQ(OpenDescriptors(), m_nDescriptors) << "a search has left something open";
  }

  static std::ptrdiff_t OpenDescriptors() {
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
  }

  CString Found(const char* szMask) {
    CString sNames;
    _finddata_t record;
    SearchHandle hSearch = m_volumes.StartSearch(szMask, record);
    if (hSearch == kNoSearch) return {};
    do sNames.append(record.name).append(" ");
    while (m_volumes.ContinueSearch(hSearch, record));
    m_volumes.EndSearch(hSearch);
    return sNames;
  }

  const std::ptrdiff_t m_nDescriptors = OpenDescriptors();
  const ScopedVariable m_drives{kDrivesVariable, ""};
  const fs::path m_before = fs::current_path();
  const TempFolder m_folder;
  PathMapper m_paths;
  PosixVolumes m_volumes{m_paths};
};

TEST_F(PosixVolumesTest, FindsNamesInTheOrderOfTheirCapitals) {
  fs::create_directory(m_folder.Path("Old"));
  for (const char* szName : {"chart.dat", "CHART.dat", "b\xE9.DAT", "B\xC9.dat", "na\\me.dat",
                             "_.DAT", "zz.txt", ".x.dat"}) {
    m_folder.Write(szName, "");
  }
  EXPECT_EQ(Found("D:\\*.DAT"), ".x.dat B\xC9.dat b\xE9.DAT CHART.dat chart.dat _.DAT ");
  EXPECT_EQ(Found("d:\\*B\xE9*"), "B\xC9.dat b\xE9.DAT ");
  EXPECT_EQ(Found("D:\\old\\*.*"), ". .. ");
  EXPECT_EQ(Found("D:\\*O*"), "Old ") << "the root of a drive has no dots";
  EXPECT_EQ(Found("D:\\*.*").substr(0, 7), ".x.dat ");
  EXPECT_EQ(Found("D:\\Chart.dat"), "CHART.dat ") << "one name: the first by its bytes";
  EXPECT_EQ(Found((m_folder.Path() + "\\Z*").c_str()), "zz.txt ");
  fs::current_path(m_folder.Path());
  EXPECT_EQ(Found("z*"), "zz.txt ");
  EXPECT_EQ(Found("*").substr(0, 7), ".x.dat ") << "nor has it where it is the current folder";
  EXPECT_EQ(Found("D:z*"), "zz.txt ");
  EXPECT_EQ(Found("D:\\zz.txt\\*"), "");
  EXPECT_EQ(Found("E:\\*"), "");
}

TEST_F(PosixVolumesTest, TellsWhatAnEntryIs) {
  m_folder.Write("plain.dat", "12345");
  m_folder.Write("shut.dat", "");
  fs::create_directory(m_folder.Path("folder"));
  fs::permissions(m_folder.Path("shut.dat"), fs::perms::owner_read);
  fs::create_symlink("folder", m_folder.Path("link"));
  fs::create_symlink("nowhere", m_folder.Path("lost"));
  const struct {
    const char* szPath;
    std::uint32_t nAttribute;
    std::int64_t nSize;
  } rows[] = {{"D:\\PLAIN.DAT", 0x20, 5},
              {"D:\\shut.dat", 0x21, 0},
              {"D:\\folder", 0x10, 0},
              {"D:\\link", 0x10, 0},
              {"D:\\lost", 0x20, 7}};
  for (const auto& row : rows) {
    _finddata_t record{};
    const SearchHandle hSearch = m_volumes.StartSearch(row.szPath, record);
    EXPECT_EQ(record.attrib, row.nAttribute) << row.szPath;
    EXPECT_EQ(record.size, row.nSize) << row.szPath;
    m_volumes.EndSearch(hSearch);
  }
}

TEST_F(PosixVolumesTest, GoesOnWhenWhatItListedVanishes) {
  fs::create_directory(m_folder.Path("books"));
  for (const char* szName : {"a", "b", "c", "d"}) m_folder.Write(CString("books/") + szName, "");
  _finddata_t record;
  const SearchHandle hSearch = m_volumes.StartSearch("D:\\BOOKS\\?", record);
  fs::remove(m_folder.Path("books/b"));
  ASSERT_TRUE(m_volumes.ContinueSearch(hSearch, record));
  EXPECT_STREQ(record.name, "c");
  fs::remove_all(m_folder.Path("books"));
  EXPECT_FALSE(m_volumes.ContinueSearch(hSearch, record));
  EXPECT_STREQ(record.name, "c");
  m_volumes.EndSearch(hSearch);
  m_volumes.EndSearch(hSearch);
  EXPECT_FALSE(m_volumes.ContinueSearch(hSearch, record));
}

TEST_F(PosixVolumesTest, MakesFoldersAndMovesIntoThem) {
  EXPECT_TRUE(m_volumes.MakeFolder("D:\\Books"));
  EXPECT_FALSE(m_volumes.MakeFolder("D:\\BOOKS"));
  EXPECT_FALSE(m_volumes.MakeFolder("E:\\A"));
  EXPECT_FALSE(m_volumes.MakeFolder(nullptr));
  EXPECT_TRUE(m_volumes.ChangeDrive(3));
  EXPECT_FALSE(m_volumes.ChangeDrive(25));
  EXPECT_FALSE(m_volumes.ChangeDrive(65000));
  EXPECT_TRUE(m_volumes.ChangeFolder("BOOKS"));
  EXPECT_EQ(m_volumes.CurrentFolder(3), "D:\\Books");
  EXPECT_EQ(m_volumes.CurrentFolder(9), "");
  EXPECT_TRUE(m_volumes.RemoveFolder("\\books"));
  EXPECT_EQ(m_volumes.CurrentFolder(3), "") << "the process stands in a folder that is gone";
  EXPECT_FALSE(m_volumes.RemoveFolder("D:\\BOOKS"));
  EXPECT_TRUE(m_volumes.ChangeFolder("D:\\"));
  EXPECT_EQ(m_volumes.CurrentFolder(3), "D:\\");
}

TEST_F(PosixVolumesTest, GivesANativePathItsSpelling) {
  fs::create_directory(m_folder.Path("Books"));
  char szShort[260];
  const CString sNative = m_folder.Path("Books");
  EXPECT_EQ(m_volumes.ShortPath(sNative.c_str(), szShort, 260), 8U);
  EXPECT_STREQ(szShort, "D:\\Books");
  EXPECT_EQ(m_volumes.ShortPath(sNative.c_str(), szShort, 4), 8U);
  EXPECT_STREQ(szShort, "D:\\");
  EXPECT_EQ(m_volumes.ShortPath("D:\\BOOKS", szShort, 260), 0U);
  EXPECT_EQ(m_volumes.ShortPath(m_folder.Path("none").c_str(), szShort, 260), 0U);
  FolderEntry entry;
  EXPECT_TRUE(m_volumes.LookUp("D:\\BOOKS", entry));
  EXPECT_EQ(entry.sName, "Books");
  EXPECT_FALSE(m_volumes.LookUp("D:\\BOOKS\\", entry));
  EXPECT_FALSE(m_volumes.LookUp("D:\\", entry));
}

TEST_F(PosixVolumesTest, TellsTheSpaceOfTheVolume) {
  std::uint64_t nFree = 0;
  std::uint64_t nTotal = 0;
  ASSERT_EQ(m_volumes.DiskSpace("D:\\", nFree, nTotal), DiskSpaceAnswer::Good);
  EXPECT_EQ(nTotal, fs::space(m_folder.Path()).capacity);
  EXPECT_LE(nFree, nTotal);
  DiskClusters clusters;
  ASSERT_TRUE(m_volumes.DiskSpaceInClusters("D:\\", clusters));
  EXPECT_EQ(std::uint64_t{clusters.nTotalClusters} * clusters.nSectorsPerCluster *
                clusters.nBytesPerSector,
            nTotal);
  EXPECT_EQ(m_volumes.DiskSpace("D:\\NONE", nFree, nTotal), DiskSpaceAnswer::Failed);
}

TEST_F(PosixVolumesTest, MakesTemporaryFilesOfNewNames) {
  const ScopedVariable temp("TMPDIR", m_folder.Path());
  EXPECT_EQ(m_volumes.TempFolder(), "D:\\");
  CString sFirst;
  CString sSecond;
  const std::uint32_t nFirst = m_volumes.MakeTempFile("D:\\", "report", sFirst);
  const std::uint32_t nSecond = m_volumes.MakeTempFile("D:", "", sSecond);
  char szName[20];
  std::snprintf(szName, sizeof szName, "D:\\rep%X.TMP", nFirst);
  EXPECT_EQ(sFirst, szName);
  EXPECT_EQ(fs::file_size(m_paths.Native(sFirst)), 0U);
  EXPECT_TRUE(fs::exists(m_paths.Native(sSecond)));
  EXPECT_NE(nFirst, nSecond);
  EXPECT_EQ(m_volumes.MakeTempFile("D:\\NONE", "a", sFirst), 0U);
  EXPECT_EQ(m_volumes.MakeTempFile("", "a", sFirst), 0U);
}

}  // namespace
}  // namespace ald
