#pragma once

#include <cstdint>

// The numbers by which preferences are known. Each is the number of a text of the library that is
// the name in the store; names and numbers are a stored format.
namespace ald {

// A key of the product's tree. What is "by name" holds values whose names are made at run time.
enum class PreferenceGroup : std::int32_t {
  Root = 33400,  // the product's own key; has no text
  Options = 33401,
  Password = 33402,
  Ticket = 33403,
  OpenHistory = 33404,      // by name
  OneTimeMessages = 33405,  // by name
  Positions = 33406,        // by name
  Tips = 33407,
  EmailFormsTab = 33408,  // by name
  Sorting = 33409,        // by name
  OFXInterface = 33410,
  OFXBankFIURL = 33411,
};

inline constexpr PreferenceGroup kFirstPreferenceGroup = PreferenceGroup::Options;
inline constexpr PreferenceGroup kLastPreferenceGroup = PreferenceGroup::OFXBankFIURL;

// A value of a group. Which preference lies in which group, and whether it is a text, a number or
// a yes or no, is settled by those who read and write it.
enum class Preference : std::int32_t {
  defaulttab = 33505,
  empvendsel = 33506,
  timedduration = 33507,
  defaultuser = 33508,
  lasttip = 33509,
  tipflag = 33510,
  allowlargeclip = 33511,
  allowstatustextedit = 33512,
  autodataentry = 33513,
  autodropdownlists = 33514,
  autorecalcbalance = 33515,
  calendarupatstart = 33516,
  copypreviewreportstofile = 33517,
  disablenewcompanysetupsound = 33518,
  enablefiletodebug = 33519,
  hideapaccts = 33520,
  hidearaccts = 33521,
  hidepraccts = 33522,
  navaid = 33523,
  noitemlistqtyonhand = 33524,
  noreporttotalpages = 33525,
  onelinelistedit = 33526,
  reportdateshown = 33527,
  showactiverecordsonly = 33528,
  showhiddenviews = 33529,
  showmasterviews = 33530,
  showstartup = 33531,
  tipsontop = 33532,
  displayhglamsg = 33535,
  editpredefinedfinstmts = 33536,
  expitemdesc = 33537,
  inidesc = 33538,
  ininame = 33539,
  lastcompanyopen = 33540,
  lastcompanyopenshort = 33541,
  lastexcelexistingworkbook = 33542,
  mailmergewizard = 33543,
  mainwindowsize = 33544,
  potemplate = 33546,
  pritemplate = 33547,
  qtemplate = 33548,
  serviceinvoicebuttonstate = 33549,
  sitemplate = 33550,
  sotemplate = 33551,
  timeitemdesc = 33553,
  enableddetodebug = 33554,
  alwcolorscheme = 33555,
  precision = 33556,
  prtcalcsheet = 33557,
  tal = 33558,
  alderfxaobsolete = 33559,
  consreimbexp = 33560,
  constimetick = 33561,
  consexptick = 33562,
  sortreimbexp = 33563,
  sorttimetick = 33564,
  sortexptick = 33565,
  autodecimal = 33566,
  classpath = 33567,
  logconfig = 33568,
  initialheap = 33569,
  maxheap = 33570,
  maxstack = 33571,
  ofximportbrowsepath = 33572,
  urlpath = 33573,
  ptemplate = 33575,
  dontautorunDM = 33576,
  DisplayObsoletePPS = 33577,
};

inline constexpr Preference kFirstPreference = Preference::defaulttab;
inline constexpr Preference kLastPreference = Preference::DisplayObsoletePPS;

enum class PreferenceOpenMode : std::int32_t { Closed = 0, Read = 1, Write = 2 };

}  // namespace ald
