#include "aldlib/platform/posix/FileLocks.h"

#include <fcntl.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <span>

#include "aldlib/platform/internal/FileTable.h"
#include "aldlib/platform/posix/ClassicError.h"

// How opens that know nothing of each other agree.
//
// A POSIX system lets everybody open everything. What is wanted is that an open is refused if it
// does what another one denies, or denies what another one does. So each open leaves marks for the
// others, and looks for theirs. The marks are locks of the kernel on bytes of the file itself: they
// need no file beside it, mean the same to all processes, and are gone the moment that the process
// is, whatever killed it.
//
// Open-file-description locks, not the older kind that belongs to a process. Of those a second open
// in the same process sees nothing, so two windows of one program would both write; and closing any
// descriptor of the file, a duplicate say, drops all that the process holds on it. Nor flock(),
// which has one byte's worth of state where four are needed.
//
// Four bytes, because an open has four independent things to say: it reads, it writes, it denies
// others to read, it denies others to write. Any number of opens may say each of them at a time, so
// each mark is a lock for reading, which all can share; that also works on a descriptor that cannot
// write. Whether a mark is there is asked by testing a lock for writing, without taking it: that
// would be in the way of any mark but our own. Who reads must find no mark that denies reading, who
// denies reading no mark of a reader, and so for writing.
//
// The bytes lie past every position that a file can have, so marks and data never meet.
//
// Between looking and leaving a mark another open can do the same, and both would find nothing. So
// an open looks, leaves its marks, and looks again. Of two that race at least the later one to
// leave marks sees the other's at its second look, whatever their order, so never do both get the
// file. If both see each other both take their marks back, and try again after a pause that chance
// makes different for each. The first look keeps an open that is refused for good from leaving
// marks at all, on which an innocent third could stumble; that one, too, tries again. All tries
// together take about a millisecond.
//
// Who removes a file or its name has it alone meanwhile. Nobody is to be refused for that, however
// long a busy machine lets the remover lie between two of its calls: it leaves a fifth mark, and
// who finds that one behind a refusal goes on trying, for about a second.
namespace ald {
namespace {

constexpr off_t kReads = kRangeLimit;
constexpr off_t kWrites = kRangeLimit + 1;
constexpr off_t kDeniesReading = kRangeLimit + 2;
constexpr off_t kDeniesWriting = kRangeLimit + 3;
constexpr off_t kRemoves = kRangeLimit + 4;
constexpr off_t kMarks = 5;

constexpr int kTries = 5;
constexpr int kTriesForARemover = 5000;
constexpr long kFirstPause = 50'000;  // nanoseconds; each further one is twice as long

struct Lock {
  int nErrno;
  bool bFound;  // by a test: somebody else is in the way
};

Lock Apply(int nDescriptor, int nCommand, short nType, off_t nStart, off_t nLength) {
  struct flock range {};
  range.l_type = nType;
  range.l_whence = SEEK_SET;
  range.l_start = nStart;
  range.l_len = nLength;
  int nResult = 0;
  do {
    nResult = ::fcntl(nDescriptor, nCommand, &range);
  } while (nResult != 0 && errno == EINTR);
  return {nResult != 0 ? errno : 0, nResult == 0 && range.l_type != F_UNLCK};
}

// A kernel or a file system without such locks refuses the command itself.
std::uint32_t LockError(int nErrno, std::uint32_t nTaken) {
  if (nErrno == EAGAIN || nErrno == EACCES) return nTaken;
  return nErrno == EINVAL ? kInvalidFunction : ClassicError(nErrno);
}

// Longer from try to try, and by chance different for two that have met.
void Pause(int nTry) {
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC, &now);
  const long nRange = kFirstPause << nTry;
  const timespec pause{0, 1 + (now.tv_nsec * 48'271L + ::getpid()) % nRange};
  ::nanosleep(&pause, nullptr);
}

struct Marks {
  off_t aOwn[5];
  off_t aAgainst[4];
  std::size_t nOwn = 0;
  std::size_t nAgainst = 0;

  Marks(FileAccess eAccess, FileSharing eSharing, bool bRemoves) {
    // First, so that whoever finds another mark of a remover finds this one as well.
    if (bRemoves) aOwn[nOwn++] = kRemoves;
    const auto leave = [this](bool bLeave, off_t nMark, off_t nAgainst_) {
      if (!bLeave) return;
      aOwn[nOwn++] = nMark;
      aAgainst[nAgainst++] = nAgainst_;
    };
    leave(Reads(eAccess), kReads, kDeniesReading);
    leave(Writes(eAccess), kWrites, kDeniesWriting);
    leave(!SharesReading(eSharing), kDeniesReading, kReads);
    leave(!SharesWriting(eSharing), kDeniesWriting, kWrites);
  }

  std::uint32_t Look(int nDescriptor) const {
    for (const off_t nMark : std::span(aAgainst, nAgainst)) {
      const Lock lock = Apply(nDescriptor, F_OFD_GETLK, F_WRLCK, nMark, 1);
      if (lock.nErrno != 0) return LockError(lock.nErrno, kSharingViolation);
      if (lock.bFound) return kSharingViolation;
    }
    return kNoSystemError;
  }
  std::uint32_t Leave(int nDescriptor) const {
    for (const off_t nMark : std::span(aOwn, nOwn)) {
      const Lock lock = Apply(nDescriptor, F_OFD_SETLK, F_RDLCK, nMark, 1);
      if (lock.nErrno != 0) return LockError(lock.nErrno, kSharingViolation);
    }
    return kNoSystemError;
  }
  void TakeBack(int nDescriptor) const { Apply(nDescriptor, F_OFD_SETLK, F_UNLCK, kReads, kMarks); }
};

}  // namespace

std::uint32_t HoldSharing(int nDescriptor, FileAccess eAccess, FileSharing eSharing,
                          bool bRemoves) {
  const Marks marks(eAccess, eSharing, bRemoves);
  int nForARemover = 0;
  std::uint32_t nError = kNoSystemError;
  for (int nTry = 0; nTry < kTries; ++nTry) {
    if (nTry > 0) Pause(nTry - 1);
    nError = marks.Look(nDescriptor);
    if (nError == kNoSystemError) {
      nError = marks.Leave(nDescriptor);
      if (nError == kNoSystemError) nError = marks.Look(nDescriptor);
      if (nError == kNoSystemError) return kNoSystemError;
      marks.TakeBack(nDescriptor);
    }
    if (nError != kSharingViolation) break;
    if (nForARemover < kTriesForARemover &&
        Apply(nDescriptor, F_OFD_GETLK, F_WRLCK, kRemoves, 1).bFound) {
      ++nForARemover;
      nTry = kTries - 2;
    }
  }
  return nError;
}

// A range belongs to one open alone, so its lock is one for writing. A descriptor that cannot write
// can only have one for reading: it looks, locks and looks again like an open with its marks, and
// whoever finds the range so locked takes it for what it stands for.
std::uint32_t HoldRange(int nDescriptor, bool bCanWrite, std::int64_t nStart,
                        std::int64_t nLength) {
  const auto apply = [&](int nCommand, short nType) {
    const Lock lock = Apply(nDescriptor, nCommand, nType, nStart, nLength);
    if (lock.nErrno != 0) return LockError(lock.nErrno, kLockViolation);
    return nCommand == F_OFD_GETLK && lock.bFound ? std::uint32_t{kLockViolation}
                                                  : std::uint32_t{kNoSystemError};
  };
  if (nLength == 0) return kNoSystemError;  // to the kernel, 0 is all that follows
  if (bCanWrite) return apply(F_OFD_SETLK, F_WRLCK);
  std::uint32_t nError = apply(F_OFD_GETLK, F_WRLCK);
  if (nError == kNoSystemError) nError = apply(F_OFD_SETLK, F_RDLCK);
  if (nError != kNoSystemError) return nError;
  nError = apply(F_OFD_GETLK, F_WRLCK);
  if (nError != kNoSystemError) ReleaseRange(nDescriptor, nStart, nLength);
  return nError;
}

void ReleaseRange(int nDescriptor, std::int64_t nStart, std::int64_t nLength) {
  if (nLength > 0) Apply(nDescriptor, F_OFD_SETLK, F_UNLCK, nStart, nLength);
}

bool IsHeldByOther(int nDescriptor, std::int64_t nStart, std::uint32_t nBytes) {
  return nBytes > 0 && Apply(nDescriptor, F_OFD_GETLK, F_WRLCK, nStart, nBytes).bFound;
}

}  // namespace ald
