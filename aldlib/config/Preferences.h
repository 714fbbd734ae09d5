#pragma once

#include <cstdint>

#include "aldlib/config/PreferenceNumbers.h"
#include "aldlib/config/RegKey.h"
#include "aldlib/platform/Export.h"
#include "aldlib/platform/Registry.h"
#include "aldlib/platform/Types.h"
#include "aldlib/text/FixedString.h"

namespace ald {

// One open key of the user's preferences: a group, open for reading or for writing.
//
//   CALWMachineUserPreferences options(PreferenceOpenMode::Write, PreferenceGroup::Options);
//   options.SetValue(Preference::autodecimal, true);
//
//   bool bShow = CALWMachineUserPreferences::GetBoolValue(PreferenceGroup::Tips,
//                                                         Preference::showstartup, true);
//
// The preferences of a product and major version are a tree of keys,
// "SOFTWARE\Alderfell\PRODUCT\13" with a key for each group, below the root of the user and, as the
// defaults of everybody, below that of the machine. The first open in a user account copies the
// machine's tree into the user's and, after an upgrade, the user's settings of the former version
// over that.
//
// Nothing is shown to anybody and nothing throws: each failure is a false result, and a store that
// cannot be opened reads as if nothing had been set. Values are asked for by the number of a
// preference, or by a name where the group is one of names. A text of another type, or longer than
// the output, counts as missing.
class ALDLIB_EXPORT CALWMachineUserPreferences {
 public:
  // Closed, on PreferenceGroup::Root.
  CALWMachineUserPreferences() = default;
  // Opens as Open does; isOpen tells whether it went well.
  CALWMachineUserPreferences(PreferenceOpenMode eMode, PreferenceGroup eGroup);
  // Take over the source's key. The source keeps its group and mode, so it still says that it is
  // open, but nothing can be read or written through it until it has been closed.
  CALWMachineUserPreferences(CALWMachineUserPreferences& other);
  CALWMachineUserPreferences& operator=(CALWMachineUserPreferences& other);
  ~CALWMachineUserPreferences();

  // Opens a group; the conversion of the first use comes before. Reading makes a missing key as
  // well. An object that is open in that mode on that group stays as it is; one that is open
  // otherwise is closed, and closed it stays after a failure. Mode 0 is a failure that changes
  // nothing.
  bool Open(PreferenceOpenMode eMode, PreferenceGroup eGroup);
  void Close();

  bool isOpen() const { return m_eMode != PreferenceOpenMode::Closed; }
  PreferenceGroup CurrentGroup() const { return m_eGroup; }
  PreferenceOpenMode OpenMode() const { return m_eMode; }

  // Whether the values of the group have names made at run time; whether a product cannot do
  // without it (none); whether it takes part in the conversion (every one).
  static bool isStringIndexedGroup(PreferenceGroup eGroup);
  static bool isRequiredGroup(PreferenceGroup eGroup);
  static bool isConvertionGroup(PreferenceGroup eGroup);

  // Deletes the key of a group with all that is in it. If another group was open here, opens that
  // again and returns whether it could; otherwise true, also if there was nothing to delete. False
  // for a group without a name, PreferenceGroup::Root among them, and if the tree does not open.
  bool RemoveGroup(PreferenceGroup eGroup);

  // Read a text. True if it was there. A missing one gives the default, cut to fit, and false; a
  // null default leaves the output as it is, and so does every read of an object that is not open.
  //   buffer: nSize is its capacity with the terminator, and the length of the text afterwards
  //   heap string: a text of more than 1023 characters counts as missing
  bool GetValue(Preference ePreference, const char* szDefault, char* szBuffer,
                std::uint32_t& nSize) const;
  bool GetValue(Preference ePreference, const char* szDefault, CFixedStringParamRef output) const;
  bool GetValue(Preference ePreference, const char* szDefault, CString& sOutput) const;
  bool GetValue(const char* szName, const char* szDefault, char* szBuffer,
                std::uint32_t& nSize) const;
  bool GetValue(const char* szName, const char* szDefault, CFixedStringParamRef output) const;
  bool GetValue(const char* szName, const char* szDefault, CString& sOutput) const;

  // Read a number. True if there was one; otherwise the output is the default. A yes or no is true
  // only if the number is 1.
  bool GetValue(Preference ePreference, bool bDefault, bool& bOutput) const;
  bool GetValue(Preference ePreference, std::int32_t nDefault, std::int32_t& nOutput) const;
  bool GetValue(Preference ePreference, std::uint32_t nDefault, std::uint32_t& nOutput) const;
  bool GetValue(Preference ePreference, std::int16_t nDefault, std::int16_t& nOutput) const;
  bool GetValue(const char* szName, bool bDefault, bool& bOutput) const;
  bool GetValue(const char* szName, std::uint32_t nDefault, std::uint32_t& nOutput) const;
  bool GetValue(const char* szName, std::int16_t nDefault, std::int16_t& nOutput) const;

