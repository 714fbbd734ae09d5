#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "aldlib/platform/qt/internal/QtText.h"
#include "aldlib/platform/qt/internal/QtView.h"

namespace ald {
namespace {

constexpr int kLongestText = 1024;

}  // namespace

// All that can be seen of a menu, to tell whether it looks otherwise now.
CString QtView::Describe(MenuHandle hMenu) {
  MenuBar& menus = m_ports.menus;
  CString sAll;
  for (int i = 0; i < menus.Count(hMenu); ++i) {
    const auto nItem = static_cast<std::uint32_t>(i);
    sAll += menus.Text(hMenu, nItem, kLongestText, kMenuByPosition) + '\0';
    sAll += std::to_string(menus.State(hMenu, nItem, kMenuByPosition)) + ' ';
    sAll += std::to_string(menus.Id(hMenu, i)) + '\0';
    if (menus.Submenu(hMenu, i) != MenuHandle{})
      sAll += '(' + Describe(menus.Submenu(hMenu, i)) + ')';
  }
  return sAll;
}

void QtView::UpdateMenu(WindowHandle hWindow, Shown& shown) {
  const HeadlessWindow* const pWindow = m_input.Find(hWindow);
  if (pWindow == nullptr || pWindow->IsChild() || shown.pOuter.isNull()) return;
  const MenuHandle hMenu = m_ports.menus.Of(hWindow);
  const CString sMenu = hMenu != MenuHandle{} ? "+" + Describe(hMenu) : CString();
  if (sMenu == shown.sMenu) return;
  shown.sMenu = sMenu;
  if (hMenu == MenuHandle{}) {
    delete shown.pMenu;
  } else {
    if (shown.pMenu.isNull()) {
      shown.pMenu = new QMenuBar(shown.pOuter);
      shown.pMenu->setNativeMenuBar(false);
    }
    for (QMenu* const pMenu : shown.pMenu->findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) {
      delete pMenu;
    }
    shown.pMenu->clear();
    Fill(hWindow, hMenu, nullptr, shown.pMenu);
    shown.pMenu->show();
  }
  Changed(hWindow);
  UpdateWindow(hWindow);  // the bar has moved the inside
}

// Fills a menu or a bar.
void QtView::Fill(WindowHandle hWindow, MenuHandle hMenu, QMenu* pMenu, QMenuBar* pBar) {
  MenuBar& menus = m_ports.menus;
  QWidget* const pTarget = pBar != nullptr ? static_cast<QWidget*>(pBar) : pMenu;
  for (int i = 0; i < menus.Count(hMenu); ++i) {
    const auto nItem = static_cast<std::uint32_t>(i);
    const QString text = QtTextOf(menus.Text(hMenu, nItem, kLongestText, kMenuByPosition));
    const std::uint32_t nState = menus.State(hMenu, nItem, kMenuByPosition);
    const MenuHandle hSubmenu = menus.Submenu(hMenu, i);
    QAction* pAction = nullptr;
    if (hSubmenu != MenuHandle{}) {
      auto* const pSubmenu = new QMenu(text, pTarget);
      Fill(hWindow, hSubmenu, pSubmenu, nullptr);
      pAction = pSubmenu->menuAction();
    } else {
      pAction = new QAction(text, pTarget);
      pAction->setSeparator((nState & kMenuSeparator) != 0);
      const std::uint32_t nCommand = menus.Id(hMenu, i);
      // The menu itself changes no item: the host does.
      const bool bChecked = (nState & kMenuChecked) != 0;
      pAction->setCheckable(bChecked);
      pAction->setChecked(bChecked);
      connect(pAction, &QAction::triggered, this, [this, hWindow, nCommand, pAction, bChecked] {
        pAction->setChecked(bChecked);
        m_input.Command(hWindow, nCommand);
      });
    }
    pAction->setEnabled((nState & (kMenuGrayed | kMenuDisabled)) == 0);
    pTarget->addAction(pAction);
  }
}

}  // namespace ald
