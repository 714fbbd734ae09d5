#pragma once

#include <map>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Product.h"

namespace ald {

// The answers of the environment, or else of the host:
//
//   product name    ALDLIB_PRODUCT, or what SetProductName was given, or "ALDERW"
//   INI file        ALDLIB_INI, or what SetIniFileName was given, or the file named after product
//                   and version, "ALDERW13.INI", in the user's or the machine's settings folder
//   features        what SetFeature was given, or yes
class ALDLIB_EXPORT PosixProduct : public Product {
 public:
  CString IniFileName() override;
  CString ProductName() override;
  bool SplitIniName(std::string_view sIniName, CString& sProduct, CString& sMajorVersion) override;
  bool FeatureEnabled(std::uint32_t nFeature) override;

  // A full name; an empty one leaves the choice to the environment again.
  void SetIniFileName(CString sFile) { m_sIniFile = std::move(sFile); }
  // Returns false, and changes nothing, for a name with a backslash. An empty one takes the name
  // back.
  bool SetProductName(CString sProduct);
  void SetFeature(std::uint32_t nFeature, bool bEnabled) { m_features[nFeature] = bEnabled; }

 private:
  CString m_sIniFile;
  CString m_sProduct;
  std::map<std::uint32_t, bool> m_features;
};

// The product of the system's own platform, for a host to set.
ALDLIB_EXPORT PosixProduct& SystemProduct();

}  // namespace ald
