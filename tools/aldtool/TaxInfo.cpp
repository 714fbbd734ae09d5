#include "aldlib/payroll/TaxInfo.h"

#include <cstring>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <string>

#include "aldlib/frame/Alderlib.h"
#include "aldlib/platform/Platform.h"
#include "tools/aldtool/Commands.h"
#include "tools/aldtool/TaxFileCheck.h"
#include "tools/aldtool/TextFile.h"

namespace aldtool {

namespace {

int Complain(const std::string& sPath, const std::string& sTrouble) {
  std::cerr << "aldtool: " << sPath << ' ' << sTrouble << '\n';
  return kUnusable;
}

std::ostream& Row(const char* szWhat) {
  return std::cout << std::left << std::setw(20) << szWhat << "  ";
}

void PrintDefault(const char* szWhat, int nStatus) {
  ald::CFixedString<ald::kFilingStatusSize> sStatus;
  if (ald::GetFilingStatus(nStatus, sStatus) != 0) {
    Row(szWhat) << sStatus << '\n';
  } else {
    Row(szWhat) << "none: the first of the state's statuses is no filing status\n";
  }
}

void ShowGeneral() {
  char szVersion[16];
  ald::GetTaxTableVersionInfo(szVersion, sizeof szVersion);
  szVersion[std::strcspn(szVersion, "\r\n")] = '\0';
  Row("version") << szVersion << '\n';
  ald::FederalTaxInfo federal;
  ald::NewGetFederalTaxInfo(&federal);
  Row("401(k) limit") << federal.dec401kLimit.toRawString(2) << '\n';
  ald::CFixedString<ald::kStateListSize> sStates;
  ald::GetStates(sStates);
  Row("states") << sStates << '\n';
  ald::CFixedString<ald::kFilingStatusSize> sStatus;
  for (int i = 0; ald::GetFilingStatus(i, sStatus) != 0; ++i) {
    Row(("filing status " + std::to_string(i)).c_str()) << sStatus << '\n';
  }
}

int ShowState(const std::string& sState) {
  ald::StateTaxInfo info{};
  const bool bGood = ald::NewGetStateTaxInfo(sState.c_str(), &info) != 0;
  const auto yes = [](const char* szWhat, std::int32_t bYes) {
    Row(szWhat) << (bYes != 0 ? "yes\n" : "no\n");
  };
  const auto text = [](const char* szWhat, const char* szText) {
    if (szText[0] != '\0') Row(szWhat) << szText << '\n';
  };
  yes("HasLocalities", info.bHasLocalities);
  if (!bGood) {
    std::cerr << "aldtool: " << sState << " has localities but does not name them: payroll reads "
              << "nothing more of it\n";
    return kBadLines;
  }
  text("Localities", info.szLocalities);
  Row("SUILimit") << info.nSUILimit << '\n';
  yes("SIT", info.bSIT);
  yes("LITPercent", info.bLITPercent);
  yes("LITAmount", info.bLITAmount);
  yes("LITEr", info.bLITEr);
  yes("SUIEe", info.bSUIEe);
  yes("SDIEe", info.bSDIEe);
  yes("SDIEr", info.bSDIEr);
  yes("Special", info.bSpecial);
  text("SpecialFields", info.szSpecialFields);
  text("SIT_CAG", info.szSIT_CAG);
  text("SUI_CAG", info.szSUI_CAG);
  text("SDI_CAG", info.szSDI_CAG);
  text("HC_CAG", info.szHC_CAG);
  text("WF_CAG", info.szWF_CAG);
  text("SETT_CAG", info.szSETT_CAG);
  text("SUI_ER_CAG", info.szSUI_ER_CAG);
  text("SDI_ER_CAG", info.szSDI_ER_CAG);
  text("HC_ER_CAG", info.szHC_ER_CAG);
  text("WF_ER_CAG", info.szWF_ER_CAG);
  text("SETT_ER_CAG", info.szSETT_ER_CAG);
  text("Statefilingstatus", info.szStatefilingstatus);
  text("Localfilingstatus", info.szLocalfilingstatus);
  PrintDefault("state default", ald::GetDefaultStateFilingStatus(sState.c_str()));
  PrintDefault("local default", ald::GetDefaultLocalFilingStatus(sState.c_str()));
  return kGood;
}

}  // namespace

int RunTaxInfoCheck(const std::string& sPath) {
  TextFile file;
  ReadTextFile(sPath, file);
  if (!file.sTrouble.empty()) return Complain(sPath, file.sTrouble);
  const std::vector<TaxFileFault> faults = CheckTaxFile(file.lines);
  for (const TaxFileFault& fault : faults) {
    std::cout << sPath << ':';
    if (fault.nLine != 0) std::cout << fault.nLine << ':';
    if (!fault.sSection.empty()) std::cout << " [" << fault.sSection << ']';
    if (!fault.sKey.empty()) std::cout << ' ' << fault.sKey << ':';
    std::cout << ' ' << fault.sText << '\n';
  }
  if (faults.empty()) std::cout << sPath << ": nothing is wrong\n";
  return faults.empty() ? kGood : kBadLines;
}

int RunTaxInfoShow(const std::string& sPath, const std::string& sState) {
  const std::filesystem::path path(sPath);
  std::string sName = path.filename().string();
  for (char& c : sName) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  if (sName != "taxinfo.dat") return Complain(sPath, "is not named TaxInfo.Dat, as payroll wants.");
  std::string sText;
  if (const std::string sTrouble = ReadFile(sPath, sText); !sTrouble.empty())
    return Complain(sPath, sTrouble);
  std::error_code error;
  const std::string sFolder = std::filesystem::absolute(path, error).parent_path().string();
  char(&szDataPath)[260] = ald::MyAlderLibDataPtr->szDataPath;
  if (error || sFolder.size() + sizeof "/TaxInfo.Dat" > sizeof szDataPath)
    return Complain(sPath, "lies in a folder of too long a name.");
  std::memcpy(szDataPath, sFolder.c_str(), sFolder.size() + 1);
  if (!sState.empty()) return ShowState(sState);
  ShowGeneral();
  return kGood;
}

}  // namespace aldtool
