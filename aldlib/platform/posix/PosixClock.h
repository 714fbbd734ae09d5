#pragma once

#include "aldlib/platform/Clock.h"
#include "aldlib/platform/Export.h"

namespace ald {

// The system's clock, in the time zone that the process's environment names.
class ALDLIB_EXPORT PosixClock : public Clock {
 public:
  LocalTime Now() override;
  std::uint32_t Ticks() override;
  void Sleep(std::uint32_t nMilliseconds) override;
  std::int64_t Seconds() override;
};

}  // namespace ald
