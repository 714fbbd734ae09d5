#include "aldlib/messages/MessageLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "aldlib/Load.h"
#include "aldlib/frame/Alderlib.h"
#include "tests/messages/MessagesFixture.h"
#include "tests/support/TempFolder.h"

namespace ald {
namespace {

using testing::ElementsAre;

using MemoryLog = MessagesFixture;

// The log as the table of the format tells it, composed in another way than the library does.
CString LogOf(const CStringArray& records) {
  CString sLog;
  for (const CString& sRecord : records) {
    CString sLine = sRecord;
    sLine.resize(77, ' ');
    sLog += sLine + "\n" + '\0';
  }
  for (std::size_t i = records.size(); i < 50; ++i) sLog += CString(76, ' ') + "\r\n" + '\0';
  return sLog;
}

CString BytesOf(const LogRecord& record) {
  return CString(record.begin(), record.end());
}

TEST(LogRecords, HaveTheNumberThenTheTextThenBlanks) {
  const struct {
    MessageArgument message;
    CString sText;
    CString sRecord;
  } rows[] = {
      {20311, "|Invalid date", "20311  |Invalid date"},
      {7, "a\r\nb", "    7  a\r\nb"},
      {65535, CString(80, 'x'), "65535  " + CString(69, 'x')},
      {65536, "text", "       text"},
      {0, "text", "       text"},
      {-1, "", ""},
      {1, CString("cut\0here", 8), "    1  cut"},
  };
  for (const auto& row : rows) {
    const CString sRecord = BytesOf(ComposeLogRecord(row.message, row.sText));
    EXPECT_EQ(sRecord, LogOf({row.sRecord}).substr(0, 79));
    EXPECT_EQ(sRecord.size(), 79U);
  }
  EXPECT_EQ(BytesOf(BlankLogRecord()), LogOf({}).substr(0, 79));
}

TEST(LogRecords, AreReadBackUntilOneIsNotWhatALogHolds) {
  const CString sLog = LogOf({"20311  |Invalid date", "       text", "    1", ""});
  std::vector<LoggedMessage> messages;
  EXPECT_TRUE(ReadMessageLog(sLog, messages));
  ASSERT_EQ(messages.size(), 4U);
  EXPECT_EQ(messages[0].nNumber, 20311);
  EXPECT_EQ(messages[0].sText, "|Invalid date");
  EXPECT_EQ(messages[1].nNumber, 0);
  EXPECT_EQ(messages[1].sText, "text");
  EXPECT_EQ(messages[2].sText, "");

  for (std::size_t nSize = 0; nSize <= sLog.size(); ++nSize) {  // cut anywhere
    messages.clear();
    ASSERT_TRUE(ReadMessageLog(std::string_view(sLog).substr(0, nSize), messages)) << nSize;
    ASSERT_LE(messages.size(), 4U);
  }
  for (const CString& sOther : {CString("no log at all"), CString(3950, 'x'),
                                "20x11" + sLog.substr(5), "99999" + sLog.substr(5)}) {
    messages.clear();
    EXPECT_FALSE(ReadMessageLog(sOther, messages)) << sOther.substr(0, 20);
  }
}

TEST_F(MemoryLog, HoldsTheLastFiftyMessagesNewestFirst) {
  CStringArray expected;
  for (int i = 1; i <= 51; ++i) {
    const CString sNumber = std::to_string(i);
    SaveTheMessage(i, ("message " + sNumber).c_str());
    expected.insert(expected.begin(),
                    CString(5 - sNumber.size(), ' ') + sNumber + "  message " + sNumber);
    if (expected.size() > 50) expected.pop_back();
    ASSERT_EQ(LogBytes(), LogOf(expected)) << i;
  }
  EXPECT_EQ(Logged().back().nNumber, 2);
}

TEST_F(MemoryLog, IsNotWrittenWithoutMemoryOrARecordOrRoomForItsPath) {
  FailAllocation(1);
  SaveTheMessage(1, "lost");
  const CString sNoMemory = "20301  Not enough Memory to run.";  // the store's own message
  AlderLibDataType* const pRecord = std::exchange(MyAlderLibDataPtr, nullptr);
  SaveTheMessage(2, "lost");
  MyAlderLibDataPtr = pRecord;
  std::fill_n(MyAlderLibDataPtr->szDataPath, 259, 'p');
  SaveTheMessage(3, "lost");
  std::fill_n(MyAlderLibDataPtr->szDataPath, 260, '\0');
  EXPECT_EQ(LogBytes(), LogOf({sNoMemory}));
  SaveTheMessage(4, nullptr);
  EXPECT_EQ(LogBytes(), LogOf({"    4", sNoMemory}));
}

TEST_F(MemoryLog, TakesWhatFitsOnAFullDisk) {
  m_platform.m_disk.AddDrive('C', 1000);
  SaveTheMessage(1, "one");
  SaveTheMessage(2, "two");
  EXPECT_EQ(LogBytes(), LogOf({"    2  two", "    1  one"}).substr(0, 1000));
  EXPECT_EQ(Logged().size(), 2U);
}

TEST_F(MemoryLog, LosesNothingWhicheverStepFails) {
  const CString sBefore = LogOf({"    1  one"});
  const CString sAfter = LogOf({"    2  two", "    1  one"});
  int nFailed = 0;
  for (int nCall = 1;; ++nCall) {
    m_platform.m_disk.Write("C:\\ERRORLOG.TXT", sBefore);
    m_platform.m_files.FailCall(nCall);
    SaveTheMessage(2, "two");
    EXPECT_EQ(m_platform.m_files.OpenHandles(), 0U) << nCall;
    const bool bFailed = m_platform.m_files.HasFailed();
    m_platform.m_files.FailCall(0);
    const CString sLog = LogBytes();
    EXPECT_TRUE(sLog == sAfter || (bFailed && sLog == sBefore)) << nCall;
    if (!bFailed) break;
    ++nFailed;
  }
  EXPECT_GE(nFailed, 4);  // open, read, write, close at least
}

// On the system's own files, in a folder of the test's own.
class DiskLog : public testing::Test {
 protected:
  DiskLog() {
    MoveToPlatform(nullptr);
    const CString sFolder = m_folder.Path() + "/";
    sFolder.copy(MyAlderLibDataPtr->szDataPath, 259);
  }
  ~DiskLog() override { MoveToPlatform(nullptr); }

