#pragma once

#include <cstdint>
#include <exception>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Framework.h"

namespace ald {

// Reduces what an application's catch block caught to one number, stored in *pnCode:
//
//   1  a component's failure        3  any other exception of the framework
//   2  the user was told already    4  an exception of the standard library
//                                  99  an error number of the system
//
// Nothing else leaves these calls: the text, the number and the buffer are there for older callers,
// and the buffer is not written. An exception of the framework is asked for its message, which goes
// no further. The exception object stays the catch block's. A null pointer anywhere is allowed.
ALDLIB_EXPORT void HandleCatch(COleException* pException, const char* szText, int nNumber,
                               char* szBuffer, std::uint32_t* pnCode);
ALDLIB_EXPORT void HandleCatch(CUserException* pException, const char* szText, int nNumber,
                               char* szBuffer, std::uint32_t* pnCode);
ALDLIB_EXPORT void HandleCatch(CException* pException, const char* szText, int nNumber,
                               char* szBuffer, std::uint32_t* pnCode);
ALDLIB_EXPORT void HandleCatch(const std::exception* pException, const char* szText, int nNumber,
                               char* szBuffer, std::uint32_t* pnCode);
ALDLIB_EXPORT void HandleCatch(std::uint32_t nSystemError, const char* szText, int nNumber,
                               char* szBuffer, std::uint32_t* pnCode);

}  // namespace ald
