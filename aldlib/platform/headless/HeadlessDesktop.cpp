#include "aldlib/platform/headless/HeadlessDesktop.h"

#include <utility>

#include "aldlib/platform/headless/internal/HeadlessParts.h"

namespace ald {

HeadlessDesktop::HeadlessDesktop(Clock& clock) : m_pParts(std::make_unique<HeadlessParts>(clock)) {}

HeadlessDesktop::~HeadlessDesktop() = default;

Desktop HeadlessDesktop::Ports() {
  return {m_pParts->queue, m_pParts->windows,   m_pParts->controls, m_pParts->canvas,
          m_pParts->menus, m_pParts->presenter, m_pParts->help};
}

void HeadlessDesktop::SetApplicationName(const CString& sName) {
  m_pParts->presenter.m_sApplication = sName;
}

void HeadlessDesktop::Answer(int nButton) {
  m_pParts->presenter.m_answers.push_back(nButton);
}

void HeadlessDesktop::Answer(std::initializer_list<int> buttons) {
  for (const int nButton : buttons) Answer(nButton);
}

void HeadlessDesktop::WhenWaiting(std::function<bool(WindowHandle)> user) {
  m_pParts->presenter.m_user = std::move(user);
}

WindowHandle HeadlessDesktop::Modal() {
  return m_pParts->presenter.Modal();
}

std::int32_t HeadlessDesktop::DefaultButton(WindowHandle hDialog) const {
  return m_pParts->windows.DefaultId(hDialog);
}

bool HeadlessDesktop::IsOfClass(WindowHandle hWindow, const CString& sClass) const {
  return m_pParts->windows.IsOfClass(hWindow, sClass);
}

bool HeadlessDesktop::Press(WindowHandle hDialog, std::int32_t nId) {
  return m_pParts->windows.Click(m_pParts->windows.Child(hDialog, nId));
}

bool HeadlessDesktop::Type(WindowHandle hControl, std::string_view sText) {
  HeadlessWindows& windows = m_pParts->windows;
  if (!windows.TakesInput(hControl)) return false;
  windows.SetFocus(hControl);
  for (const char chTyped : sText) {
    windows.Call(hControl, kMessageChar, static_cast<unsigned char>(chTyped), 1);
  }
  return true;
}

bool HeadlessDesktop::Choose(WindowHandle hList, int nItem) {
  if (!m_pParts->windows.TakesInput(hList) || !m_pParts->controls.Select(hList, nItem)) {
    return false;
  }
  m_pParts->windows.Notify(hList, kNoticeSelect);
  return true;
}

bool HeadlessDesktop::Key(std::uint32_t nKey, HeldWith with) {
  const WindowHandle hFocus = m_pParts->windows.Focus();
  if (hFocus == WindowHandle{}) return false;
  m_pParts->queue.PostKey(hFocus, nKey, KeysOf(with));
  return true;
}

void HeadlessDesktop::Hold(int nKey, bool bDown) {
  m_pParts->queue.Hold(nKey, bDown);
}

bool HeadlessDesktop::ChooseMenu(std::uint32_t nCommand) {
  return m_pParts->windows.ChooseMenu(m_pParts->windows.MainWindow(), nCommand);
}

void HeadlessDesktop::LeaveApplication() {
  m_pParts->windows.Deactivate();
}

void HeadlessDesktop::WhenIdle(std::function<bool(int)> idle) {
  m_pParts->queue.m_idle = std::move(idle);
}

WindowHandle HeadlessDesktop::AddForeignWindow(std::uint32_t nThread, std::uint32_t nProcess,
                                               const CString& sClass, const CString& sText) {
  return m_pParts->windows.AddForeign(nThread, nProcess, sClass, sText);
}

void HeadlessDesktop::SetHelpViewer(bool bThere) {
  m_pParts->help.m_bHasViewer = bThere;
}

const std::vector<ShownBox>& HeadlessDesktop::Boxes() const {
  return m_pParts->presenter.m_boxes;
}

const std::vector<DrawnItem>& HeadlessDesktop::Drawn() const {
  return m_pParts->canvas.m_drawn;
}

std::vector<DrawnItem> HeadlessDesktop::DrawnOn(WindowHandle hWindow) const {
  std::vector<DrawnItem> items;
  for (const DrawnItem& item : Drawn()) {
    if (item.hWindow == hWindow) items.push_back(item);
  }
  return items;
}

const std::vector<Invalidation>& HeadlessDesktop::Invalidated() const {
  return m_pParts->windows.m_invalidations;
}

const std::vector<OpenedTopic>& HeadlessDesktop::OpenedTopics() const {
  return m_pParts->help.m_opened;
}

const std::vector<WindowHandle>& HeadlessDesktop::Flashed() const {
  return m_pParts->windows.m_flashed;
}

const std::vector<WindowHandle>& HeadlessDesktop::RedrawnMenus() const {
  return m_pParts->menus.m_redrawn;
}

std::optional<Color> HeadlessDesktop::BrushColor(BrushHandle hBrush) const {
  return m_pParts->canvas.BrushColor(hBrush);
}

bool HeadlessDesktop::SelectedText(WindowHandle hEdit, std::int32_t& nFirst,
                                   std::int32_t& nEnd) const {
  return m_pParts->controls.SelectedText(hEdit, nFirst, nEnd);
}

AcceleratorHandle HeadlessDesktop::FrameAccelerator() const {
  return m_pParts->windows.FrameAccelerator();
}

LiveObjects HeadlessDesktop::Live() const {
  const HeadlessParts& parts = *m_pParts;
  return {.nWindows = parts.windows.Count(),
          .nMenus = parts.menus.LiveMenus(),
          .nAccelerators = parts.queue.AcceleratorTables(),
          .nTimers = parts.queue.Timers(),
          .nContexts = parts.canvas.Contexts(),
          .nFonts = parts.canvas.Fonts(),
          .nBrushes = parts.canvas.Brushes(),
          .nPens = parts.canvas.Pens(),
          .nMapLocks = parts.queue.MapLocks()};
}

void HeadlessDesktop::ForgetOutput() {
  std::erase_if(m_pParts->presenter.m_boxes, [](const ShownBox& box) { return box.nAnswer != 0; });
  m_pParts->canvas.m_drawn.clear();
  m_pParts->windows.m_invalidations.clear();
  m_pParts->windows.m_flashed.clear();
  m_pParts->menus.m_redrawn.clear();
  m_pParts->help.m_opened.clear();
}

void HeadlessDesktop::RecordOutput(bool bRecord) {
  m_pParts->bRecord = bRecord;
}

}  // namespace ald
