// The tree of the preferences: its keys, their copies, and the conversion of the first use.

#include <cstddef>
#include <new>

#include "aldlib/config/Preferences.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/text/ResourceStrings.h"

namespace ald {
namespace {

constexpr const char* kProductTree = "SOFTWARE\\Alderfell\\";
constexpr const char* kMajorVersion = "13";
constexpr const char* kConvertedValue = "UserPreferencesConverted";
constexpr const char* kUpgradeValue = "UPGRADEINI";
constexpr std::size_t kUpgradeNameSize = 20;
constexpr std::size_t kCopiedBytes = 1024;

struct ProductVersion {
  CString sProduct;
  CString sMajorVersion;
};

// Finds the version that this one was installed over; false if there was none, or the same one.
bool FindFormerVersion(ProductVersion& former) try {
  CString sIniName;
  if (!CALWMachineUserPreferences::GetUpgradeVersionInfo(sIniName)) return false;
  Product& product = CurrentPlatform().product;
  return product.SplitIniName(sIniName, former.sProduct, former.sMajorVersion) &&
         (former.sProduct != product.ProductName() || former.sMajorVersion != kMajorVersion);
} catch (const std::bad_alloc&) {
  return false;
}

}  // namespace

bool CALWMachineUserPreferences::m_bConverted = false;

bool CALWMachineUserPreferences::BuildRegKey(PreferenceGroup eGroup, CString& sKey) try {
  return BuildRegKey(CurrentPlatform().product.ProductName().c_str(), kMajorVersion, eGroup, sKey);
} catch (const std::bad_alloc&) {
  sKey.clear();
  return false;
}

bool CALWMachineUserPreferences::BuildRegKey(const char* szProduct, const char* szMajorVersion,
                                             PreferenceGroup eGroup, CString& sKey) try {
  sKey.clear();
  if (szProduct == nullptr || szMajorVersion == nullptr) return false;
  CFixedString<256> sGroup;
  if (eGroup != PreferenceGroup::Root &&
      MyLoadString(static_cast<std::uint32_t>(eGroup), sGroup) == 0) {
    return false;
  }
  sKey.append(kProductTree).append(szProduct).append("\\").append(szMajorVersion);
  if (!sGroup.IsEmpty()) sKey.append("\\").append(sGroup.view());
  return true;
} catch (const std::bad_alloc&) {
  sKey.clear();
  return false;
}

bool CALWMachineUserPreferences::GetRegKey(RegistryKey hRoot, PreferenceOpenMode eMode,
                                           PreferenceGroup eGroup, CRegKey& key) {
  CString sKey;
  if (!BuildRegKey(eGroup, sKey)) return false;
  Registry& registry = CurrentPlatform().registry;
  if (eMode == PreferenceOpenMode::Write) {
    const RegistryKey hKey = registry.Create(hRoot, sKey.c_str(), nullptr, kReadWriteAccess);
    if (hKey != RegistryKey{}) key.Attach(hKey);
    return hKey != RegistryKey{};
  }
  if (eMode != PreferenceOpenMode::Read) return false;
  RegistryKey hKey = registry.Open(hRoot, sKey.c_str(), kQueryAccess);
  if (hKey == RegistryKey{}) {
    key.Close();
    const CRegKey made(registry.Create(hRoot, sKey.c_str(), nullptr, kReadWriteAccess));
    if (made.IsOpen()) hKey = registry.Open(hRoot, sKey.c_str(), kQueryAccess);
  }
  key.Attach(hKey);
  return key.IsOpen();
}

bool CALWMachineUserPreferences::CopyRegistryKey(RegistryKey hSourceRoot, const char* szSource,
                                                 RegistryKey hTargetRoot, const char* szTarget) {
  Registry& registry = CurrentPlatform().registry;
  const CRegKey source(registry.Open(hSourceRoot, szSource, kReadAccess));
  if (!source.IsOpen()) return false;
  const CRegKey target(registry.Create(hTargetRoot, szTarget, nullptr, kWriteAccess));
  if (!target.IsOpen()) return false;
  const bool bKeys = CopyKeys(source.Get(), target.Get());
  const bool bValues = CopyValues(source.Get(), target.Get());
  return bKeys && bValues;
}

bool CALWMachineUserPreferences::CopyKeys(RegistryKey hSource, RegistryKey hTarget) {
  Registry& registry = CurrentPlatform().registry;
  CString sName;
  CString sClass;
  for (std::uint32_t nIndex = 0; registry.EnumerateKey(hSource, nIndex, sName, sClass); ++nIndex) {
    const CRegKey made(registry.Create(hTarget, sName.c_str(), sClass.c_str(), kAllAccess));
    if (!made.IsOpen()) return false;
    if (!CopyRegistryKey(hSource, sName.c_str(), hTarget, sName.c_str())) return false;
  }
  return true;
}

bool CALWMachineUserPreferences::CopyValues(RegistryKey hSource, RegistryKey hTarget) {
  Registry& registry = CurrentPlatform().registry;
  CString sName;
  RegistryValue value;
  for (std::uint32_t nIndex = 0; registry.EnumerateValue(hSource, nIndex, sName, value); ++nIndex) {
    if (value.sData.size() > kCopiedBytes) value.sData.resize(kCopiedBytes);
    if (!registry.SetValue(hTarget, sName.c_str(), value)) return false;
  }
  return true;
}

bool CALWMachineUserPreferences::GetUpgradeVersionInfo(CString& sIniName) {
  CALWMachineUserPreferences root;
  if (!GetRegKey(kLocalMachine, PreferenceOpenMode::Read, PreferenceGroup::Root, root.m_key)) {
    return false;
  }
  CFixedString<kUpgradeNameSize> sName;
  if (!root.GetValue(kUpgradeValue, nullptr, sName)) return false;
  try {
    sIniName = sName.view();
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

bool CALWMachineUserPreferences::isConverted() {
  if (m_bConverted) return true;
  CALWMachineUserPreferences root;
  root.OpenKey(PreferenceOpenMode::Read, PreferenceGroup::Root);
  root.GetValue(kConvertedValue, false, m_bConverted);
  return m_bConverted;
}

void CALWMachineUserPreferences::MarkAsConverted() {
  if (m_bConverted) return;
  CALWMachineUserPreferences root;
  root.OpenKey(PreferenceOpenMode::Write, PreferenceGroup::Root);
  m_bConverted = root.SetValue(kConvertedValue, std::uint32_t{1});
}

// What cannot be copied is left out: a group that the machine does not have is no failure.
bool CALWMachineUserPreferences::Convert() {
  ProductVersion former;
  const bool bUpgrade = FindFormerVersion(former);
  for (auto nGroup = static_cast<std::int32_t>(kFirstPreferenceGroup);
       nGroup <= static_cast<std::int32_t>(kLastPreferenceGroup); ++nGroup) {
    const PreferenceGroup eGroup{nGroup};
    CString sKey;
    CString sFormerKey;
    if (!BuildRegKey(eGroup, sKey)) continue;
    CopyRegistryKey(kLocalMachine, sKey.c_str(), kCurrentUser, sKey.c_str());
    if (bUpgrade &&
        BuildRegKey(former.sProduct.c_str(), former.sMajorVersion.c_str(), eGroup, sFormerKey)) {
      CopyRegistryKey(kCurrentUser, sFormerKey.c_str(), kCurrentUser, sKey.c_str());
    }
  }
  MarkAsConverted();
  return true;
}

}  // namespace ald
