#include <CLI/CLI.hpp>
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "tools/aldtool/Commands.h"

namespace {

// What the commands below "prefs" are given.
struct PrefsArguments {
  std::string sGroup;
  std::string sName;
  std::string sValue;
  std::string sType;
  bool bMachine = false;
};

void AddPrefs(CLI::App& app, PrefsArguments& given, int& nStatus) {
  CLI::App* const pPrefs = app.add_subcommand(
      "prefs", "Look at and change the preferences that the application has stored.");
  pPrefs->require_subcommand(1);
  const auto add = [&](const char* szName, const char* szHelp) {
    CLI::App* const pCommand = pPrefs->add_subcommand(szName, szHelp);
    pCommand->add_flag("--machine", given.bMachine,
                       "The defaults of all users, not the user's own");
    return pCommand;
  };
  const auto addNames = [&](CLI::App* pCommand, bool bNameRequired) {
    pCommand->add_option("GROUP", given.sGroup, "Key or number, such as Options")->required();
    pCommand->add_option("NAME", given.sName, "Name or number, such as autodecimal")
        ->required(bNameRequired);
  };

  add("list", "List what is set for this product.")->callback([&] {
    nStatus = aldtool::RunPrefsList(given.bMachine);
  });
  add("export", "Write the whole store, other products and versions included.")->callback([&] {
    nStatus = aldtool::RunPrefsExport(given.bMachine);
  });
  CLI::App* const pGet = add("get", "Print one value.");
  addNames(pGet, true);
  pGet->callback(
      [&] { nStatus = aldtool::RunPrefsGet(given.sGroup, given.sName, given.bMachine); });
  CLI::App* const pSet = add("set", "Set one value.");
  addNames(pSet, true);
  pSet->add_option("VALUE", given.sValue, "The value; put -- before one that begins with -")
      ->required();
  pSet->add_option("--type", given.sType, "Without it: as it is in the store, or as it looks")
      ->check(CLI::IsMember({"text", "number", "yesno"}));
  pSet->callback([&] {
    nStatus =
        aldtool::RunPrefsSet(given.sGroup, given.sName, given.sValue, given.sType, given.bMachine);
  });
  CLI::App* const pRemove = add("remove", "Remove one value, or a group with all that is in it.");
  addNames(pRemove, false);
  pRemove->callback(
      [&] { nStatus = aldtool::RunPrefsRemove(given.sGroup, given.sName, given.bMachine); });
}

// What the commands below "file" are given.
struct FileArguments {
  std::string sPath;
  std::string sTo;
  std::int32_t nStart = 0;
  std::int32_t nLength = 1;
};

void AddFile(CLI::App& app, FileArguments& given, int& nStatus) {
  CLI::App* const pFile =
      app.add_subcommand("file", "Read, copy and lock files as the library does.");
  pFile->require_subcommand(1);
  const auto add = [&](const char* szName, const char* szHelp) {
    CLI::App* const pCommand = pFile->add_subcommand(szName, szHelp);
    pCommand->add_option("FILE", given.sPath, "Such as 'C:\\DATA\\NOTES.TXT', or a native path")
        ->required();
    return pCommand;
  };
  add("cat", "Print a text, up to Ctrl-Z if there is one.")->callback([&] {
    nStatus = aldtool::RunFileCat(given.sPath);
  });
  add("lines", "Print a text's lines with their numbers and lengths.")->callback([&] {
    nStatus = aldtool::RunFileLines(given.sPath);
  });
  CLI::App* const pCopy = add("copy", "Copy a file over another one.");
  pCopy->add_option("TO", given.sTo, "The copy")->required();
  pCopy->callback([&] { nStatus = aldtool::RunFileCopy(given.sPath, given.sTo); });
  CLI::App* const pLock = add(
      "lock", "Lock a range of bytes until the input ends; while another has it, try ten times.");
  pLock->add_option("START", given.nStart, "The first byte, counted from 0")->required();
  pLock->add_option("LENGTH", given.nLength, "How many bytes")->required();
  pLock->callback(
      [&] { nStatus = aldtool::RunFileLock(given.sPath, given.nStart, given.nLength); });
}

}  // namespace

// aldtool shows the library at work on real input.
int main(int nArguments, char** pszArguments) {
  CLI::App app("Exact amounts, stored settings and the files of a company at the command line.",
               "aldtool");
  app.require_subcommand(1);

  std::string sPath;
  CLI::App* pChecks = app.add_subcommand(
      "checks",
      "Read a list of cheques: print each amount, its share and the running total, and\n"
      "below them the cheque: the amount in words and its field.\n"
      "A line holds payee; amount; split count. '#' starts a comment line.\n"
      "Ends with 0 if every line was good, 1 if some were not, 2 if the file is of no use.");
  pChecks->add_option("FILE", sPath, "The list, such as examples/checks/march.txt")->required();

  std::string sExpression;
  CLI::App* pCalc = app.add_subcommand(
      "calc",
      "Evaluate an expression of + - * / and parentheses, exactly to nine decimals.\n"
      "Prints the value and the status of the last operation. Division by zero gives 0.");
  pCalc->add_option("EXPRESSION", sExpression, "Such as '12.50 * 3 / 7'")->required();

  std::string sTyped;
  CLI::App* pAmount = app.add_subcommand(
      "amount", "Show how a typed amount is read, and every way in which it is written.");
  pAmount->add_option("TEXT", sTyped, "Such as '1,234.50' or '(12.50)'")->required();
  CLI::App* pWords = app.add_subcommand(
      "words", "Write an amount in words, as it stands on a cheque of 80 characters.");
  pWords->add_option("AMOUNT", sTyped, "Such as 1,234.50")->required();

  int nStatus = aldtool::kGood;
  app.add_subcommand("where", "Print where the settings lie.")->callback([&] {
    nStatus = aldtool::RunWhere();
  });
  CLI::App* pCompany = app.add_subcommand(
      "company",
      "List which data files of a company a folder holds: size, day of the last change, and\n"
      "whether a program has them open. Ends with 1 if there are none, 2 if there is no such "
      "folder.");
  pCompany->add_option("DIR", sPath, "Native, or such as 'C:\\BOOKS'")->required();
  pCompany->callback([&] { nStatus = aldtool::RunCompany(sPath); });
  PrefsArguments given;
  AddPrefs(app, given, nStatus);
  FileArguments file;
  AddFile(app, file, nStatus);

  // The parser would take a text that starts with a minus for an option.
  std::vector<std::string> arguments(pszArguments + 1, pszArguments + nArguments);
  if (arguments.size() == 2 &&
      (arguments[0] == "calc" || arguments[0] == "amount" || arguments[0] == "words") &&
      arguments[1] != "-h" && arguments[1] != "--help") {
    arguments.insert(arguments.begin() + 1, "--");
  }
  std::reverse(arguments.begin(), arguments.end());  // as the parser wants them
  try {
    app.parse(std::move(arguments));
  } catch (const CLI::ParseError& error) {
    return app.exit(error);
  }
  if (pAmount->parsed()) return aldtool::RunAmount(sTyped);
  if (pWords->parsed()) return aldtool::RunWords(sTyped);
  if (pChecks->parsed()) return aldtool::RunChecks(sPath);
  return pCalc->parsed() ? aldtool::RunCalc(sExpression) : nStatus;
}
