#include "aldlib/platform/Framework.h"

namespace ald {

CException::~CException() = default;
COleException::~COleException() = default;
CUserException::~CUserException() = default;

bool CException::GetErrorMessage(char* szError, unsigned nMaxError) noexcept {
  if (szError != nullptr && nMaxError > 0) szError[0] = '\0';
  return false;
}

}  // namespace ald
