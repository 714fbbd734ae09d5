#pragma once

#include <sys/stat.h>
#include <time.h>

#include <cstdint>

namespace ald {

// What tells one state of a file or folder from another.
struct FileState {
  std::uint64_t nDevice = 0;
  std::uint64_t nInode = 0;
  std::int64_t nSize = 0;
  std::int64_t nSeconds = 0;  // when it was last changed, by the file system's clock
  std::int64_t nNanoseconds = 0;

  bool operator==(const FileState&) const = default;

  static FileState Of(const struct stat& status) {
    return {status.st_dev, status.st_ino, status.st_size, status.st_ctim.tv_sec,
            status.st_ctim.tv_nsec};
  }

  // True if no change after this moment can leave the same state behind. A file system stamps
  // changes with a clock that ticks every 10 ms at worst, or with whole seconds, and then at times
  // with every other one: a state younger than that may be the one of two changes. So may one of
  // the future, which tells of two clocks that differ.
  bool IsSettled() const {
    constexpr std::int64_t kNanosecondsInSecond = 1'000'000'000;
    constexpr std::int64_t kFineTick = 20'000'000;
    constexpr std::int64_t kCoarseTick = 3 * kNanosecondsInSecond;
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    const std::int64_t nAge = now.tv_sec - nSeconds;
    if (nAge < 0 || nAge > 3) return nAge > 3;
    return nAge * kNanosecondsInSecond + now.tv_nsec - nNanoseconds >
           (nNanoseconds == 0 ? kCoarseTick : kFineTick);
  }
};

}  // namespace ald
