#include "aldlib/payroll/TaxInfo.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "aldlib/platform/Controls.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/TempFolder.h"

namespace ald {
namespace {

// What a state's section can say, each key with the bytes of the record that it fills.
struct Field {
  const char* szKey;
  std::size_t nOffset;
  std::size_t nWidth;  // 4 for a flag, 2 for the limit
};
constexpr Field kFields[] = {{"HasLocalities", 0, 4},
                             {"SUILimit", 4, 2},
                             {"Localities", 6, 80},
                             {"SIT", 88, 4},
                             {"LITPercent", 92, 4},
                             {"LITAmount", 96, 4},
                             {"LITEr", 100, 4},
                             {"SUIEe", 104, 4},
                             {"SDIEe", 108, 4},
                             {"SDIEr", 112, 4},
                             {"Special", 116, 4},
                             {"SpecialFields", 120, 256},
                             {"SIT_CAG", 376, 32},
                             {"SUI_CAG", 408, 32},
                             {"SDI_CAG", 440, 32},
                             {"HC_CAG", 472, 32},
                             {"WF_CAG", 504, 32},
                             {"SETT_CAG", 536, 32},
                             {"SUI_ER_CAG", 568, 32},
                             {"SDI_ER_CAG", 600, 32},
                             {"HC_ER_CAG", 632, 32},
                             {"WF_ER_CAG", 664, 32},
                             {"SETT_ER_CAG", 696, 32},
                             {"Statefilingstatus", 728, 256},
                             {"Localfilingstatus", 984, 256}};

class TaxInfoTest : public testing::Test {
 protected:
  TaxInfoTest() { std::strcpy(MyAlderLibDataPtr->szDataPath, "C:\\BOOKS\\"); }

  void WriteTaxFile(const CString& sText) {
    m_platform.m_disk.Write("C:\\BOOKS\\TaxInfo.Dat", sText);
    m_platform.m_profile.m_files["C:\\BOOKS\\TaxInfo.Dat"] = sText;
  }
  void WriteStatuses(const CString& sList) { WriteTaxFile("[General]\nFilingStatuses=" + sList); }
  void WriteState(const CString& sLines) { WriteTaxFile("[QA]\n" + sLines); }

  // The messages shown since the last look, each by its text.
  std::vector<CString> Complaints() {
    std::vector<CString> texts;
    for (const ShownBox& box : m_platform.m_desktop.Boxes()) texts.push_back(box.sText);
    m_platform.m_desktop.ForgetOutput();
    return texts;
  }

  static std::vector<CString> Statuses() {
    std::vector<CString> statuses;
    CFixedString<64> sStatus;
    for (int i = 0; GetFilingStatus(i, sStatus) == 1; ++i) statuses.emplace_back(sStatus);
    return statuses;
  }

