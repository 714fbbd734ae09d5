#include <algorithm>
#include <charconv>
#include <deque>
#include <iomanip>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "aldlib/frame/Alderlib.h"
#include "aldlib/frame/LibraryStrings.h"
#include "aldlib/messages/Catalogue.h"
#include "aldlib/messages/MessageFormat.h"
#include "aldlib/messages/MessageLog.h"
#include "aldlib/messages/Messages.h"
#include "aldlib/platform/Characters.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/text/ResourceStrings.h"
#include "aldlib/text/Strings.h"
#include "tools/aldtool/Commands.h"
#include "tools/aldtool/TextFile.h"

namespace aldtool {

namespace {

using Text = ald::CFixedString<1024>;

template <typename Number>
bool ReadNumber(const std::string& sText, Number& number) {
  const char* const pEnd = sText.data() + sText.size();
  const auto result = std::from_chars(sText.data(), pEnd, number);
  return result.ec == std::errc{} && result.ptr == pEnd;
}

// The values of a command line, taken one after the other. What is wrong with one stands in
// Trouble.
class Values {
 public:
  explicit Values(const std::vector<std::string>& values) {
    for (const std::string& sValue : values) {
      m_values.push_back(ald::CodePage1252FromUtf8(sValue));
    }
  }

  bool IsEmpty() const { return m_next == m_values.size(); }
  const std::string& Trouble() const { return m_sTrouble; }
  void Refuse(std::string sTrouble) { m_sTrouble = std::move(sTrouble); }
  const std::string& Take() { return m_values[m_next++]; }

  template <typename Number>
  Number TakeNumber(const char* szKind) {
    Number number{};
    const std::string& sValue = Take();
    if (!ReadNumber(sValue, number)) {
      m_sTrouble = "'" + ald::Utf8FromCodePage1252(sValue) + "' is no " + szKind;
    }
    return number;
  }