  CString Path() const { return m_folder.Path("ERRORLOG.TXT"); }
  CString Bytes() const {
    std::ifstream file(Path(), std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
  }

  TempFolder m_folder;
};

TEST_F(DiskLog, OfAnotherLengthIsReadAsFarAsItGoes) {
  const CString sWhole = LogOf({"    1  one", "    2  two"});
  const CStringArray added = {"    3  new", "    1  one", "    2  two"};
  const struct {
    CString sBefore;
    CString sAfter;
  } rows[] = {
      {"", LogOf({"    3  new"})},
      {sWhole.substr(0, 158), LogOf(added)},
      {sWhole.substr(0, 79 + 10),
       LogOf({"    3  new", "    1  one"}).replace(158, 10, "    2  two")},
      {sWhole.substr(0, 3949), LogOf(added)},
      {sWhole + "notes", LogOf(added) + "notes"},
  };
  for (const auto& row : rows) {
    m_folder.Write("ERRORLOG.TXT", row.sBefore);
    SaveTheMessage(3, "new");
    EXPECT_EQ(Bytes(), row.sAfter) << row.sBefore.size();
  }
}

TEST_F(DiskLog, IsSilentWhereItCannotBeWritten) {
  std::filesystem::create_directory(Path());
  SaveTheMessage(1, "lost");
  std::filesystem::remove(Path());
  const CString sNowhere = m_folder.Path() + "/missing/";
  sNowhere.copy(MyAlderLibDataPtr->szDataPath, 259);
  SaveTheMessage(1, "lost");
  EXPECT_TRUE(std::filesystem::is_empty(m_folder.Path()));
}

TEST_F(DiskLog, IsRefusedToASecondWriter) {
  SaveTheMessage(1, "one");
  const CString sBefore = Bytes();
  int aReady[2];
  int aDone[2];
  ASSERT_TRUE(pipe(aReady) == 0 && pipe(aDone) == 0);
  const pid_t nChild = fork();
  if (nChild == 0) {
    File file{};
    Lookup(&file, CPathNameString(Path().c_str()), 0);
    char c = file.nError == 0 ? 'y' : 'n';
    if (write(aReady[1], &c, 1) != 1 || read(aDone[0], &c, 1) != 1) _exit(1);
    Close(&file);
    _exit(0);
  }
  char c = '\0';
  ASSERT_EQ(read(aReady[0], &c, 1), 1);
  EXPECT_EQ(c, 'y');
  SaveTheMessage(2, "lost");
  EXPECT_EQ(Bytes(), sBefore);
  EXPECT_EQ(write(aDone[1], &c, 1), 1);
  int nStatus = 0;
  waitpid(nChild, &nStatus, 0);
  EXPECT_EQ(nStatus, 0);
  SaveTheMessage(3, "three");
  EXPECT_EQ(Bytes(), LogOf({"    3  three", "    1  one"}));
  for (const int nFile : {aReady[0], aReady[1], aDone[0], aDone[1]}) close(nFile);
}

// Whether the log is one that `nWriters` may have left: its numbers fall by one from record to
// record.
void ExpectWholeLog(const CString& sBytes) {
  std::vector<LoggedMessage> messages;
  ASSERT_TRUE(ReadMessageLog(sBytes, messages));
  ASSERT_TRUE(sBytes.empty() || sBytes.size() == kLogSize) << sBytes.size();
  for (std::size_t i = 1; i < messages.size(); ++i) {
    ASSERT_EQ(messages[i].nNumber + 1, messages[i - 1].nNumber);
  }
}

TEST_F(DiskLog, IsWholeWheneverItsWriterIsKilled) {
  int nNext = 1;
  for (int nRound = 0; nRound < 60; ++nRound) {
    // A fast machine would run out of numbers, which end at 65535.
    if (nNext > 30'000) {
      ASSERT_TRUE(std::filesystem::remove(Path().c_str()));
      nNext = 101;
    }
    const pid_t nChild = fork();
    if (nChild == 0) {
      for (int i = nNext; i < nNext + 30'000; ++i) {
        SaveTheMessage(i, ("message " + std::to_string(i)).c_str());
      }
      for (;;) pause();
    }
    // A different moment each time, from before the first write on.
    usleep(static_cast<useconds_t>(200 + 331 * nRound));
    kill(nChild, SIGKILL);
    waitpid(nChild, nullptr, 0);
    const CString sBytes = Bytes();
    ASSERT_NO_FATAL_FAILURE(ExpectWholeLog(sBytes)) << nRound;
    std::vector<LoggedMessage> messages;
    ReadMessageLog(sBytes, messages);
    if (!messages.empty()) nNext = messages.front().nNumber + 1;
    SaveTheMessage(nNext, "by the survivor");  // no lock is left behind
    messages.clear();
    ReadMessageLog(Bytes(), messages);
    ASSERT_EQ(messages.front().sText, "by the survivor");
    ++nNext;
  }
  EXPECT_GT(nNext, 100);
}

}  // namespace
}  // namespace ald
