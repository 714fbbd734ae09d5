#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/TempFolder.h"
#include "tests/tools/RunAldtool.h"

namespace aldtool {
namespace {

TEST(AldtoolFile, ShowsATextAsTheLibraryReadsIt) {
  const ald::TempFolder folder;
  const std::string sPath = folder.Write("NOTES.TXT", "a\r\nbc\rd\n\x1Anever");
  EXPECT_EQ(RunAldtool("file cat " + sPath).sOutput, "a\nbc\nd\n");
  EXPECT_EQ(RunAldtool("file lines '" + folder.Path() + "\\notes.txt'").sOutput,
            "     1     1  a\n     2     2  bc\n     3     1  d\n");
}

TEST(AldtoolFile, CopiesAndSaysWhatItCannotDo) {
  const ald::TempFolder folder;
  const std::string sFrom = folder.Write("A.DAT", "bytes");
  EXPECT_EQ(RunAldtool("file copy " + sFrom + ' ' + folder.Path("B.DAT")).nStatus, 0);
  std::ifstream in(folder.Path("B.DAT"));
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "bytes");
  const Outcome missing = RunAldtool("file cat " + folder.Path("NONE.TXT"));
  EXPECT_EQ(missing.nStatus, 2);
  EXPECT_EQ(missing.sOutput,
            "aldtool: " + folder.Path("NONE.TXT") + ": no such file (system error 2)\n");
}

TEST(AldtoolFile, LocksARangeUntilItsInputEnds) {
  const ald::TempFolder folder;
  const std::string sPath = folder.Write("A.DAT", "0123456789");
  // One holds its range as long as a pipe is open; the other gets the bytes behind it at once.
  const Outcome both = RunAldtool(
      "file lock " + sPath + " 0 5 < /dev/null && { sleep 0.3 | " ALDTOOL " file lock " + sPath +
      " 0 5 & sleep 0.1; " ALDTOOL " file lock " + sPath + " 5 5 < /dev/null; wait; }");
  EXPECT_EQ(both.nStatus, 0);
  const std::string sLocked = "locked until the end of the input\n";
  EXPECT_EQ(both.sOutput, sLocked + sLocked + sLocked);
}

}  // namespace
}  // namespace aldtool
