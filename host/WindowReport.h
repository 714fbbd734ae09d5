#pragma once

#include <string>

namespace alder_checks {

// What can be seen of the program's windows, as text for a tester or a screen reader's author, in
// UTF-8: a line for each window, the one in front first, with those inside it behind it and two
// blanks further in.
//
//   DIALOG 0 [100,50,640,330] "Write Checks" active
//     ABD_Dollars 103 [200,140,323,159] "12.50" focus
//     LISTBOX 106 [114,215,296,296] ""
//       item "Rent" chosen
//
// Class, id, place on the screen and text, then what holds of "active", "focus" and "disabled". A
// line feed in a text stands as "\n".
std::string ReportWindows();

}  // namespace alder_checks
