#include "aldlib/amounts/VersionText.h"

#include "aldlib/arith/FixedDecimal.h"

namespace ald {

std::int16_t ConvertVersionToCard(const char* szVersion) {
  CDecimal version(szVersion);
  const int nMajor = version.toIntType<int>(false);
  if (nMajor == 5 || nMajor == 6) return static_cast<std::int16_t>(nMajor * 100);
  return version.op_Multiply(CDecimal::ms_OneHundred).toIntType<short>(true);
}

}  // namespace ald
