#include "aldlib/platform/StringTable.h"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <fstream>
#include <new>
#include <optional>
#include <system_error>

namespace ald {
namespace {

constexpr const char* kBlanks = " \t";
constexpr std::uint32_t kMaxNumber = 65535;

// What a line says, or why it says nothing.
struct Line {
  std::uint16_t nNumber = 0;
  CString sText;
  CString sFault;
};

std::optional<char> HexPair(std::string_view digits) {
  unsigned nValue = 0;
  const char* const pEnd = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), pEnd, nValue, 16);
  const bool bGood = digits.size() == 2 && result.ec == std::errc{} && result.ptr == pEnd;
  if (!bGood || nValue == 0) return std::nullopt;
  return static_cast<char>(static_cast<unsigned char>(nValue));
}

// Puts the characters that the escapes stand for into line.sText.
void Unescape(std::string_view text, Line& line) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\0') {
      line.sFault = "a zero byte in the text";
      return;
    }
    if (text[i] != '\\') {
      line.sText += text[i];
      continue;
    }
    const char cKind = ++i < text.size() ? text[i] : '\0';
    switch (cKind) {
      case 'n':
        line.sText += '\n';
        break;
      case 'r':
        line.sText += '\r';
        break;
      case 't':
        line.sText += '\t';
        break;
      case '\\':
        line.sText += '\\';
        break;
      case 'x':
        if (const auto c = HexPair(text.substr(i + 1, 2))) {
          line.sText += *c;
          i += 2;
          break;
        }
        line.sFault = "\\x needs two hexadecimal digits other than 00";
        return;
      case '\0':
        line.sFault = "a lone \\ ends the line";
        return;
      default:
        line.sFault = CString("unknown escape \\") + cKind;
        return;
    }
  }
}

Line ReadLine(std::string_view text) {
  Line line;
  std::uint32_t nNumber = 0;
  const char* const pEnd = text.data() + text.size();
  const auto result = std::from_chars(text.data(), pEnd, nNumber);
  if (result.ec == std::errc::invalid_argument) {
    line.sFault = "a line begins with a number or \"#\"";
  } else if (result.ec != std::errc{} || nNumber > kMaxNumber) {
    line.sFault = "the number is not between 0 and " + std::to_string(kMaxNumber);
  } else if (result.ptr != pEnd && *result.ptr != ' ' && *result.ptr != '\t') {
    line.sFault = "a blank must follow the number";
  } else if (pEnd - result.ptr < 2) {
    line.sFault = "no text follows the number";
  } else {
    line.nNumber = static_cast<std::uint16_t>(nNumber);
    Unescape(text.substr(static_cast<std::size_t>(result.ptr - text.data()) + 1), line);
  }
  return line;
}

}  // namespace

bool StringTable::Add(std::uint16_t nNumber, std::string_view text) noexcept try {
  if (text.empty() || text.find('\0') != std::string_view::npos) return false;
  return m_texts.try_emplace(nNumber, text).second;
} catch (const std::bad_alloc&) {
  return false;
}

bool StringTable::AddFile(const CString& sPath, CString& sError) noexcept try {
  sError.clear();
  errno = 0;
  std::ifstream file(sPath, std::ios::binary);
  CString sLines;
  char buffer[4096];
  // A folder opens like a file, and only its first read fails: so both are looked at.
  while (file && file.read(buffer, sizeof buffer).gcount() > 0) {
    sLines.append(buffer, static_cast<std::size_t>(file.gcount()));
  }
  if (!file.is_open() || file.bad()) {
    sError = sPath + ": cannot be read";
    if (errno != 0) sError += ": " + std::generic_category().message(errno);
    return false;
  }
  return AddLines(sLines, sPath, sError);
} catch (const std::bad_alloc&) {
  return false;
}

bool StringTable::AddLines(std::string_view lines, std::string_view sourceName,
                           CString& sError) noexcept try {
  sError.clear();
  StringTable grown = *this;
  for (std::size_t nLine = 1; !lines.empty(); ++nLine) {
    const std::size_t nEnd = lines.find('\n');
    std::string_view text = lines.substr(0, nEnd);
    lines.remove_prefix(nEnd == std::string_view::npos ? lines.size() : nEnd + 1);
    if (!text.empty() && text.back() == '\r') text.remove_suffix(1);
    const std::size_t nStart = text.find_first_not_of(kBlanks);
    if (nStart == std::string_view::npos || text[nStart] == '#') continue;

    Line line = ReadLine(text.substr(nStart));
    if (line.sFault.empty() && !grown.Add(line.nNumber, line.sText)) {
      line.sFault = "number " + std::to_string(line.nNumber) + " stands here for the second time";
    }
    if (!line.sFault.empty()) {
      sError = CString(sourceName) + ":" + std::to_string(nLine) + ": " + line.sFault;
      return false;
    }
  }
  m_texts.swap(grown.m_texts);
  return true;
} catch (const std::bad_alloc&) {
  return false;
}

const CString* StringTable::Find(std::uint32_t nNumber) const noexcept {
  if (nNumber > kMaxNumber) return nullptr;
  const auto it = m_texts.find(static_cast<std::uint16_t>(nNumber));
  return it == m_texts.end() ? nullptr : &it->second;
}

}  // namespace ald
