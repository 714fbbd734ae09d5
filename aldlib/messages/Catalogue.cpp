#include "aldlib/messages/Catalogue.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <new>

#include "aldlib/messages/MessageFormat.h"
#include "aldlib/platform/Presenter.h"

namespace ald {
namespace {

struct SignRow {
  std::string_view sSigns;
  std::uint32_t nFlags;
};

// Doubled signs stand ahead of the single ones that begin them.
constexpr SignRow kSigns[] = {
    {"@", kBoxStop | kBoxOk},
    {"!!", kBoxExclamation | kBoxYesNo},
    {"!", kBoxExclamation | kBoxOkCancel},
    {"%", kBoxExclamation | kBoxOk},
    {"**", kBoxInformation | kBoxOkCancel},
    {"*", kBoxInformation | kBoxOk},
    {"??", kBoxQuestion | kBoxYesNoCancel},
    {"?", kBoxQuestion | kBoxYesNoCancel | kBoxDefaultSecond},
    {"^^", kBoxQuestion | kBoxYesNo | kBoxDefaultSecond},
    {"^", kBoxQuestion | kBoxYesNo},
    {"~", kBoxOkCancel},
    {"#", kBoxInformation | kBoxOkCancel | kBoxDefaultSecond},
};
constexpr std::uint32_t kUnsignedFlags = kBoxExclamation | kBoxRetryCancel;

constexpr std::string_view kSignCharacters = "@!%*?^~#";

// What prose can begin with, beside letters and digits: "/100" is the end of an amount in words.
constexpr std::string_view kProseOpeners = "\"'(<[/";

constexpr std::string_view kBlanks = " \t";

constexpr std::uint16_t kFirstStoredName = 33401;
constexpr std::uint16_t kLastStoredName = 33577;

bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool IsProse(char c) {
  const auto nByte = static_cast<unsigned char>(c);
  return nByte >= 0x80 || (c >= '0' && c <= '9') || IsLetter(c) ||
         kProseOpeners.find(c) != std::string_view::npos;
}

// The placeholders of a text, one character each: "#", "$", "%" for "%$%", and the letter of a
// conversion of printf.
struct Placeholders {
  CString sMarks;    // "#", "$" and "%", sorted: each kind is filled on its own
  CString sFormats;  // in the order of the values
  CString sFault;
};

std::size_t RunLength(std::string_view sText) {
  return std::min(sText.find_first_not_of(sText.front()), sText.size());
}

// Reads what a "%" begins, and returns how many characters that is.
std::size_t ReadPercent(std::string_view sText, Placeholders& found) {
  if (sText.starts_with("%$%")) {
    found.sMarks += '%';
    return 3;
  }
  // "5 % of" is prose, though printf could read a conversion into it.
  if (sText.size() == 1 || kBlanks.find(sText[1]) != std::string_view::npos) return 1;
  FormatConversion conversion;
  if (ReadFormatConversion(sText, conversion)) {
    if (conversion.cType != '%') found.sFormats += conversion.cType;
    return conversion.nLength;
  }
  if (IsProse(sText[1])) {
    found.sFault = "\"" + CString(sText.substr(0, 2)) + "\" is no placeholder";
  }
  return 1;
}

Placeholders ReadPlaceholders(std::string_view sText) {
  Placeholders found;
  while (!sText.empty()) {
    std::size_t nLength = 1;
    if (sText.front() == '%') {
      nLength = ReadPercent(sText, found);
    } else if (sText.front() == '#' || sText.front() == '$') {
      nLength = RunLength(sText);
      if (nLength == 3) {
        found.sMarks += sText.front();
      } else if (nLength != 1) {  // one alone is prose: "check #", "$5"
        found.sFault = "\"" + CString(sText.substr(0, nLength)) + "\" is no placeholder";
      }
    }
    sText.remove_prefix(nLength);
  }
  std::sort(found.sMarks.begin(), found.sMarks.end());
  const bool bStrings = found.sMarks.find('$') != CString::npos;
  const bool bOthers = found.sMarks.find_first_of("#%") != CString::npos;
  if ((bStrings && bOthers) || (!found.sMarks.empty() && !found.sFormats.empty())) {
    found.sFault = "no operation fills placeholders of all these kinds";
  }
  return found;
}

// A text in its parts.
struct MessageParts {
  std::string_view sSigns;
  std::string_view sHelp;  // "", "|" or "|!"
  std::string_view sBody;
};

MessageParts Split(std::string_view sText) {
  const auto nSigns = static_cast<std::size_t>(ReadMessageSigns(sText).nLength);
  MessageParts parts;
  parts.sSigns = sText.substr(0, nSigns);
  sText.remove_prefix(nSigns);
  const std::size_t nHelp = sText.starts_with("|!") ? 2 : sText.starts_with('|') ? 1 : 0;
  parts.sHelp = sText.substr(0, nHelp);
  parts.sBody = sText.substr(nHelp);
  return parts;
}

// "%d of ..." and "### of ..." lose their first character, which is taken for the sign.
bool BeginsWithPlaceholder(std::string_view sText) {
  if (sText.starts_with("###") || sText.starts_with("%$%")) return true;
  FormatConversion conversion;
  return ReadFormatConversion(sText, conversion) &&
         (sText.size() == conversion.nLength || !IsLetter(sText[conversion.nLength]));
}

CString FaultOf(std::string_view sText) {
  if (BeginsWithPlaceholder(sText)) return "the placeholder at the start would be read as a sign";
  const MessageParts parts = Split(sText);
  if (parts.sBody.empty()) return "no text stands behind the signs";
  const char cFirst = parts.sBody.front();
  const bool bPlaceholder = BeginsWithPlaceholder(parts.sBody) || parts.sBody.starts_with("$$$");
  if (parts.sBody.find('|') != std::string_view::npos) return "\"|\" would be shown here";
  if (!bPlaceholder && kSignCharacters.find(cFirst) != std::string_view::npos) {
    return CString("the sign \"") + cFirst + "\" would be shown here";
  }
  if (!bPlaceholder && !IsProse(cFirst)) {
    return CString("\"") + cFirst + "\" is no sign of a message";
  }
  return ReadPlaceholders(parts.sBody).sFault;
}

CString DifferenceOf(std::uint16_t nNumber, std::string_view sText, std::string_view sModel) {
  if (nNumber >= kFirstStoredName && nNumber <= kLastStoredName) {
    return sText == sModel ? "" : "the name of a stored setting cannot change";
  }
  const MessageParts parts = Split(sText);
  const MessageParts model = Split(sModel);
  if (parts.sSigns != model.sSigns || parts.sHelp != model.sHelp) {
    return "the text must begin with \"" + CString(model.sSigns) + CString(model.sHelp) + "\"";
  }
  const Placeholders has = ReadPlaceholders(parts.sBody);
  const Placeholders wants = ReadPlaceholders(model.sBody);
  const bool bSame = has.sMarks == wants.sMarks && has.sFormats == wants.sFormats;
  return bSame ? "" : "the placeholders are not those of the library's text";
}

// Checks one line after another.
class Checker {
 public:
  Checker(std::string_view sSource, const StringTable& model, CStringArray& faults)
      : m_sSource(sSource), m_model(model), m_faults(faults) {}

