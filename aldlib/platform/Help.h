#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

namespace ald {

// The system's viewer of compiled help files.
class ALDLIB_EXPORT Help {
 public:
  virtual ~Help() = default;

  // Opens the file at the topic of that number. False if there is no viewer or no such file.
  virtual bool OpenTopic(WindowHandle hOwner, const CString& sFile, std::uint32_t nTopic) = 0;
};

}  // namespace ald
