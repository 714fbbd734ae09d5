// Opening, blocks, positions, locks and names.
#include "aldlib/files/Filesyst.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>

#include "aldlib/files/FileErrors.h"
#include "aldlib/files/FileNames.h"
#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

class FilesystTest : public testing::Test {
 protected:
  void TearDown() override { EXPECT_EQ(m_platform.m_files.OpenHandles(), 0U); }

  void Put(const char* szPath, std::string_view sText) { m_platform.m_disk.Write(szPath, sText); }
  std::string Text(const char* szPath) {
    MemoryNodePtr pNode;
    return m_platform.m_disk.Find(szPath, pNode) == kNoSystemError ? pNode->sData : "(none)";
  }
  void MakeReadOnly(const char* szPath) {
    MemoryNodePtr pNode;
    m_platform.m_disk.Find(szPath, pNode);
    pNode->bReadOnly = true;
  }
  std::uint32_t LookupError(const char* szPath) {
    File file;
    Lookup(&file, szPath, 0);
    const std::uint32_t nError = file.nError;
    if (nError == 0) Close(&file);
    return nError;
  }

  FakePlatform m_platform;
};

TEST_F(FilesystTest, KeepsTheBytesOfItsRecords) {
  File file;
  file.nError = 0x04030201;
  file.bEof = 5;
  file.bCreated = 6;
  file.nTransferred = 0x0A090807;
  file.hFile = 0x0C0B;
  file.nDirection = 0x100F0E0D;
  file.bAgain = 0x11;
  file.nLast = 0x1312;
  std::memset(file.aBuffer, 0xBB, sizeof file.aBuffer);
  file.nBufPos = 0x1514;
  file.nBufFill = 0x1716;
  file.nSignature = kFileSignature;
  file.nSystemError = 0x1918;
  std::string sExpected;
  for (char c = 1; c <= 0x13; ++c) sExpected += c;
  sExpected += std::string(256, '\xBB') + "\x14\x15\x16\x17\x69\xFC\x91\x2B\x18\x19";
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(&file), sizeof file), sExpected);

  const LockRec range{0x04030201, 0x08070605};
  EXPECT_EQ(std::memcmp(&range, "\1\2\3\4\5\6\7\10", sizeof range), 0);
}

TEST_F(FilesystTest, TellsWhyAFileCannotBeOpened) {
  Put("HELD.DAT", "x");
  Put("LOCKED.DAT", "x");
  MakeReadOnly("LOCKED.DAT");
  File holder;
  MultiLookup(&holder, "HELD.DAT", 0, 1, 0);
  const struct {
    const char* szPath;
    std::uint32_t nError, nSystemError;
  } rows[] = {{"NONE.DAT", 5, 2},   {"NONE\\A.DAT", 4, 3}, {"LOCKED.DAT", 11, 5},
              {"HELD.DAT", 17, 32}, {"C:\\", 11, 5},       {"", 4, 3}};
  for (const auto& row : rows) {
    File file;
    Lookup(&file, row.szPath, 0);
    EXPECT_EQ(file.nError, row.nError) << row.szPath;
    EXPECT_EQ(file.nSystemError, row.nSystemError) << row.szPath;
    EXPECT_EQ(file.nSignature, 0U);
  }
  // Numbers that the disk in memory has no cause to give.
  for (const auto& [nSystemError, nError] :
       {std::pair{kTooManyOpenFiles, 7U}, {kInvalidHandle, 6U}, {kGeneralFailure, 1U}}) {
    m_platform.m_files.FailCall(1, nSystemError);
    EXPECT_EQ(LookupError("HELD.DAT"), nError);
  }
  Close(&holder);
}

TEST_F(FilesystTest, OpensForTheUseAndTheSharingAskedFor) {
  Put("A.DAT", "0123");
  const struct {
    std::uint8_t bMulti, bReadOnly;
    bool bOtherReader, bOtherWriter, bWrites;
  } rows[] = {{0, 0, true, false, true},
              {0, 1, true, false, false},
              {1, 0, true, true, true},
              {1, 1, true, true, false}};
  for (const auto& row : rows) {
    File file;
    MultiLookup(&file, "A.DAT", row.bMulti, row.bReadOnly, 0);
    ASSERT_EQ(file.nError, 0U);
    EXPECT_EQ(file.bEof + file.bCreated, 0);
    File other;
    MultiLookup(&other, "A.DAT", 1, 1, 0);
    EXPECT_EQ(other.nError == 0, row.bOtherReader);
    Close(&other);
    File writer;
    MultiLookup(&writer, "A.DAT", 1, 0, 0);
    EXPECT_EQ(writer.nError == 0, row.bOtherWriter);
    if (row.bOtherWriter) Close(&writer);
    EXPECT_EQ(WriteBlock(&file, 1, "0"), row.bWrites);
    Close(&file);
  }
}

