#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "aldlib/text/WildcardSearch.h"

// The commands of aldtool, one file each. They write to standard output, complain on standard
// error, and return the exit status of the program.
namespace aldtool {

inline constexpr int kGood = 0;      // everything was read
inline constexpr int kBadLines = 1;  // the work was done, but not all of the input was good
inline constexpr int kUnusable = 2;  // nothing could be done; nothing was printed as if it could

int RunAmount(const std::string& sTyped);
int RunCalc(const std::string& sExpression);
// Prints the lines of a file in which the pattern is found, backward the last line first. Returns
// kBadLines if there is none.
int RunFind(const std::string& sPattern, const std::string& sPath,
            const ald::SearchBehavior& behavior);
int RunErrorLog(const std::string& sPath);
// Fills the placeholders with the arguments; the texts of the file, if one is named, come first.
int RunMessage(std::uint16_t nNumber, const std::vector<std::string>& arguments,
               const std::string& sTextsPath);
int RunTexts(const std::string& sPath);
int RunName(const std::string& sTyped);
// The start is that of the fiscal years, empty for January 1 of the first cheque's year.
int RunChecks(const std::string& sPath, const std::string& sStart);
// Empty: today for sFill, the region's order for sOrder, January 1 for the start of fiscal years.
int RunDate(const std::string& sTyped, const std::string& sFill, const std::string& sOrder,
            const std::string& sStart);
// A count from 2 to kMostPeriods.
inline constexpr int kMostPeriods = 1000;
int RunPeriods(int nCount, const std::string& sStart);
// Prints all processes, or who has loaded a program or library of that file name. Returns kBadLines
// if nobody has.
int RunPs(const std::string& sName);
// Lists which data files of a company are in the folder.
int RunCompany(const std::string& sFolder);

// The file layer by hand: a text's characters and its lines as the library reads them, a copy, and
// a range of bytes locked until the input ends.
int RunFileCat(const std::string& sPath);
int RunFileLines(const std::string& sPath);
int RunFileCopy(const std::string& sFrom, const std::string& sTo);
int RunFileLock(const std::string& sPath, std::int32_t nStart, std::int32_t nLength);
// Holds a single-user area of a folder while a program runs, and returns the program's status;
// kUnusable if the area was not to be had.
int RunLock(std::int32_t nArea, const std::string& sFolder, bool bShared,
            const std::vector<std::string>& command);
// Says what in a tax information file payroll would not read as it is meant; kBadLines if anything.
int RunTaxInfoCheck(const std::string& sPath);
// Prints what payroll reads of the file: all but the states, or one of them.
int RunTaxInfoShow(const std::string& sPath, const std::string& sState);
// The messages that a user can switch off: whether each is shown, and one of them, or all for an
// empty key, brought back.
int RunOneTimeList();
int RunOneTimeReset(const std::string& sKey);
int RunWhere();
int RunWords(const std::string& sTyped);

// The preferences of the user, or of the machine. A group is named by its number or key, a value by
// the number or name of its preference. Looking changes nothing; the user's first setting takes
// over those of the machine, as the application's first use does.
bool AreTherePreferences();  // of either
int RunPrefsList(bool bMachine);
int RunPrefsExport(bool bMachine);
int RunPrefsGet(const std::string& sGroup, const std::string& sName, bool bMachine);
// The type is "text", "number", "yesno", or empty: as it is in the store, or as it looks.
int RunPrefsSet(const std::string& sGroup, const std::string& sName, const std::string& sText,
                const std::string& sType, bool bMachine);
// Without a name the whole group goes.
int RunPrefsRemove(const std::string& sGroup, const std::string& sName, bool bMachine);

}  // namespace aldtool