  void Check(std::string_view sLine) {
    ++m_nLine;
    // Empty lines ahead of it give the fault of a line its number.
    StringTable table;
    CString sFault;
    const CString sAhead(m_nLine - 1, '\n');
    if (!table.AddLines(sAhead + CString(sLine), m_sSource, sFault)) {
      m_faults.push_back(sFault);
      return;
    }
    if (table.Count() == 0) return;

    std::uint16_t nNumber = 0;
    const std::size_t nStart = sLine.find_first_not_of(kBlanks);
    std::from_chars(sLine.data() + nStart, sLine.data() + sLine.size(), nNumber);
    const CString sText = *table.Find(nNumber);
    const auto [former, bNew] = m_lines.try_emplace(nNumber, m_nLine);
    if (!bNew) {
      Add("number " + std::to_string(nNumber) + " stands on line " +
          std::to_string(former->second) + " already");
    }
    if (sLine.ends_with('\r')) sLine.remove_suffix(1);
    if (kBlanks.find(sLine.back()) != std::string_view::npos) {
      Add("a blank at the end is written \"\\x20\"");
    }
    const CString* const pModel = m_model.Find(nNumber);
    const bool bStoredName = nNumber >= kFirstStoredName && nNumber <= kLastStoredName;
    if (!bStoredName) Add(FaultOf(sText));
    if (pModel != nullptr) Add(DifferenceOf(nNumber, sText, *pModel));
  }

 private:
  void Add(const CString& sFault) {
    if (sFault.empty()) return;
    m_faults.push_back(CString(m_sSource) + ":" + std::to_string(m_nLine) + ": " + sFault);
  }

  std::string_view m_sSource;
  const StringTable& m_model;
  CStringArray& m_faults;
  std::size_t m_nLine = 0;
  std::map<std::uint16_t, std::size_t> m_lines;  // where each number stands
};

}  // namespace

MessageSigns ReadMessageSigns(std::string_view sText) noexcept {
  for (const SignRow& row : kSigns) {
    if (sText.starts_with(row.sSigns)) {
      return {row.nFlags, static_cast<std::int32_t>(row.sSigns.size())};
    }
  }
  return {kUnsignedFlags, 0};
}

bool CheckCatalogue(std::string_view lines, std::string_view sourceName, const StringTable& model,
                    CStringArray& faults) noexcept try {
  const std::size_t nBefore = faults.size();
  Checker checker(sourceName, model, faults);
  while (!lines.empty()) {
    const std::size_t nEnd = std::min(lines.find('\n'), lines.size());
    checker.Check(lines.substr(0, nEnd));
    lines.remove_prefix(std::min(nEnd + 1, lines.size()));
  }
  return faults.size() == nBefore;
} catch (const std::bad_alloc&) {
  return false;
}

}  // namespace ald