TEST_F(FilesystTest, MakesNewFilesForItselfAlone) {
  Put("OLD.DAT", "old");
  const auto expectNew = [this](File& file, const char* szPath) {
    EXPECT_EQ(file.nError, 0U) << szPath;
    EXPECT_EQ(file.bEof + file.bCreated, 2) << szPath;
    EXPECT_EQ(LookupError(szPath), 17U) << szPath;
    Close(&file);
  };
  File file;
  Lookup(&file, "NEW.DAT", 1);
  expectNew(file, "NEW.DAT");
  Create32(&file, "OLD.DAT");  // said to be new, with all that is in it
  expectNew(file, "OLD.DAT");
  EXPECT_EQ(Text("OLD.DAT"), "old");
  Create(&file, "OLD.DAT");
  expectNew(file, "OLD.DAT");
  EXPECT_EQ(Text("OLD.DAT"), "");
}

TEST_F(FilesystTest, OpensByClassicFlags) {
  OpenRecord record;
  FileHandle hFile{};
  EXPECT_EQ(ALWOpenFile("NONE.DAT", &record, kOpenRead), -1);
  EXPECT_EQ(record.nErrCode, 2);
  // Made, and open for itself.
  const int nFirst = ALWOpenFile("A.DAT", &record, kOpenCreate | kOpenReadWrite | kOpenExclusive);
  EXPECT_GT(nFirst, 0);
  EXPECT_EQ(record.nErrCode, 0);
  EXPECT_EQ(ALWOpenFile("A.DAT", &record, kOpenRead | kOpenDenyNone), -1);
  EXPECT_EQ(record.nErrCode, 32);
  hFile = static_cast<FileHandle>(nFirst);
  EXPECT_EQ(m_platform.m_files.Close(hFile), kNoSystemError);

  // There already: it is opened as it is, and the record says so.
  Put("A.DAT", "old");
  const int nSecond = ALWOpenFile("A.DAT", &record, kOpenCreate | kOpenReadWrite);
  EXPECT_GT(nSecond, 0);
  EXPECT_EQ(record.nErrCode, 80);
  EXPECT_EQ(Text("A.DAT"), "old");
  // Without a flag of denial, and denying to read.
  EXPECT_EQ(ALWOpenFile("A.DAT", nullptr, kOpenWrite | kOpenDenyRead), -1);
  EXPECT_EQ(m_platform.m_files.Close(static_cast<FileHandle>(nSecond)), kNoSystemError);
}

TEST_F(FilesystTest, RefusesARecordThatWasNeverOpened) {
  File file;
  char chCharacter = 'x';
  std::int32_t nPosition = 0;
  std::uint32_t nLength = 0;
  std::uint16_t nWord = 0;
  char aBytes[4] = {};
  CFixedString<8> sLine;
  const LockRec range{0, 1};
  const std::function<void()> operations[] = {
      [&] { ReadLongBlock(&file, 4, aBytes); },
      [&] { WriteLongBlock(&file, 4, aBytes); },
      [&] { SetPos(&file, 0); },
      [&] { GetPos(&file, &nPosition); },
      [&] { FileLength(&file, &nLength); },
      [&] { FileReset(&file); },
      [&] { EXPECT_EQ(GetHandle(&file), 0); },
      [&] { Close(&file); },
      [&] { ReadChar(&file, &chCharacter); },
      [&] { ReadWord(&file, &nWord); },
      [&] { Again(&file); },
      [&] { WriteChar(&file, 'x'); },
      [&] { WriteWord(&file, 1); },
      [&] { EXPECT_EQ(ReadLn(&file, sLine), 0); },
      [&] { EXPECT_EQ(WriteLn(&file, "x"), 0); },
      [&] { EXPECT_EQ(Lock(&file, &range), 0); },
      [&] { UnLock(&file, &range); },
      [&] { ShareIsLoaded(&file); },
  };
  for (std::size_t i = 0; i < std::size(operations); ++i) {
    file.nError = 0;
    operations[i]();
    EXPECT_EQ(file.nError, 6U) << "operation " << i;
  }
  EXPECT_EQ(chCharacter, 0);
}

