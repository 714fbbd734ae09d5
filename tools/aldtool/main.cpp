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

// What the commands about messages are given.
struct MessageArguments {
  std::uint16_t nNumber = 0;
  std::vector<std::string> values;
  std::string sTexts;
  std::string sPath;
};

void AddMessages(CLI::App& app, MessageArguments& given, int& nStatus) {
  CLI::App* const pMessage =
      app.add_subcommand("message", "Show a numbered message and the box that it chooses.");
  pMessage->add_option("NUMBER", given.nNumber, "Such as 20302")->required();
  pMessage->add_option("VALUE", given.values, "What stands in its placeholders, in their order");
  pMessage->add_option("--texts", given.sTexts, "A file of texts that go before the library's");
  pMessage->callback(
      [&] { nStatus = aldtool::RunMessage(given.nNumber, given.values, given.sTexts); });
  CLI::App* const pLog = app.add_subcommand(
      "errorlog", "Print the messages of a log, the newest first.\nEnds with 1 if it is damaged.");
  pLog->add_option("FILE", given.sPath, "Such as ERRORLOG.TXT of a data folder")->required();
  pLog->callback([&] { nStatus = aldtool::RunErrorLog(given.sPath); });
  CLI::App* const pTexts =
      app.add_subcommand("texts",
                         "Check a file of numbered texts, such as a translation of the library's.\n"
                         "Ends with 1 if it has faults, and names the line of each.");
  pTexts->add_option("FILE", given.sPath, "A line holds a number, a blank and the text")
      ->required();
  pTexts->callback([&] { nStatus = aldtool::RunTexts(given.sPath); });
}

}  // namespace

// aldtool shows the library at work on real input.
int main(int nArguments, char** pszArguments) {
  CLI::App app("Exact amounts, names, stored settings and messages at the command line.",
               "aldtool");
  app.require_subcommand(1);

  std::string sPath;
  CLI::App* pChecks = app.add_subcommand(
      "checks",
      "Read a list of cheques: print each amount, its share and the running total, and\n"
      "below them the cheque: the amount in words and its field.\n"
      "A line holds payee; amount; split count. '#' starts a comment line.\n"
      "A line that is not good is also entered into the log of messages.\n"
      "Ends with 0 if every line was good, 1 if some were not, 2 if the file is of no use.");
  pChecks->add_option("FILE", sPath, "The list, such as examples/checks/march.txt")->required();

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

  int nStatus = aldtool::kGood;
  app.add_subcommand("where", "Print where the settings lie.")->callback([&] {
    nStatus = aldtool::RunWhere();
  });
  PrefsArguments given;
  AddPrefs(app, given, nStatus);
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
  if (pChecks->parsed()) return aldtool::RunChecks(sPath);
  return pCalc->parsed() ? aldtool::RunCalc(sExpression) : nStatus;
}
