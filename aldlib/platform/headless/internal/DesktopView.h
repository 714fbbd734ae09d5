#pragma once

#include <cstdint>
#include <string_view>

#include "aldlib/platform/Canvas.h"
#include "aldlib/platform/Export.h"
#include "aldlib/platform/headless/HeadlessDesktop.h"
#include "aldlib/platform/headless/internal/HeadlessWindow.h"

// What a library with a real screen puts over HeadlessDesktop. The windows in memory stay the
// truth: the view shows them, and what the user does on the screen goes into their queue.
namespace ald {

struct HeadlessParts;

// The keys beside shift, control and alt that a user held with another one.
using HeldWith = HeadlessDesktop::HeldWith;

// The colours that a parent answered for a control, or a dialog for itself.
struct ControlColors {
  Color nText;
  Color nBackground;  // behind the characters
  Color nBrush;       // of the whole inside
};

class ALDLIB_EXPORT DesktopView {
 public:
  static constexpr std::uint32_t kForever = 0xFFFFFFFF;

  virtual ~DesktopView() = default;

  // Notes of what is to be shown by the next Serve, Wait or BeginPaint. They call nothing back.
  virtual void Changed(WindowHandle hWindow) = 0;
  virtual void Gone(WindowHandle hWindow) = 0;
  virtual void MenusChanged() = 0;
  virtual void Flash(WindowHandle hWindow) = 0;
  virtual void SetColors(WindowHandle hWindow, const ControlColors& colors) = 0;

  // Shows what has changed, and takes from the user what he did meanwhile.
  virtual void Serve() = 0;
  // The same, and waits for the user so long. False if he can do nothing, since no window shows and
  // the wait would be for ever.
  virtual bool Wait(std::uint32_t nMilliseconds) = 0;

  // Of a key press that came with this number: the characters that it types, and having the control
  // do by itself what the key means there.
  virtual CString TypedBy(std::intptr_t nKeyPress) = 0;
  virtual void DoKey(WindowHandle hControl, std::intptr_t nKeyPress) = 0;

  virtual Size Screen() = 0;
  virtual TextMetrics MetricsOf(const tagLOGFONTA& font) = 0;
  virtual std::int32_t WidthOf(const tagLOGFONTA& font, std::string_view sText) = 0;

  // An emptied inside to draw on.
  virtual void BeginPaint(WindowHandle hWindow) = 0;
  virtual void Draw(const DrawnItem& item, const tagLOGFONTA& font) = 0;
};

// The way back: what the user did on the screen. All of it but for places and texts, which are on
// the screen already, waits in the queue behind what was there before.
class ALDLIB_EXPORT DesktopInput {
 public:
  explicit DesktopInput(HeadlessDesktop& desktop);

  // Null for none. The view must take itself away before it dies.
  void SetView(DesktopView* pView);

  // Null for none; good until the next call of any port.
  const HeadlessWindow* Find(WindowHandle hWindow) const;
  // The width of the frame of such a window on each side.
  static Rect FrameOf(std::uint32_t nStyle);
  bool TakesInput(WindowHandle hWindow) const;
  // The font's description; of the system's font for a handle that names none.
  tagLOGFONTA FontOf(FontHandle hFont) const;

  // The key goes to the window that has the focus when it is taken. `nKeyPress` is the view's
  // number for it, not 0.
  void Key(std::uint32_t nKey, const HeldWith& held, std::intptr_t nKeyPress);
  void Click(WindowHandle hButton);
  void Choose(WindowHandle hList, int nItem);
  void Edited(WindowHandle hEdit, const CString& sText);
  void Selected(WindowHandle hEdit, std::int32_t nFirst, std::int32_t nEnd);
  void FocusAt(WindowHandle hControl);
  void Activated(WindowHandle hWindow);
  void Left();
  void Close(WindowHandle hWindow);
  void Command(WindowHandle hWindow, std::uint32_t nCommand);
  void Placed(WindowHandle hWindow, const Rect& place);

 private:
  HeadlessParts& m_parts;
};

}  // namespace ald
