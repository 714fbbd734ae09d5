#include "tools/aldtool/CommandLine.h"

#include <memory>
#include <string>
#include <vector>

#include "aldlib/files/SingleUser.h"
#include "tools/aldtool/BadLines.h"
#include "tools/aldtool/Commands.h"

namespace aldtool {
namespace {

// What a command is given lives as long as its callback.
using Text = std::shared_ptr<std::string>;

Text NewText() {
  return std::make_shared<std::string>();
}

// A command with one text that must be there.
template <class Run>
void AddWithText(CLI::App& app, int& nStatus, const char* szName, const char* szHelp,
                 const char* szOption, const char* szOptionHelp, Run run) {
  CLI::App* const pCommand = app.add_subcommand(szName, szHelp);
  const Text sGiven = NewText();
  pCommand->add_option(szOption, *sGiven, szOptionHelp)->required();
  pCommand->callback([=, &nStatus] { nStatus = run(*sGiven); });
}

constexpr const char* kStartHelp = "First day of the fiscal year; without it January 1";

void AddChecks(CLI::App& app, int& nStatus) {
  CLI::App* const pChecks = app.add_subcommand(
      "checks",
      "Read a list of cheques: print each one's date, fiscal period, amount, share and the\n"
      "running total, and below them the cheque: the amount in words and its field.\n"
      "A line holds date; payee; amount; split count. '#' starts a comment line.\n"
      "What a date lacks comes from the line before.\n"
      "A line that is not good is also entered into the log of messages.\n"
      "Ends with 0 if every line was good, 1 if some were not, 2 if the file is of no use.");
  const Text sPath = NewText();
  const Text sStart = NewText();
  pChecks->add_option("FILE", *sPath, "The list, such as examples/checks/march.txt")->required();
  pChecks->add_option("--start", *sStart, kStartHelp);
  pChecks
      ->add_option_function<std::string>(
          "--log", UseLogFolder, "The folder of the log; else the application's data folder")
      ->check(CLI::ExistingDirectory);
  pChecks->callback([=, &nStatus] { nStatus = RunChecks(*sPath, *sStart); });
}

void AddAmounts(CLI::App& app, int& nStatus) {
  AddWithText(app, nStatus, "calc",
              "Evaluate an expression of + - * / and parentheses, exactly to nine decimals.\n"
              "Prints the value and the status of the last operation. Division by zero gives 0.",
              "EXPRESSION", "Such as '12.50 * 3 / 7'", &RunCalc);
  AddWithText(app, nStatus, "amount",
              "Show how a typed amount is read, and every way in which it is written.", "TEXT",
              "Such as '1,234.50' or '(12.50)'", &RunAmount);
  AddWithText(app, nStatus, "words",
              "Write an amount in words, as it stands on a cheque of 80 characters.", "AMOUNT",
              "Such as 1,234.50", &RunWords);
}

void AddName(CLI::App& app, int& nStatus) {
  AddWithText(app, nStatus, "name",
              "Show how a typed personal name is split, and how it is written from its parts.",
              "TEXT", "Such as 'Dr. John Q. Smith, Jr.'", &RunName);
}

void AddDates(CLI::App& app, int& nStatus) {
  CLI::App* const pDate = app.add_subcommand(
      "date", "Show how a typed date is read, every way in which it is written, and its period.");
  const Text sDate = NewText();
  const Text sFill = NewText();
  const Text sOrder = NewText();
  const Text sStart = NewText();
  pDate->add_option("TEXT", *sDate, "Such as 7/4/03, 0704 or 20")->required();
  pDate->add_option("--fill", *sFill, "The date to take what is missing from; without it today");
  pDate->add_option("--order", *sOrder, "Order of the fields; without it the region's")
      ->check(CLI::IsMember({"mdy", "dmy", "ymd"}));
  pDate->add_option("--start", *sStart, kStartHelp);
  pDate->callback([=, &nStatus] { nStatus = RunDate(*sDate, *sFill, *sOrder, *sStart); });

  CLI::App* const pPeriods =
      app.add_subcommand("periods", "Print the accounting periods of two fiscal years.");
  const auto nPeriods = std::make_shared<int>(0);
  const Text sFirst = NewText();
  pPeriods->add_option("COUNT", *nPeriods, "Periods of both years, such as 24 for months")
      ->required()
      ->check(CLI::Range(2, kMostPeriods));
  pPeriods->add_option("START", *sFirst, "The first day, such as 4/1/2003")->required();
  pPeriods->callback([=, &nStatus] { nStatus = RunPeriods(*nPeriods, *sFirst); });
}

void AddWhere(CLI::App& app, int& nStatus) {
  app.add_subcommand("where", "Print where the settings lie.")->callback([&nStatus] {
    nStatus = RunWhere();
  });
}

void AddLock(CLI::App& app, int& nStatus) {
  struct Given {
    std::int32_t nArea = 0;
    std::string sFolder;
    bool bShared = false;
    std::vector<std::string> command;
  };
  const auto given = std::make_shared<Given>();
  CLI::App* const pLock = app.add_subcommand(
      "lock",
      "Run a command while an area of a company's folder is locked, alone or beside others.\n"
      "Ends as the command does, or with 2 and a message if the area is not to be had.");
  pLock->add_option("AREA", given->nArea, "0 to 8")
      ->required()
      ->check(CLI::Range(0, ald::kAreaCount - 1));
  pLock->add_option("DIR", given->sFolder, "Native, or such as 'C:\\BOOKS'")->required();
  pLock->add_flag("-s,--shared", given->bShared, "Beside others who share it");
  pLock->add_option("COMMAND", given->command, "Behind --, with its arguments")->required();
  pLock->callback([=, &nStatus] {
    nStatus = RunLock(given->nArea, given->sFolder, given->bShared, given->command);
  });
}

void AddTaxInfo(CLI::App& app, int& nStatus) {
  CLI::App* const pTaxInfo =
      app.add_subcommand("taxinfo", "Check and show the tax information file of payroll.");
  pTaxInfo->require_subcommand(1);
  AddWithText(*pTaxInfo, nStatus, "check",
              "Say line, section and key of all that payroll would not read as it is meant.\n"
              "Ends with 0 if nothing is wrong, 1 if something is, 2 if the file is of no use.",
              "FILE", "Such as examples/payroll/TaxInfo.Dat", &RunTaxInfoCheck);
  CLI::App* const pShow =
      pTaxInfo->add_subcommand("show", "Print what payroll reads of the file, or of one state.");
  const Text sPath = NewText();
  const Text sState = NewText();
  pShow->add_option("FILE", *sPath, "A file named TaxInfo.Dat")->required();
  pShow->add_option("STATE", *sState, "Two letters")->check([](const std::string& sGiven) {
    return sGiven.size() == 2 ? std::string() : "a state has two letters";
  });
  pShow->callback([=, &nStatus] { nStatus = RunTaxInfoShow(*sPath, *sState); });
}

void AddPrefs(CLI::App& app, int& nStatus) {
  struct Given {
    std::string sGroup;
    std::string sName;
    std::string sValue;
    std::string sType;
    bool bMachine = false;
  };
  const auto given = std::make_shared<Given>();
  CLI::App* const pPrefs = app.add_subcommand(
      "prefs", "Look at and change the preferences that the application has stored.");
  pPrefs->require_subcommand(1);
  const auto add = [&](const char* szName, const char* szHelp) {
    CLI::App* const pCommand = pPrefs->add_subcommand(szName, szHelp);
    pCommand->add_flag("--machine", given->bMachine,
                       "The defaults of all users, not the user's own");
    return pCommand;
  };
  const auto addNames = [&](CLI::App* pCommand, bool bNameRequired) {
    pCommand->add_option("GROUP", given->sGroup, "Key or number, such as Options")->required();
    pCommand->add_option("NAME", given->sName, "Name or number, such as autodecimal")
        ->required(bNameRequired);
  };

  add("list", "List what is set for this product.")->callback([=, &nStatus] {
    nStatus = RunPrefsList(given->bMachine);
  });
  add("export", "Write the whole store, other products and versions included.")
      ->callback([=, &nStatus] { nStatus = RunPrefsExport(given->bMachine); });
  CLI::App* const pGet = add("get", "Print one value.");
  addNames(pGet, true);
  pGet->callback(
      [=, &nStatus] { nStatus = RunPrefsGet(given->sGroup, given->sName, given->bMachine); });
  CLI::App* const pSet = add("set", "Set one value.");
  addNames(pSet, true);
  pSet->add_option("VALUE", given->sValue, "The value; put -- before one that begins with -")
      ->required();
  pSet->add_option("--type", given->sType, "Without it: as it is in the store, or as it looks")
      ->check(CLI::IsMember({"text", "number", "yesno"}));
  pSet->callback([=, &nStatus] {
    nStatus =
        RunPrefsSet(given->sGroup, given->sName, given->sValue, given->sType, given->bMachine);
  });
  CLI::App* const pRemove = add("remove", "Remove one value, or a group with all that is in it.");
  addNames(pRemove, false);
  pRemove->callback(
      [=, &nStatus] { nStatus = RunPrefsRemove(given->sGroup, given->sName, given->bMachine); });
}

void AddFind(CLI::App& app, int& nStatus) {
  CLI::App* const pFind = app.add_subcommand(
      "find",
      "Find a text in the lines of a file, as the application's find dialog does.\n"
      "Ends with 0 if it was found, 1 if not, 2 if the file is of no use.");
  const Text sPattern = NewText();
  const Text sPath = NewText();
  const auto behavior = std::make_shared<ald::SearchBehavior>();
  pFind->add_option("PATTERN", *sPattern, "What to find; put -- before one that begins with -")
      ->required();
  pFind->add_option("FILE", *sPath, "A text file")->required();
  pFind->add_flag_callback(
      "-i,--ignore-case", [=] { behavior->caseSensitive = false; },
      "Capitals and small letters are equal");
  pFind->add_flag("-w,--wildcards", behavior->useWildcards,
                  "'*' is any run of characters and '?' any one");
  pFind->add_flag("--word", behavior->wholeWord, "Only what stands between blanks");
  pFind->add_flag_callback(
      "-b,--backward", [=] { behavior->forward = false; }, "From the end of the file on");
  pFind->add_flag("-c,--commas", behavior->numericCommas, "Commas do not count: 1000 finds 1,000");
  pFind->callback([=, &nStatus] { nStatus = RunFind(*sPattern, *sPath, *behavior); });
}

void AddPs(CLI::App& app, int& nStatus) {
  CLI::App* const pPs = app.add_subcommand(
      "ps",
      "List the processes and how many libraries each has loaded, or, with a name, who has loaded\n"
      "the program or library of that file name. Others' processes may not be looked at.\n"
      "Ends with 1 if the name is not loaded.");
  const Text sName = NewText();
  pPs->add_option("NAME", *sName, "A file name in any case, such as bash or libc.so.6");
  pPs->callback([=, &nStatus] { nStatus = RunPs(*sName); });
}

void AddFiles(CLI::App& app, int& nStatus) {
  AddWithText(app, nStatus, "company",
              "List which data files of a company a folder holds: size, day of the last change, "
              "and\n"
              "whether a program has them open. Ends with 1 if there are none, 2 if there is no "
              "such folder.",
              "DIR", "Native, or such as 'C:\\BOOKS'", &RunCompany);

  struct Given {
    std::string sPath;
    std::string sTo;
    std::int32_t nStart = 0;
    std::int32_t nLength = 1;
  };
  const auto given = std::make_shared<Given>();
  CLI::App* const pFile =
      app.add_subcommand("file", "Read, copy and lock files as the library does.");
  pFile->require_subcommand(1);
  const auto add = [&](const char* szName, const char* szHelp) {
    CLI::App* const pCommand = pFile->add_subcommand(szName, szHelp);
    pCommand->add_option("FILE", given->sPath, "Such as 'C:\\DATA\\NOTES.TXT', or a native path")
        ->required();
    return pCommand;
  };
  add("cat", "Print a text, up to Ctrl-Z if there is one.")->callback([=, &nStatus] {
    nStatus = RunFileCat(given->sPath);
  });
  add("lines", "Print a text's lines with their numbers and lengths.")->callback([=, &nStatus] {
    nStatus = RunFileLines(given->sPath);
  });
  CLI::App* const pCopy = add("copy", "Copy a file over another one.");
  pCopy->add_option("TO", given->sTo, "The copy")->required();
  pCopy->callback([=, &nStatus] { nStatus = RunFileCopy(given->sPath, given->sTo); });
  CLI::App* const pLock = add(
      "lock", "Lock a range of bytes until the input ends; while another has it, try ten times.");
  pLock->add_option("START", given->nStart, "The first byte, counted from 0")->required();
  pLock->add_option("LENGTH", given->nLength, "How many bytes")->required();
  pLock->callback(
      [=, &nStatus] { nStatus = RunFileLock(given->sPath, given->nStart, given->nLength); });
}

void AddMessages(CLI::App& app, int& nStatus) {
  struct Given {
    std::uint16_t nNumber = 0;
    std::vector<std::string> values;
    std::string sTexts;
  };
  const auto given = std::make_shared<Given>();
  CLI::App* const pMessage =
      app.add_subcommand("message", "Show a numbered message and the box that it chooses.");
  pMessage->add_option("NUMBER", given->nNumber, "Such as 20302")->required();
  pMessage->add_option("VALUE", given->values, "What stands in its placeholders, in their order");
  pMessage->add_option("--texts", given->sTexts, "A file of texts that go before the library's");
  pMessage->callback(
      [=, &nStatus] { nStatus = RunMessage(given->nNumber, given->values, given->sTexts); });
  AddWithText(app, nStatus, "errorlog",
              "Print the messages of a log, the newest first.\nEnds with 1 if it is damaged.",
              "FILE", "Such as ERRORLOG.TXT of a data folder", &RunErrorLog);
  AddWithText(app, nStatus, "texts",
              "Check a file of numbered texts, such as a translation of the library's.\n"
              "Ends with 1 if it has faults, and names the line of each.",
              "FILE", "A line holds a number, a blank and the text", &RunTexts);
}

void AddOneTime(CLI::App& app, int& nStatus) {
  CLI::App* const pOneTime =
      app.add_subcommand("onetime", "Look at the messages that the user has switched off.");
  pOneTime->require_subcommand(1);
  pOneTime->add_subcommand("list", "List the messages by their keys, and whether each is shown.")
      ->callback([&nStatus] { nStatus = RunOneTimeList(); });
  CLI::App* const pReset =
      pOneTime->add_subcommand("reset", "Bring one message back, or all of them.");
  const Text sKey = NewText();
  pReset->add_option("KEY", *sKey, "Such as CLOSECOMPANYMSG; without it all");
  pReset->callback([=, &nStatus] { nStatus = RunOneTimeReset(*sKey); });
}

constexpr void (*kAdd[])(CLI::App&, int&) = {
    AddChecks, AddAmounts, AddDates,    AddName,    AddWhere, AddPrefs,   AddFind,
    AddFiles,  AddLock,    AddMessages, AddOneTime, AddPs,    AddTaxInfo,
};

}  // namespace

void AddCommands(CLI::App& app, int& nStatus) {
  app.require_subcommand(1);
  for (const auto add : kAdd) add(app, nStatus);
}

}  // namespace aldtool
