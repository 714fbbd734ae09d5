#pragma once

#include <utility>
#include <vector>

#include "aldlib/platform/Clock.h"
#include "aldlib/platform/Help.h"
#include "aldlib/platform/headless/HeadlessDesktop.h"
#include "aldlib/platform/headless/internal/DesktopView.h"
#include "aldlib/platform/headless/internal/HeadlessCanvas.h"
#include "aldlib/platform/headless/internal/HeadlessControls.h"
#include "aldlib/platform/headless/internal/HeadlessMenus.h"
#include "aldlib/platform/headless/internal/HeadlessPresenter.h"
#include "aldlib/platform/headless/internal/HeadlessQueue.h"
#include "aldlib/platform/headless/internal/HeadlessWindows.h"

namespace ald {

// Writes down what it is to open.
class HeadlessHelp : public Help {
 public:
  explicit HeadlessHelp(const bool& bRecord) : m_bRecord(bRecord) {}

  bool OpenTopic(WindowHandle hOwner, const CString& sFile, std::uint32_t nTopic) override {
    if (m_bRecord) m_opened.push_back({hOwner, sFile, nTopic});
    return m_bHasViewer;
  }

  std::vector<OpenedTopic> m_opened;
  bool m_bHasViewer = true;

 private:
  const bool& m_bRecord;
};

// The backends of one desktop. Each of them reaches the others through this.
struct HeadlessParts {
  explicit HeadlessParts(Clock& clockIn) : clock(clockIn) {}

  Clock& clock;
  DesktopView* pView = nullptr;
  bool bRecord = true;  // whether the lists of what came out grow
  HeadlessCanvas canvas{*this};
  HeadlessMenus menus{*this};
  HeadlessQueue queue{*this};
  HeadlessWindows windows{*this};
  HeadlessControls controls{*this};
  HeadlessPresenter presenter{*this};
  HeadlessHelp help{bRecord};

  Size Screen() { return pView != nullptr ? pView->Screen() : kHeadlessScreen; }
  void Changed(WindowHandle hWindow) {
    if (pView != nullptr) pView->Changed(hWindow);
  }
};

}  // namespace ald
