#include "host/WindowReport.h"

#include "aldlib/platform/Characters.h"
#include "aldlib/platform/Platform.h"

namespace alder_checks {

namespace {

std::string Quoted(const ald::CString& sText) {
  std::string sQuoted = "\"";
  for (const char c : ald::Utf8FromCodePage1252(sText)) {
    if (c == '\n') {
      sQuoted += "\\n";
    } else if (c != '\r') {
      if (c == '"' || c == '\\') sQuoted += '\\';
      sQuoted += c;
    }
  }
  return sQuoted + '"';
}

std::string PlaceText(const ald::Rect& place) {
  return "[" + std::to_string(place.left) + "," + std::to_string(place.top) + "," +
         std::to_string(place.right) + "," + std::to_string(place.bottom) + "]";
}

void Report(ald::WindowHandle hWindow, const std::string& sIndent, std::string& sReport) {
  const ald::Desktop& desktop = ald::CurrentPlatform().desktop;
  ald::Windows& windows = desktop.windows;
  if (!windows.IsVisible(hWindow)) return;
  sReport += sIndent + windows.ClassName(hWindow) + " " +
             std::to_string(windows.ControlId(hWindow)) + " " +
             PlaceText(windows.WindowRect(hWindow)) + " " + Quoted(windows.Text(hWindow));
  if (windows.Active() == hWindow) sReport += " active";
  if (windows.Focus() == hWindow) sReport += " focus";
  if (!windows.IsEnabled(hWindow)) sReport += " disabled";
  sReport += '\n';
  for (int n = 0; n < desktop.controls.Count(hWindow); ++n) {
    sReport += sIndent + "  item " + Quoted(desktop.controls.ItemText(hWindow, n)) +
               (desktop.controls.Selection(hWindow) == n ? " chosen\n" : "\n");
  }
  for (const ald::WindowHandle hChild : windows.Children(hWindow)) {
    Report(hChild, sIndent + "  ", sReport);
  }
}

}  // namespace

std::string ReportWindows() {
  std::string sReport;
  for (const ald::WindowHandle hWindow : ald::CurrentPlatform().desktop.windows.TopLevel()) {
    Report(hWindow, "", sReport);
  }
  return sReport;
}

}  // namespace alder_checks
