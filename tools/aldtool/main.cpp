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
