#include <CLI/CLI.hpp>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

#include "aldlib/Load.h"
#include "aldlib/platform/Characters.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/platform/qt/QtDesktop.h"
#include "host/Application.h"

namespace {

constexpr int kNoScreen = 2;

// Where a person's programs keep their data, when no company is named.
std::filesystem::path UsualFolder() {
  const char* const szData = std::getenv("XDG_DATA_HOME");
  if (szData != nullptr && *szData != '\0') return std::filesystem::path(szData) / "alder-checks";
  const char* const szHome = std::getenv("HOME");
  return std::filesystem::path(szHome != nullptr ? szHome : ".") / ".local/share/alder-checks";
}

int NoScreen(const char* szReason) {
  std::cerr << "alder-checks: " << szReason << "\n"
            << "Without windows, './run' shows the cheques of examples/checks on the console.\n";
  return kNoScreen;
}

}  // namespace

// alder-checks shows the library at work in windows.
int main(int nArguments, char** pszArguments) {
  if (!ald::QtDesktop::HasDisplay()) return NoScreen("there is no display to open a window on.");
  ald::QtDesktop desktop(nArguments, pszArguments);  // takes its own arguments out

  CLI::App app("Writes the cheques of a company.", "alder-checks");
  std::string sCompany = UsualFolder().string();
  std::string sReport;
  app.add_option("--company", sCompany, "the company's folder; it is made if it is not there");
  app.add_option("--report", sReport, "a file to keep a text of what the windows show in");
  CLI11_PARSE(app, nArguments, pszArguments);

  std::error_code error;
  const std::filesystem::path folder = std::filesystem::absolute(sCompany, error);
  std::filesystem::create_directories(folder, error);
  if (!std::filesystem::is_directory(folder)) {
    std::cerr << "alder-checks: '" << sCompany << "' is no folder that can be used.\n";
    return 1;
  }
  if (!desktop.IsOnScreen()) return NoScreen("no window can be shown on this display.");

  desktop.SetApplicationName("Alder Checks");
  const ald::Platform platform = ald::CurrentPlatform().WithDesktop(desktop.Ports());
  ald::MoveToPlatform(&platform);
  {
    alder_checks::Application application(ald::CodePage1252FromUtf8(folder.string() + "/"));
    if (!application.Open()) return NoScreen("the main window cannot be made.");
    if (!sReport.empty()) application.ReportTo(std::filesystem::absolute(sReport).string());
    application.Run();
  }
  ald::MoveToPlatform(nullptr);
  return 0;
}