  FakePlatform m_platform;
};

const std::vector<CString> kNoFile{"Unable to locate TAXINFO.DAT."};

std::vector<CString> TokensOf(const char* szText, std::int32_t nSize) {
  std::vector<CString> tokens;
  CString sBuffer(static_cast<std::size_t>(nSize), '#');
  while (GetTokenFromLine(szText, {sBuffer.data(), nSize}) == 1) {
    tokens.emplace_back(sBuffer.c_str());
    if (tokens.size() > 50) break;
  }
  return tokens;
}

TEST(TaxToken, EndsAtACommaAndComesInPiecesWhereItDoesNotFit) {
  using Tokens = std::vector<CString>;
  EXPECT_EQ(TokensOf(",a", 32), (Tokens{"", "a"}));
  EXPECT_EQ(TokensOf("a,", 32), (Tokens{"a"}));
  EXPECT_EQ(TokensOf("a,,b", 32), (Tokens{"a", "", "b"}));
  EXPECT_EQ(TokensOf("abc,d", 4), (Tokens{"abc", "d"}));
  EXPECT_EQ(TokensOf("abcdefg,h", 4), (Tokens{"abc", "def", "g", "h"}));
  EXPECT_EQ(TokensOf("", 32), Tokens{});
  EXPECT_EQ(TokensOf("abc,d", 1), (Tokens{"", ""}));  // no room: on to the next comma
}

TEST(TaxToken, LeavesTheDestinationAloneAtTheEnd) {
  CFixedString<8> sToken("before");
  const char* szCursor = "";
  EXPECT_EQ(GetTokenFromLine(szCursor, sToken), 0);
  EXPECT_EQ(sToken, "before");
  szCursor = nullptr;
  EXPECT_EQ(GetTokenFromLine(szCursor, sToken), 0);
  szCursor = "a,b";
  EXPECT_EQ(GetTokenFromLine(szCursor, CFixedStringParamRef()), 1);
  EXPECT_STREQ(szCursor, "b");
}

TEST_F(TaxInfoTest, HasSixteenStatusesWithoutAFileAndSaysThatThereIsNone) {
  const std::vector<CString> statuses = Statuses();
  EXPECT_EQ(Complaints(), kNoFile);  // once: they were loaded then
  ASSERT_EQ(statuses.size(), 16U);
  EXPECT_EQ(statuses.front(), "Single");
  EXPECT_EQ(statuses[6], "Qualifying Widow(er)");
  EXPECT_EQ(statuses.back(), "Special H");
  EXPECT_EQ(GetFilingStatusFromText("Head/Household"), 2);
  EXPECT_EQ(GetFilingStatusFromText("single"), -1);
  EXPECT_EQ(GetFilingStatusFromText(nullptr), -1);
  CFixedString<4> sStatus("old");
  EXPECT_EQ(GetFilingStatus(16, sStatus), 0);
  EXPECT_EQ(sStatus, "");
  EXPECT_EQ(GetFilingStatus(-1, sStatus), 0);
  EXPECT_EQ(GetFilingStatus(0, sStatus), 1);
  EXPECT_EQ(sStatus, "Sin");
}

TEST_F(TaxInfoTest, HasEachStatusOnceThoughTheyAreAskedForWhileTheBoxIsUp) {
  int nInBox = 0;
  m_platform.m_desktop.WhenWaiting([&nInBox](WindowHandle) {
    if (nInBox++ == 0) {
      EXPECT_EQ(GetFilingStatusFromText("Married"), 1);
    }
    return false;
  });
  EXPECT_EQ(GetFilingStatusFromText("Single"), 0);
  EXPECT_GT(nInBox, 0);
  EXPECT_EQ(Statuses().size(), 16U);
}

TEST_F(TaxInfoTest, TakesTheFilesStatusesWholeAndSplitsThoseThatAreTooLong) {
  WriteStatuses(CString(40, 'L') + ",Single,Single");
  EXPECT_EQ(Statuses(),
            (std::vector<CString>{CString(31, 'L'), CString(9, 'L'), "Single", "Single"}));
  EXPECT_EQ(GetFilingStatusFromText("Single"), 2);  // moved by one, and the first of the two
  WriteStatuses("Other");
  EXPECT_EQ(GetFilingStatusFromText("Other"), -1);  // read once
}

TEST_F(TaxInfoTest, TakesTheBuiltInStatusesForAnEmptyList) {
  WriteStatuses("");
  EXPECT_EQ(Statuses().size(), 16U);
  EXPECT_TRUE(Complaints().empty());
}

TEST_F(TaxInfoTest, ReadsTheVersionOfTheFirstLine) {
  const struct {
    const char* szText;
    const char* szVersion;
    int nResult;
  } rows[] = {{";VERSION~1234567890\n", "12345678", 1},
              {";VERSION~12345678\n", "12345678", 1},
              {";VERSION~1234567\r\n", "1234567\n", 1},
              {";VERSION~2003\r\n[General]\r\n", "2003\n", 1},
              {";VERSION~2003", "2003", 1},
              {";VERSION~\n", "\n", 1},
              {";VERSION~", "", 1},
              {";VERSION~a\rb\n", "a\rb\n", 1},
              {";VERSION~a\x1A"
               "bc",
               "a", 1},
              {";version~2003\n", "Unknown", 0},
              {" ;VERSION~2003\n", "Unknown", 0},
              {";VERSION 2003\n", "Unknown", 0},
              {"\n;VERSION~2003\n", "Unknown", 0},
              {";VERS", "Unknown", 0},
              {"", "Unknown", 0}};
  for (const auto& row : rows) {
    WriteTaxFile(row.szText);
    char szVersion[16] = "##############";
    EXPECT_EQ(GetTaxTableVersionInfo(szVersion, sizeof szVersion), row.nResult) << row.szText;
    EXPECT_STREQ(szVersion, row.szVersion);
  }
  EXPECT_TRUE(Complaints().empty());
  WriteTaxFile(";VERSION~20030701");
  char szVersion[] = "######";
  EXPECT_EQ(GetTaxTableVersionInfo(szVersion, 4), 1);
  EXPECT_EQ(CString(szVersion, 6), CString("200\0##", 6));
  EXPECT_EQ(GetTaxTableVersionInfo(szVersion, 0), 1);
  EXPECT_EQ(GetTaxTableVersionInfo(nullptr, 10), 0);
}

TEST_F(TaxInfoTest, SaysEachTimeThatTheFileIsNotThere) {
  char szVersion[16];
  FederalTaxInfo federal{CDecimal("77")};
  StateTaxInfo state;
  EXPECT_EQ(GetTaxTableVersionInfo(szVersion, sizeof szVersion), 0);
  EXPECT_STREQ(szVersion, "Unknown");
  EXPECT_EQ(Complaints(), kNoFile);
  EXPECT_EQ(NewGetFederalTaxInfo(&federal), 0);
  EXPECT_EQ(federal.dec401kLimit, CDecimal("0"));
  EXPECT_EQ(Complaints(), kNoFile);
  EXPECT_EQ(NewGetStateTaxInfo("QA", &state), 0);
  EXPECT_EQ(NewGetStateTaxInfo("QA", &state), 0);
  EXPECT_EQ(Complaints().size(), 2U);
}

TEST_F(TaxInfoTest, LooksInTheDataFolderThatTheInstallationNames) {
  WriteTaxFile("[Federal]\n401kLimit=12");
  MyAlderLibDataPtr->szDataPath[0] = '\0';
  m_platform.m_profile.m_files["PRODUCT.INI"] = "[Lib]\nDATAPATH=C:\\BOOKS";
  FederalTaxInfo federal;
  EXPECT_EQ(NewGetFederalTaxInfo(&federal), 1);
  EXPECT_EQ(federal.dec401kLimit, CDecimal("12"));
  EXPECT_STREQ(MyAlderLibDataPtr->szDataPath, "C:\\BOOKS\\");
  std::strcpy(MyAlderLibDataPtr->szDataPath, "c:\\books");  // a host's own, without a separator
  m_platform.m_profile.m_files["c:\\books\\TaxInfo.Dat"] = "[Federal]\n401kLimit=13";
  EXPECT_EQ(NewGetFederalTaxInfo(&federal), 1);
  EXPECT_EQ(federal.dec401kLimit, CDecimal("13"));
  // Nothing known at all: the current folder.
  MyAlderLibDataPtr->szDataPath[0] = '\0';
  m_platform.m_profile.m_files.clear();
  EXPECT_EQ(NewGetFederalTaxInfo(&federal), 0);
  m_platform.m_disk.Write("TaxInfo.Dat", "");
  EXPECT_EQ(NewGetFederalTaxInfo(&federal), 1);
}

TEST_F(TaxInfoTest, HasALimitOfTenThousandIfTheFileHasNone) {
  const struct {
    const char* szText;
    const char* szLimit;
  } rows[] = {{"", "10000"},
              {"[Federal]\n401kLimit=12345.67\n", "12345.67"},
              {"[FEDERAL]\n401KLIMIT = 1\n", "1"},
              {"[Federal]\n401kLimit=\n", "0"},
              {"[Federal]\n401kLimit=none\n", "0"},
              {"[Federal]\n401kLimit\n", "10000"},
              {"401kLimit=5\n", "10000"}};
  for (const auto& row : rows) {
    WriteTaxFile(row.szText);
    FederalTaxInfo federal;
    EXPECT_EQ(NewGetFederalTaxInfo(&federal), 1);
    EXPECT_EQ(federal.dec401kLimit, CDecimal(row.szLimit)) << row.szText;
  }
  EXPECT_EQ(NewGetFederalTaxInfo(nullptr), 0);
}

// A record whose every byte is known: what one key says lands in its own field and nowhere else.
TEST_F(TaxInfoTest, PutsEachKeyIntoItsOwnBytesOfTheRecord) {
  for (const Field& field : kFields) {
    CString sValue(300, 'v');
    if (field.nWidth == 4) sValue = "Yes";
    if (field.nWidth == 2) sValue = "4660";
    CString sLines = CString(field.szKey) + "=" + sValue + "\n";
    CString sExpected(sizeof(StateTaxInfo), '\0');
    const CString sBytes = field.nWidth == 4   ? CString("\1")
                           : field.nWidth == 2 ? CString("\x34\x12")
                                               : CString(field.nWidth - 1, 'v');
    sExpected.replace(field.nOffset, sBytes.size(), sBytes);
    if (field.nOffset == 0) {
      sLines += "Localities=x\n";
      sExpected[6] = 'x';
    }
    WriteState(sLines);
    StateTaxInfo state;
    std::memset(&state, 0x55, sizeof state);
    EXPECT_EQ(NewGetStateTaxInfo("QA", &state), 1) << field.szKey;
    // The two bytes of padding behind the localities are nobody's.
    CString sRecord(reinterpret_cast<const char*>(&state), sizeof state);
    sRecord.replace(86, 2, 2, '\0');
    EXPECT_EQ(sRecord, sExpected) << field.szKey;
  }
}

TEST_F(TaxInfoTest, StandsAnyLineThatPeopleMayWrite) {
  const struct {
    const char* szLines;
    std::int32_t bSIT;
    std::int16_t nSUILimit;
  } rows[] = {{"SIT=Y", 1, 0},
              {"SIT=y", 1, 0},
              {"sit = \"yes\"", 1, 0},
              {"  SIT\t=\tyellow", 1, 0},
              {"SIT=N", 0, 0},
              {"SIT=1", 0, 0},
              {"SIT=", 0, 0},
              {"SIT", 0, 0},
              {"=Y", 0, 0},
              {"SIT Y", 0, 0},
              {"SIT:Y", 0, 0},
              {";SIT=Y", 0, 0},
              {"SIT=;Y", 0, 0},
              {"SIT=N\nSIT=Y", 0, 0},
              {"[QA]\nSIT=Y", 0, 0},
              {"[QB]\nSIT=Y", 0, 0},
              {"[\nSIT=Y", 1, 0},
              {"]\nSIT=Y", 1, 0},
              {"SIT=Y\r\n\r\n\r\nSUILimit=9\r", 1, 9},
              {"SUILimit=7000 dollars", 0, 7000},
              {"SUILimit=7,000", 0, 7},
              {"SUILimit=-1", 0, -1},
              {"SUILimit=65535", 0, -1},
              {"SUILimit=65537", 0, 1},
              {"SUILimit=$7000", 0, 0},
              {"SUILimit=99999999999999999999", 0, -1}};
  for (const auto& row : rows) {
    WriteState(row.szLines);
    StateTaxInfo state;
    EXPECT_EQ(NewGetStateTaxInfo("qa", &state), 1) << row.szLines;
    EXPECT_EQ(state.bSIT, row.bSIT) << row.szLines;
    EXPECT_EQ(state.nSUILimit, row.nSUILimit) << row.szLines;
  }
}

TEST_F(TaxInfoTest, LeavesTheRecordAloneForACodeThatIsNone) {
  WriteState("SIT=Y");
  StateTaxInfo state;
  std::memset(&state, 0x55, sizeof state);
  const StateTaxInfo before = state;
  for (const char* szCode : {"", "Q", "QAB", static_cast<const char*>(nullptr)}) {
    EXPECT_EQ(NewGetStateTaxInfo(szCode, &state), 0);
    EXPECT_EQ(std::memcmp(&state, &before, sizeof state), 0);
  }
  EXPECT_EQ(NewGetStateTaxInfo("QA", nullptr), 0);
  EXPECT_TRUE(Complaints().empty());
  EXPECT_EQ(NewGetStateTaxInfo("ZZ", &state), 1);  // no such section
  EXPECT_EQ(state.bSIT, 0);
}

TEST_F(TaxInfoTest, StopsAtLocalitiesThatAreNotNamed) {
  WriteState("HasLocalities=Y\nSUILimit=5\nSIT=Y\nStatefilingstatus=Single");
  StateTaxInfo state;
  EXPECT_EQ(NewGetStateTaxInfo("QA", &state), 0);
  EXPECT_EQ(state.bHasLocalities, 1);
  EXPECT_EQ(state.nSUILimit, 5);
  EXPECT_EQ(state.bSIT, 0);
  EXPECT_STREQ(state.szStatefilingstatus, "");
  // Localities of a state that has none are carried all the same.
  WriteState("HasLocalities=N\nLocalities=Lakeside");
  EXPECT_EQ(NewGetStateTaxInfo("QA", &state), 1);
  EXPECT_STREQ(state.szLocalities, "Lakeside");
}

TEST_F(TaxInfoTest, JudgesAStatusByTheStatesListOrByTheListOfAll) {
  const struct {
    const char* szLines;
    const char* szStatus;
    int nValid;
    int nDefault;
  } rows[] = {{"", "Single", 1, 0},
              {"", "Special H", 1, 0},
              {"", "Retired", 0, 0},
              {"Statefilingstatus=Single,Married", "Married", 1, 0},
              {"Statefilingstatus=Married,Single", "married", 0, 1},
              {"Statefilingstatus=Married, Single", "Single", 0, 1},  // it is " Single"
              {"Statefilingstatus=Retired,Single", "Retired", 1, -1},
              {"Statefilingstatus=,Single", "", 1, -1},
              {"Statefilingstatus=Single,", "", 0, 0},
              {"HasLocalities=Y\nStatefilingstatus=Retired", "Retired", 0, 0}};
  for (const auto& row : rows) {
    WriteState(row.szLines);
    EXPECT_EQ(StateFilingStatusIsValidForState(row.szStatus, "QA"), row.nValid) << row.szLines;
    EXPECT_EQ(GetDefaultStateFilingStatus("QA"), row.nDefault) << row.szLines;
  }
  WriteState("Statefilingstatus=Single\nLocalfilingstatus=Married");
  EXPECT_EQ(LocalFilingStatusIsValidForState("Married", "QA"), 1);
  EXPECT_EQ(LocalFilingStatusIsValidForState("Single", "QA"), 0);
  EXPECT_EQ(GetDefaultLocalFilingStatus("QA"), 1);
  EXPECT_EQ(StateFilingStatusIsValidForState(nullptr, "QA"), 0);
  EXPECT_EQ(StateFilingStatusIsValidForState("Special A", nullptr), 1);
  EXPECT_EQ(GetDefaultStateFilingStatus("QAB"), 0);
}

TEST_F(TaxInfoTest, ReadsTheStatesOnceAndGivesWhatCameEverAfter) {
  WriteTaxFile("[General]\nStateList=QA,QB+QC\n");
  CFixedString<6> sStates;
  EXPECT_EQ(GetStates(sStates), 1);
  EXPECT_EQ(sStates, "QA,QB");  // what the first caller had room for is what is kept
  WriteTaxFile("[General]\nStateList=QZ\n");
  CFixedString<600> sAgain("before");
  EXPECT_EQ(GetStates(sAgain), 1);
  EXPECT_EQ(sAgain, "QA,QB");
  EXPECT_TRUE(m_platform.m_clock.m_sleeps.empty());
}

TEST_F(TaxInfoTest, GivesAnEmptyListOfStatesAfterTheFirstCallHasFailed) {
  CFixedString<600> sStates("before");
  EXPECT_EQ(GetStates(sStates), 0);
  EXPECT_EQ(sStates, "");
  EXPECT_EQ(Complaints(), kNoFile);
  WriteTaxFile("[General]\nStateList=QA\n");
  sStates = "before";
  EXPECT_EQ(GetStates(sStates), 1);
  EXPECT_EQ(sStates, "");
  EXPECT_TRUE(Complaints().empty());
}

TEST_F(TaxInfoTest, WaitsForAListOfStatesThatIsEmpty) {
  WriteTaxFile("[General]\nStateList=\n");
  CFixedString<600> sStates;
  EXPECT_EQ(GetStates(sStates), 0);
  EXPECT_EQ(m_platform.m_clock.m_sleeps, std::vector<std::uint32_t>(4, 500));
  EXPECT_TRUE(Complaints().empty());
}

class StateComboTest : public TaxInfoTest {
 protected:
  StateComboTest() {
    Windows& windows = m_desktop.windows;
    m_hScreen = windows.Create({.sClass = "STATIC", .nStyle = kStylePopup});
    m_hCombo = windows.Create(
        {.sClass = "COMBOBOX", .nStyle = kStyleChild, .hParent = m_hScreen, .nId = 7});
    m_desktop.controls.AddItem(m_hCombo, "old");
  }
  CString Items() {
    CString sItems;
    for (int i = 0; i < m_desktop.controls.Count(m_hCombo); ++i) {
      sItems += m_desktop.controls.ItemText(m_hCombo, i) + " ";
    }
    return sItems;
  }

