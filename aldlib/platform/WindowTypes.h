#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <vector>

#include "aldlib/platform/Types.h"

// The small types that the window ports share. Measures are pixels, and y grows downward, where
// nothing else is said.
namespace ald {

enum class MenuHandle : std::uint32_t {};
enum class AcceleratorHandle : std::uint32_t {};
enum class FontHandle : std::uint32_t {};
enum class BrushHandle : std::uint32_t {};
enum class PenHandle : std::uint32_t {};
enum class IconHandle : std::uint32_t {};
enum class ContextHandle : std::uint32_t {};  // a device context: something to draw on

// A measure that was reckoned with 64 bits: the nearest one that 32 bits hold. Screens take places
// from hosts, so any number may come.
constexpr std::int32_t ToMeasure(std::int64_t n) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(n, Limits::min(), Limits::max()));
}

struct Point {
  std::int32_t x;
  std::int32_t y;
  bool operator==(const Point&) const = default;
};

struct Size {
  std::int32_t cx;
  std::int32_t cy;
  bool operator==(const Size&) const = default;
};
using tagSIZE = Size;
using CSize = Size;

// Right and bottom lie one past the last point inside.
struct Rect {
  std::int32_t left;
  std::int32_t top;
  std::int32_t right;
  std::int32_t bottom;

  // Negative where right lies before left; held within 32 bits.
  std::int32_t Width() const { return ToMeasure(std::int64_t{right} - left); }
  std::int32_t Height() const { return ToMeasure(std::int64_t{bottom} - top); }
  bool operator==(const Rect&) const = default;
};
using tagRECT = Rect;

// A point or a rectangle so much further right and down, and a rectangle by its first corner and
// its size; each measure is held within 32 bits.
constexpr Point Moved(Point at, std::int64_t dx, std::int64_t dy) {
  return {ToMeasure(at.x + dx), ToMeasure(at.y + dy)};
}
constexpr Rect Moved(const Rect& rect, std::int64_t dx, std::int64_t dy) {
  return {ToMeasure(rect.left + dx), ToMeasure(rect.top + dy), ToMeasure(rect.right + dx),
          ToMeasure(rect.bottom + dy)};
}
constexpr Rect RectAt(Point at, std::int64_t cx, std::int64_t cy) {
  return {at.x, at.y, ToMeasure(at.x + cx), ToMeasure(at.y + cy)};
}

// A colour as 0xTTBBGGRR: red lowest, and on top what kind of value it is (02 for one that is
// matched against the palette).
using Color = std::uint32_t;

// One message to a window. The word and the long mean what the message says; a long can carry an
// address of the process.
struct WindowMessage {
  WindowHandle hWindow;
  std::uint32_t nMessage;
  std::uint32_t nWord;
  std::intptr_t nLong;
};

// What answers the messages of a window: of a class, or of a single window that was given one.
using WindowProcedure =
    std::function<std::intptr_t(WindowHandle, std::uint32_t, std::uint32_t, std::intptr_t)>;

// What answers the messages of a dialog. Not 0 says that the message was handled; for
// kMessageInitDialog not 0 asks for the focus on the first control, and 0 says that the procedure
// has placed it.
using DialogProcedure =
    std::function<std::intptr_t(WindowHandle, std::uint32_t, std::uint32_t, std::intptr_t)>;

// The messages that the library itself sends, waits for or answers.
constexpr std::uint32_t kMessageDestroy = 0x0002;
constexpr std::uint32_t kMessageSetFocus = 0x0007;
constexpr std::uint32_t kMessageKillFocus = 0x0008;
constexpr std::uint32_t kMessagePaint = 0x000F;
constexpr std::uint32_t kMessageClose = 0x0010;
constexpr std::uint32_t kMessageQuit = 0x0012;
constexpr std::uint32_t kMessageSetFont = 0x0030;
constexpr std::uint32_t kMessageGetFont = 0x0031;
constexpr std::uint32_t kMessageHelp = 0x0053;
constexpr std::uint32_t kMessageSetIcon = 0x0170;  // word: the icon of a static control
constexpr std::uint32_t kMessageKeyDown = 0x0100;
constexpr std::uint32_t kMessageChar = 0x0102;
constexpr std::uint32_t kMessageInitDialog = 0x0110;
constexpr std::uint32_t kMessageCommand = 0x0111;  // word: id, and in its upper half the notice
constexpr std::uint32_t kMessageTimer = 0x0113;    // word: the timer's number
constexpr std::uint32_t kMessageSetDefaultId = 0x0401;
// The questions for colours, one a kind of control: word the context, long the control.
constexpr std::uint32_t kMessageColorEdit = 307;
constexpr std::uint32_t kMessageColorListBox = 308;
constexpr std::uint32_t kMessageColorButton = 309;
constexpr std::uint32_t kMessageColorDialog = 310;
constexpr std::uint32_t kMessageColorScrollBar = 311;
constexpr std::uint32_t kMessageColorStatic = 312;
// The private ones of the custom controls.
constexpr std::uint32_t kMessageReadDate = 0x0469;   // answers the date as its 32-bit integer
constexpr std::uint32_t kMessageWriteDate = 0x046A;  // long: the date; not 0 says it was taken
constexpr std::uint32_t kMessageAskRect = 0x0561;    // long: address of a Rect to fill, in screen
                                                     // terms; not 0 says it was filled

// The notices of kMessageCommand: what the user did to a control, or that the command is a key's.
constexpr std::uint32_t kNoticeClick = 0;
constexpr std::uint32_t kNoticeAccelerator = 1;
constexpr std::uint32_t kNoticeSelect = 1;       // of a list or combo
constexpr std::uint32_t kNoticeChange = 0x0300;  // of an edit control

// Style bits of windows and controls.
constexpr std::uint32_t kStylePopup = 0x80000000;
constexpr std::uint32_t kStyleChild = 0x40000000;
constexpr std::uint32_t kStyleVisible = 0x10000000;
constexpr std::uint32_t kStyleDisabled = 0x08000000;
constexpr std::uint32_t kStyleCaption = 0x00C00000;
constexpr std::uint32_t kStyleSystemMenu = 0x00080000;
constexpr std::uint32_t kStyleGroup = 0x00020000;
constexpr std::uint32_t kStyleTabStop = 0x00010000;
// The low four bits of a button's style say which kind it is.
constexpr std::uint32_t kButtonKindMask = 0x0F;
constexpr std::uint32_t kButtonPush = 0;
constexpr std::uint32_t kButtonDefaultPush = 1;
constexpr std::uint32_t kButtonAutoCheck = 3;
constexpr std::uint32_t kButtonGroupBox = 7;
constexpr std::uint32_t kButtonAutoRadio = 9;

// One control of a dialog, in dialog units: a quarter of the average width and an eighth of the
// height of a character of the dialog's font.
struct DialogItem {
  std::uint32_t nStyle;
  std::int16_t x;
  std::int16_t y;
  std::int16_t cx;
  std::int16_t cy;
  std::int32_t nId;
  CString sClass;
  CString sText;
};

// A dialog before it is on the screen, in dialog units.
struct DialogTemplate {
  std::uint32_t nStyle = 0;
  std::int16_t x = 0;
  std::int16_t y = 0;
  std::int16_t cx = 0;
  std::int16_t cy = 0;
  CString sTitle;
  std::uint16_t nPointSize = 8;
  CString sFace;
  std::vector<DialogItem> items;
};

}  // namespace ald
