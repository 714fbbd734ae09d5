// What every backend of the files promises.
#include "aldlib/platform/Files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "aldlib/platform/MemoryFiles.h"
#include "aldlib/platform/posix/PathMapper.h"
#include "aldlib/platform/posix/PosixFiles.h"
#include "tests/support/TempFolder.h"

namespace ald {
namespace {

constexpr auto kRead = FileAccess::Read;
constexpr auto kBoth = FileAccess::ReadWrite;
constexpr auto kAll = FileSharing::ReadWrite;

// A backend with a folder to work in.
struct MemoryPlace {
  MemoryDisk disk;
  MemoryFiles files{disk};

  MemoryPlace() { disk.Write("C:\\DATA\\KEEP", ""); }
  std::string Path(const std::string& sName) const { return "C:\\DATA\\" + sName; }
  void Write(const std::string& sName, const std::string& sText) { disk.Write(Path(sName), sText); }
  std::string Text(const std::string& sName) {
    MemoryNodePtr pNode;
    return disk.Find(Path(sName), pNode) == kNoSystemError ? pNode->sData : "(none)";
  }
  void MakeReadOnly(const std::string& sName) {
    MemoryNodePtr pNode;
    disk.Find(Path(sName), pNode);
    pNode->bReadOnly = true;
  }
};

struct PosixPlace {
  TempFolder folder;
  PathMapper paths;
  PosixFiles files{paths};

  std::string Path(const std::string& sName) const { return folder.Path() + '\\' + sName; }
  void Write(const std::string& sName, const std::string& sText) { folder.Write(sName, sText); }
  std::string Text(const std::string& sName) {
    std::ifstream in(folder.Path(sName), std::ios::binary);
    if (!in) return "(none)";
    return {std::istreambuf_iterator<char>(in), {}};
  }
  void MakeReadOnly(const std::string& sName) {
    std::filesystem::permissions(folder.Path(sName), std::filesystem::perms::owner_read);
  }
};

template <class TPlace>
class FilesTest : public testing::Test {
 protected:
  Files& files() { return m_place.files; }
  std::uint32_t Open(const std::string& sName, FileAccess eAccess, FileSharing eSharing,
                     FileHandle& hFile,
                     FileDisposition eDisposition = FileDisposition::OpenExisting) {
    return files().Open(m_place.Path(sName).c_str(), eAccess, eSharing, eDisposition, hFile);
  }
  FileHandle Opened(const std::string& sName, FileAccess eAccess = kBoth,
                    FileSharing eSharing = kAll) {
    FileHandle hFile{};
    EXPECT_EQ(Open(sName, eAccess, eSharing, hFile), kNoSystemError) << sName;
    return hFile;
  }
  std::string ReadAll(FileHandle hFile) {
    char aBytes[64];
    std::uint32_t nMoved = 0;
    EXPECT_EQ(files().Read(hFile, aBytes, sizeof aBytes, nMoved), kNoSystemError);
    return {aBytes, nMoved};
  }
  std::uint32_t Put(FileHandle hFile, const std::string& sText, std::uint32_t& nMoved) {
    return files().Write(hFile, sText.data(), static_cast<std::uint32_t>(sText.size()), nMoved);
  }
  void TearDown() override { EXPECT_EQ(m_place.files.OpenHandles(), m_nKept); }

