#include "aldlib/platform/posix/PosixClock.h"

#include <errno.h>
#include <time.h>

namespace ald {

LocalTime PosixClock::Now() {
  timespec now{};
  tm local{};
  if (::clock_gettime(CLOCK_REALTIME, &now) != 0 || ::localtime_r(&now.tv_sec, &local) == nullptr) {
    return {};
  }
  const int nYear = local.tm_year + 1900;
  if (nYear < 0 || nYear > 65535) return {};
  const auto narrow = [](long nValue) { return static_cast<std::uint16_t>(nValue); };
  return {narrow(nYear),
          narrow(local.tm_mon + 1),
          narrow(local.tm_mday),
          narrow(local.tm_hour),
          narrow(local.tm_min),
          narrow(local.tm_sec),
          narrow(now.tv_nsec / 1'000'000)};
}

std::uint32_t PosixClock::Ticks() {
  timespec now{};
  if (::clock_gettime(CLOCK_MONOTONIC, &now) != 0) return 0;
  return static_cast<std::uint32_t>(static_cast<std::uint64_t>(now.tv_sec) * 1000 +
                                    static_cast<std::uint64_t>(now.tv_nsec) / 1'000'000);
}

void PosixClock::Sleep(std::uint32_t nMilliseconds) {
  timespec left{static_cast<time_t>(nMilliseconds / 1000),
                static_cast<long>(nMilliseconds % 1000) * 1'000'000};
  while (::nanosleep(&left, &left) != 0 && errno == EINTR) {
  }
}

std::int64_t PosixClock::Seconds() {
  timespec now{};
  return ::clock_gettime(CLOCK_REALTIME, &now) == 0 ? now.tv_sec : 0;
}

}  // namespace ald
