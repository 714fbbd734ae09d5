#pragma once

#include <cstdint>

#include "aldlib/platform/WindowTypes.h"
#include "host/AddOn.h"
#include "host/ChequeBook.h"
#include "host/WriteChecksScreen.h"

namespace alder_checks {

// The program: a main window with a menu bar, which shows the newest cheques of the company and
// opens the screens. It runs on the desktop of the platform in use, with the library loaded there.
class Application {
 public:
  // The folder ends in a backslash or a slash. It becomes the data folder, so that the log of
  // messages lies there.
  explicit Application(const ald::CString& sFolder);
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;
  ~Application();

  // Makes the main window and opens a Write Checks screen. False if the desktop makes no windows.
  bool Open();

  // Has what the windows show (WindowReport.h) written into a file whenever it has changed.
  void ReportTo(const std::string& sFile);

  // Serves the windows until the main window is closed.
  void Run();

  ald::WindowHandle MainWindow() const { return m_hMain; }

 private:
  std::intptr_t Handle(std::uint32_t nMessage, std::uint32_t nWord, std::intptr_t nLong);
  void OnCommand(std::uint16_t nCommand);
  void OpenOnce(std::uint16_t nCommand);
  void UseScheme(std::uint16_t nCommand);
  void SwitchAddOn();
  bool CloseScreens();
  void CloseCompany();
  void Paint();
  void WriteReport();

  ald::MenuHandle Menu() const;

  ald::CString m_sFolder;
  ChequeBook m_book;
  ChequeChoices m_choices;
  AddOn m_addOn;
  ald::WindowHandle m_hMain{};
  ald::AcceleratorHandle m_hKeys{};
  std::string m_sReportFile;
  std::string m_sReported;
};

}  // namespace alder_checks
