#include "aldlib/platform/posix/PosixProduct.h"

#include <cstdlib>

#include "aldlib/platform/posix/SettingsFolders.h"

namespace ald {
namespace {

constexpr const char* kUsualProduct = "ALDERW";
constexpr const char* kMajorVersion = "13";

bool IsOneElement(std::string_view sName) {
  return !sName.empty() && sName.find('\\') == std::string_view::npos;
}

}  // namespace

CString PosixProduct::IniFileName() {
  const char* const szVariable = std::getenv(kIniFileVariable);
  if (!m_sIniFile.empty() && (szVariable == nullptr || *szVariable != '/')) return m_sIniFile;
  return ProductIniFile(ProductName() + kMajorVersion + ".INI");
}

CString PosixProduct::ProductName() {
  const char* const szVariable = std::getenv(kProductVariable);
  if (szVariable != nullptr && IsOneElement(szVariable)) return szVariable;
  return m_sProduct.empty() ? kUsualProduct : m_sProduct;
}

bool PosixProduct::SplitIniName(std::string_view sIniName, CString& sProduct,
                                CString& sMajorVersion) {
  return SplitUsualIniName(sIniName, sProduct, sMajorVersion);
}

bool PosixProduct::FeatureEnabled(std::uint32_t nFeature) {
  const auto it = m_features.find(nFeature);
  return it == m_features.end() || it->second;
}

bool PosixProduct::SetProductName(CString sProduct) {
  if (!sProduct.empty() && !IsOneElement(sProduct)) return false;
  m_sProduct = std::move(sProduct);
  return true;
}

}  // namespace ald
