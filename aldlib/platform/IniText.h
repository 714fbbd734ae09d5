#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

namespace ald {

namespace internal {

// Orders texts without regard to the case of letters.
struct CaseBlindLess {
  using is_transparent = void;
  bool operator()(std::string_view sLeft, std::string_view sRight) const noexcept;
  bool operator()(const std::pair<std::string_view, std::string_view>& left,
                  const std::pair<std::string_view, std::string_view>& right) const noexcept;
};

}  // namespace internal

// A text in INI form, taken apart:
//
//   ; a comment: the first character behind the blanks of a line says so
//   [Install]
//   ProgramPath = "C:\Program Files"      the value C:\Program Files, without blanks and quotes
//   ProgramPath = D:\                     never read: the first of two like keys wins
//   Notes =                               an empty value, which is a value
//   Later                                 without "=" it is no value at all
//   [INSTALL]                             nor is this section: the first of two like ones wins
//
// Names are found whatever the case of their letters, and blanks around names and values do not
// count. A header ends at the last "]" of its line. One pair of quotes, double or single, is taken
// off a value that has it first and last. A byte-order mark in front is passed over, and a zero
// byte ends a line. Lines before the first header belong to no section. Texts are code page 1252.
class ALDLIB_EXPORT IniText {
 public:
  IniText() = default;
  explicit IniText(CString sText);
  IniText(const IniText&) = delete;
  IniText& operator=(const IniText&) = delete;

  // The value as it stands, without its quotes. No value if the section or the key is not there.
  std::optional<std::string_view> Find(std::string_view sSection, std::string_view sKey) const;

  // The names of all sections in order, repeated ones as often as they stand there.
  const std::vector<std::string_view>& Sections() const { return m_sections; }

  // The keys of the section in order, repeated ones included. Null if there is no such section.
  const std::vector<std::string_view>* Keys(std::string_view sSection) const;

 private:
  void TakeLine(std::string_view sLine);

  CString m_sText;  // what everything below looks into
  std::vector<std::string_view> m_sections;
  std::map<std::string_view, std::vector<std::string_view>, internal::CaseBlindLess> m_keys;
  std::map<std::pair<std::string_view, std::string_view>, std::string_view, internal::CaseBlindLess>
      m_values;
  std::vector<std::string_view>* m_pKeys = nullptr;  // those of the section being read
  std::string_view m_sSection;
};

// Texts that answer one after the other: the first that has a value gives it.
using IniLayers = std::span<const IniText* const>;

// The read that Profile::ReadString tells, from texts.
ALDLIB_EXPORT std::uint32_t ReadIniString(IniLayers layers, const char* szSection,
                                          const char* szKey, const char* szDefault, char* szBuffer,
                                          std::uint32_t nSize) noexcept;

// The read that Profile::ReadInt tells, from texts.
ALDLIB_EXPORT std::uint32_t ReadIniInt(IniLayers layers, const char* szSection, const char* szKey,
                                       std::int32_t nDefault) noexcept;

}  // namespace ald
