#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>

#include "aldlib/arith/Precision.h"
#include "aldlib/text/Constants.h"

namespace ald {

struct Region {
  const char* szComma;
  const char* szPoint;
};

inline std::ostream& operator<<(std::ostream& out, const Region& region) {
  return out << "comma '" << region.szComma << "' point '" << region.szPoint << '\'';
}

// Every way of separating that a region may have; the blank that does not break is code page 1252.
inline constexpr Region kRegions[] = {{",", "."}, {".", ","}, {"\xA0", ","}, {" ", ","}, {"'", "."},
                                      {"", "."},  {"", ","},  {",", ""},     {"", ""}};

// Puts the regional and number settings back after each test.
class WithRegion : public testing::Test {
 protected:
  ~WithRegion() override {
    Use({",", "."});
    UseMoneyDecimals(2);
    SetRealPrecision(2);
    StoreAutoDecimal(false);
    CDecimal::SetErrorHandler(&CDecimal::DefaultErrorHandler);
  }
  static void Use(const Region& region) {
    Comma = region.szComma;
    DecimalPoint = region.szPoint;
  }
  static void UseMoneyDecimals(std::uint16_t nDecimals) {
    CurrencyPrecision = nDecimals;
    UpdateCentRounding();
  }
};

}  // namespace ald