  Desktop m_desktop = m_platform.m_desktop.Ports();
  WindowHandle m_hScreen{};
  WindowHandle m_hCombo{};
};

TEST_F(StateComboTest, HoldsTheStatesOfTheFileAndThoseOfTheForces) {
  WriteTaxFile("[General]\nStateList=QC,QA++QB,,+\n");
  vFillStateCombo(m_hScreen, 7);
  EXPECT_EQ(Items(), "QC QA QB AA AP AE ");
  vFillStateCombo(m_hScreen, 8);  // no such control
  vFillStateCombo(WindowHandle{}, 7);
}

TEST_F(StateComboTest, IsEmptyWithoutAFileAndHasTheForcesAloneTheNextTime) {
  vFillStateCombo(m_hScreen, 7);
  EXPECT_EQ(Items(), "");
  vFillStateCombo(m_hScreen, 7);
  EXPECT_EQ(Items(), "AA AP AE ");
}

TEST_F(TaxInfoTest, JoinsTheCaptionsThatAreThereWithTabs) {
  m_platform.m_profile.m_files["PRODUCT.INI"] = "[Lib]\nDATAPATH=C:\\BOOKS\\";
  m_platform.m_profile.m_files["C:\\BOOKS\\1099info.dat"] =
      "[New1099]\nLabel2=Rents\nLabel1=Fees\nLabel3=\nLabel14=" + CString(40, 'x') +
      "\nLabel15=never\n";
  CString sCaptions = "before";
  int nCount = 9;
  EXPECT_EQ(Get1099ListboxSettings(sCaptions, nCount), 1);
  EXPECT_EQ(sCaptions, "Fees\tRents\t" + CString(30, 'x') + "\t");
  EXPECT_EQ(nCount, 0);  // never a count

  // Without a backslash at the end of the path the file lies beside the folder.
  m_platform.m_profile.m_files["PRODUCT.INI"] = "[Lib]\nDATAPATH=C:\\BOOKS";
  EXPECT_EQ(Get1099ListboxSettings(sCaptions, nCount), 1);
  EXPECT_EQ(sCaptions, "");
  m_platform.m_profile.m_files["C:\\BOOKS1099info.dat"] = "[New1099]\nLabel1=Beside\n";
  EXPECT_EQ(Get1099ListboxSettings(sCaptions, nCount), 1);
  EXPECT_EQ(sCaptions, "Beside\t");
  EXPECT_TRUE(Complaints().empty());
}

// On a real disk, where the parsed file is kept as long as it does not change.
TEST(TaxInfoOnDisk, SeesEachChangeOfTheFileAtOnce) {
  const TempFolder folder;
  char(&szDataPath)[260] = MyAlderLibDataPtr->szDataPath;
  std::strcpy(szDataPath, folder.Path().c_str());
  for (int i = 100; i < 150; ++i) {
    folder.Write("TAXINFO.DAT", "[QA]\nSUILimit=" + std::to_string(i));
    StateTaxInfo state;
    ASSERT_EQ(NewGetStateTaxInfo("QA", &state), 1);
    ASSERT_EQ(state.nSUILimit, i);
  }
  szDataPath[0] = '\0';
}

}  // namespace
}  // namespace ald
