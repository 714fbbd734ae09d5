#include "host/Application.h"

#include <algorithm>
#include <cstdio>
#include <fstream>

#include "aldlib/amounts/Format.h"
#include "aldlib/dates/Calendar.h"
#include "aldlib/dates/DateText.h"
#include "aldlib/frame/Alderlib.h"
#include "aldlib/messages/Messages.h"
#include "aldlib/messages/OneTimeMessages.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/screens/Accelerators.h"
#include "aldlib/screens/Colours.h"
#include "aldlib/screens/Drawing.h"
#include "aldlib/screens/MessagePump.h"
#include "aldlib/screens/Visibility.h"
#include "aldlib/screens/WindowTable.h"
#include "host/Commands.h"
#include "host/EditKinds.h"
#include "host/ListPage.h"
#include "host/MainMenu.h"
#include "host/Pages.h"
#include "host/Texts.h"
#include "host/WindowReport.h"

namespace alder_checks {

namespace {

constexpr const char* kMainClass = "AlderChecksMain";
constexpr ald::Rect kMainPlace{40, 40, 840, 640};
constexpr std::uint32_t kReportTimer = 1;
constexpr std::uint32_t kReportPeriod = 100;  // milliseconds
constexpr int kButtonSwitchedOff = -1;        // of a one-time message that is not shown

const ald::Desktop& CurrentDesktop() {
  return ald::CurrentPlatform().desktop;
}

ChequeChoices SampleChoices() {
  return {{"Alder Street Hardware", "City Power and Light", "Miller & Daughters",
           "Northern Paper Supply", "Post Office"},
          {{6100, "Rent"},
           {6200, "Power and Light"},
           {6300, "Office Supplies"},
           {6400, "Postage"},
           {6500, "Repairs"}},
          "Checking"};
}

ald::CString LineOf(const Cheque& cheque) {
  ald::CFixedString<16> sDate;
  ald::DateToMedStr(cheque.date, sDate);
  ald::CFixedString<46> sAmount;
  ald::DollarsToString(cheque.amount, sAmount, 0, ald::kMoneyMinus);
  return ald::CString(sDate.view()) + "\t" + ald::CString(cheque.sPayee.view()) + "\t" +
         ald::CString(sAmount.view());
}

}  // namespace

Application::Application(const ald::CString& sFolder)
    : m_sFolder(sFolder), m_book(sFolder), m_choices(SampleChoices()), m_addOn(m_book) {
  RegisterTexts();
  ald::CFixedStringParamRef path(ald::MyAlderLibDataPtr->szDataPath,
                                 sizeof ald::MyAlderLibDataPtr->szDataPath);
  path = sFolder.c_str();
  ald::GetCurrentDate(ald::TodaysDate);
  ald::ColorMapperInit({}, 0);
  ald::WeBecomeActive();
}

Application::~Application() {
  CurrentDesktop().windows.Destroy(m_hMain);
  CurrentDesktop().queue.DestroyAccelerators(m_hKeys);
  ald::ColorMapperDispose();
}

bool Application::Open() {
  ald::Windows& windows = CurrentDesktop().windows;
  RegisterEditKinds();
  windows.RegisterClass(kMainClass, "",
                        [this](ald::WindowHandle hWindow, std::uint32_t nMessage,
                               std::uint32_t nWord, std::intptr_t nLong) {
                          if (m_hMain == ald::WindowHandle{}) m_hMain = hWindow;
                          return Handle(nMessage, nWord, nLong);
                        });
  m_hMain = windows.Create({.sClass = kMainClass,
                            .sText = "Alder Checks",
                            .nStyle = ald::kStylePopup | ald::kStyleCaption | ald::kStyleSystemMenu,
                            .place = kMainPlace});
  if (m_hMain == ald::WindowHandle{}) return false;
  CurrentDesktop().menus.SetOf(m_hMain, CreateMainMenu());
  TickCommand(Menu(), kCommandFirstScheme, true);
  windows.SetMainWindow(m_hMain);
  ald::MyAlderLibDataPtr->hMainWindow = m_hMain;
  constexpr ald::Accelerator kKeys[] = {{'W', kCommandWriteChecks, true}, {'L', kCommandLog, true}};
  m_hKeys = CurrentDesktop().queue.CreateAccelerators(kKeys);
  ald::SetAccelerator(m_hKeys);
  // In the table, so that it hears of new cheques as the screens do.
  ald::AddWindowToTable(m_hMain, 0, false);
  SwitchAddOn();
  windows.Show(m_hMain, ald::kShowNormal);
  OnCommand(kCommandWriteChecks);
  return true;
}

void Application::ReportTo(const std::string& sFile) {
  m_sReportFile = sFile;
  CurrentDesktop().queue.SetTimer(m_hMain, kReportTimer, kReportPeriod);
}

void Application::Run() {
  while (ald::MyGetMessage() != 0) {
  }
}

std::intptr_t Application::Handle(std::uint32_t nMessage, std::uint32_t nWord,
                                  std::intptr_t nLong) {
  switch (nMessage) {
    case ald::kMessageCommand:
      OnCommand(static_cast<std::uint16_t>(nWord & 0xFFFF));
      return 0;
    case ald::kMessageClose:
      CloseCompany();
      return 0;
    case ald::kMessagePaint:
      Paint();
      return 0;
    case kMessageBookChanged:
      ald::ForceRePaint(m_hMain);
      return 0;
    case ald::kMessageTimer:
      WriteReport();
      return 0;
    case ald::kMessageDestroy:
      ald::RemoveWindowFromTable(m_hMain, false);
      ald::MyAlderLibDataPtr->hMainWindow = {};
      CurrentDesktop().queue.PostQuit(0);
      return 0;
    default:
      return CurrentDesktop().windows.DefaultProcedure(m_hMain, nMessage, nWord, nLong);
  }
}

void Application::OnCommand(std::uint16_t nCommand) {
  if (nCommand >= kCommandFirstScheme && nCommand <= kCommandLastScheme) {
    UseScheme(nCommand);
    return;
  }
  switch (nCommand) {
    case kCommandWriteChecks:
    case kCommandProcesses:
    case kCommandLog:
      OpenOnce(nCommand);
      break;
    case kCommandAnotherScreen:
      WriteChecksScreen::Open(m_hMain, m_book, m_choices, 0);
      break;
    case kCommandAddOn:
      SwitchAddOn();
      break;
    case kCommandAskAgain:
      ald::ResetAllOneTimeMessages();
      break;
    case kCommandAbout:
      ald::MessageWithString(0, ald::MessageByNumber(kTextAbout), m_sFolder.c_str());
      break;
    case kCommandExit:
      CloseCompany();
      break;
    default:
      m_addOn.OnCommand(Menu(), nCommand);
      break;
  }
}

// A screen that is open already comes to the front.
void Application::OpenOnce(std::uint16_t nCommand) {
  const ald::WindowHandle hOpen = ald::GetWindowFromMenu(nCommand, true);
  if (hOpen != ald::WindowHandle{}) {
    CurrentDesktop().windows.SetForeground(hOpen);
  } else if (nCommand == kCommandWriteChecks) {
    WriteChecksScreen::Open(m_hMain, m_book, m_choices, nCommand);
  } else if (nCommand == kCommandProcesses) {
    OpenListPage(m_hMain, "Processes", nCommand, ProcessLines);
  } else {
    OpenListPage(m_hMain, "Log of Messages", nCommand, LogLines);
  }
}

void Application::UseScheme(std::uint16_t nCommand) {
  for (std::uint16_t n = kCommandFirstScheme; n <= kCommandLastScheme; ++n) {
    TickCommand(Menu(), n, n == nCommand);
  }
  ald::ColorMapperDispose();
  ald::ColorMapperInit(m_hMain, static_cast<std::int16_t>(nCommand - kCommandFirstScheme));
  ald::Windows& windows = CurrentDesktop().windows;
  for (const ald::WindowHandle hWindow : windows.TopLevel()) {
    windows.Invalidate(hWindow, nullptr, true);
    for (const ald::WindowHandle hChild : windows.Children(hWindow)) {
      windows.Invalidate(hChild, nullptr, true);
    }
  }
}

void Application::SwitchAddOn() {
  if (m_addOn.IsLoaded()) {
    m_addOn.Unload(Menu());
  } else {
    m_addOn.Load(Menu());
  }
  TickCommand(Menu(), kCommandAddOn, m_addOn.IsLoaded());
  CurrentDesktop().menus.Redraw(m_hMain);
}

// False if one of them stays, because its user wants it to.
bool Application::CloseScreens() {
  while (ald::DataEntryManagerData.nDialogs > 0) {
    const std::size_t nLast = ald::DataEntryManagerData.nDialogs - std::size_t{1};
    const ald::WindowHandle hScreen = ald::DataEntryManagerData.dialogTable[nLast].hWindow;
    CurrentDesktop().queue.Send(hScreen, ald::kMessageClose, 0, 0);
    if (CurrentDesktop().windows.IsWindow(hScreen)) return false;
  }
  return true;
}

void Application::CloseCompany() {
  const int nAnswer = ald::ShowCloseCompanyOneTimeMessage();
  if (nAnswer != ald::kButtonOk && nAnswer != kButtonSwitchedOff) return;
  if (CloseScreens()) CurrentDesktop().windows.Destroy(m_hMain);
}

// The newest cheques, in three columns on a sheet.
void Application::Paint() {
  ald::Canvas& canvas = CurrentDesktop().canvas;
  const ald::Rect inside = CurrentDesktop().windows.ClientRect(m_hMain);
  const ald::Rect sheet{20, 20, inside.right - 20, inside.bottom - 20};
  const ald::ContextHandle hContext = canvas.BeginPaint(m_hMain);
  canvas.Fill(hContext, inside, ald::GetColorReturnBrush(0, ald::ColorMapper(6)));
  canvas.Fill(hContext, sheet, ald::GetColorReturnBrush(0, ald::ColorMapper(2)));
  ald::DrawBevelRect(hContext, sheet, 2, 0, 1);
  canvas.SetOpaque(hContext, false);
  const int nLine = std::max(canvas.Metrics(hContext).nHeight + 4, 1);
  const int aTabs[] = {140, 460};
  ald::Rect line{sheet.left + 12, sheet.top + 12, sheet.right - 12, 0};
  const auto draw = [&](const ald::CString& sText) {
    line.bottom = line.top + nLine;
    ald::DrawTabClippedText(hContext, line, sText.c_str(), -1, aTabs, 2, line.left,
                            ald::kTextSingleLine | ald::kTextNoPrefix);
    line.top += nLine;
  };
  draw("Date\tPayee\tAmount");
  const std::vector<Cheque> cheques = m_book.ReadAll();
  for (auto it = cheques.rbegin(); it != cheques.rend() && line.top + nLine < sheet.bottom; ++it) {
    draw(LineOf(*it));
  }
  canvas.EndPaint(m_hMain, hContext);
}

// Renamed into place, so that a reader never sees half of it.
void Application::WriteReport() {
  std::string sReport = ReportWindows();
  if (sReport == m_sReported) return;
  const std::string sNew = m_sReportFile + ".new";
  std::ofstream(sNew, std::ios::binary) << sReport;
  if (std::rename(sNew.c_str(), m_sReportFile.c_str()) == 0) m_sReported = std::move(sReport);
}

ald::MenuHandle Application::Menu() const {
  return CurrentDesktop().menus.Of(m_hMain);
}

}  // namespace alder_checks
