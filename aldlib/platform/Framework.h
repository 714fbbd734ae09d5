#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"

namespace ald {

// The least that the library needs of the application framework: the exceptions that an
// application's catch blocks hand to HandleCatch. The library itself throws none of them.

class ALDLIB_EXPORT CException {
 public:
  virtual ~CException();

  // Writes the exception's own message, cut at nMaxError - 1 characters and terminated. Returns
  // false if it has none: the text is then empty. A null buffer or no room gives false.
  virtual bool GetErrorMessage(char* szError, unsigned nMaxError) noexcept;
};

// A failure reported by a component, with its status code.
class ALDLIB_EXPORT COleException : public CException {
 public:
  ~COleException() override;

  std::int32_t m_sc = 0;
};

// The user has been told already and the operation is off.
class ALDLIB_EXPORT CUserException : public CException {
 public:
  ~CUserException() override;
};

}  // namespace ald
