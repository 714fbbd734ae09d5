#include "aldlib/config/Preferences.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "aldlib/platform/Platform.h"
#include "aldlib/text/ResourceStrings.h"

namespace ald {
namespace {

constexpr std::uint32_t kHeapStringSize = 1024;
constexpr std::size_t kNumberBytes = 4;

// The name of a preference's value; null if no module has it.
class ValueName {
 public:
  explicit ValueName(Preference ePreference)
      : m_bThere(MyLoadString(static_cast<std::uint32_t>(ePreference), m_sName) > 0) {}
  operator const char*() const { return m_bThere ? static_cast<const char*>(m_sName) : nullptr; }

 private:
  CFixedString<256> m_sName;
  bool m_bThere;
};

// Copies as much as fits with a terminator, and returns the length of that.
std::uint32_t CopyText(std::string_view sText, char* szBuffer, std::uint32_t nCapacity) {
  if (szBuffer == nullptr || nCapacity == 0) return 0;
  const std::size_t nLength = std::min<std::size_t>(sText.size(), nCapacity - 1);
  std::memmove(szBuffer, sText.data(), nLength);  // the default may stand in the buffer
  szBuffer[nLength] = '\0';
  return static_cast<std::uint32_t>(nLength);
}

}  // namespace

void CRegKey::Close() {
  if (IsOpen()) CurrentPlatform().registry.Close(Detach());
}

CALWMachineUserPreferences::CALWMachineUserPreferences(PreferenceOpenMode eMode,
                                                       PreferenceGroup eGroup) {
  Open(eMode, eGroup);
}

CALWMachineUserPreferences::CALWMachineUserPreferences(CALWMachineUserPreferences& other)
    : m_key(other.m_key.Detach()), m_eGroup(other.m_eGroup), m_eMode(other.m_eMode) {}

CALWMachineUserPreferences& CALWMachineUserPreferences::operator=(
    CALWMachineUserPreferences& other) {
  if (this == &other) return *this;
  Close();
  m_key.Attach(other.m_key.Detach());
  m_eGroup = other.m_eGroup;
  m_eMode = other.m_eMode;
  return *this;
}

CALWMachineUserPreferences::~CALWMachineUserPreferences() {
  Close();
}

bool CALWMachineUserPreferences::Open(PreferenceOpenMode eMode, PreferenceGroup eGroup) {
  if (!isConverted() && !Convert()) return false;
  return OpenKey(eMode, eGroup);
}

bool CALWMachineUserPreferences::OpenKey(PreferenceOpenMode eMode, PreferenceGroup eGroup) {
  if (eMode < PreferenceOpenMode::Read) return false;
  if (m_eMode == eMode && m_eGroup == eGroup) return true;
  Close();
  if (!GetRegKey(kCurrentUser, eMode, eGroup, m_key)) {
    Close();
    return false;
  }
  m_eMode = eMode;
  m_eGroup = eGroup;
  return true;
}

void CALWMachineUserPreferences::Close() {
  m_key.Close();
  m_eGroup = PreferenceGroup::Root;
  m_eMode = PreferenceOpenMode::Closed;
}

bool CALWMachineUserPreferences::isStringIndexedGroup(PreferenceGroup eGroup) {
  switch (eGroup) {
    case PreferenceGroup::OpenHistory:
    case PreferenceGroup::OneTimeMessages:
    case PreferenceGroup::Positions:
    case PreferenceGroup::EmailFormsTab:
    case PreferenceGroup::Sorting:
      return true;
    default:
      return false;
  }
}

bool CALWMachineUserPreferences::isRequiredGroup(PreferenceGroup) {
  return false;
}

bool CALWMachineUserPreferences::isConvertionGroup(PreferenceGroup) {
  return true;
}

bool CALWMachineUserPreferences::RemoveGroup(PreferenceGroup eGroup) {
  const PreferenceOpenMode eFormerMode = m_eGroup != eGroup ? m_eMode : PreferenceOpenMode::Closed;
  const PreferenceGroup eFormerGroup = m_eGroup;
  Close();
  bool bGood = false;
  CFixedString<256> sGroup;
  if (eGroup != PreferenceGroup::Root &&
      MyLoadString(static_cast<std::uint32_t>(eGroup), sGroup) > 0 &&
      Open(PreferenceOpenMode::Write, PreferenceGroup::Root)) {
    CurrentPlatform().registry.DeleteTree(m_key.Get(), sGroup);
    bGood = true;
  }
  Close();
  if (eFormerMode != PreferenceOpenMode::Closed) bGood = Open(eFormerMode, eFormerGroup) && bGood;
  return bGood;
}

// Reading.

bool CALWMachineUserPreferences::ReadText(const char* szName, const char* szDefault, char* szBuffer,
                                          std::uint32_t& nSize) const {
  if (!m_key.IsOpen() || szBuffer == nullptr) return false;
  RegistryValue value;
  if (szName != nullptr && CurrentPlatform().registry.QueryValue(m_key.Get(), szName, value) &&
      value.eType == RegistryType::Text) {
    const std::string_view sText(value.sData.c_str());
    if (sText.size() < nSize) {
      nSize = CopyText(sText, szBuffer, nSize);
      return true;
    }
  }
  if (szDefault != nullptr) nSize = CopyText(szDefault, szBuffer, nSize);
  return false;
}

bool CALWMachineUserPreferences::ReadNumber(const char* szName, std::uint32_t& nNumber) const {
  RegistryValue value;
  if (!m_key.IsOpen() || szName == nullptr ||
      !CurrentPlatform().registry.QueryValue(m_key.Get(), szName, value) ||
      value.eType != RegistryType::Number || value.sData.size() != kNumberBytes) {
    return false;
  }
  nNumber = 0;
  for (std::size_t i = kNumberBytes; i-- > 0;) {
    nNumber = nNumber << 8 | static_cast<unsigned char>(value.sData[i]);
  }
  return true;
}

bool CALWMachineUserPreferences::GetValue(const char* szName, const char* szDefault, char* szBuffer,
                                          std::uint32_t& nSize) const {
  return ReadText(szName, szDefault, szBuffer, nSize);
}

bool CALWMachineUserPreferences::GetValue(const char* szName, const char* szDefault,
                                          CFixedStringParamRef output) const {
  if (!m_key.IsOpen() || output.buffer == nullptr || output.size < 1) return false;
  CString sText;
  try {
    sText.resize(static_cast<std::size_t>(output.size));
  } catch (const std::bad_alloc&) {
    return false;
  }
  auto nSize = static_cast<std::uint32_t>(output.size);
  const bool bThere = ReadText(szName, nullptr, sText.data(), nSize);
  if (bThere) {
    output = sText.c_str();
  } else if (szDefault != nullptr) {
    output = szDefault;
  }
  return bThere;
}

bool CALWMachineUserPreferences::GetValue(const char* szName, const char* szDefault,
                                          CString& sOutput) const try {
  char szText[kHeapStringSize];
  std::uint32_t nSize = kHeapStringSize;
  const bool bThere = ReadText(szName, nullptr, szText, nSize);
  if (bThere) {
    sOutput.assign(szText, nSize);
  } else if (m_key.IsOpen() && szDefault != nullptr) {
    sOutput = szDefault;
  }
  return bThere;
} catch (const std::bad_alloc&) {
  return false;
}

bool CALWMachineUserPreferences::GetValue(const char* szName, bool bDefault, bool& bOutput) const {
  std::uint32_t nNumber = 0;
  const bool bThere = ReadNumber(szName, nNumber);
  bOutput = bThere ? nNumber == 1 : bDefault;
  return bThere;
}

bool CALWMachineUserPreferences::GetValue(const char* szName, std::uint32_t nDefault,
                                          std::uint32_t& nOutput) const {
  nOutput = nDefault;
  return ReadNumber(szName, nOutput);
}

bool CALWMachineUserPreferences::GetValue(const char* szName, std::int16_t nDefault,
                                          std::int16_t& nOutput) const {
  std::uint32_t nNumber = 0;
  const bool bThere = ReadNumber(szName, nNumber);
  nOutput = bThere ? static_cast<std::int16_t>(nNumber) : nDefault;
  return bThere;
}

bool CALWMachineUserPreferences::GetValue(Preference ePreference, const char* szDefault,
                                          char* szBuffer, std::uint32_t& nSize) const {
  return GetValue(ValueName(ePreference), szDefault, szBuffer, nSize);
}

bool CALWMachineUserPreferences::GetValue(Preference ePreference, const char* szDefault,
                                          CFixedStringParamRef output) const {
  return GetValue(ValueName(ePreference), szDefault, output);
}

bool CALWMachineUserPreferences::GetValue(Preference ePreference, const char* szDefault,
                                          CString& sOutput) const {
  return GetValue(ValueName(ePreference), szDefault, sOutput);
}

bool CALWMachineUserPreferences::GetValue(Preference ePreference, bool bDefault,
                                          bool& bOutput) const {
  return GetValue(ValueName(ePreference), bDefault, bOutput);
}

bool CALWMachineUserPreferences::GetValue(Preference ePreference, std::int32_t nDefault,
                                          std::int32_t& nOutput) const {
  std::uint32_t nNumber = 0;
  const bool bThere = ReadNumber(ValueName(ePreference), nNumber);
  nOutput = bThere ? static_cast<std::int32_t>(nNumber) : nDefault;
  return bThere;
}

bool CALWMachineUserPreferences::GetValue(Preference ePreference, std::uint32_t nDefault,
                                          std::uint32_t& nOutput) const {
  return GetValue(ValueName(ePreference), nDefault, nOutput);
}

bool CALWMachineUserPreferences::GetValue(Preference ePreference, std::int16_t nDefault,
                                          std::int16_t& nOutput) const {
  return GetValue(ValueName(ePreference), nDefault, nOutput);
}

// Writing.

bool CALWMachineUserPreferences::WriteText(const char* szName, const char* szValue) try {
  if (m_eMode != PreferenceOpenMode::Write || szValue == nullptr) return false;
  const RegistryValue value{RegistryType::Text, CString(szValue, std::strlen(szValue) + 1)};
  return CurrentPlatform().registry.SetValue(m_key.Get(), szName, value);
} catch (const std::bad_alloc&) {
  return false;
}

bool CALWMachineUserPreferences::WriteNumber(const char* szName, std::uint32_t nNumber) {
  if (m_eMode != PreferenceOpenMode::Write) return false;
  RegistryValue value{RegistryType::Number, {}};
  for (std::size_t i = 0; i < kNumberBytes; ++i) {
    value.sData += static_cast<char>(nNumber >> 8 * i & 0xFF);
  }
  return CurrentPlatform().registry.SetValue(m_key.Get(), szName, value);
}

bool CALWMachineUserPreferences::SetValue(const char* szName, const char* szValue) {
  return WriteText(szName, szValue);
}

bool CALWMachineUserPreferences::SetValue(const char* szName, bool bValue) {
  return WriteNumber(szName, bValue ? 1 : 0);
}

bool CALWMachineUserPreferences::SetValue(const char* szName, std::uint32_t nValue) {
  return WriteNumber(szName, nValue);
}

bool CALWMachineUserPreferences::SetValue(const char* szName, std::int16_t nValue) {
  return WriteNumber(szName, static_cast<std::uint32_t>(nValue));
}

bool CALWMachineUserPreferences::SetValue(Preference ePreference, const char* szValue) {
  return WriteText(ValueName(ePreference), szValue);
}

bool CALWMachineUserPreferences::SetValue(Preference ePreference, bool bValue) {
  return WriteNumber(ValueName(ePreference), bValue ? 1 : 0);
}

bool CALWMachineUserPreferences::SetValue(Preference ePreference, std::int32_t nValue) {
  return WriteNumber(ValueName(ePreference), static_cast<std::uint32_t>(nValue));
}

bool CALWMachineUserPreferences::SetValue(Preference ePreference, std::uint32_t nValue) {
  return WriteNumber(ValueName(ePreference), nValue);
}

bool CALWMachineUserPreferences::SetValue(Preference ePreference, std::int16_t nValue) {
  return WriteNumber(ValueName(ePreference), static_cast<std::uint32_t>(nValue));
}

bool CALWMachineUserPreferences::RemoveValue(Preference ePreference) {
  return RemoveValue(ValueName(ePreference));
}

bool CALWMachineUserPreferences::RemoveValue(const char* szName) {
  return m_eMode == PreferenceOpenMode::Write &&
         CurrentPlatform().registry.DeleteValue(m_key.Get(), szName);
}

// One value of a group.

namespace {

// What a read of one value does, whatever its kind.
template <class Default, class... Output>
bool ReadOne(PreferenceGroup eGroup, Preference ePreference, Default defaultValue,
             Output&... output) {
  const CALWMachineUserPreferences group(PreferenceOpenMode::Read, eGroup);
  return group.GetValue(ePreference, defaultValue, output...);
}

}  // namespace

bool CALWMachineUserPreferences::GetValue(PreferenceGroup eGroup, Preference ePreference,
                                          const char* szDefault, char* szBuffer,
                                          std::uint32_t& nSize) {
  return ReadOne(eGroup, ePreference, szDefault, szBuffer, nSize);
}

bool CALWMachineUserPreferences::GetValue(PreferenceGroup eGroup, Preference ePreference,
                                          const char* szDefault, CFixedStringParamRef output) {
  return ReadOne(eGroup, ePreference, szDefault, output);
}

bool CALWMachineUserPreferences::GetValue(PreferenceGroup eGroup, Preference ePreference,
                                          const char* szDefault, CString& sOutput) {
  return ReadOne(eGroup, ePreference, szDefault, sOutput);
}

bool CALWMachineUserPreferences::GetValue(PreferenceGroup eGroup, Preference ePreference,
                                          bool bDefault, bool& bOutput) {
  return ReadOne(eGroup, ePreference, bDefault, bOutput);
}

bool CALWMachineUserPreferences::GetValue(PreferenceGroup eGroup, Preference ePreference,
                                          std::int32_t nDefault, std::int32_t& nOutput) {
  return ReadOne(eGroup, ePreference, nDefault, nOutput);
}

bool CALWMachineUserPreferences::GetValue(PreferenceGroup eGroup, Preference ePreference,
                                          std::uint32_t nDefault, std::uint32_t& nOutput) {
  return ReadOne(eGroup, ePreference, nDefault, nOutput);
}

bool CALWMachineUserPreferences::GetValue(PreferenceGroup eGroup, Preference ePreference,
                                          std::int16_t nDefault, std::int16_t& nOutput) {
  return ReadOne(eGroup, ePreference, nDefault, nOutput);
}

namespace {

template <class T>
T ValueOr(PreferenceGroup eGroup, Preference ePreference, T defaultValue) {
  T value = defaultValue;
  CALWMachineUserPreferences::GetValue(eGroup, ePreference, defaultValue, value);
  return value;
}

}  // namespace

bool CALWMachineUserPreferences::GetBoolValue(PreferenceGroup eGroup, Preference ePreference,
                                              bool bDefault) {
  return ValueOr(eGroup, ePreference, bDefault);
}

std::int32_t CALWMachineUserPreferences::GetIntValue(PreferenceGroup eGroup, Preference ePreference,
                                                     std::int32_t nDefault) {
  return ValueOr(eGroup, ePreference, nDefault);
}

std::uint32_t CALWMachineUserPreferences::GetDWORDValue(PreferenceGroup eGroup,
                                                        Preference ePreference,
                                                        std::uint32_t nDefault) {
  return ValueOr(eGroup, ePreference, nDefault);
}

std::int16_t CALWMachineUserPreferences::GetShortValue(PreferenceGroup eGroup,
                                                       Preference ePreference,
                                                       std::int16_t nDefault) {
  return ValueOr(eGroup, ePreference, nDefault);
}

}  // namespace ald
