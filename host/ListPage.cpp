#include "host/ListPage.h"

#include "aldlib/messages/Messages.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/screens/WindowTable.h"
#include "host/Texts.h"

namespace alder_checks {

namespace {

const ald::Desktop& CurrentDesktop() {
  return ald::CurrentPlatform().desktop;
}

ald::DialogTemplate PageForm(const ald::CString& sTitle) {
  constexpr std::uint32_t kStop = ald::kStyleVisible | ald::kStyleTabStop;
  ald::DialogTemplate form;
  form.nStyle = ald::kStylePopup | ald::kStyleCaption | ald::kStyleSystemMenu;
  form.x = 80;
  form.y = 110;
  form.cx = 300;
  form.cy = 176;
  form.sTitle = sTitle;
  form.items = {
      {kStop, 8, 8, 284, 140, kPageLines, "LISTBOX", ""},
      {kStop | ald::kButtonDefaultPush, 190, 156, 48, 14, kPageRefresh, "BUTTON", "&Refresh"},
      {kStop, 244, 156, 48, 14, kPageClose, "BUTTON", "&Close"},
  };
  return form;
}

void Fill(ald::WindowHandle hPage, const PageLines& lines) {
  const ald::WindowHandle hList = CurrentDesktop().windows.Child(hPage, kPageLines);
  CurrentDesktop().controls.RemoveAllItems(hList);
  for (const ald::CString& sLine : lines()) CurrentDesktop().controls.AddItem(hList, sLine);
}

}  // namespace

ald::WindowHandle OpenListPage(ald::WindowHandle hOwner, const ald::CString& sTitle,
                               std::uint16_t nMenuId, PageLines lines) {
  const auto handle = [lines = std::move(lines)](ald::WindowHandle hPage, std::uint32_t nMessage,
                                                 std::uint32_t nWord,
                                                 std::intptr_t) -> std::intptr_t {
    switch (nMessage) {
      case ald::kMessageInitDialog:
        Fill(hPage, lines);
        return 1;
      case ald::kMessageCommand:
        if (nWord == kPageRefresh) Fill(hPage, lines);
        if (nWord == kPageClose) CurrentDesktop().windows.Destroy(hPage);
        return 1;
      case ald::kMessageDestroy:
        ald::RemoveWindowFromTable(hPage, true);
        return 0;
      default:
        return 0;
    }
  };
  ald::Windows& windows = CurrentDesktop().windows;
  const ald::WindowHandle hPage = windows.CreateDialog(hOwner, {}, PageForm(sTitle), handle, 0);
  if (hPage == ald::WindowHandle{}) return {};
  if (ald::AddWindowToTable(hPage, nMenuId, true) == 0) {
    windows.Destroy(hPage);
    ald::Message(0, ald::MessageByNumber(kTextNoMoreScreens));
    return {};
  }
  windows.Show(hPage, ald::kShowNormal);
  return hPage;
}

}  // namespace alder_checks
