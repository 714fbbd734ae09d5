#include "aldlib/files/FileNames.h"

#include <algorithm>
#include <set>
#include <string>

#include <gtest/gtest.h>

namespace ald {
namespace {

// The names as one text each, so that the order of the constants does not matter.
const char* const kCurrent =
    "ADDRESS ALARM ALERT AUDITTR AFLOCAT BOMITEMS BOMHIST BANKREC CHART SERVICES CONNCO COMPANY "
    "COST "
    "CUSTOMER CONNDP EMPLOYEE EVENTLOG REPORT FOREDETL FORECAST GENERAL HOLIDAY INVCHAIN INVCOST "
    "JOBEST JRNLHDR JRNLROW JRNLSNO LINEITEM OLACCT OLFI OLTRANS OBSRET OPTIONS PERMISS PHASE "
    "USERPREF PROJECT QTYDISC RAISEHST RECPTTAG RECON RPTDATA RSTYDEF RPTFILTS GRPDATA RSTYLE "
    "SERVLINK STATUS STXHDR STXROW TAXAUTH TAXCODE TAXTABLE TEMPLATE TICKET UPSINFO UPSSHIP "
    "UNITMEAS "
    "VENDOR VENDINS WORKTKT ";

TEST(DataFileNames, AreTheFilesOfACompany) {
  std::set<std::string> wanted{"VERSION.TXT"};
  std::string sName;
  for (const char* p = kCurrent; *p != '\0'; ++p) {
    if (*p != ' ') {
      sName += *p;
    } else {
      wanted.insert(std::exchange(sName, {}) + ".DAT");
    }
  }
  std::set<std::string> found;
  for (const CFixedString<13>* pName : CurrentFileNames::All())
    found.insert(pName->operator const char*());
  EXPECT_EQ(found, wanted);
  EXPECT_EQ(found.size(), CurrentFileNames::All().size()) << "no name stands twice";
}

TEST(DataFileNames, BelongToTheConstantsThatModulesUse) {
  using namespace CurrentFileNames;
  // Those whose file is not the constant's own name.
  const struct {
    const CFixedString<13>& sName;
    const char* szFile;
  } rows[] = {
      {AutoFillLocationsFileName, "AFLOCAT.DAT"},
      {ClassToServiceFileName, "SERVICES.DAT"},
      {ServiceToLinkFileName, "SERVLINK.DAT"},
      {FinancialReportFileName, "REPORT.DAT"},
      {ForecastDetailFileName, "FOREDETL.DAT"},
      {ObsoleteServiceFileName, "OBSRET.DAT"},
      {PreferenceFileName, "USERPREF.DAT"},
      {ReportGroupFileName, "GRPDATA.DAT"},
      {ReportStyleFileName, "RSTYLE.DAT"},
      {ReportDefaultStyleFileName, "RSTYDEF.DAT"},
      {JournalHeaderFileName, "JRNLHDR.DAT"},
      {JournalRowFileName, "JRNLROW.DAT"},
      {StoredTransactionHeaderFileName, "STXHDR.DAT"},
      {StoredTransactionRowFileName, "STXROW.DAT"},
      {OldFileNames::OldJournalFileName, "JOURNAL.DAT"},
      {OldFileNames::OldStoredTransactionFileName, "STORETRX.DAT"},
      {VersionFileName, "VERSION.TXT"},
  };
  for (const auto& row : rows) EXPECT_EQ(row.sName, row.szFile);
  for (const CFixedString<13>* pOld : OldFileNames::All()) {
    EXPECT_TRUE(std::ranges::none_of(All(), [=](auto* pName) { return *pName == *pOld; })) << *pOld;
  }
}

}  // namespace
}  // namespace ald
