#pragma once

#include <cstdint>
#include <string_view>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

namespace ald {

// What the library asks of the application about itself: which product it is, where its
// installation-wide settings lie, and what it may do.
class Product {
 public:
  virtual ~Product() = default;

  // The full name of the product INI file. Asked anew at every read.
  virtual CString IniFileName() = 0;

  // The product's short name, which is one element of the key of its preferences. Never empty,
  // never with a backslash.
  virtual CString ProductName() = 0;

  // Takes the name of a product INI file apart, that of another version among them. Returns false,
  // and changes nothing, if the name is none of that kind.
  virtual bool SplitIniName(std::string_view sIniName, CString& sProduct,
                            CString& sMajorVersion) = 0;

  // Whether the product has the feature of that number.
  virtual bool FeatureEnabled(std::uint32_t nFeature) = 0;
};

// The usual form of such a name: letters are the product, the digits behind them the major version,
// and ".INI" ends it, in any case. A folder in front does not count.
//   "ALDERW12.INI" -> "ALDERW", "12"     "C:\alderw9.ini" -> "alderw", "9"     "ALDERW.INI" ->
//   false
ALDLIB_EXPORT bool SplitUsualIniName(std::string_view sIniName, CString& sProduct,
                                     CString& sMajorVersion) noexcept;

}  // namespace ald
