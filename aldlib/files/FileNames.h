#pragma once

#include <span>

#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"

// The names of a company's data files. A company is a folder with these files in it; what they hold
// is the application's business. All names are ready before any code runs, and none ever changes.
//
//   File file;
//   Lookup(&file, CurrentFileNames::ChartFileName, 0);     // "CHART.DAT" in the current folder
namespace ald {

// The files of the format in use.
namespace CurrentFileNames {

extern ALDLIB_EXPORT const CFixedString<13> AddressFileName;                  // "ADDRESS.DAT"
extern ALDLIB_EXPORT const CFixedString<13> AlarmFileName;                    // "ALARM.DAT"
extern ALDLIB_EXPORT const CFixedString<13> AlertFileName;                    // "ALERT.DAT"
extern ALDLIB_EXPORT const CFixedString<13> AuditTrailFileName;               // "AUDITTR.DAT"
extern ALDLIB_EXPORT const CFixedString<13> AutoFillLocationsFileName;        // "AFLOCAT.DAT"
extern ALDLIB_EXPORT const CFixedString<13> BOM_ComponentsFileName;           // "BOMITEMS.DAT"
extern ALDLIB_EXPORT const CFixedString<13> BOM_HistoryFileName;              // "BOMHIST.DAT"
extern ALDLIB_EXPORT const CFixedString<13> BankRecFileName;                  // "BANKREC.DAT"
extern ALDLIB_EXPORT const CFixedString<13> ChartFileName;                    // "CHART.DAT"
extern ALDLIB_EXPORT const CFixedString<13> ClassToServiceFileName;           // "SERVICES.DAT"
extern ALDLIB_EXPORT const CFixedString<13> CompanyConnectionFileName;        // "CONNCO.DAT"
extern ALDLIB_EXPORT const CFixedString<13> CompanyFileName;                  // "COMPANY.DAT"
extern ALDLIB_EXPORT const CFixedString<13> CostFileName;                     // "COST.DAT"
extern ALDLIB_EXPORT const CFixedString<13> CustomerFileName;                 // "CUSTOMER.DAT"
extern ALDLIB_EXPORT const CFixedString<13> DataPathConnectionFileName;       // "CONNDP.DAT"
extern ALDLIB_EXPORT const CFixedString<13> EmployeeFileName;                 // "EMPLOYEE.DAT"
extern ALDLIB_EXPORT const CFixedString<13> EventLogFileName;                 // "EVENTLOG.DAT"
extern ALDLIB_EXPORT const CFixedString<13> FinancialReportFileName;          // "REPORT.DAT"
extern ALDLIB_EXPORT const CFixedString<13> ForecastDetailFileName;           // "FOREDETL.DAT"
extern ALDLIB_EXPORT const CFixedString<13> ForecastFileName;                 // "FORECAST.DAT"
extern ALDLIB_EXPORT const CFixedString<13> GeneralFileName;                  // "GENERAL.DAT"
extern ALDLIB_EXPORT const CFixedString<13> HolidayFileName;                  // "HOLIDAY.DAT"
extern ALDLIB_EXPORT const CFixedString<13> InventoryChainFileName;           // "INVCHAIN.DAT"
extern ALDLIB_EXPORT const CFixedString<13> InventoryCostFileName;            // "INVCOST.DAT"
extern ALDLIB_EXPORT const CFixedString<13> JobEstimateFileName;              // "JOBEST.DAT"
extern ALDLIB_EXPORT const CFixedString<13> JournalHeaderFileName;            // "JRNLHDR.DAT"
extern ALDLIB_EXPORT const CFixedString<13> JournalRowFileName;               // "JRNLROW.DAT"
extern ALDLIB_EXPORT const CFixedString<13> JournalSerialNumberFileName;      // "JRNLSNO.DAT"
extern ALDLIB_EXPORT const CFixedString<13> LineItemFileName;                 // "LINEITEM.DAT"
extern ALDLIB_EXPORT const CFixedString<13> OLAcctFileName;                   // "OLACCT.DAT"
extern ALDLIB_EXPORT const CFixedString<13> OLFIFileName;                     // "OLFI.DAT"
extern ALDLIB_EXPORT const CFixedString<13> OLTransFileName;                  // "OLTRANS.DAT"
extern ALDLIB_EXPORT const CFixedString<13> ObsoleteServiceFileName;          // "OBSRET.DAT"
extern ALDLIB_EXPORT const CFixedString<13> OptionsFileName;                  // "OPTIONS.DAT"
extern ALDLIB_EXPORT const CFixedString<13> PermissionFileName;               // "PERMISS.DAT"
extern ALDLIB_EXPORT const CFixedString<13> PhaseFileName;                    // "PHASE.DAT"
extern ALDLIB_EXPORT const CFixedString<13> PreferenceFileName;               // "USERPREF.DAT"
extern ALDLIB_EXPORT const CFixedString<13> ProjectFileName;                  // "PROJECT.DAT"
extern ALDLIB_EXPORT const CFixedString<13> QuantityDiscountFileName;         // "QTYDISC.DAT"
extern ALDLIB_EXPORT const CFixedString<13> RaiseHistoryFileName;             // "RAISEHST.DAT"
extern ALDLIB_EXPORT const CFixedString<13> ReceiptTagFileName;               // "RECPTTAG.DAT"
extern ALDLIB_EXPORT const CFixedString<13> ReconsolidationFileName;          // "RECON.DAT"
extern ALDLIB_EXPORT const CFixedString<13> ReportDataFileName;               // "RPTDATA.DAT"
extern ALDLIB_EXPORT const CFixedString<13> ReportDefaultStyleFileName;       // "RSTYDEF.DAT"
extern ALDLIB_EXPORT const CFixedString<13> ReportFilterSelectionFileName;    // "RPTFILTS.DAT"
extern ALDLIB_EXPORT const CFixedString<13> ReportGroupFileName;              // "GRPDATA.DAT"
extern ALDLIB_EXPORT const CFixedString<13> ReportStyleFileName;              // "RSTYLE.DAT"
extern ALDLIB_EXPORT const CFixedString<13> ServiceToLinkFileName;            // "SERVLINK.DAT"
extern ALDLIB_EXPORT const CFixedString<13> StatusFileName;                   // "STATUS.DAT"
extern ALDLIB_EXPORT const CFixedString<13> StoredTransactionHeaderFileName;  // "STXHDR.DAT"
extern ALDLIB_EXPORT const CFixedString<13> StoredTransactionRowFileName;     // "STXROW.DAT"
extern ALDLIB_EXPORT const CFixedString<13> TaxAuthorityFileName;             // "TAXAUTH.DAT"
extern ALDLIB_EXPORT const CFixedString<13> TaxCodeFileName;                  // "TAXCODE.DAT"
extern ALDLIB_EXPORT const CFixedString<13> TaxTableFileName;                 // "TAXTABLE.DAT"
extern ALDLIB_EXPORT const CFixedString<13> TemplateFileName;                 // "TEMPLATE.DAT"
extern ALDLIB_EXPORT const CFixedString<13> TicketFileName;                   // "TICKET.DAT"
extern ALDLIB_EXPORT const CFixedString<13> UPSInformationFileName;           // "UPSINFO.DAT"
extern ALDLIB_EXPORT const CFixedString<13> UPSShipmentFileName;              // "UPSSHIP.DAT"
extern ALDLIB_EXPORT const CFixedString<13> UnitMeasureFileName;              // "UNITMEAS.DAT"
extern ALDLIB_EXPORT const CFixedString<13> VendorFileName;                   // "VENDOR.DAT"
extern ALDLIB_EXPORT const CFixedString<13> VendorInsuranceFileName;          // "VENDINS.DAT"
extern ALDLIB_EXPORT const CFixedString<13> VersionFileName;                  // "VERSION.TXT"
extern ALDLIB_EXPORT const CFixedString<13> WorkTicketFileName;               // "WORKTKT.DAT"

// All of the above in the order of the constants.
[[nodiscard]] ALDLIB_EXPORT std::span<const CFixedString<13>* const> All() noexcept;

}  // namespace CurrentFileNames

// Files of the format before, for a conversion to find. Journal and stored transactions were one
// file each; a header and a row file have taken the place of either.
namespace OldFileNames {

extern ALDLIB_EXPORT const CFixedString<13> OldJournalFileName;            // "JOURNAL.DAT"
extern ALDLIB_EXPORT const CFixedString<13> OldStoredTransactionFileName;  // "STORETRX.DAT"

// Both of the above.
[[nodiscard]] ALDLIB_EXPORT std::span<const CFixedString<13>* const> All() noexcept;

}  // namespace OldFileNames
}  // namespace ald
