#include <algorithm>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>

#include "aldlib/config/Preferences.h"
#include "aldlib/platform/Characters.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/platform/posix/SettingsFolders.h"
#include "aldlib/text/ResourceStrings.h"
#include "tools/aldtool/Commands.h"

namespace aldtool {

namespace {

using Preferences = ald::CALWMachineUserPreferences;
using ald::CRegKey;
using ald::RegistryType;
using ald::RegistryValue;

constexpr const char* kWholeTree = "SOFTWARE\\Alderfell";

ald::RegistryKey RootOf(bool bMachine) {
  return bMachine ? ald::kLocalMachine : ald::kCurrentUser;
}

int Complain(const std::string& sTrouble) {
  std::cerr << "aldtool: " << sTrouble << '\n';
  return kUnusable;
}

bool IsSameName(std::string_view sLeft, std::string_view sRight) {
  return std::equal(sLeft.begin(), sLeft.end(), sRight.begin(), sRight.end(),
                    [](char a, char b) { return ald::CharUpper(a) == ald::CharUpper(b); });
}

std::string NumberedText(std::int32_t nNumber) {
  ald::CFixedString<256> sText;
  ald::MyLoadString(static_cast<std::uint32_t>(nNumber), sText);
  return std::string(sText.view());
}

// Finds the text of that number, or the number of that text, between two numbers. Returns 0 if
// there is none.
std::int32_t FindNumber(const std::string& sGiven, std::int32_t nFirst, std::int32_t nLast) {
  for (std::int32_t n = nFirst; n <= nLast; ++n) {
    const std::string sText = NumberedText(n);
    if (!sText.empty() && (IsSameName(sText, sGiven) || sGiven == std::to_string(n))) return n;
  }
  return 0;
}

bool FindGroup(const std::string& sGiven, ald::PreferenceGroup& eGroup) {
  const std::int32_t nGroup =
      FindNumber(sGiven, static_cast<std::int32_t>(ald::kFirstPreferenceGroup),
                 static_cast<std::int32_t>(ald::kLastPreferenceGroup));
  eGroup = ald::PreferenceGroup{nGroup};
  return nGroup != 0;
}

// The name of a preference that was given by its number; any other text is a name itself.
std::string ValueName(const std::string& sGiven, bool& bKnown) {
  const std::int32_t nPreference =
      FindNumber(sGiven, static_cast<std::int32_t>(ald::kFirstPreference),
                 static_cast<std::int32_t>(ald::kLastPreference));
  bKnown = nPreference != 0;
  return bKnown ? NumberedText(nPreference) : sGiven;
}

std::uint32_t NumberOf(const RegistryValue& value) {
  std::uint32_t nNumber = 0;
  for (std::size_t i = std::min<std::size_t>(value.sData.size(), 4); i-- > 0;) {
    nNumber = nNumber << 8 | static_cast<unsigned char>(value.sData[i]);
  }
  return nNumber;
}

RegistryValue NumberValue(std::uint32_t nNumber) {
  RegistryValue value{RegistryType::Number, {}};
  for (int i = 0; i < 4; ++i) value.sData += static_cast<char>(nNumber >> 8 * i & 0xFF);
  return value;
}

// The text in quotes, with nothing in it that a terminal or a reader could mistake.
std::string Quoted(std::string_view sText) {
  std::ostringstream out;
  out << '"';
  for (const char c : ald::Utf8FromCodePage1252(sText)) {
    const auto nByte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      out << '\\' << c;
    } else if (nByte < 0x20 || nByte == 0x7F) {
      out << "\\x" << std::hex << std::setw(2) << std::setfill('0') << int{nByte} << std::dec;
    } else {
      out << c;
    }
  }
  out << '"';
  return out.str();
}

std::string HexBytes(const RegistryValue& value) {
  std::ostringstream out;
  out << "hex(" << std::hex << static_cast<std::uint32_t>(value.eType) << "):" << std::setfill('0');
  for (std::size_t i = 0; i < value.sData.size(); ++i) {
    out << (i > 0 ? "," : "") << std::setw(2) << int{static_cast<unsigned char>(value.sData[i])};
  }
  return out.str();
}

// A value as people read it: 12, "Ohio", or the bytes of what is neither number nor text.
std::string Readable(const RegistryValue& value) {
  if (value.eType == RegistryType::Number && value.sData.size() == 4) {
    return std::to_string(static_cast<std::int32_t>(NumberOf(value)));
  }
  return value.eType == RegistryType::Text ? Quoted(value.sData.c_str()) : HexBytes(value);
}

// The same as exports of a registry write it.
std::string Exported(const RegistryValue& value) {
  if (value.eType != RegistryType::Number || value.sData.size() != 4) return Readable(value);
  std::ostringstream out;
  out << "dword:" << std::hex << std::setw(8) << std::setfill('0') << NumberOf(value);
  return out.str();
}

// Opens a key as it is: nothing is made or converted by looking at it.
CRegKey OpenAsItIs(bool bMachine, const std::string& sKey) {
  return CRegKey(
      ald::CurrentPlatform().registry.Open(RootOf(bMachine), sKey.c_str(), ald::kReadAccess));
}

// Says why the store cannot be read; empty if it can, or if there is none yet.
std::string StoreTrouble(bool bMachine) {
  const std::string sFile = bMachine ? ald::MachinePreferencesFile() : ald::UserPreferencesFile();
  std::error_code error;
  if (OpenAsItIs(bMachine, "").IsOpen() || !std::filesystem::exists(sFile, error) ||
      std::filesystem::is_empty(sFile, error)) {
    return {};
  }
  return sFile + " cannot be read, or is no store of preferences.";
}

// Calls `visit` with the path below `sKey`, the name and the value of everything in the key.
template <class Visitor>
void VisitValues(const CRegKey& key, const std::string& sPath, const Visitor& visit) {
  ald::Registry& registry = ald::CurrentPlatform().registry;
  std::string sName;
  std::string sClass;
  RegistryValue value;
  for (std::uint32_t i = 0; registry.EnumerateValue(key.Get(), i, sName, value); ++i) {
    visit(sPath, sName, value);
  }
  for (std::uint32_t i = 0; registry.EnumerateKey(key.Get(), i, sName, sClass); ++i) {
    const CRegKey below(registry.Open(key.Get(), sName.c_str(), ald::kReadAccess));
    if (below.IsOpen()) VisitValues(below, sPath + "\\" + sName, visit);
  }
}

bool ReadNumber(std::string_view sText, RegistryValue& value) {
  std::int64_t nNumber = 0;
  const auto [pEnd, error] = std::from_chars(sText.data(), sText.data() + sText.size(), nNumber);
  if (error != std::errc() || pEnd != sText.data() + sText.size() || nNumber < INT32_MIN ||
      nNumber > UINT32_MAX) {
    return false;
  }
  value = NumberValue(static_cast<std::uint32_t>(nNumber));
  return true;
}

// Makes the value that was typed. Without a type it is of the kind that stands there, or else a
// number if it reads as one. Returns what is wrong, or an empty text.
std::string MakeValue(const std::string& sText, std::string sType, const RegistryValue* pThere,
                      RegistryValue& value) {
  if (sType.empty() && pThere != nullptr) {
    sType = pThere->eType == RegistryType::Number ? "number" : "text";
  }
  if (sType == "yesno") {
    if (sText != "yes" && sText != "no") return "a yes or no is wanted, not '" + sText + "'";
    value = NumberValue(sText == "yes" ? 1 : 0);
    return {};
  }
  if (sType != "text" && ReadNumber(sText, value)) return {};
  if (sType == "number") {
    return "a number from -2147483648 to 4294967295 is wanted, not '" + sText + "'";
  }
  value = {RegistryType::Text, ald::CodePage1252FromUtf8(sText) + '\0'};
  return {};
}

// Opens a group for writing. For the user this is what the application does, conversion included.
bool OpenForWriting(bool bMachine, ald::PreferenceGroup eGroup, CRegKey& key) {
  if (!bMachine && !Preferences(ald::PreferenceOpenMode::Write, eGroup).isOpen()) return false;
  return Preferences::GetRegKey(RootOf(bMachine), ald::PreferenceOpenMode::Write, eGroup, key);
}

std::string NotWritable(bool bMachine) {
  return (bMachine ? ald::MachinePreferencesFile() : ald::UserPreferencesFile()) +
         " cannot be written.";
}

std::string NoSuchGroup(const std::string& sGroup) {
  std::string sTrouble = "there is no group '" + sGroup + "', only:";
  for (auto n = static_cast<std::int32_t>(ald::kFirstPreferenceGroup);
       n <= static_cast<std::int32_t>(ald::kLastPreferenceGroup); ++n) {
    sTrouble += "\n  " + std::to_string(n) + "  " + NumberedText(n);
  }
  return sTrouble;
}

}  // namespace

