#include "aldlib/frame/LibraryStrings.h"

#include <algorithm>
#include <iterator>

namespace ald {
namespace {

struct LibraryString {
  std::uint16_t nNumber;
  const char* szText;
};

// In ascending order of the numbers.
constexpr LibraryString kStrings[] = {
    // The months, with a heading, and the days of the week.
    {20200, "Months"},
    {20201, "January"},
    {20202, "February"},
    {20203, "March"},
    {20204, "April"},
    {20205, "May"},
    {20206, "June"},
    {20207, "July"},
    {20208, "August"},
    {20209, "September"},
    {20210, "October"},
    {20211, "November"},
    {20212, "December"},
    {20220, "Sunday"},
    {20221, "Monday"},
    {20222, "Tuesday"},
    {20223, "Wednesday"},
    {20224, "Thursday"},
    {20225, "Friday"},
    {20226, "Saturday"},
    // The memory store.
    {20300, "@Call Alderfell Technical Support."},
    {20301, "@Not enough Memory to run."},
    {20400, "@Program Bug.  Attempt to delete memory block without a create."},
    {20401, "@Program Bug.  Attempt to create duplicate memory block."},
    {20402, "@Program Bug.  Cannot unlock handle."},
    // The words of amounts on cheques. 20620 heads the tens and is never shown; the last is ours.
    {20600, "Zero"},
    {20601, "One"},
    {20602, "Two"},
    {20603, "Three"},
    {20604, "Four"},
    {20605, "Five"},
    {20606, "Six"},
    {20607, "Seven"},
    {20608, "Eight"},
    {20609, "Nine"},
    {20610, "Ten"},
    {20611, "Eleven"},
    {20612, "Twelve"},
    {20613, "Thirteen"},
    {20614, "Fourteen"},
    {20615, "Fifteen"},
    {20616, "Sixteen"},
    {20617, "Seventeen"},
    {20618, "Eighteen"},
    {20619, "Nineteen"},
    {20620, "Tens"},
    {20621, "Ten"},
    {20622, "Twenty"},
    {20623, "Thirty"},
    {20624, "Forty"},
    {20625, "Fifty"},
    {20626, "Sixty"},
    {20627, "Seventy"},
    {20628, "Eighty"},
    {20629, "Ninety"},
    {20630, "and"},
    {20631, "Dollars"},
    {20632, "Cents"},
    {20633, "Hundred"},
    {20634, "Thousand"},
    {20635, "Million"},
    {20636, "Billion"},
    {20637, "/100"},
    {20638, "Void"},
    // The key names of the preference groups. A stored format, as are the names below.
    {33401, "Options"},
    {33402, "Password"},
    {33403, "Ticket"},
    {33404, "Open History"},
    {33405, "One Time Messages"},
    {33406, "Positions"},
    {33407, "Tips"},
    {33408, "Email Forms Tab"},
    {33409, "Sorting"},
    {33410, "OFXInterface"},
    {33411, "OFXBankFIURL"},
    // The value names of the preferences.
    {33505, "defaulttab"},
    {33506, "empvendsel"},
    {33507, "timedduration"},
    {33508, "defaultuser"},
    {33509, "lasttip"},
    {33510, "tipflag"},
    {33511, "allowlargeclip"},
    {33512, "allowstatustextedit"},
    {33513, "autodataentry"},
    {33514, "autodropdownlists"},
    {33515, "autorecalcbalance"},
    {33516, "calendarupatstart"},
    {33517, "copypreviewreportstofile"},
    {33518, "disablenewcompanysetupsound"},
    {33519, "enablefiletodebug"},
    {33520, "hideapaccts"},
    {33521, "hidearaccts"},
    {33522, "hidepraccts"},
    {33523, "navaid"},
    {33524, "noitemlistqtyonhand"},
    {33525, "noreporttotalpages"},
    {33526, "onelinelistedit"},
    {33527, "reportdateshown"},
    {33528, "showactiverecordsonly"},
    {33529, "showhiddenviews"},
    {33530, "showmasterviews"},
    {33531, "showstartup"},
    {33532, "tipsontop"},
    {33535, "displayhglamsg"},
    {33536, "editpredefinedfinstmts"},
    {33537, "expitemdesc"},
    {33538, "inidesc"},
    {33539, "ininame"},
    {33540, "lastcompanyopen"},
    {33541, "lastcompanyopenshort"},
    {33542, "lastexcelexistingworkbook"},
    {33543, "mailmergewizard"},
    {33544, "mainwindowsize"},
    {33546, "potemplate"},
    {33547, "pritemplate"},
    {33548, "qtemplate"},
    {33549, "serviceinvoicebuttonstate"},
    {33550, "sitemplate"},
    {33551, "sotemplate"},
    {33553, "timeitemdesc"},
    {33554, "enableddetodebug"},
    {33555, "alwcolorscheme"},
    {33556, "precision"},
    {33557, "prtcalcsheet"},
    {33558, "tal"},
    {33559, "alderfxaobsolete"},
    {33560, "consreimbexp"},
    {33561, "constimetick"},
    {33562, "consexptick"},
    {33563, "sortreimbexp"},
    {33564, "sorttimetick"},
    {33565, "sortexptick"},
    {33566, "autodecimal"},
    {33567, "classpath"},
    {33568, "logconfig"},
    {33569, "initialheap"},
    {33570, "maxheap"},
    {33571, "maxstack"},
    {33572, "ofximportbrowsepath"},
    {33573, "urlpath"},
    {33575, "ptemplate"},
    {33576, "dontautorunDM"},
    {33577, "DisplayObsoletePPS"},
};

static_assert(std::adjacent_find(std::begin(kStrings), std::end(kStrings),
                                 [](const LibraryString& left, const LibraryString& right) {
                                   return left.nNumber >= right.nNumber;
                                 }) == std::end(kStrings));

}  // namespace

const char* FindLibraryString(std::uint32_t nNumber) {
  const auto* const pFound = std::lower_bound(
      std::begin(kStrings), std::end(kStrings), nNumber,
      [](const LibraryString& string, std::uint32_t nSought) { return string.nNumber < nSought; });
  return pFound != std::end(kStrings) && pFound->nNumber == nNumber ? pFound->szText : nullptr;
}

StringTable LibraryStringTable() {
  StringTable table;
  for (const LibraryString& string : kStrings) table.Add(string.nNumber, string.szText);
  return table;
}

}  // namespace ald
