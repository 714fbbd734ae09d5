#pragma once

#include <cstdint>
#include <string>

// The commands of aldtool, one file each. They write to standard output, complain on standard
// error, and return the exit status of the program.
namespace aldtool {

inline constexpr int kGood = 0;      // everything was read
inline constexpr int kBadLines = 1;  // the work was done, but not all of the input was good
inline constexpr int kUnusable = 2;  // nothing could be done; nothing was printed as if it could

int RunAmount(const std::string& sTyped);
int RunCalc(const std::string& sExpression);
int RunChecks(const std::string& sPath);
// Lists which data files of a company are in the folder.
int RunCompany(const std::string& sFolder);

// The file layer by hand: a text's characters and its lines as the library reads them, a copy, and
// a range of bytes locked until the input ends.
int RunFileCat(const std::string& sPath);
int RunFileLines(const std::string& sPath);
int RunFileCopy(const std::string& sFrom, const std::string& sTo);
int RunFileLock(const std::string& sPath, std::int32_t nStart, std::int32_t nLength);
int RunWhere();
int RunWords(const std::string& sTyped);

// The preferences of the user, or of the machine. A group is named by its number or key, a value by
// the number or name of its preference. Looking changes nothing; the user's first setting takes
// over those of the machine, as the application's first use does.
int RunPrefsList(bool bMachine);
int RunPrefsExport(bool bMachine);
int RunPrefsGet(const std::string& sGroup, const std::string& sName, bool bMachine);
// The type is "text", "number", "yesno", or empty: as it is in the store, or as it looks.
int RunPrefsSet(const std::string& sGroup, const std::string& sName, const std::string& sText,
                const std::string& sType, bool bMachine);
// Without a name the whole group goes.
int RunPrefsRemove(const std::string& sGroup, const std::string& sName, bool bMachine);

}  // namespace aldtool