int RunPrefsList(bool bMachine) {
  const std::string sTrouble = StoreTrouble(bMachine);
  if (!sTrouble.empty()) return Complain(sTrouble);
  std::string sKey;
  Preferences::BuildRegKey(ald::PreferenceGroup::Root, sKey);
  int nValues = 0;
  VisitValues(OpenAsItIs(bMachine, sKey), "",
              [&](const std::string& sPath, const std::string& sName, const RegistryValue& value) {
                const std::string sBelow = sPath.empty() ? sPath : sPath.substr(1) + "\\";
                std::cout << ald::Utf8FromCodePage1252(sBelow + sName) << " = " << Readable(value)
                          << '\n';
                ++nValues;
              });
  if (nValues == 0) std::cout << "Nothing is set.\n";
  return kGood;
}

bool AreTherePreferences() {
  return OpenAsItIs(false, kWholeTree).IsOpen() || OpenAsItIs(true, kWholeTree).IsOpen();
}

int RunPrefsExport(bool bMachine) {
  const std::string sTrouble = StoreTrouble(bMachine);
  if (!sTrouble.empty()) return Complain(sTrouble);
  std::string sLastPath;
  VisitValues(OpenAsItIs(bMachine, kWholeTree), kWholeTree,
              [&](const std::string& sPath, const std::string& sName, const RegistryValue& value) {
                if (sPath != sLastPath) {
                  std::cout << (sLastPath.empty() ? "[" : "\n[") << ald::Utf8FromCodePage1252(sPath)
                            << "]\n";
                  sLastPath = sPath;
                }
                std::cout << Quoted(sName) << '=' << Exported(value) << '\n';
              });
  return kGood;
}

