#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>

#include "aldlib/platform/Platform.h"
#include "tests/support/TempFolder.h"
#include "tests/tools/RunAldtool.h"

namespace {

using ald::TempFolder;
using aldtool::Outcome;
using aldtool::RunAldtool;
using testing::HasSubstr;

// Holds a file of this process open.
class Hold {
 public:
  Hold(const std::string& sPath, ald::FileAccess eAccess, ald::FileSharing eSharing) {
    EXPECT_EQ(ald::CurrentPlatform().files.Open(sPath.c_str(), eAccess, eSharing,
                                                ald::FileDisposition::OpenExisting, m_hFile),
              0U);
  }
  Hold(const Hold&) = delete;
  Hold& operator=(const Hold&) = delete;
  ~Hold() { ald::CurrentPlatform().files.Close(m_hFile); }

 private:
  ald::FileHandle m_hFile{};
};

TEST(Company, ListsItsFilesAndWhoHasThem) {
  const ald::ScopedVariable zone("TZ", "UTC");
  const TempFolder folder;
  for (const char* szFile :
       {"chart.dat", "Vendor.Dat", "JOURNAL.DAT", "COMPANY.DAT", "notes.txt"}) {
    const std::string sPath = folder.Write(szFile, std::string(1234, 'x'));
    // The fourth of July 2003.
    std::filesystem::last_write_time(
        sPath, std::chrono::file_clock::from_sys(
                   std::chrono::sys_seconds(std::chrono::seconds(1057309507))));
  }
  const Hold alone(folder.Path("chart.dat"), ald::FileAccess::ReadWrite, ald::FileSharing::None);
  const Hold shared(folder.Path("Vendor.Dat"), ald::FileAccess::Read, ald::FileSharing::ReadWrite);
  const Outcome outcome = RunAldtool("company " + folder.Path());
  EXPECT_EQ(outcome.nStatus, 0);
  EXPECT_EQ(outcome.sOutput,
            "chart.dat               1234   Jul 4, 2003  held alone\n"
            "COMPANY.DAT             1234   Jul 4, 2003  free\n"
            "Vendor.Dat              1234   Jul 4, 2003  in use\n"
            "JOURNAL.DAT             1234   Jul 4, 2003  free, of the format before\n"
            "4 files, 4936 bytes, 2 in use\n");
}

TEST(Company, TakesBothSpellingsOfItsFolder) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.Path("Books"));
  EXPECT_EQ(RunAldtool("company " + folder.Path("Books")).nStatus, 1);
  folder.Write("Books/VERSION.TXT", "13");
  std::string sSpelled = "C:" + folder.Path("BOOKS");
  std::replace(sSpelled.begin(), sSpelled.end(), '/', '\\');
  for (const std::string& sFolder : {folder.Path("Books"), folder.Path("Books/"),
                                     "'" + sSpelled + "'", "'" + sSpelled + "\\'"}) {
    EXPECT_THAT(RunAldtool("company " + sFolder).sOutput, HasSubstr("1 file, 2 bytes\n"))
        << sFolder;
  }
  EXPECT_EQ(RunAldtool("company " + folder.Path("none")).nStatus, 2);
  EXPECT_EQ(RunAldtool("company Q:\\\\").nStatus, 2);
}

}  // namespace
