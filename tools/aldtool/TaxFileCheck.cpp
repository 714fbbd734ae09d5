#include "tools/aldtool/TaxFileCheck.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/payroll/TaxInfo.h"
#include "aldlib/platform/IniText.h"
#include "tools/aldtool/TextFile.h"

namespace aldtool {

namespace {

enum class Form { Text, YesNo, Limit, Amount, MasterStatuses, Statuses, States };

struct KnownKey {
  const char* szName;
  Form eForm;
  std::size_t nLongest = 0;  // characters that are kept, of those that are a text
};
constexpr KnownKey kGeneralKeys[] = {{"FilingStatuses", Form::MasterStatuses, 255},
                                     {"StateList", Form::States, ald::kStateListSize - 1}};
constexpr KnownKey kFederalKeys[] = {{"401kLimit", Form::Amount, 31}};
constexpr KnownKey kStateKeys[] = {{"HasLocalities", Form::YesNo},
                                   {"SUILimit", Form::Limit},
                                   {"Localities", Form::Text, 79},
                                   {"SIT", Form::YesNo},
                                   {"LITPercent", Form::YesNo},
                                   {"LITAmount", Form::YesNo},
                                   {"LITEr", Form::YesNo},
                                   {"SUIEe", Form::YesNo},
                                   {"SDIEe", Form::YesNo},
                                   {"SDIEr", Form::YesNo},
                                   {"Special", Form::YesNo},
                                   {"SpecialFields", Form::Text, 255},
                                   {"SIT_CAG", Form::Text, 31},
                                   {"SUI_CAG", Form::Text, 31},
                                   {"SDI_CAG", Form::Text, 31},
                                   {"HC_CAG", Form::Text, 31},
                                   {"WF_CAG", Form::Text, 31},
                                   {"SETT_CAG", Form::Text, 31},
                                   {"SUI_ER_CAG", Form::Text, 31},
                                   {"SDI_ER_CAG", Form::Text, 31},
                                   {"HC_ER_CAG", Form::Text, 31},
                                   {"WF_ER_CAG", Form::Text, 31},
                                   {"SETT_ER_CAG", Form::Text, 31},
                                   {"Statefilingstatus", Form::Statuses, 255},
                                   {"Localfilingstatus", Form::Statuses, 255}};

constexpr std::string_view kVersionMarker = ";VERSION~";
constexpr std::size_t kVersionLength = 8;

// Names are compared in capitals.
std::string Folded(std::string_view sName) {
  std::string sFolded(sName);
  for (char& c : sFolded) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return sFolded;
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string InQuotes(std::string_view sText) {
  return "'" + std::string(sText) + "'";
}

std::vector<std::string> Split(std::string_view sList, std::string_view sSeparators) {
  std::vector<std::string> parts;
  while (!sList.empty()) {
    const std::size_t nEnd = std::min(sList.find_first_of(sSeparators), sList.size());
    parts.emplace_back(sList.substr(0, nEnd));
    sList.remove_prefix(std::min(nEnd + 1, sList.size()));
  }
  return parts;
}

class Checker {
 public:
  std::vector<TaxFileFault> Check(const std::vector<std::string_view>& lines) {
    if (!lines.empty()) CheckVersion(lines.front());
    for (m_nLine = 1; m_nLine <= lines.size(); ++m_nLine) {
      std::string_view sLine = lines[m_nLine - 1];
      if (m_nLine == 1 && sLine.starts_with("\xEF\xBB\xBF")) sLine.remove_prefix(3);
      TakeLine(Trimmed(sLine));
    }
    CheckAcrossSections();
    std::stable_sort(m_faults.begin(), m_faults.end(), [](const auto& a, const auto& b) {
      return a.nLine - 1 < b.nLine - 1;  // 0 is the largest then
    });
    return std::move(m_faults);
  }

 private:
  struct Value {
    std::size_t nLine;
    std::string sText;
  };

  void Complain(std::size_t nLine, std::string sSection, std::string sKey, std::string sText) {
    m_faults.push_back({nLine, std::move(sSection), std::move(sKey), std::move(sText)});
  }
  void Complain(std::string_view sKey, std::string sText) {
    Complain(m_nLine, m_sSection, std::string(sKey), std::move(sText));
  }

  void CheckVersion(std::string_view sLine) {
    if (!sLine.starts_with(kVersionMarker)) {
      Complain(1, "", "",
               "the file does not begin with ;VERSION~ and a version: its version is unknown");
    } else if (const std::size_t nLength = sLine.size() - kVersionMarker.size();
               nLength > kVersionLength) {
      Complain(1, "", "", "only the first 8 characters of the version are kept");
    } else if (nLength == 0) {
      Complain(1, "", "", "there is no version behind ;VERSION~");
    }
  }

  void TakeLine(std::string_view sLine) {
    if (sLine.empty() || sLine.front() == ';') return;
    // The library's own reader says what the line is.
    const ald::IniText header{ald::CString(sLine)};
    if (!header.Sections().empty()) return TakeHeader(header.Sections().front());
    const ald::IniText line("[x]\n" + ald::CString(sLine));
    if (line.Keys("x")->empty()) {
      Complain("", sLine.front() == '[' ? "a section's name has no ] behind it"
                                        : "a line without = says nothing");
      return;
    }
    const std::string_view sKey = line.Keys("x")->front();
    if (m_eWhere == Where::Nowhere) return Complain(sKey, "stands before the first section");
    if (m_eWhere == Where::Skipped) return;
    if (sKey.empty()) return Complain("", "there is no name before the =");
    const KnownKey* const pKnown = Find(sKey);
    if (pKnown == nullptr) return Complain(sKey, "is no key of this section");
    const auto [it, bNew] = m_values.try_emplace(
        {Folded(m_sSection), Folded(sKey)},
        Value{m_nLine, std::string(line.Find("x", sKey).value_or(std::string_view()))});
    if (!bNew) {
      return Complain(sKey, "is there already, in line " + std::to_string(it->second.nLine) +
                                ", and only that one counts");
    }
    CheckValue(*pKnown, it->second.sText);
  }

  void TakeHeader(std::string_view sName) {
    m_sSection = sName;
    const std::string sFolded = Folded(sName);
    const auto [it, bNew] = m_sections.try_emplace(sFolded, m_nLine);
    m_eWhere = Where::Skipped;
    if (!bNew) {
      Complain("", "the section is there already, in line " + std::to_string(it->second) +
                       ", and only that one counts");
    } else if (sFolded == "GENERAL") {
      m_eWhere = Where::General;
    } else if (sFolded == "FEDERAL") {
      m_eWhere = Where::Federal;
    } else if (sName.size() == 2) {
      m_eWhere = Where::State;
    } else {
      Complain("", "the section is neither General nor Federal nor a state's two letters");
    }
  }

  const KnownKey* Find(std::string_view sKey) const {
    const auto in = [&](const auto& keys) -> const KnownKey* {
      const auto it = std::find_if(std::begin(keys), std::end(keys), [&](const KnownKey& known) {
        return Folded(known.szName) == Folded(sKey);
      });
      return it != std::end(keys) ? &*it : nullptr;
    };
    if (m_eWhere == Where::General) return in(kGeneralKeys);
    return m_eWhere == Where::Federal ? in(kFederalKeys) : in(kStateKeys);
  }

  void CheckValue(const KnownKey& known, const std::string& sValue) {
    const char* const szKey = known.szName;
    if (known.nLongest != 0 && sValue.size() > known.nLongest) {
      Complain(szKey, "only the first " + std::to_string(known.nLongest) + " characters are kept");
    }
    switch (known.eForm) {
      case Form::Text:
        break;
      case Form::YesNo:
        if (!sValue.empty() && std::string_view("yYnN").find(sValue[0]) == std::string_view::npos)
          Complain(szKey, InQuotes(sValue) + " counts as no: write Yes or No");
        break;
      case Form::Limit:
        CheckLimit(szKey, sValue);
        break;
      case Form::Amount:
        CheckAmount(szKey, sValue);
        break;
      case Form::MasterStatuses:
        CheckStatuses(szKey, sValue);
        for (const std::string& sStatus : Split(sValue, ",")) {
          if (sStatus.size() >= ald::kFilingStatusSize) {
            Complain(szKey, InQuotes(sStatus) +
                                " is longer than 31 characters: it counts as several and moves "
                                "those behind it");
          }
        }
        break;
      case Form::Statuses:
        CheckStatuses(szKey, sValue);
        break;
      case Form::States:
        CheckStates(szKey, sValue);
        break;
    }
  }

  void CheckLimit(const char* szKey, const std::string& sValue) {
    const bool bNumber = !sValue.empty() && std::all_of(sValue.begin(), sValue.end(), IsDigit);
    const std::size_t nFirst = std::min(sValue.find_first_not_of('0'), sValue.size());
    const bool bFits = sValue.size() - nFirst < 5 ||
                       (sValue.size() - nFirst == 5 && sValue.substr(nFirst) <= "32767");
    if (!bNumber) {
      Complain(szKey, InQuotes(sValue) + " is no whole number without signs and commas");
    } else if (!bFits) {
      Complain(szKey, sValue + " is more than 32767, the most that there is room for");
    }
  }

  void CheckAmount(const char* szKey, const std::string& sValue) {
    const std::size_t nPoint = sValue.find('.');
    std::string sDigits = sValue;
    if (nPoint != std::string::npos) sDigits.erase(nPoint, 1);
    if (sDigits.empty() || !std::all_of(sDigits.begin(), sDigits.end(), IsDigit)) {
      const ald::CDecimal decRead(sValue.c_str());
      Complain(szKey, InQuotes(sValue) + " is no amount such as 12000.00: it is read as " +
                          decRead.toRawString(2).view().data());
    }
  }

  void CheckStatuses(const char* szKey, const std::string& sValue) {
    std::set<std::string> seen;
    for (const std::string& sStatus : Split(sValue, ",")) {
      if (sStatus.empty()) {
        Complain(szKey, "there is nothing between two commas, which counts as a status");
      } else if (Trimmed(sStatus).size() != sStatus.size()) {
        Complain(szKey, InQuotes(sStatus) + " has blanks around it, which count");
      } else if (!seen.insert(sStatus).second) {
        Complain(szKey, InQuotes(sStatus) + " is there twice");
      }
    }
  }

  void CheckStates(const char* szKey, const std::string& sValue) {
    std::set<std::string> seen;
    for (const std::string& sState : Split(sValue, ",+")) {
      if (sState.size() != 2) {
        if (!sState.empty()) Complain(szKey, InQuotes(sState) + " is no code of two letters");
      } else if (!seen.insert(Folded(sState)).second) {
        Complain(szKey, InQuotes(sState) + " is there twice");
      }
    }
  }

  const Value* ValueOf(const std::string& sSection, const std::string& sKey) const {
    const auto it = m_values.find({Folded(sSection), Folded(sKey)});
    return it != m_values.end() && !it->second.sText.empty() ? &it->second : nullptr;
  }

  void CheckAcrossSections() {
    CheckListOfStates();
    const Value* const pStatuses = ValueOf("General", "FilingStatuses");
    const std::vector<std::string> list =
        Split(pStatuses != nullptr ? pStatuses->sText : ald::kBuiltInFilingStatuses, ",");
    const std::set<std::string> statuses(list.begin(), list.end());
    for (const auto& [place, value] : m_values) {
      const auto& [sSection, sKey] = place;
      const char* const szKey = sKey == "STATEFILINGSTATUS"   ? "Statefilingstatus"
                                : sKey == "LOCALFILINGSTATUS" ? "Localfilingstatus"
                                                              : nullptr;
      if (szKey != nullptr) CheckAgainst(statuses, sSection, szKey, value);
      if (sKey == "HASLOCALITIES" && !value.sText.empty() && Folded(value.sText)[0] == 'Y' &&
          ValueOf(sSection, "Localities") == nullptr) {
        Complain(value.nLine, sSection, "HasLocalities",
                 "Localities does not name them, so the state cannot be read");
      }
    }
  }

  void CheckAgainst(const std::set<std::string>& statuses, const std::string& sSection,
                    const char* szKey, const Value& value) {
    for (const std::string& sStatus : Split(value.sText, ",")) {
      if (!sStatus.empty() && !statuses.contains(sStatus)) {
        Complain(value.nLine, sSection, szKey, InQuotes(sStatus) + " is no filing status");
      }
    }
  }

  void CheckListOfStates() {
    const Value* const pStates = ValueOf("General", "StateList");
    if (pStates == nullptr) Complain(0, "General", "StateList", "is missing: there are no states");
    std::set<std::string> states;
    if (pStates != nullptr) {
      for (const std::string& sState : Split(pStates->sText, ",+")) {
        if (sState.size() != 2 || !states.insert(Folded(sState)).second) continue;
        if (!m_sections.contains(Folded(sState))) {
          Complain(pStates->nLine, "General", "StateList",
                   InQuotes(sState) + " has no section of its own");
        }
      }
    }
    for (const auto& [sSection, nLine] : m_sections) {
      if (pStates != nullptr && sSection.size() == 2 && !states.contains(sSection)) {
        Complain(nLine, sSection, "", "the state is not in StateList of General");
      }
    }
  }

  enum class Where { Nowhere, Skipped, General, Federal, State };

  std::size_t m_nLine = 0;
  std::string m_sSection;
  Where m_eWhere = Where::Nowhere;
  std::map<std::string, std::size_t> m_sections;  // folded, and the line of the first
  std::map<std::pair<std::string, std::string>, Value> m_values;
  std::vector<TaxFileFault> m_faults;
};

}  // namespace

std::vector<TaxFileFault> CheckTaxFile(const std::vector<std::string_view>& lines) {
  return Checker().Check(lines);
}

}  // namespace aldtool