int RunPrefsGet(const std::string& sGroup, const std::string& sName, bool bMachine) {
  ald::PreferenceGroup eGroup{};
  if (!FindGroup(sGroup, eGroup)) return Complain(NoSuchGroup(sGroup));
  const std::string sTrouble = StoreTrouble(bMachine);
  if (!sTrouble.empty()) return Complain(sTrouble);
  bool bKnown = false;
  const std::string sValue = ValueName(ald::CodePage1252FromUtf8(sName), bKnown);
  std::string sKey;
  Preferences::BuildRegKey(eGroup, sKey);
  RegistryValue value;
  if (!ald::CurrentPlatform().registry.QueryValue(OpenAsItIs(bMachine, sKey).Get(), sValue.c_str(),
                                                  value)) {
    return Complain(sGroup + " has no value '" + sName + "'.");
  }
  // Alone and as it is, for a script.
  std::cout << (value.eType == RegistryType::Text ? ald::Utf8FromCodePage1252(value.sData.c_str())
                                                  : Readable(value))
            << '\n';
  return kGood;
}

int RunPrefsSet(const std::string& sGroup, const std::string& sName, const std::string& sText,
                const std::string& sType, bool bMachine) {
  ald::PreferenceGroup eGroup{};
  if (!FindGroup(sGroup, eGroup)) return Complain(NoSuchGroup(sGroup));
  bool bKnown = false;
  const std::string sValue = ValueName(ald::CodePage1252FromUtf8(sName), bKnown);
  if (!bKnown && !Preferences::isStringIndexedGroup(eGroup)) {
    return Complain("no preference is called '" + sName + "', and nothing would ever read it.");
  }
  CRegKey key;
  if (!OpenForWriting(bMachine, eGroup, key)) return Complain(NotWritable(bMachine));
  ald::Registry& registry = ald::CurrentPlatform().registry;
  RegistryValue there;
  const bool bThere = registry.QueryValue(key.Get(), sValue.c_str(), there);
  RegistryValue value;
  const std::string sTrouble = MakeValue(sText, sType, bThere ? &there : nullptr, value);
  if (!sTrouble.empty()) return Complain(sTrouble);
  if (!registry.SetValue(key.Get(), sValue.c_str(), value)) return Complain(NotWritable(bMachine));
  return kGood;
}

int RunPrefsRemove(const std::string& sGroup, const std::string& sName, bool bMachine) {
  ald::PreferenceGroup eGroup{};
  if (!FindGroup(sGroup, eGroup)) return Complain(NoSuchGroup(sGroup));
  const std::string sTrouble = StoreTrouble(bMachine);
  if (!sTrouble.empty()) return Complain(sTrouble);
  ald::Registry& registry = ald::CurrentPlatform().registry;
  std::string sKey;
  Preferences::BuildRegKey(eGroup, sKey);
  if (!OpenAsItIs(bMachine, sKey).IsOpen()) return Complain(sGroup + " holds nothing.");
  if (sName.empty()) {
    return registry.DeleteTree(RootOf(bMachine), sKey.c_str()) ? kGood
                                                               : Complain(NotWritable(bMachine));
  }
  bool bKnown = false;
  const std::string sValue = ValueName(ald::CodePage1252FromUtf8(sName), bKnown);
  const CRegKey key(registry.Open(RootOf(bMachine), sKey.c_str(), ald::kReadWriteAccess));
  RegistryValue value;
  if (!registry.QueryValue(key.Get(), sValue.c_str(), value)) {
    return Complain(sGroup + " has no value '" + sName + "'.");
  }
  return registry.DeleteValue(key.Get(), sValue.c_str()) ? kGood : Complain(NotWritable(bMachine));
}

}  // namespace aldtool
