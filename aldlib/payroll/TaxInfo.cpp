#include "aldlib/payroll/TaxInfo.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <new>
#include <string_view>
#include <vector>

#include "aldlib/config/Profile.h"
#include "aldlib/config/Reread.h"
#include "aldlib/files/Directories.h"
#include "aldlib/frame/Alderlib.h"
#include "aldlib/messages/Messages.h"
#include "aldlib/payroll/internal/ForgetTaxInfo.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/text/Strings.h"

namespace ald {
namespace {

constexpr std::uint16_t kNoTaxFile = 21051;

constexpr const char* kGeneral = "General";

constexpr int kStateListTries = 4;
constexpr std::uint32_t kStateListPause = 500;  // milliseconds

constexpr std::string_view kVersionMarker = ";VERSION~";
constexpr int kFirstLineLength = 17;  // of the marker and the version

constexpr int k1099Labels = 14;
constexpr const char* kMilitaryStates[] = {"AA", "AP", "AE", nullptr};

// What is read once.
struct TaxInfoState {
  std::vector<CString> statuses;
  CFixedString<kStateListSize> sStates;
  bool bStatesTried = false;
};

// Never destroyed: it may be asked for as late as the library is.
union StateStorage {
  constexpr StateStorage() : state() {}
  StateStorage(const StateStorage&) = delete;
  StateStorage& operator=(const StateStorage&) = delete;
  ~StateStorage() {}
  TaxInfoState state;
};
constinit StateStorage g_storage;

TaxInfoState& State() {
  return g_storage.state;
}

CPathNameString TaxFilePath() {
  const auto dataPath = [] {
    return CPathNameString(MyAlderLibDataPtr != nullptr ? MyAlderLibDataPtr->szDataPath : "");
  };
  CPathNameString sPath = dataPath();
  if (sPath.IsEmpty()) {
    ReReadAlderIni();
    sPath = dataPath();
  }
  AddBackSlash(sPath);
  sstrcat(sPath, "TaxInfo.Dat", sPath.GetSize());
  return sPath;
}

// The path of the tax file. If it cannot be opened the user is told so each time.
bool LocateTaxFile(CPathNameString& sPath) {
  sPath = TaxFilePath();
  Files& files = CurrentPlatform().files;
  FileHandle hFile{};
  if (files.Open(sPath, FileAccess::Read, FileSharing::ReadWrite, FileDisposition::OpenExisting,
                 hFile) == kNoSystemError) {
    files.Close(hFile);
    return true;
  }
  Message(0, MessageByNumber(kNoTaxFile), false, WindowHandle{});
  return false;
}

std::uint32_t ReadText(const char* szFile, const char* szSection, const char* szKey, char* szBuffer,
                       std::size_t nSize) {
  return CurrentPlatform().profile.ReadString(szFile, szSection, szKey, "", szBuffer,
                                              static_cast<std::uint32_t>(nSize));
}

bool ReadYes(const char* szFile, const char* szSection, const char* szKey) {
  char szValue[8];
  ReadText(szFile, szSection, szKey, szValue, sizeof szValue);
  return szValue[0] == 'y' || szValue[0] == 'Y';
}

// Leaves the field all zero behind the text.
template <std::size_t N>
void ReadField(const char* szFile, const char* szSection, const char* szKey, char (&szField)[N]) {
  char szValue[N];
  ReadText(szFile, szSection, szKey, szValue, N);
  sstrcpy(szField, szValue, N);
}

// Empty without memory; the next need tries again.
const std::vector<CString>& FilingStatuses() {
  std::vector<CString>& statuses = State().statuses;
  if (!statuses.empty()) return statuses;
  char szList[256] = "";
  CPathNameString sPath;
  if (LocateTaxFile(sPath)) ReadText(sPath, kGeneral, "FilingStatuses", szList, sizeof szList);
  // Somebody else may have had the list read while the box about a missing file was up.
  if (!statuses.empty()) return statuses;
  try {
    // Tokens longer than a status become several, which moves all that follow.
    CFixedString<kFilingStatusSize> sStatus;
    const char* szCursor = szList[0] != '\0' ? szList : kBuiltInFilingStatuses;
    while (GetTokenFromLine(szCursor, sStatus) != 0) statuses.emplace_back(sStatus);
  } catch (const std::bad_alloc&) {
    statuses.clear();
  }
  return statuses;
}

// The first line as a text mode read gives it: at most kFirstLineLength characters, with the line
// feed if it is among them, and without a carriage return before that.
CFixedString<kFirstLineLength + 1> ReadFirstLine(const char* szPath) {
  CFixedString<kFirstLineLength + 1> sLine;
  char aBytes[2 * (kFirstLineLength + 1)];
  std::uint32_t nBytes = 0;
  FileHandle hFile{};
  Files& files = CurrentPlatform().files;
  if (files.Open(szPath, FileAccess::Read, FileSharing::ReadWrite, FileDisposition::OpenExisting,
                 hFile) != kNoSystemError) {
    return sLine;
  }
  files.Read(hFile, aBytes, sizeof aBytes, nBytes);
  files.Close(hFile);
  constexpr char kEndOfTextMode = 26;
  int nLength = 0;
  for (std::uint32_t i = 0; i < nBytes && nLength < kFirstLineLength; ++i) {
    if (aBytes[i] == kEndOfTextMode) break;
    if (aBytes[i] == '\r' && i + 1 < nBytes && aBytes[i + 1] == '\n') continue;
    sLine[nLength++] = aBytes[i];
    if (aBytes[i] == '\n') break;
  }
  return sLine;
}

using StatusList = char (StateTaxInfo::*)[256];

// A state that cannot be read lists nothing.
int IsValidForState(const char* szStatus, const char* szState, StatusList list) {
  if (szStatus == nullptr) return 0;
  StateTaxInfo info{};
  NewGetStateTaxInfo(szState, &info);
  const char* szCursor = info.*list;
  if (*szCursor == '\0') return GetFilingStatusFromText(szStatus) >= 0 ? 1 : 0;
  CFixedString<256> sToken;
  while (GetTokenFromLine(szCursor, sToken) != 0) {
    if (sToken.view() == szStatus) return 1;
  }
  return 0;
}

int DefaultOfState(const char* szState, StatusList list) {
  StateTaxInfo info{};
  NewGetStateTaxInfo(szState, &info);
  const char* szCursor = info.*list;
  CFixedString<kFilingStatusSize> sFirst;
  // 0 is the first status of all, and callers take it as the choice of a state that has none.
  return GetTokenFromLine(szCursor, sFirst) != 0 ? GetFilingStatusFromText(sFirst) : 0;
}

}  // namespace

void ForgetTaxInfo() {
  State() = {};
}

int GetTokenFromLine(const char*& szCursor, CFixedStringParamRef token) {
  if (szCursor == nullptr || *szCursor == '\0') return 0;
  token.Clear();
  const std::int32_t nRoom = token.buffer != nullptr ? token.size - 1 : 0;
  for (std::int32_t nLength = 0; *szCursor != ',' && *szCursor != '\0'; ++szCursor) {
    // Without any room the cursor has to move all the same, or a caller's loop would never end.
    if (nRoom < 1) continue;
    if (nLength == nRoom) return 1;
    token.buffer[nLength++] = *szCursor;
  }
  if (*szCursor == ',') ++szCursor;
  return 1;
}

int GetFilingStatus(int nIndex, CFixedStringParamRef status) {
  status.Clear();
  const std::vector<CString>& statuses = FilingStatuses();
  if (nIndex < 0 || static_cast<std::size_t>(nIndex) >= statuses.size()) return 0;
  status = statuses[static_cast<std::size_t>(nIndex)].c_str();
  return 1;
}

int GetFilingStatusFromText(const char* szStatus) {
  const std::vector<CString>& statuses = FilingStatuses();
  if (szStatus == nullptr) return -1;
  const auto it = std::find(statuses.begin(), statuses.end(), szStatus);
  return it != statuses.end() ? static_cast<int>(it - statuses.begin()) : -1;
}

int GetTaxTableVersionInfo(char* szBuffer, std::uint16_t nSize) {
  CPathNameString sPath;
  CFixedString<kFirstLineLength + 1> sLine;
  if (LocateTaxFile(sPath)) sLine = ReadFirstLine(sPath);
  const bool bMarked = sLine.view().starts_with(kVersionMarker);
  sstrcpy(szBuffer, bMarked ? sLine + kVersionMarker.size() : "Unknown", nSize);
  return bMarked && szBuffer != nullptr ? 1 : 0;
}

int NewGetFederalTaxInfo(FederalTaxInfo* pInfo) {
  if (pInfo == nullptr) return 0;
  pInfo->dec401kLimit = CDecimal();
  CPathNameString sPath;
  if (!LocateTaxFile(sPath)) return 0;
  char szLimit[32];
  CurrentPlatform().profile.ReadString(sPath, "Federal", "401kLimit", "10000.0", szLimit,
                                       sizeof szLimit);
  pInfo->dec401kLimit.fromRawString(szLimit);
  return 1;
}

int Get1099ListboxSettings(CString& sCaptions, int& nCount) {
  nCount = 0;
  sCaptions.clear();
  // No separator goes between: a path without one at its end leads to a file beside the folder,
  // and that is where installations have it.
  CPathNameString sPath;
  GetDefaultDataPath(sPath, false);
  sstrcat(sPath, "1099info.dat", sPath.GetSize());
  try {
    for (int i = 1; i <= k1099Labels; ++i) {
      char szLabel[31];
      const CString sKey = "Label" + std::to_string(i);
      if (ReadText(sPath, "New1099", sKey.c_str(), szLabel, sizeof szLabel) == 0) continue;
      sCaptions.append(szLabel).append(1, '\t');
    }
  } catch (const std::bad_alloc&) {
    sCaptions.clear();
  }
  return 1;
}

int GetStates(CFixedStringParamRef states) {
  states.Clear();
  TaxInfoState& state = State();
  if (state.bStatesTried) {
    states = state.sStates;
    return 1;
  }
  // Whatever comes of it: a screen that failed once is not to wait and complain again.
  state.bStatesTried = true;
  CPathNameString sPath;
  if (!LocateTaxFile(sPath)) return 0;
  const auto nSize = static_cast<std::size_t>(std::max(states.size, 0));
  for (int nTry = 0; nTry < kStateListTries; ++nTry) {
    if (ReadText(sPath, kGeneral, "StateList", states.buffer, nSize) != 0) {
      state.sStates = states;
      return 1;
    }
    CurrentPlatform().clock.Sleep(kStateListPause);
  }
  return 0;
}

int NewGetStateTaxInfo(const char* szState, StateTaxInfo* pInfo) {
  if (szState == nullptr || pInfo == nullptr || TextLength(szState, 3) != 2) return 0;
  *pInfo = {};
  CPathNameString sPath;
  if (!LocateTaxFile(sPath)) return 0;
  const auto yes = [&](const char* szKey) -> std::int32_t {
    return ReadYes(sPath, szState, szKey) ? 1 : 0;
  };
  const auto text = [&](const char* szKey, auto& szField) {
    ReadField(sPath, szState, szKey, szField);
  };
  pInfo->bHasLocalities = yes("HasLocalities");
  pInfo->nSUILimit =
      static_cast<std::int16_t>(CurrentPlatform().profile.ReadInt(sPath, szState, "SUILimit", 0));
  text("Localities", pInfo->szLocalities);
  if (pInfo->bHasLocalities != 0 && pInfo->szLocalities[0] == '\0') return 0;
  pInfo->bSIT = yes("SIT");
  pInfo->bLITPercent = yes("LITPercent");
  pInfo->bLITAmount = yes("LITAmount");
  pInfo->bLITEr = yes("LITEr");
  pInfo->bSUIEe = yes("SUIEe");
  pInfo->bSDIEe = yes("SDIEe");
  pInfo->bSDIEr = yes("SDIEr");
  pInfo->bSpecial = yes("Special");
  text("SpecialFields", pInfo->szSpecialFields);
  text("SIT_CAG", pInfo->szSIT_CAG);
  text("SUI_CAG", pInfo->szSUI_CAG);
  text("SDI_CAG", pInfo->szSDI_CAG);
  text("HC_CAG", pInfo->szHC_CAG);
  text("WF_CAG", pInfo->szWF_CAG);
  text("SETT_CAG", pInfo->szSETT_CAG);
  text("SUI_ER_CAG", pInfo->szSUI_ER_CAG);
  text("SDI_ER_CAG", pInfo->szSDI_ER_CAG);
  text("HC_ER_CAG", pInfo->szHC_ER_CAG);
  text("WF_ER_CAG", pInfo->szWF_ER_CAG);
  text("SETT_ER_CAG", pInfo->szSETT_ER_CAG);
  text("Statefilingstatus", pInfo->szStatefilingstatus);
  text("Localfilingstatus", pInfo->szLocalfilingstatus);
  return 1;
}

int StateFilingStatusIsValidForState(const char* szStatus, const char* szState) {
  return IsValidForState(szStatus, szState, &StateTaxInfo::szStatefilingstatus);
}

int LocalFilingStatusIsValidForState(const char* szStatus, const char* szState) {
  return IsValidForState(szStatus, szState, &StateTaxInfo::szLocalfilingstatus);
}

int GetDefaultStateFilingStatus(const char* szState) {
  return DefaultOfState(szState, &StateTaxInfo::szStatefilingstatus);
}

int GetDefaultLocalFilingStatus(const char* szState) {
  return DefaultOfState(szState, &StateTaxInfo::szLocalfilingstatus);
}

void vFillStateCombo(WindowHandle hParent, std::uint16_t nId) try {
  Controls& controls = CurrentPlatform().desktop.controls;
  const WindowHandle hCombo = CurrentPlatform().desktop.windows.Child(hParent, nId);
  controls.RemoveAllItems(hCombo);
  CFixedString<kStateListSize> sStates;
  if (GetStates(sStates) == 0) return;
  for (std::string_view sRest = sStates; !sRest.empty();) {
    const std::size_t nEnd = std::min(sRest.find_first_of(",+"), sRest.size());
    if (nEnd > 0) controls.AddItem(hCombo, CString(sRest.substr(0, nEnd)));
    sRest.remove_prefix(std::min(nEnd + 1, sRest.size()));
  }
  for (const char* const* pszState = kMilitaryStates; *pszState != nullptr; ++pszState) {
    controls.AddItem(hCombo, *pszState);
  }
} catch (const std::bad_alloc&) {
  // The combo has what there was memory for.
}

}  // namespace ald
