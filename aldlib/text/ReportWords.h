#pragma once

#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"

// The words of report headings and columns, each with room for its word and no more. The library
// leaves them empty and never reads them: the application fills them in its own language when it
// starts, and its reports print them.
namespace ald {

extern ALDLIB_EXPORT CFixedString<4> csAccount;
extern ALDLIB_EXPORT CFixedString<4> csAge;
extern ALDLIB_EXPORT CFixedString<7> csAmount;
extern ALDLIB_EXPORT CFixedString<8> csBalance;
extern ALDLIB_EXPORT CFixedString<12> csBalanceDue;
extern ALDLIB_EXPORT CFixedString<12> csBalanceFwd;
extern ALDLIB_EXPORT CFixedString<11> csCalculated;
extern ALDLIB_EXPORT CFixedString<14> csCashPurchase;
extern ALDLIB_EXPORT CFixedString<10> csCashSale;
extern ALDLIB_EXPORT CFixedString<13> csCheckAmount;
extern ALDLIB_EXPORT CFixedString<8> csCheckNum;
extern ALDLIB_EXPORT CFixedString<15> csCheckRegister;
extern ALDLIB_EXPORT CFixedString<7> csChecks;
extern ALDLIB_EXPORT CFixedString<5> csCity;
extern ALDLIB_EXPORT CFixedString<8> csContact;
extern ALDLIB_EXPORT CFixedString<9> csContactColon;
extern ALDLIB_EXPORT CFixedString<20> csContactandPhone;
extern ALDLIB_EXPORT CFixedString<10> csContinued;
extern ALDLIB_EXPORT CFixedString<8> csCountry;
extern ALDLIB_EXPORT CFixedString<7> csCredit;
extern ALDLIB_EXPORT CFixedString<13> csCreditLimit;
extern ALDLIB_EXPORT CFixedString<8> csCurrent;
extern ALDLIB_EXPORT CFixedString<9> csCustomer;
extern ALDLIB_EXPORT CFixedString<14> csCustomerName;
extern ALDLIB_EXPORT CFixedString<5> csDate;
extern ALDLIB_EXPORT CFixedString<6> csDebit;
extern ALDLIB_EXPORT CFixedString<12> csDescription;
extern ALDLIB_EXPORT CFixedString<9> csDiscount;
extern ALDLIB_EXPORT CFixedString<14> csDiscountDays;
extern ALDLIB_EXPORT CFixedString<17> csDiscountPercent;
extern ALDLIB_EXPORT CFixedString<8> csDisplay;
extern ALDLIB_EXPORT CFixedString<9> csDueDate;
extern ALDLIB_EXPORT CFixedString<9> csDueDays;
extern ALDLIB_EXPORT CFixedString<9> csEmployee;
extern ALDLIB_EXPORT CFixedString<14> csEmployeeName;
extern ALDLIB_EXPORT CFixedString<12> csGrandTotal;
extern ALDLIB_EXPORT CFixedString<6> csGross;
extern ALDLIB_EXPORT CFixedString<7> csHourly;
extern ALDLIB_EXPORT CFixedString<3> csID;
extern ALDLIB_EXPORT CFixedString<9> csInvoiceNum;
extern ALDLIB_EXPORT CFixedString<9> csInvoices;
extern ALDLIB_EXPORT CFixedString<13> csLastPayment;
extern ALDLIB_EXPORT CFixedString<7> csLimitColon;
extern ALDLIB_EXPORT CFixedString<5> csName;
extern ALDLIB_EXPORT CFixedString<15> csNameContact;
extern ALDLIB_EXPORT CFixedString<11> csNetToPay;
extern ALDLIB_EXPORT CFixedString<12> csNoActivity;
extern ALDLIB_EXPORT CFixedString<5> csNone;
extern ALDLIB_EXPORT CFixedString<42> csNotACheck;
extern ALDLIB_EXPORT CFixedString<18> csOtherInformation;
extern ALDLIB_EXPORT CFixedString<7> csOthers;
extern ALDLIB_EXPORT CFixedString<20> csOverCreditLimit;
extern ALDLIB_EXPORT CFixedString<8> csOverdue;
extern ALDLIB_EXPORT CFixedString<15> csOverdueAmount;
extern ALDLIB_EXPORT CFixedString<6> csPONum;
extern ALDLIB_EXPORT CFixedString<5> csPaid;
extern ALDLIB_EXPORT CFixedString<4> csPay;
extern ALDLIB_EXPORT CFixedString<6> csPayee;
extern ALDLIB_EXPORT CFixedString<8> csPayment;
extern ALDLIB_EXPORT CFixedString<13> csPhoneNumber;
extern ALDLIB_EXPORT CFixedString<6> csPrint;
extern ALDLIB_EXPORT CFixedString<12> csPurchOrdNum;
extern ALDLIB_EXPORT CFixedString<4> csRef;
extern ALDLIB_EXPORT CFixedString<10> csReference;
extern ALDLIB_EXPORT CFixedString<14> csResaleNumber;
extern ALDLIB_EXPORT CFixedString<7> csSalary;
extern ALDLIB_EXPORT CFixedString<11> csSecurityNum;
extern ALDLIB_EXPORT CFixedString<7> csSocial;
extern ALDLIB_EXPORT CFixedString<18> csSocialSecurityNum;
extern ALDLIB_EXPORT CFixedString<13> csStarDotStar;
extern ALDLIB_EXPORT CFixedString<6> csState;
extern ALDLIB_EXPORT CFixedString<14> csStateSummary;
extern ALDLIB_EXPORT CFixedString<7> csStatus;
extern ALDLIB_EXPORT CFixedString<9> csStdTheOwner;
extern ALDLIB_EXPORT CFixedString<8> csSummary;
extern ALDLIB_EXPORT CFixedString<11> csTaxAmount;
extern ALDLIB_EXPORT CFixedString<14> csTaxID;
extern ALDLIB_EXPORT CFixedString<8> csTaxable;
extern ALDLIB_EXPORT CFixedString<7> csTermsColon;
extern ALDLIB_EXPORT CFixedString<9> csTheOwner;
extern ALDLIB_EXPORT CFixedString<6> csTotal;
extern ALDLIB_EXPORT CFixedString<15> csUnknownReport;
extern ALDLIB_EXPORT CFixedString<7> csVendor;
extern ALDLIB_EXPORT CFixedString<12> csVendorName;
extern ALDLIB_EXPORT CFixedString<5> csVoid;
extern ALDLIB_EXPORT CFixedString<6> csWeeks;
extern ALDLIB_EXPORT CFixedString<9> csWithheld;
extern ALDLIB_EXPORT CFixedString<5> csZeroDollars;
extern ALDLIB_EXPORT CFixedString<9> csZipCode;

}  // namespace ald