TEST_F(FilesystTest, FailsOnAClosedRecordAndTouchesNothing) {
  Put("A.DAT", "0123");
  File file;
  Lookup(&file, "A.DAT", 0);
  Close(&file);
  EXPECT_EQ(file.hFile, 0);
  EXPECT_EQ(file.nError, 0U);
  EXPECT_EQ(file.nSignature, kFileSignature);
  char chCharacter = 0;
  ReadChar(&file, &chCharacter);
  EXPECT_EQ(file.nError, 1U);
  EXPECT_EQ(file.nTransferred, 0U);
  Close(&file);
  EXPECT_EQ(file.nError, 1U);
}

TEST_F(FilesystTest, ReadsAndWritesBlocks) {
  File file;
  Create(&file, "A.DAT");
  EXPECT_TRUE(WriteBlock(&file, 5, "hello"));
  EXPECT_EQ(file.nTransferred, 5U);
  SetPos(&file, 0);
  EXPECT_EQ(file.bEof, 1);  // of a new file, and no block read clears it
  file.bEof = 0;
  char aBytes[8] = {};
  EXPECT_TRUE(ReadBlock(&file, 5, aBytes));
  EXPECT_EQ(file.bEof, 0);
  EXPECT_TRUE(ReadBlock(&file, 8, aBytes));
  EXPECT_EQ(file.nTransferred, 0U);
  EXPECT_EQ(file.bEof, 1);
  EXPECT_EQ(std::string(aBytes), "hello");
  m_platform.m_files.FailCall(1);
  EXPECT_FALSE(ReadBlock(&file, 1, aBytes));
  EXPECT_EQ(file.nError, 1U);
  m_platform.m_files.FailCall(1);
  EXPECT_FALSE(WriteBlock(&file, 1, aBytes));
  EXPECT_EQ(file.nError, 1U);
  EXPECT_FALSE(ReadBlock(&file, 1, nullptr));
  EXPECT_FALSE(ReadBlock(nullptr, 1, aBytes));
  Close(&file);
}

