#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "aldlib/files/SingleUser.h"
#include "tests/support/TempFolder.h"
#include "tests/tools/RunAldtool.h"

namespace {

using ald::Areas;
using ald::CALWSingleUserAccess;
using ald::LockMode;
using ald::TempFolder;
using aldtool::Outcome;
using aldtool::RunAldtool;
using testing::HasSubstr;

TEST(Lock, HoldsTheAreaWhileTheCommandRunsAndEndsAsItDoes) {
  const TempFolder folder;
  const std::string sLock = "lock 7 " + folder.Path() + " -- ";
  // The command looks at the file, and does not get the area itself.
  Outcome outcome = RunAldtool(sLock + "ls " + folder.Path());
  EXPECT_EQ(outcome.sOutput, "SUA00007.LCK\n");
  EXPECT_EQ(outcome.nStatus, 0);
  outcome = RunAldtool(sLock + ALDTOOL " " + sLock + "true");
  EXPECT_THAT(outcome.sOutput, HasSubstr("another program holds it alone"));
  EXPECT_EQ(outcome.nStatus, 2);
  EXPECT_EQ(RunAldtool("lock -s 7 " + folder.Path() + " -- " ALDTOOL " lock -s 7 " + folder.Path() +
                       " -- date")
                .nStatus,
            0);

  EXPECT_EQ(RunAldtool(sLock + "sh -c 'exit 37'").nStatus, 37);
  EXPECT_EQ(RunAldtool(sLock + "sh -c 'kill -9 $$'").nStatus, 128 + 9);
  outcome = RunAldtool(sLock + R"(printf '<%s>' "it's" 'a  b' '$HOME')");
  EXPECT_EQ(outcome.sOutput, "<it's><a  b><$HOME>");
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(Lock, SaysWhyTheAreaIsNotToBeHad) {
  const TempFolder folder;
  ASSERT_TRUE(CALWSingleUserAccess::Lock(Areas{2}, 0, LockMode::Shared, folder.Path().c_str()));
  Outcome outcome = RunAldtool("lock 2 " + folder.Path() + " -- echo ran");
  EXPECT_EQ(outcome.sOutput, "aldtool: area 2 of " + folder.Path() +
                                 " was not locked: other programs hold it, or its file may not be "
                                 "written\n");
  EXPECT_EQ(outcome.nStatus, 2);
  EXPECT_EQ(RunAldtool("lock 3 " + folder.Path() + " -- true").nStatus, 0);
  CALWSingleUserAccess::Unlock(Areas{2}, folder.Path().c_str());

  outcome = RunAldtool("lock 2 " + folder.Path("gone") + " -- echo ran");
  EXPECT_THAT(outcome.sOutput, HasSubstr("there is no such folder"));
  EXPECT_EQ(outcome.nStatus, 2);
  EXPECT_NE(RunAldtool("lock 9 " + folder.Path() + " -- true").nStatus, 0);
}

}  // namespace
