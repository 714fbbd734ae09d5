#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "tools/aldtool/CommandLine.h"
#include "tools/aldtool/Commands.h"

// aldtool shows the library at work on real input.
int main(int nArguments, char** pszArguments) {
  CLI::App app("Exact amounts, dates, names, files, messages and settings at the command line.",
               "aldtool");
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
  aldtool::AddCommands(app, nStatus);

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
  return nStatus;
}
