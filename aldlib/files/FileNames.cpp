#include "aldlib/files/FileNames.h"

namespace ald {
namespace CurrentFileNames {

constinit const CFixedString<13> AddressFileName("ADDRESS.DAT");
constinit const CFixedString<13> AlarmFileName("ALARM.DAT");
constinit const CFixedString<13> AlertFileName("ALERT.DAT");
constinit const CFixedString<13> AuditTrailFileName("AUDITTR.DAT");
constinit const CFixedString<13> AutoFillLocationsFileName("AFLOCAT.DAT");
constinit const CFixedString<13> BOM_ComponentsFileName("BOMITEMS.DAT");
constinit const CFixedString<13> BOM_HistoryFileName("BOMHIST.DAT");
constinit const CFixedString<13> BankRecFileName("BANKREC.DAT");
constinit const CFixedString<13> ChartFileName("CHART.DAT");
constinit const CFixedString<13> ClassToServiceFileName("SERVICES.DAT");
constinit const CFixedString<13> CompanyConnectionFileName("CONNCO.DAT");
constinit const CFixedString<13> CompanyFileName("COMPANY.DAT");
constinit const CFixedString<13> CostFileName("COST.DAT");
constinit const CFixedString<13> CustomerFileName("CUSTOMER.DAT");
constinit const CFixedString<13> DataPathConnectionFileName("CONNDP.DAT");
constinit const CFixedString<13> EmployeeFileName("EMPLOYEE.DAT");
constinit const CFixedString<13> EventLogFileName("EVENTLOG.DAT");
constinit const CFixedString<13> FinancialReportFileName("REPORT.DAT");
constinit const CFixedString<13> ForecastDetailFileName("FOREDETL.DAT");
constinit const CFixedString<13> ForecastFileName("FORECAST.DAT");
constinit const CFixedString<13> GeneralFileName("GENERAL.DAT");
constinit const CFixedString<13> HolidayFileName("HOLIDAY.DAT");
constinit const CFixedString<13> InventoryChainFileName("INVCHAIN.DAT");
constinit const CFixedString<13> InventoryCostFileName("INVCOST.DAT");
constinit const CFixedString<13> JobEstimateFileName("JOBEST.DAT");
constinit const CFixedString<13> JournalHeaderFileName("JRNLHDR.DAT");
constinit const CFixedString<13> JournalRowFileName("JRNLROW.DAT");
constinit const CFixedString<13> JournalSerialNumberFileName("JRNLSNO.DAT");
constinit const CFixedString<13> LineItemFileName("LINEITEM.DAT");
constinit const CFixedString<13> OLAcctFileName("OLACCT.DAT");
constinit const CFixedString<13> OLFIFileName("OLFI.DAT");
constinit const CFixedString<13> OLTransFileName("OLTRANS.DAT");
constinit const CFixedString<13> ObsoleteServiceFileName("OBSRET.DAT");
constinit const CFixedString<13> OptionsFileName("OPTIONS.DAT");
constinit const CFixedString<13> PermissionFileName("PERMISS.DAT");
constinit const CFixedString<13> PhaseFileName("PHASE.DAT");
constinit const CFixedString<13> PreferenceFileName("USERPREF.DAT");
constinit const CFixedString<13> ProjectFileName("PROJECT.DAT");
constinit const CFixedString<13> QuantityDiscountFileName("QTYDISC.DAT");
constinit const CFixedString<13> RaiseHistoryFileName("RAISEHST.DAT");
constinit const CFixedString<13> ReceiptTagFileName("RECPTTAG.DAT");
constinit const CFixedString<13> ReconsolidationFileName("RECON.DAT");
constinit const CFixedString<13> ReportDataFileName("RPTDATA.DAT");
constinit const CFixedString<13> ReportDefaultStyleFileName("RSTYDEF.DAT");
constinit const CFixedString<13> ReportFilterSelectionFileName("RPTFILTS.DAT");
constinit const CFixedString<13> ReportGroupFileName("GRPDATA.DAT");
constinit const CFixedString<13> ReportStyleFileName("RSTYLE.DAT");
constinit const CFixedString<13> ServiceToLinkFileName("SERVLINK.DAT");
constinit const CFixedString<13> StatusFileName("STATUS.DAT");
constinit const CFixedString<13> StoredTransactionHeaderFileName("STXHDR.DAT");
constinit const CFixedString<13> StoredTransactionRowFileName("STXROW.DAT");
constinit const CFixedString<13> TaxAuthorityFileName("TAXAUTH.DAT");
constinit const CFixedString<13> TaxCodeFileName("TAXCODE.DAT");
constinit const CFixedString<13> TaxTableFileName("TAXTABLE.DAT");
constinit const CFixedString<13> TemplateFileName("TEMPLATE.DAT");
constinit const CFixedString<13> TicketFileName("TICKET.DAT");
constinit const CFixedString<13> UPSInformationFileName("UPSINFO.DAT");
constinit const CFixedString<13> UPSShipmentFileName("UPSSHIP.DAT");
constinit const CFixedString<13> UnitMeasureFileName("UNITMEAS.DAT");
constinit const CFixedString<13> VendorFileName("VENDOR.DAT");
constinit const CFixedString<13> VendorInsuranceFileName("VENDINS.DAT");
constinit const CFixedString<13> VersionFileName("VERSION.TXT");
constinit const CFixedString<13> WorkTicketFileName("WORKTKT.DAT");

std::span<const CFixedString<13>* const> All() noexcept {
  static constexpr const CFixedString<13>* kNames[] = {
      &AddressFileName,
      &AlarmFileName,
      &AlertFileName,
      &AuditTrailFileName,
      &AutoFillLocationsFileName,
      &BOM_ComponentsFileName,
      &BOM_HistoryFileName,
      &BankRecFileName,
      &ChartFileName,
      &ClassToServiceFileName,
      &CompanyConnectionFileName,
      &CompanyFileName,
      &CostFileName,
      &CustomerFileName,
      &DataPathConnectionFileName,
      &EmployeeFileName,
      &EventLogFileName,
      &FinancialReportFileName,
      &ForecastDetailFileName,
      &ForecastFileName,
      &GeneralFileName,
      &HolidayFileName,
      &InventoryChainFileName,
      &InventoryCostFileName,
      &JobEstimateFileName,
      &JournalHeaderFileName,
      &JournalRowFileName,
      &JournalSerialNumberFileName,
      &LineItemFileName,
      &OLAcctFileName,
      &OLFIFileName,
      &OLTransFileName,
      &ObsoleteServiceFileName,
      &OptionsFileName,
      &PermissionFileName,
      &PhaseFileName,
      &PreferenceFileName,
      &ProjectFileName,
      &QuantityDiscountFileName,
      &RaiseHistoryFileName,
      &ReceiptTagFileName,
      &ReconsolidationFileName,
      &ReportDataFileName,
      &ReportDefaultStyleFileName,
      &ReportFilterSelectionFileName,
      &ReportGroupFileName,
      &ReportStyleFileName,
      &ServiceToLinkFileName,
      &StatusFileName,
      &StoredTransactionHeaderFileName,
      &StoredTransactionRowFileName,
      &TaxAuthorityFileName,
      &TaxCodeFileName,
      &TaxTableFileName,
      &TemplateFileName,
      &TicketFileName,
      &UPSInformationFileName,
      &UPSShipmentFileName,
      &UnitMeasureFileName,
      &VendorFileName,
      &VendorInsuranceFileName,
      &VersionFileName,
      &WorkTicketFileName,
  };
  return kNames;
}

}  // namespace CurrentFileNames

namespace OldFileNames {

constinit const CFixedString<13> OldJournalFileName("JOURNAL.DAT");
constinit const CFixedString<13> OldStoredTransactionFileName("STORETRX.DAT");

std::span<const CFixedString<13>* const> All() noexcept {
  static constexpr const CFixedString<13>* kNames[] = {
      &OldJournalFileName,
      &OldStoredTransactionFileName,
  };
  return kNames;
}

}  // namespace OldFileNames
}  // namespace ald
