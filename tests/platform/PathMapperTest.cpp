#include "aldlib/platform/posix/PathMapper.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "tests/support/TempFolder.h"

namespace ald {
namespace {

namespace fs = std::filesystem;

// A folder with a few names, drives on it, and the process in it; all as before afterwards.
class PathMapperTest : public testing::Test {
 protected:
  PathMapperTest() {
    fs::create_directories(m_folder.Path("Data/old"));
    fs::create_directories(m_folder.Path("other"));
    m_folder.Write("Data/chart.dat", "");
    fs::current_path(m_folder.Path());
    m_paths.SetDrive('d', m_folder.Path() + "/");
  }
  ~PathMapperTest() override { fs::current_path(m_before); }

  // What the drive's path stands for, counted from the folder.
  CString Below(std::string_view sPath) {
    const CString sNative = m_paths.Native(sPath);
    return sNative.starts_with(m_folder.Path()) ? sNative.substr(m_folder.Path().size()) : sNative;
  }

  const ScopedVariable m_drives{kDrivesVariable, ""};
  const fs::path m_before = fs::current_path();
  const TempFolder m_folder;
  PathMapper m_paths;
};

TEST_F(PathMapperTest, TakesEachSpellingOfAPath) {
  const struct {
    const char* szPath;
    const char* szNative;
  } rows[] = {
      {"D:\\Data\\chart.dat", "/Data/chart.dat"},
      {"d:\\DATA\\CHART.DAT", "/Data/chart.dat"},
      {"D:/DATA/CHART.DAT", "/Data/chart.dat"},
      {"D:\\DATA\\.\\X\\..\\\\CHART.DAT", "/Data/chart.dat"},
      {"D:\\..\\..\\DATA", "/Data"},  // there is nothing above a drive
      {"D:\\DATA\\NEW.DAT", "/Data/NEW.DAT"},
      {"D:\\New\\Er\\A.dat", "/New/Er/A.dat"},
      {"D:\\DATA\\CHART.DAT\\A", "/Data/chart.dat/A"},
      {"D:\\DATA\\", "/Data/"},
      {"D:\\", ""},
      {"D:", ""},
      {"D:DATA\\OLD", "/Data/old"},  // the process stands in the root of the drive
      {"DATA\\CHART.DAT", "Data/chart.dat"},
      {"DATA", "Data"},
      {"..\\A.DAT", "../A.DAT"},
      {"data/chart.dat", "data/chart.dat"},  // native, so as it is
      {"/etc/HOSTS", "/etc/HOSTS"},
      {"", ""},
      {"E:\\DATA", ""},
      {"\\\\SERVER\\SHARE\\A.DAT", ""},
      {"C:\\", "/"},
      {"C:\\no such folder\\A", "/no such folder/A"},
  };
  for (const auto& row : rows) EXPECT_EQ(Below(row.szPath), row.szNative) << row.szPath;
}

TEST_F(PathMapperTest, LooksUpNamesJoinedToANativeFolder) {
  EXPECT_EQ(Below(m_folder.Path("Data") + "\\CHART.DAT"), "/Data/chart.dat");
  // As a lock's folder is spelled, whose letters are raised.
  m_folder.Write("Data/LOCK.LCK", "");
  CString sRaised = m_folder.Path("Data");
  for (char& c : sRaised) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  EXPECT_EQ(Below(sRaised + "\\LOCK.LCK"), "/Data/LOCK.LCK");
  // A native name that has a backslash in it is there under that name.
  EXPECT_EQ(Below(m_folder.Write("na\\me", "")), "/na\\me");
}

TEST_F(PathMapperTest, ChoosesAmongNamesThatDifferInCase) {
  m_folder.Write("Data/Chart.dat", "");
  m_folder.Write("Data/CHART.dat", "");
  EXPECT_EQ(Below("D:\\DATA\\chart.dat"), "/Data/chart.dat");
  EXPECT_EQ(Below("D:\\DATA\\Chart.dat"), "/Data/Chart.dat");
  EXPECT_EQ(Below("D:\\DATA\\CHART.DAT"), "/Data/CHART.dat");  // the first by its bytes
}

TEST_F(PathMapperTest, FoldsCodePageLettersAndKeepsTheBytes) {
  const CString sName = "Soci\xE9t\xE9 \x9A\xFF\xD7\xF7.dat";
  m_folder.Write(sName, "");
  EXPECT_EQ(Below("D:\\SOCI\xC9T\xC9 \x8A\x9F\xD7\xF7.DAT"), "/" + sName);
  // The two signs are no letters.
  EXPECT_EQ(Below("D:\\SOCI\xC9T\xC9 \x8A\x9F\xF7\xD7.DAT"), "/SOCI\xC9T\xC9 \x8A\x9F\xF7\xD7.DAT");
  EXPECT_EQ(Below("D:\\\xE9\xFF\x81"), "/\xE9\xFF\x81");
}

TEST_F(PathMapperTest, SeesEachChangeOfAFolderAtOnce) {
  for (int i = 0; i < 200; ++i) {
    const CString sName = "Data/n" + std::to_string(i) + ".Tmp";
    const CString sAsked = "D:\\DATA\\N" + std::to_string(i) + ".TMP";
    ASSERT_EQ(Below(sAsked), "/Data/N" + std::to_string(i) + ".TMP");
    m_folder.Write(sName, "");
    ASSERT_EQ(Below(sAsked), "/" + sName);
    fs::rename(m_folder.Path(sName), m_folder.Path("Data/N" + std::to_string(i) + ".tmp"));
    ASSERT_EQ(Below(sAsked), "/Data/N" + std::to_string(i) + ".tmp");
    fs::remove(m_folder.Path("Data/N" + std::to_string(i) + ".tmp"));
  }
}

TEST_F(PathMapperTest, SpellsNativePathsWithTheClosestDrive) {
  m_paths.SetDrive('E', m_folder.Path("Data"));
  EXPECT_EQ(m_paths.Spelled(m_folder.Path("Data/chart.dat")), "E:\\chart.dat");
  EXPECT_EQ(m_paths.Spelled(m_folder.Path("Data/chart.dat"), 'D'), "D:\\Data\\chart.dat");
  EXPECT_EQ(m_paths.Spelled(m_folder.Path("other"), 'E'), "D:\\other");
  EXPECT_EQ(m_paths.Spelled(m_folder.Path("Database")), "D:\\Database");
  EXPECT_EQ(m_paths.Spelled(m_folder.Path() + "/"), "D:\\");
  EXPECT_EQ(m_paths.Spelled("/"), "C:\\");
  EXPECT_EQ(m_paths.Spelled("a/b"), "a\\b");
  EXPECT_EQ(m_paths.Spelled("/na\\me"), "");
}

TEST_F(PathMapperTest, TakesDrivesFromTheEnvironment) {
  {
    const ScopedVariable drives(kDrivesVariable, "c=/srv/books/;D=/else;F=rel;7=/x;;G=/mnt");
    EXPECT_EQ(m_paths.DriveFolder('C'), "/srv/books");
    EXPECT_EQ(m_paths.DriveFolder('D'), m_folder.Path()) << "SetDrive goes before";
    EXPECT_EQ(m_paths.DriveFolder('F'), "");
    EXPECT_EQ(m_paths.Native("g:\\A"), "/mnt/A");
    EXPECT_EQ(m_paths.Spelled("/etc"), "Z:\\etc") << "the root folder keeps a letter";
  }
  EXPECT_EQ(m_paths.DriveFolder('c'), "/");
  EXPECT_EQ(m_paths.DriveFolder('Z'), "");
  EXPECT_FALSE(m_paths.SetDrive('1', "/"));
  EXPECT_FALSE(m_paths.SetDrive('E', "relative"));
}

TEST_F(PathMapperTest, KeepsAFolderForEachDrive) {
  EXPECT_EQ(m_paths.CurrentDrive(), 'D');
  EXPECT_EQ(m_paths.CurrentFolder('D'), "D:\\");
  EXPECT_TRUE(m_paths.ChangeFolder("DATA"));
  m_paths.SetDrive('E', m_folder.Path("other"));
  EXPECT_TRUE(m_paths.ChangeDrive('e'));
  EXPECT_EQ(fs::current_path(), fs::canonical(m_folder.Path("other")));
  EXPECT_EQ(m_paths.CurrentFolder('D'), "D:\\Data");
  EXPECT_EQ(Below("D:CHART.DAT"), "/Data/chart.dat");
  EXPECT_EQ(Below("\\A"), "/other/A");
  EXPECT_TRUE(m_paths.ChangeFolder("D:\\DATA\\OLD"));
  EXPECT_EQ(m_paths.CurrentDrive(), 'D');
  EXPECT_FALSE(m_paths.ChangeDrive('Q'));
  EXPECT_FALSE(m_paths.ChangeFolder("D:\\GONE"));
  EXPECT_EQ(m_paths.CurrentFolder('D'), "D:\\Data\\old");
  EXPECT_EQ(m_paths.CurrentFolder('Q'), "");
  // The same folder on another drive, since the drive was asked for.
  EXPECT_TRUE(m_paths.ChangeFolder("C:" + m_paths.Spelled(m_folder.Path("other"), 'C').substr(2)));
  EXPECT_EQ(m_paths.CurrentDrive(), 'C');
  EXPECT_TRUE(m_paths.ChangeFolder(".."));
  EXPECT_EQ(m_paths.CurrentDrive(), 'C');
}

}  // namespace
}  // namespace ald