TEST_F(FilesystTest, MovesLongBlocksWholeOrNotAtAll) {
  std::string sBytes(150'000, '\0');
  for (std::size_t i = 0; i < sBytes.size(); ++i) sBytes[i] = static_cast<char>(i % 251);
  File file;
  Create(&file, "A.DAT");
  const auto nSize = static_cast<std::uint32_t>(sBytes.size());
  EXPECT_TRUE(WriteLongBlock(&file, nSize, sBytes.data()));
  EXPECT_EQ(file.nTransferred, nSize);
  SetPos(&file, 0);
  std::string sRead(sBytes.size() + 1, 'x');
  EXPECT_TRUE(ReadLongBlock(&file, nSize, sRead.data()));
  EXPECT_EQ(sRead, sBytes + 'x');
  SetPos(&file, 1);
  EXPECT_FALSE(ReadLongBlock(&file, nSize, sRead.data()));
  EXPECT_EQ(file.nError, 1U);
  EXPECT_EQ(file.nTransferred, nSize - 1);
  m_platform.m_files.FailCall(2);  // the second piece, by a failure of the system
  EXPECT_FALSE(WriteLongBlock(&file, nSize, sBytes.data()));
  EXPECT_EQ(file.nError, 8U);
  EXPECT_EQ(file.nTransferred, 61440U);
  Close(&file);
}

TEST_F(FilesystTest, TellsTheLogicalPosition) {
  Put("A.DAT", std::string(1000, 'x'));
  File file;
  std::int32_t nPosition = 0;
  std::uint32_t nLength = 0;
  char chCharacter = 0;
  Lookup(&file, "A.DAT", 0);
  ReadChar(&file, &chCharacter);
  GetPos(&file, &nPosition);
  EXPECT_EQ(nPosition, 1);
  FileLength(&file, &nLength);
  EXPECT_EQ(nLength, 1000U);
  GetPos(&file, &nPosition);
  EXPECT_EQ(nPosition, 1);
  FileReset(&file);
  SetPos(&file, 998);
  for (int i = 0; i < 3; ++i) WriteChar(&file, kEndOfLine);
  GetPos(&file, &nPosition);
  EXPECT_EQ(nPosition, 1004);
  FileLength(&file, &nLength);  // what waits in the buffer does not count
  EXPECT_EQ(nLength, 1000U);
  file.nError = 77;
  SetPos(&file, 3);
  EXPECT_EQ(file.nError, 77U);
  FileLength(&file, &nLength);
  EXPECT_EQ(nLength, 1004U);
  SetPos(&file, -1);
  GetPos(&file, &nPosition);
  EXPECT_EQ(nPosition, 3);
  Close(&file);
}

TEST_F(FilesystTest, KeepsWhatCannotBeWrittenUntilThereIsRoom) {
  m_platform.m_disk.AddDrive('D', 100);
  File file;
  std::int32_t nPosition = 0;
  Create(&file, "D:\\A.TXT");
  for (int i = 0; i < 150; ++i) WriteChar(&file, static_cast<char>('0' + i % 10));
  Close(&file);
  EXPECT_EQ(file.nError, 8U);
  EXPECT_NE(file.hFile, 0);
  SetPos(&file, 0);
  EXPECT_EQ(file.nError, 8U);
  GetPos(&file, &nPosition);
  EXPECT_EQ(nPosition, 150);

  MemoryNodePtr pNode;
  m_platform.m_disk.Find("D:\\A.TXT", pNode);
  EXPECT_EQ(pNode->sData.size(), 100U);
  m_platform.m_disk.AddDrive('D', 1000);  // the open file stays, and now there is room
  Close(&file);
  EXPECT_EQ(file.nError, 0U);
  std::string sExpected;
  for (int i = 0; i < 150; ++i) sExpected += static_cast<char>('0' + i % 10);
  EXPECT_EQ(pNode->sData, sExpected);  // once, and in its place
}

TEST_F(FilesystTest, TriesTenTimesForALockASecondApart) {
  Put("A.DAT", "0123");
  File first;
  File second;
  const LockRec range{1, 2};
  MultiLookup(&first, "A.DAT", 1, 0, 0);
  MultiLookup(&second, "A.DAT", 1, 0, 0);
  SetPos(&second, 2);
  EXPECT_EQ(Lock(&first, &range), 1);
  second.nError = 77;
  EXPECT_EQ(Lock(&second, &range), 0);
  EXPECT_EQ(second.nError, 77U);
  EXPECT_EQ(m_platform.m_clock.m_sleeps, std::vector<std::uint32_t>(9, 1000));
  std::int32_t nPosition = 0;
  GetPos(&second, &nPosition);
  EXPECT_EQ(nPosition, 2);
  UnLock(&first, &range);
  EXPECT_EQ(Lock(&second, &range), 1);
  EXPECT_EQ(m_platform.m_clock.m_sleeps.size(), 9U);
  EXPECT_EQ(ShareIsLoaded(&first), 1);
  EXPECT_EQ(Lock(&first, nullptr), 0);
  m_platform.m_files.FailCall(1, kInvalidFunction);
  EXPECT_EQ(ShareIsLoaded(&first), 0);
  m_platform.m_files.FailCall(1, kLockViolation);
  EXPECT_EQ(ShareIsLoaded(&first), 1);
  Close(&first);
  Close(&second);
}

TEST_F(FilesystTest, RenamesWithTheNumbersOfTheRuntime) {
  Put("A.DAT", "a");
  Put("B.DAT", "b");
  EXPECT_EQ(Rename("NONE.DAT", "C.DAT"), 2);
  EXPECT_EQ(Rename("A.DAT", "B.DAT"), 17);
  File file;
  MultiLookup(&file, "A.DAT", 1, 1, 0);
  EXPECT_EQ(Rename("A.DAT", "C.DAT"), 13);
  EXPECT_EQ(FileDelete("A.DAT"), 1);
  Close(&file);
  EXPECT_EQ(Rename(CPathNameString("A.DAT"), CFixedString<13>("D.DAT")), 0);
  EXPECT_EQ(Rename(CFixedString<13>("D.DAT"), CPathNameString("C.DAT")), 0);
  EXPECT_EQ(FileExist("A.DAT"), 0);
  EXPECT_EQ(FileExist("C.DAT"), 1);
  EXPECT_EQ(FileExist("C:\\"), 1);
  EXPECT_EQ(FileDelete("C.DAT"), 0);
  EXPECT_EQ(FileDelete("C.DAT"), 1);
}

TEST_F(FilesystTest, DeletesByMaskWithTheReadOnlyOnesIfAsked) {
  for (const char* szName : {"A.TMP", "B.TMP", "~pvsw~.loc", "KEEP.DAT"}) Put(szName, "x");
  MakeReadOnly("B.TMP");
  MakeReadOnly("~PVSW~.LOC");
  DeleteFiles(CFixedString<13>("*.TMP"), false);
  EXPECT_EQ(FileExist("A.TMP") + 2 * FileExist("B.TMP"), 2);
  DeleteFiles(CFixedString<13>("*.TMP"), true);
  EXPECT_EQ(FileExist("B.TMP"), 0);
  DeleteFiles(CFixedString<13>("*.LOC"), false);
  EXPECT_EQ(FileExist("~PVSW~.LOC"), 0);
  EXPECT_EQ(FileExist("KEEP.DAT"), 1);
}

TEST_F(FilesystTest, DeletesInTheFolderOfItsMask) {
  for (const char* szName : {"A.TMP", "OLD\\A.TMP", "OLD\\B.TMP"}) Put(szName, "x");
  MakeReadOnly("OLD\\B.TMP");
  DeleteFiles(CFixedString<13>("OLD\\*.TMP"), true);
  EXPECT_EQ(FileExist("OLD\\A.TMP") + FileExist("OLD\\B.TMP"), 0);
  EXPECT_EQ(FileExist("A.TMP"), 1);
}

TEST_F(FilesystTest, DeletesTheCompanionsOfAFile) {
  const struct {
    const char* szName;
    const char* szCompanion;  // with LCK, beside one with AFL
  } rows[] = {
      {"C:\\BOOKS\\CHART.DAT", "C:\\BOOKS\\CHART"},
      {"C:\\BOOKS.OLD\\CHART", "C:\\BOOKS.OLD\\CHART"},
      {"C:/BOOKS.OLD/CHART", "C:/BOOKS.OLD/CHART"},
      {"C:\\BOOKS\\.PROFILE", "C:\\BOOKS\\.PROFILE"},
      {"C:\\BOOKS\\A.B.DAT", "C:\\BOOKS\\A.B"},
  };
  for (const auto& row : rows) {
    const std::string sLck = std::string(row.szCompanion) + ".LCK";
    const std::string sAfl = std::string(row.szCompanion) + ".AFL";
    const std::string sOther = std::string(row.szCompanion) + ".XYZ";
    for (const std::string& s : {std::string(row.szName), sLck, sAfl, sOther}) Put(s.c_str(), "x");
    FileDeleteWithLCK(row.szName);
    EXPECT_EQ(FileExist(row.szName) + FileExist(sLck.c_str()) + FileExist(sAfl.c_str()), 0)
        << row.szName;
    EXPECT_EQ(FileExist(sOther.c_str()), 1) << row.szName;
  }
  Put(".LCK", "x");
  FileDeleteWithLCK("");
  EXPECT_EQ(FileExist(".LCK"), 1);
  // Short data file names.
  Put("CHART.DAT", "x");
  Put("CHART.LCK", "x");
  FileDeleteWithLCK(CurrentFileNames::ChartFileName);
  EXPECT_EQ(FileExist("CHART.LCK") + FileExist(CurrentFileNames::ChartFileName), 0);
}

TEST_F(FilesystTest, CopiesAFileOverAnother) {
  const std::string sText(20'000, 'x');
  Put("A.DAT", sText);
  Put("B.DAT", "old");
  EXPECT_EQ(CopyFile2("B.DAT", "A.DAT", 1), 1);
  EXPECT_EQ(Text("B.DAT"), sText);
  EXPECT_EQ(CopyFile2("a.dat", "A.DAT", 1), 1);  // onto itself
  EXPECT_EQ(CopyFile2(CPathNameString("C:\\A.DAT"), CFixedString<13>("A.DAT"), 1), 1);
  EXPECT_EQ(Text("A.DAT"), sText);
  EXPECT_EQ(CopyFile2("B.DAT", "A.DAT", 0), 0);
  EXPECT_EQ(Text("B.DAT"), "");
  EXPECT_EQ(CopyFile2("C.DAT", "NONE.DAT", 1), 0);
  EXPECT_EQ(FileExist("C.DAT"), 0);
  EXPECT_EQ(CopyFile2("NONE\\C.DAT", "A.DAT", 1), 0);
  m_platform.m_disk.AddDrive('D', 9000);
  EXPECT_EQ(CopyFile2("D:\\A.DAT", "A.DAT", 1), 0);  // a short write
  FailAllocation(1);
  const RecordingDoor door;
  EXPECT_EQ(CopyFile2("B.DAT", "A.DAT", 1), 0);
  EXPECT_EQ(Text("A.DAT"), sText);
}

// Whatever call fails, nothing stays open, the source is as it was, and the next run is good.
TEST_F(FilesystTest, LeavesNothingOpenAndNoSourceHarmedWhicheverCallFails) {
  const std::string sText(20'000, 's');
  const struct {
    const char* szName;
    std::function<void()> run;
  } operations[] = {
      {"open",
       [] {
         File file;
         Lookup(&file, "S.DAT", 0);
         if (file.nError == 0) const CFileGuard guard(file);
       }},
      {"create",
       [] {
         File file;
         Lookup(&file, "NEW.DAT", 1);
         if (file.nError == 0) const CFileGuard guard(file);
       }},
      {"read",
       [] {
         File file;
         MultiLookup(&file, "S.DAT", 0, 1, 0);
         if (file.nError != 0) return;
         const CFileGuard guard(file);
         for (int i = 0; i < 600 && file.nError == 0; ++i) {
           char chCharacter = 0;
           ReadChar(&file, &chCharacter);
         }
       }},
      {"write",
       [] {
         File file;
         Create(&file, "D.DAT");
         if (file.nError != 0) return;
         const CFileGuard guard(file);
         for (int i = 0; i < 600; ++i) WriteChar(&file, 'd');
         Flush(&file);
       }},
      {"copy", [] { CopyFile2("D.DAT", "S.DAT", 1); }},
      {"delete", [] { FileDeleteWithLCK("D.DAT"); }},
      {"delete by mask", [] { DeleteFiles(CFixedString<13>("D.*"), true); }},
      {"classic open",
       [] {
         const int nFile = ALWOpenFile("D.DAT", nullptr, kOpenCreate | kOpenReadWrite);
         if (nFile > 0) CurrentPlatform().files.Close(static_cast<FileHandle>(nFile));
       }},
  };
  MemoryFiles& files = m_platform.m_files;
  for (const auto& operation : operations) {
    int nCall = 0;
    do {
      Put("S.DAT", sText);
      Put("D.DAT", "old");
      files.FailCall(++nCall);
      operation.run();
      EXPECT_EQ(files.OpenHandles(), 0U) << operation.szName << ", call " << nCall;
      EXPECT_EQ(Text("S.DAT"), sText) << operation.szName << ", call " << nCall;
    } while (files.HasFailed());
    files.FailCall(0);
    EXPECT_GT(nCall, 1) << operation.szName;
  }
}

TEST_F(FilesystTest, ClosesAFileWithItsBlockAndReports) {
  std::error_code error = std::make_error_code(std::errc::io_error);
  {
    File file;
    Create(&file, "A.TXT");
    const CFileGuard guard(file, &error);
    WriteLn(&file, "Trial balance");
  }
  EXPECT_FALSE(error);
  EXPECT_EQ(Text("A.TXT"), "Trial balance\r\n");
  m_platform.m_disk.AddDrive('D', 4);
  {
    File file;
    Create(&file, "D:\\A.TXT");
    const CFileGuard guard(file, &error);
    WriteLn(&file, "Trial balance");
  }
  EXPECT_EQ(error, FileStatus::DiskFull);
  EXPECT_EQ(error, std::errc::no_space_on_device);
  EXPECT_EQ(error.message(), "the disk is full");
}

}  // namespace
}  // namespace ald
