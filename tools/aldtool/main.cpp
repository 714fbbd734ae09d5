#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "tools/aldtool/BadLines.h"
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

void AddFind(CLI::App& app, std::string& sPattern, std::string& sPath,
             ald::SearchBehavior& behavior, int& nStatus) {
  CLI::App* const pFind = app.add_subcommand(
      "find",
      "Find a text in the lines of a file, as the application's find dialog does.\n"
      "Ends with 0 if it was found, 1 if not, 2 if the file is of no use.");
  pFind->add_option("PATTERN", sPattern, "What to find; put -- before one that begins with -")
      ->required();
  pFind->add_option("FILE", sPath, "A text file")->required();
  pFind->add_flag_callback(
      "-i,--ignore-case", [&] { behavior.caseSensitive = false; },
      "Capitals and small letters are equal");
  pFind->add_flag("-w,--wildcards", behavior.useWildcards,
                  "'*' is any run of characters and '?' any one");
  pFind->add_flag("--word", behavior.wholeWord, "Only what stands between blanks");
  pFind->add_flag_callback(
      "-b,--backward", [&] { behavior.forward = false; }, "From the end of the file on");
  pFind->add_flag("-c,--commas", behavior.numericCommas, "Commas do not count: 1000 finds 1,000");
  pFind->callback([&] { nStatus = aldtool::RunFind(sPattern, sPath, behavior); });
  // What the commands below "file" are given.
  struct FileArguments {
    std::string sPath;
    std::string sTo;
    std::int32_t nStart = 0;
    std::int32_t nLength = 1;
  };

  void AddFile(CLI::App & app, FileArguments & given, int& nStatus) {
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
  // What the commands about messages are given.
  struct MessageArguments {
    std::uint16_t nNumber = 0;
    std::vector<std::string> values;
    std::string sTexts;
    std::string sPath;
  };

  void AddMessages(CLI::App & app, MessageArguments & given, int& nStatus) {
    CLI::App* const pMessage =
        app.add_subcommand("message", "Show a numbered message and the box that it chooses.");
    pMessage->add_option("NUMBER", given.nNumber, "Such as 20302")->required();
    pMessage->add_option("VALUE", given.values, "What stands in its placeholders, in their order");
    pMessage->add_option("--texts", given.sTexts, "A file of texts that go before the library's");
    pMessage->callback(
        [&] { nStatus = aldtool::RunMessage(given.nNumber, given.values, given.sTexts); });
    CLI::App* const pLog = app.add_subcommand(
        "errorlog",
        "Print the messages of a log, the newest first.\nEnds with 1 if it is damaged.");
    pLog->add_option("FILE", given.sPath, "Such as ERRORLOG.TXT of a data folder")->required();
    pLog->callback([&] { nStatus = aldtool::RunErrorLog(given.sPath); });
    CLI::App* const pTexts = app.add_subcommand(
        "texts",
        "Check a file of numbered texts, such as a translation of the library's.\n"
        "Ends with 1 if it has faults, and names the line of each.");
    pTexts->add_option("FILE", given.sPath, "A line holds a number, a blank and the text")
        ->required();
    pTexts->callback([&] { nStatus = aldtool::RunTexts(given.sPath); });
  }

}  // namespace

// aldtool shows the library at work on real input.
int main(int nArguments, char** pszArguments) {
  CLI::App app("Exact amounts, names and stored settings at the command line.", "aldtool");
  CLI::App app("Exact amounts, dates and stored settings at the command line.", "aldtool");
  CLI::App app("Exact amounts, stored settings and company files at the command line.", "aldtool");
  CLI::App app("Exact amounts, names, stored settings and messages at the command line.",
               "aldtool");
  app.require_subcommand(1);

  std::string sPath;
  std::string sStart;
  CLI::App* pChecks = app.add_subcommand(
      "checks",
      "Read a list of cheques: print each one's date, fiscal period, amount, share and the\n"
      "running total, and below them the cheque: the amount in words and its field.\n"
      "A line holds date; payee; amount; split count. '#' starts a comment line.\n"
      "What a date lacks comes from the line before.\n"
      "A line that is not good is also entered into the log of messages.\n"
      "Ends with 0 if every line was good, 1 if some were not, 2 if the file is of no use.");
  pChecks->add_option("FILE", sPath, "The list, such as examples/checks/march.txt")->required();
  const char* const szStartHelp = "First day of the fiscal year; without it January 1";
  pChecks->add_option("--start", sStart, szStartHelp);

  pChecks
      ->add_option_function<std::string>(
          "--log", aldtool::UseLogFolder,
          "The folder of the log; else the application's data folder")
      ->check(CLI::ExistingDirectory);

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

  CLI::App* pName = app.add_subcommand(
      "name", "Show how a typed personal name is split, and how it is written from its parts.");
  pName->add_option("TEXT", sTyped, "Such as 'Dr. John Q. Smith, Jr.'")->required();
  std::string sDate;
  std::string sFill;
  std::string sOrder;
  CLI::App* pDate = app.add_subcommand(
      "date", "Show how a typed date is read, every way in which it is written, and its period.");
  pDate->add_option("TEXT", sDate, "Such as 7/4/03, 0704 or 20")->required();
  pDate->add_option("--fill", sFill, "The date to take what is missing from; without it today");
  pDate->add_option("--order", sOrder, "Order of the fields; without it the region's")
      ->check(CLI::IsMember({"mdy", "dmy", "ymd"}));
  pDate->add_option("--start", sStart, szStartHelp);
  int nPeriods = 0;
  CLI::App* pPeriods =
      app.add_subcommand("periods", "Print the accounting periods of two fiscal years.");
  pPeriods->add_option("COUNT", nPeriods, "Periods of both years, such as 24 for months")
      ->required()
      ->check(CLI::Range(2, aldtool::kMostPeriods));
  pPeriods->add_option("START", sStart, "The first day, such as 4/1/2003")->required();

  int nStatus = aldtool::kGood;
  app.add_subcommand("where", "Print where the settings lie.")->callback([&] {
    nStatus = aldtool::RunWhere();
  });
  std::string sName;
  CLI::App* const pPs = app.add_subcommand(
      "ps",
      "List the processes and how many libraries each has loaded, or, with a name, who has loaded\n"
      "the program or library of that file name. Others' processes may not be looked at.\n"
      "Ends with 1 if the name is not loaded.");
  pPs->add_option("NAME", sName, "A file name in any case, such as bash or libc.so.6");
  pPs->callback([&] { nStatus = aldtool::RunPs(sName); });
  PrefsArguments given;
  AddPrefs(app, given, nStatus);
  std::string sPattern;
  ald::SearchBehavior behavior;
  AddFind(app, sPattern, sPath, behavior, nStatus);
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
  MessageArguments messages;
  AddMessages(app, messages, nStatus);

  // The parser would take a text that starts with a minus for an option.
  std::vector<std::string> arguments(pszArguments + 1, pszArguments + nArguments);
  if (arguments.size() == 2 &&
      (arguments[0] == "calc" || arguments[0] == "amount" || arguments[0] == "words" ||
       arguments[0] == "name") &&
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
  if (pName->parsed()) return aldtool::RunName(sTyped);
  if (pWords->parsed()) return aldtool::RunWords(sTyped);
  if (pChecks->parsed()) return aldtool::RunChecks(sPath, sStart);
  if (pDate->parsed()) return aldtool::RunDate(sDate, sFill, sOrder, sStart);
  if (pPeriods->parsed()) return aldtool::RunPeriods(nPeriods, sStart);
  return pCalc->parsed() ? aldtool::RunCalc(sExpression) : nStatus;
}