 private:
  std::deque<std::string> m_values;
  std::size_t m_next = 0;
  std::string m_sTrouble;
};

// Fills "###", "$$$" and "%$%" from left to right.
void FillMarks(Text& sText, Values& values) {
  while (!values.IsEmpty() && values.Trouble().empty()) {
    const std::string_view sView = sText.view();
    const std::size_t nCard = sView.find("###");
    const std::size_t nString = sView.find("$$$");
    const std::size_t nAmount = sView.find("%$%");
    const std::size_t nFirst = std::min({nCard, nString, nAmount});
    if (nFirst == std::string_view::npos) return;
    if (nFirst == nCard) {
      ald::InsertCard(sText, values.TakeNumber<std::uint16_t>("number from 0 to 65535"));
    } else if (nFirst == nString) {
      ald::InsertString(sText, values.Take().c_str());
    } else {
      ald::FindAndReplace(sText, "%$%", values.Take().c_str());
    }
  }
}

// Fills the conversions of printf, if there is a value for each of them.
void FillConversions(Text& sText, Values& values) {
  const Text sFormat = sText;
  std::vector<ald::MessageValue> ready;
  std::string_view sRest = sFormat.view();
  for (std::size_t n = 0; (n = sRest.find('%')) != sRest.npos && !values.IsEmpty();) {
    sRest.remove_prefix(n);
    ald::FormatConversion conversion;
    if (!ald::ReadFormatConversion(sRest, conversion)) return;
    sRest.remove_prefix(conversion.nLength);
    if (conversion.cType == '%') continue;
    if (conversion.cType == 's') {
      ready.emplace_back(values.Take());
    } else if (std::string_view("eEfFgG").find(conversion.cType) != std::string_view::npos) {
      ready.emplace_back(values.TakeNumber<double>("number"));
    } else {
      ready.emplace_back(values.TakeNumber<std::int64_t>("whole number"));
    }
  }
  if (!ald::FormatMessageText(sText, sFormat, ready)) {
    values.Refuse("the text has more placeholders than there are values");
  }
}

const char* IconName(std::uint32_t nFlags) {
  switch (nFlags & ald::kBoxIconMask) {
    case ald::kBoxStop:
      return "stop";
    case ald::kBoxQuestion:
      return "question";
    case ald::kBoxExclamation:
      return "exclamation";
    case ald::kBoxInformation:
      return "information";
    default:
      return "none";
  }
}

std::string ButtonNames(std::uint32_t nFlags) {
  constexpr std::uint32_t aRows[][3] = {
      {61446},        {61446, 61447}, {61448, 61449, 61450}, {61451, 61452, 61447},
      {61451, 61452}, {61449, 61447}};
  const std::uint32_t nRow = std::min(nFlags & ald::kBoxButtonsMask, ald::kBoxRetryCancel);
  const std::uint32_t nDefault = (nFlags & ald::kBoxDefaultMask) >> 8;
  std::string sNames;
  for (std::uint32_t i = 0; i < 3 && aRows[nRow][i] != 0; ++i) {
    ald::CFixedString<40> sName;
    ald::MyLoadString(aRows[nRow][i], sName);
    if (!sNames.empty()) sNames += ", ";
    sNames += sName.view();
    if (i == nDefault) sNames += " (default)";
  }
  return sNames;
}

void PrintMessage(std::uint16_t nNumber, std::uint32_t nFlags, std::string_view sText) {
  const bool bTopic = sText.starts_with('|');
  const bool bButton = bTopic && !sText.starts_with("|!");
  if (bTopic) sText.remove_prefix(bButton ? 1 : 2);
  std::cout << "icon     " << IconName(nFlags) << "\nbuttons  " << ButtonNames(nFlags)
            << (bButton ? ", Help\n" : "\n");
  if (bTopic) std::cout << "help     topic " << nNumber << '\n';
  std::string sShown = ald::Utf8FromCodePage1252(sText);
  std::erase(sShown, '\r');
  std::cout << '\n' << sShown << '\n';
}

// A text on one line, whatever it holds.
std::string OneLine(std::string_view sText) {
  std::string sLine;
  for (const char c : sText) {
    switch (c) {
      case '\n':
        sLine += "\\n";
        break;
      case '\r':
        sLine += "\\r";
        break;
      default:
        sLine += static_cast<unsigned char>(c) < 0x20 || c == 0x7F ? '?' : c;
    }
  }
  return ald::Utf8FromCodePage1252(sLine);
}

int Complain(const std::string& sText) {
  std::cerr << "aldtool: " << sText << '\n';
  return kUnusable;
}

}  // namespace

int RunMessage(std::uint16_t nNumber, const std::vector<std::string>& arguments,
               const std::string& sTextsPath) {
  if (!sTextsPath.empty()) {
    ald::StringTable table;
    std::string sError;
    if (!table.AddFile(sTextsPath, sError)) return Complain(sError);
    ald::RegisterInstanceForStringSearch(ald::RegisterStringModule(std::move(table)), 0);
  }
  Text sText;
  if (ald::MyLoadString(nNumber, sText) == 0) {
    return Complain("there is no text of number " + std::to_string(nNumber));
  }
  std::uint32_t nFlags = 0;
  ald::GetTheMessage(&nFlags, ald::MessageByNumber(nNumber), sText);
  Values values(arguments);
  FillMarks(sText, values);
  if (!values.IsEmpty() && values.Trouble().empty()) FillConversions(sText, values);
  if (!values.Trouble().empty()) return Complain(values.Trouble());
  if (!values.IsEmpty()) {
    return Complain("the text has no place for '" + ald::Utf8FromCodePage1252(values.Take()) + "'");
  }
  PrintMessage(nNumber, nFlags, sText.view());
  return kGood;
}

int RunErrorLog(const std::string& sPath) {
  std::string sBytes;
  const std::string sTrouble = ReadFile(sPath, sBytes);
  if (!sTrouble.empty()) return Complain(sPath + ": " + sTrouble);
  std::vector<ald::LoggedMessage> messages;
  const bool bGood = ald::ReadMessageLog(sBytes, messages);
  if (!bGood && messages.empty()) return Complain(sPath + ": is no log of messages.");
  for (const ald::LoggedMessage& message : messages) {
    std::cout << std::setw(5) << (message.nNumber != 0 ? std::to_string(message.nNumber) : "")
              << "  " << OneLine(message.sText) << '\n';
  }
  if (!bGood) {
    std::cerr << "aldtool: " << sPath << ": what follows is no record of a message.\n";
    return kBadLines;
  }
  return kGood;
}

int RunTexts(const std::string& sPath) {
  std::string sLines;
  const std::string sTrouble = ReadFile(sPath, sLines);
  if (!sTrouble.empty()) return Complain(sPath + ": " + sTrouble);
  ald::CStringArray faults;
  if (ald::CheckCatalogue(sLines, sPath, ald::LibraryStringTable(), faults)) {
    std::cout << sPath << ": all texts are good.\n";
    return kGood;
  }
  for (const std::string& sFault : faults) std::cout << sFault << '\n';
  return kBadLines;
}

}  // namespace aldtool