  // Write a value, whatever was there. False unless the object is open for writing, and for a null
  // text or name. A text goes to the store with its terminator, a number as 32 bits.
  bool SetValue(Preference ePreference, const char* szValue);
  bool SetValue(Preference ePreference, bool bValue);
  bool SetValue(Preference ePreference, std::int32_t nValue);
  bool SetValue(Preference ePreference, std::uint32_t nValue);
  bool SetValue(Preference ePreference, std::int16_t nValue);
  bool SetValue(const char* szName, const char* szValue);
  bool SetValue(const char* szName, bool bValue);
  bool SetValue(const char* szName, std::uint32_t nValue);
  bool SetValue(const char* szName, std::int16_t nValue);

  // Deletes a value. False unless the object is open for writing and the value was there.
  bool RemoveValue(Preference ePreference);
  bool RemoveValue(const char* szName);

  // Open a group for reading, read one value as the reads above do, and close it.
  static bool GetValue(PreferenceGroup eGroup, Preference ePreference, const char* szDefault,
                       char* szBuffer, std::uint32_t& nSize);
  static bool GetValue(PreferenceGroup eGroup, Preference ePreference, const char* szDefault,
                       CFixedStringParamRef output);
  static bool GetValue(PreferenceGroup eGroup, Preference ePreference, const char* szDefault,
                       CString& sOutput);
  static bool GetValue(PreferenceGroup eGroup, Preference ePreference, bool bDefault,
                       bool& bOutput);
  static bool GetValue(PreferenceGroup eGroup, Preference ePreference, std::int32_t nDefault,
                       std::int32_t& nOutput);
  static bool GetValue(PreferenceGroup eGroup, Preference ePreference, std::uint32_t nDefault,
                       std::uint32_t& nOutput);
  static bool GetValue(PreferenceGroup eGroup, Preference ePreference, std::int16_t nDefault,
                       std::int16_t& nOutput);
  static bool GetBoolValue(PreferenceGroup eGroup, Preference ePreference, bool bDefault);
  static std::int32_t GetIntValue(PreferenceGroup eGroup, Preference ePreference,
                                  std::int32_t nDefault);
  static std::uint32_t GetDWORDValue(PreferenceGroup eGroup, Preference ePreference,
                                     std::uint32_t nDefault);
  static std::int16_t GetShortValue(PreferenceGroup eGroup, Preference ePreference,
                                    std::int16_t nDefault);

  // The name of a group's key below a root, for the product in use or for another one. False, with
  // an empty name, for a group whose name no module has: an empty one would be the whole tree.
  static bool BuildRegKey(PreferenceGroup eGroup, CString& sKey);
  static bool BuildRegKey(const char* szProduct, const char* szMajorVersion, PreferenceGroup eGroup,
                          CString& sKey);

  // Opens the key of a group below a root. Reading makes it if it is missing. On success the key
  // replaces what `key` held; a failed read leaves it closed, a failed write as it was.
  static bool GetRegKey(RegistryKey hRoot, PreferenceOpenMode eMode, PreferenceGroup eGroup,
                        CRegKey& key);

  // Copies a key with all keys and values below it; what the target has besides stays. False if the
  // source is not there or something could not be written, which ends the copying.
  static bool CopyRegistryKey(RegistryKey hSourceRoot, const char* szSource,
                              RegistryKey hTargetRoot, const char* szTarget);
  // Copy what lies below an open key, and the values in it. Of a value of more than 1024 bytes the
  // first 1024 are copied.
  static bool CopyKeys(RegistryKey hSource, RegistryKey hTarget);
  static bool CopyValues(RegistryKey hSource, RegistryKey hTarget);

  // The INI file name of the version that this one was installed over, at most 19 characters, from
  // the machine's tree. False if there is none.
  static bool GetUpgradeVersionInfo(CString& sIniName);

  // The conversion of the first use: whether it has been done for this user, what does it, and the
  // note that it is done. m_bConverted remembers that for the process.
  static bool isConverted();
  static bool Convert();
  static void MarkAsConverted();
  static bool m_bConverted;

 private:
  bool OpenKey(PreferenceOpenMode eMode, PreferenceGroup eGroup);
  bool ReadText(const char* szName, const char* szDefault, char* szBuffer,
                std::uint32_t& nSize) const;
  bool ReadNumber(const char* szName, std::uint32_t& nNumber) const;
  bool WriteText(const char* szName, const char* szValue);
  bool WriteNumber(const char* szName, std::uint32_t nNumber);

  CRegKey m_key;
  PreferenceGroup m_eGroup = PreferenceGroup::Root;
  PreferenceOpenMode m_eMode = PreferenceOpenMode::Closed;
};

}  // namespace ald