  TPlace m_place;
  std::size_t m_nKept = 0;  // handles that the test leaves open
  std::int64_t m_nPosition = 0;
  std::uint32_t m_nMoved = 0;
};

using Places = testing::Types<MemoryPlace, PosixPlace>;
TYPED_TEST_SUITE(FilesTest, Places);

TYPED_TEST(FilesTest, RefusesAnOpenThatDeniesWhatAnotherDoesOrDoesWhatAnotherDenies) {
  this->m_place.Write("A.DAT", "x");
  for (unsigned nPair = 0; nPair < 12 * 12; ++nPair) {
    // Two opens, each of an access (read 1, write 2, both 3) and what it shares (none 0 to both 3).
    const unsigned aAccess[] = {nPair / 48 + 1, nPair / 4 % 3 + 1};
    const unsigned aShares[] = {nPair / 12 % 4, nPair % 4};
    const bool bSuits = (aAccess[0] & ~aShares[1]) == 0 && (aAccess[1] & ~aShares[0]) == 0;
    const FileHandle hFirst = this->Opened("A.DAT", static_cast<FileAccess>(aAccess[0]),
                                           static_cast<FileSharing>(aShares[0]));
    FileHandle hSecond{};
    EXPECT_EQ(this->Open("A.DAT", static_cast<FileAccess>(aAccess[1]),
                         static_cast<FileSharing>(aShares[1]), hSecond),
              bSuits ? kNoSystemError : kSharingViolation)
        << aAccess[0] << aShares[0] << " then " << aAccess[1] << aShares[1];
    EXPECT_EQ(hSecond != FileHandle{}, bSuits);
    this->files().Close(hSecond);
    this->files().Close(hFirst);
  }
}

TYPED_TEST(FilesTest, TellWhyAFileCannotBeOpened) {
  this->m_place.Write("LOCKED.DAT", "x");
  this->m_place.MakeReadOnly("LOCKED.DAT");
  const struct {
    const char* szName;
    FileAccess eAccess;
    FileDisposition eDisposition;
    std::uint32_t nError;
  } rows[] = {
      {"NONE.DAT", kRead, FileDisposition::OpenExisting, kFileNotFound},
      {"NONE\\A.DAT", kRead, FileDisposition::OpenExisting, kPathNotFound},
      {"NONE\\A.DAT", kBoth, FileDisposition::CreateAlways, kPathNotFound},
      {"LOCKED.DAT\\A.DAT", kRead, FileDisposition::OpenExisting, kPathNotFound},
      {"", kRead, FileDisposition::OpenExisting, kAccessDenied},
      {"LOCKED.DAT", kBoth, FileDisposition::OpenExisting, kAccessDenied},
      {"LOCKED.DAT", kBoth, FileDisposition::CreateAlways, kAccessDenied},
      {"LOCKED.DAT", kBoth, FileDisposition::CreateNew, kFileExists},
  };
  for (const auto& row : rows) {
    FileHandle hFile{77};
    EXPECT_EQ(this->Open(row.szName, row.eAccess, kAll, hFile, row.eDisposition), row.nError)
        << row.szName;
    EXPECT_EQ(hFile, FileHandle{});
  }
  FileHandle hFile{};
  EXPECT_EQ(this->files().Open(nullptr, kRead, kAll, FileDisposition::OpenExisting, hFile),
            kPathNotFound);
  EXPECT_EQ(this->m_place.Text("LOCKED.DAT"), "x");
}

TYPED_TEST(FilesTest, NeverEmptyAFileThatAnotherOpenKeepsShut) {
  this->m_place.Write("A.DAT", "kept");
  const FileHandle hReader = this->Opened("A.DAT", kRead, FileSharing::Read);
  FileHandle hFile{};
  EXPECT_EQ(this->Open("A.DAT", kBoth, kAll, hFile, FileDisposition::CreateAlways),
            kSharingViolation);
  EXPECT_EQ(this->ReadAll(hReader), "kept");
  this->files().Close(hReader);
}

TYPED_TEST(FilesTest, LockARangeAgainstAllOtherOpens) {
  this->m_place.Write("A.DAT", "0123456789");
  Files& files = this->files();
  // Whoever can only read locks like the others.
  for (const FileAccess eAccess : {kBoth, kRead}) {
    const FileHandle hOwner = this->Opened("A.DAT", eAccess);
    const FileHandle hOther = this->Opened("A.DAT");
    const FileHandle hReader = this->Opened("A.DAT", kRead);
    ASSERT_EQ(files.Lock(hOwner, 4, 2), kNoSystemError);
    EXPECT_EQ(files.Lock(hOther, 5, 9), kLockViolation);
    EXPECT_EQ(files.Lock(hReader, 0, 5), kLockViolation);
    EXPECT_EQ(files.Lock(hOwner, 5, 1), kLockViolation);  // not twice by its owner either
    EXPECT_EQ(files.Lock(hOther, 0, 4), kNoSystemError);  // up to it
    EXPECT_EQ(files.Lock(hReader, 6, 1'000'000), kNoSystemError);
    EXPECT_EQ(files.Lock(hOther, 4, 0), kNoSystemError);  // no bytes

    // Reading and writing stop at it, but for its owner.
    char aBytes[10];
    EXPECT_EQ(files.Read(hOther, aBytes, 5, this->m_nMoved), kLockViolation);
    EXPECT_EQ(files.Read(hOther, aBytes, 4, this->m_nMoved), kNoSystemError);
    EXPECT_EQ(this->Put(hOther, "!", this->m_nMoved), kLockViolation);
    files.Seek(hOwner, 4, SeekFrom::Start, this->m_nPosition);
    EXPECT_EQ(files.Read(hOwner, aBytes, 2, this->m_nMoved), kNoSystemError);

    EXPECT_EQ(files.Unlock(hOther, 4, 2), kNotLocked);  // it is not the owner
    EXPECT_EQ(files.Unlock(hOwner, 4, 1), kNotLocked);  // not the range that was locked
    EXPECT_EQ(files.Unlock(hOwner, 4, 2), kNoSystemError);
    EXPECT_EQ(files.Lock(hOther, 4, 2), kNoSystemError);
    files.Close(hOther);
    EXPECT_EQ(files.Lock(hOwner, 0, 6), kNoSystemError);  // what a closed one had is free
    EXPECT_EQ(files.Lock(hOwner, -1, 1), kInvalidParameter);
    EXPECT_EQ(files.Lock(hOwner, 1, -1), kInvalidParameter);
    files.Close(hReader);
    files.Close(hOwner);
  }
}

// What a backend reads ahead of the caller is not what the caller asked for.
TYPED_TEST(FilesTest, ReadUpToARangeThatIsLocked) {
  this->m_place.Write("A.DAT", "0123456789");
  const FileHandle hOwner = this->Opened("A.DAT", kRead, FileSharing::Read);
  const FileHandle hReader = this->Opened("A.DAT", kRead, FileSharing::Read);
  ASSERT_EQ(this->files().Lock(hOwner, 4, 2), kNoSystemError);
  char aBytes[3];
  EXPECT_EQ(this->files().Read(hReader, aBytes, 3, this->m_nMoved), kNoSystemError);
  EXPECT_EQ(std::string(aBytes, this->m_nMoved), "012");
  EXPECT_EQ(this->files().Read(hReader, aBytes, 3, this->m_nMoved), kLockViolation);
  this->files().Close(hReader);
  this->files().Close(hOwner);
}

TYPED_TEST(FilesTest, KeepSharingAndRangesUntilTheLastDuplicateIsClosed) {
  this->m_place.Write("A.DAT", "0123456789");
  Files& files = this->files();
  FileHandle hCopy{};
  const FileHandle hFile = this->Opened("A.DAT", kBoth, FileSharing::Read);
  ASSERT_EQ(files.Lock(hFile, 0, 1), kNoSystemError);
  ASSERT_EQ(files.Duplicate(hFile, hCopy), kNoSystemError);
  const FileHandle hReader = this->Opened("A.DAT", kRead);
  EXPECT_EQ(files.Close(hFile), kNoSystemError);
  EXPECT_EQ(files.Lock(hReader, 0, 1), kLockViolation);
  EXPECT_EQ(files.Seek(hCopy, 3, SeekFrom::Current, this->m_nPosition), kNoSystemError);
  EXPECT_EQ(this->ReadAll(hCopy), "3456789");
  FileHandle hWriter{};
  EXPECT_EQ(this->Open("A.DAT", kBoth, kAll, hWriter), kSharingViolation);
  EXPECT_EQ(files.Close(hCopy), kNoSystemError);
  EXPECT_EQ(this->Open("A.DAT", kBoth, kAll, hWriter), kNoSystemError);
  files.Close(hWriter);
  files.Close(hReader);
}

TYPED_TEST(FilesTest, DeleteAndRenameOnlyWhatNobodyHasOpen) {
  Files& files = this->files();
  const auto path = [this](const char* szName) { return this->m_place.Path(szName); };
  this->m_place.Write("A.DAT", "a");
  this->m_place.Write("B.DAT", "b");
  const FileHandle hFile = this->Opened("A.DAT", kRead, kAll);
  EXPECT_EQ(files.Delete(path("A.DAT").c_str()), kSharingViolation);
  EXPECT_EQ(files.Rename(path("A.DAT").c_str(), path("C.DAT").c_str()), kSharingViolation);
  files.Close(hFile);
  EXPECT_EQ(files.Rename(path("A.DAT").c_str(), path("B.DAT").c_str()), kFileExists);
  EXPECT_EQ(files.Rename(path("A.DAT").c_str(), path("NONE\\A.DAT").c_str()), kPathNotFound);
  EXPECT_EQ(files.Rename(path("NONE.DAT").c_str(), path("C.DAT").c_str()), kFileNotFound);
  EXPECT_EQ(files.Rename(path("A.DAT").c_str(), path("a.dat").c_str()), kNoSystemError);
  EXPECT_EQ(files.Rename(path("A.DAT").c_str(), path("C.DAT").c_str()), kNoSystemError);
  EXPECT_EQ(this->m_place.Text("C.DAT"), "a");
  EXPECT_EQ(this->m_place.Text("B.DAT"), "b");

  this->m_place.MakeReadOnly("B.DAT");
  EXPECT_EQ(files.Delete(path("B.DAT").c_str()), kAccessDenied);
  EXPECT_EQ(files.MakeWritable(path("B.DAT").c_str()), kNoSystemError);
  EXPECT_EQ(files.Delete(path("B.DAT").c_str()), kNoSystemError);
  EXPECT_FALSE(files.Exists(path("B.DAT").c_str()));
  EXPECT_EQ(files.Delete(path("B.DAT").c_str()), kFileNotFound);
  EXPECT_EQ(files.Delete(path("").c_str()), kAccessDenied);  // a folder
  EXPECT_TRUE(files.Exists(path("").c_str()));
}

TYPED_TEST(FilesTest, TellWhetherANameStillLeadsToTheOpenFile) {
  this->m_place.Write("A.DAT", "a");
  this->m_place.Write("B.DAT", "b");
  const FileHandle hFile = this->Opened("A.DAT");
  EXPECT_TRUE(this->files().IsNamed(hFile, this->m_place.Path("a.dat").c_str()));
  EXPECT_FALSE(this->files().IsNamed(hFile, this->m_place.Path("B.DAT").c_str()));
  EXPECT_FALSE(this->files().IsNamed(hFile, this->m_place.Path("C.DAT").c_str()));
  EXPECT_FALSE(this->files().IsNamed(FileHandle{}, this->m_place.Path("A.DAT").c_str()));
  this->files().Close(hFile);
}

TYPED_TEST(FilesTest, MoveThePositionWithinAndPastTheFile) {
  this->m_place.Write("A.DAT", "0123");
  Files& files = this->files();
  const FileHandle hFile = this->Opened("A.DAT");
  std::int64_t& nPosition = this->m_nPosition;
  EXPECT_EQ(files.Seek(hFile, -1, SeekFrom::End, nPosition), kNoSystemError);
  EXPECT_EQ(nPosition, 3);
  EXPECT_EQ(files.Seek(hFile, -4, SeekFrom::Current, nPosition), kBadPosition);
  EXPECT_EQ(this->ReadAll(hFile), "3");
  EXPECT_EQ(this->ReadAll(hFile), "");
  EXPECT_EQ(files.Seek(hFile, 2, SeekFrom::Current, nPosition), kNoSystemError);
  EXPECT_EQ(this->Put(hFile, "6", this->m_nMoved), kNoSystemError);
  files.Close(hFile);
  EXPECT_EQ(this->m_place.Text("A.DAT"), std::string("0123\0\0006", 7));
}

// Whatever a backend keeps in hand, an open that others cannot write to and one that they can give
// the same bytes as a plain string does.
TYPED_TEST(FilesTest, ReadBackWhatWasWrittenInAnyOrder) {
  for (const FileSharing eSharing : {FileSharing::Read, FileSharing::ReadWrite}) {
    std::mt19937 random(7);
    std::string sModel(100'000, 'm');
    this->m_place.Write("A.DAT", sModel);
    const FileHandle hFile = this->Opened("A.DAT", kBoth, eSharing);
    std::size_t nPosition = 0;
    for (int nStep = 0; nStep < 3000; ++nStep) {
      const auto nSize = random() % (random() % 8 == 0 ? 50'000 : 300);
      if (random() % 6 == 0) {
        nPosition = random() % (sModel.size() + 500);
        this->files().Seek(hFile, static_cast<std::int64_t>(nPosition), SeekFrom::Start,
                           this->m_nPosition);
      } else if (random() % 5 == 0) {
        const std::string sText(nSize % 1000, static_cast<char>('a' + random() % 26));
        ASSERT_EQ(this->Put(hFile, sText, this->m_nMoved), kNoSystemError);
        if (!sText.empty() && nPosition > sModel.size()) sModel.resize(nPosition);
        sModel.replace(std::min(nPosition, sModel.size()), sText.size(), sText);
        nPosition += sText.size();
      } else {
        std::string sText(nSize, 'x');
        ASSERT_EQ(this->files().Read(hFile, sText.data(), static_cast<std::uint32_t>(nSize),
                                     this->m_nMoved),
                  kNoSystemError);
        const std::size_t nStart = std::min(nPosition, sModel.size());
        ASSERT_EQ(sText.substr(0, this->m_nMoved), sModel.substr(nStart, nSize)) << nStep;
        nPosition += this->m_nMoved;
      }
    }
    this->files().Close(hFile);
    EXPECT_EQ(this->m_place.Text("A.DAT"), sModel);
  }
}

TYPED_TEST(FilesTest, RefuseNumbersThatNameNoOpenFile) {
  this->m_place.Write("A.DAT", "x");
  Files& files = this->files();
  const FileHandle hClosed = this->Opened("A.DAT");
  files.Close(hClosed);
  const FileHandle hNext = this->Opened("A.DAT");
  EXPECT_NE(hNext, hClosed);  // a number is not used again so soon
  files.Close(hNext);
  char aBytes[4];
  for (const FileHandle h : {FileHandle{}, FileHandle{65535}, hClosed}) {
    FileHandle hCopy{};
    EXPECT_EQ(files.Read(h, aBytes, 4, this->m_nMoved), kInvalidHandle);
    EXPECT_EQ(files.Write(h, aBytes, 4, this->m_nMoved), kInvalidHandle);
    EXPECT_EQ(files.Seek(h, 0, SeekFrom::Start, this->m_nPosition), kInvalidHandle);
    EXPECT_EQ(files.Commit(h), kInvalidHandle);
    EXPECT_EQ(files.Duplicate(h, hCopy), kInvalidHandle);
    EXPECT_EQ(files.Lock(h, 0, 1), kInvalidHandle);
    EXPECT_EQ(files.Unlock(h, 0, 1), kInvalidHandle);
    EXPECT_EQ(files.Close(h), kInvalidHandle);
  }
}

}  // namespace
}  // namespace ald
