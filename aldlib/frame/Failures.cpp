#include "aldlib/frame/Failures.h"

namespace ald {
namespace {

constexpr unsigned kMessageSize = 128;

void StoreCode(std::uint32_t nCode, std::uint32_t* pnCode) {
  if (pnCode != nullptr) *pnCode = nCode;
}

// The exception is asked because it may act on being asked; its words end here, since neither the
// log nor the caller is to have them.
void DropMessage(CException* pException) {
  char szMessage[kMessageSize];
  if (pException != nullptr) pException->GetErrorMessage(szMessage, kMessageSize);
}

}  // namespace

void HandleCatch(COleException* pException, const char*, int, char*, std::uint32_t* pnCode) {
  DropMessage(pException);
  StoreCode(1, pnCode);
}

void HandleCatch(CUserException* pException, const char*, int, char*, std::uint32_t* pnCode) {
  DropMessage(pException);
  StoreCode(2, pnCode);
}

void HandleCatch(CException* pException, const char*, int, char*, std::uint32_t* pnCode) {
  DropMessage(pException);
  StoreCode(3, pnCode);
}

void HandleCatch(const std::exception*, const char*, int, char*, std::uint32_t* pnCode) {
  StoreCode(4, pnCode);
}

void HandleCatch(std::uint32_t, const char*, int, char*, std::uint32_t* pnCode) {
  StoreCode(99, pnCode);
}

}  // namespace ald
