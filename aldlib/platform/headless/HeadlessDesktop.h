#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "aldlib/platform/Clock.h"
#include "aldlib/platform/Desktop.h"
#include "aldlib/platform/Export.h"

namespace ald {

struct HeadlessParts;

// The measures of the headless desktop, in pixels. A character of its usual font (8 points) is 7 by
// 13, and so is that of the system's font and of a dialog's base units. A window with kStyleCaption
// has a border on all sides and a caption above its inside; every other window is all inside.
constexpr Size kHeadlessScreen{1024, 768};
constexpr Size kHeadlessIcon{32, 32};
constexpr Size kHeadlessCharacter{7, 13};
constexpr std::int32_t kHeadlessBorder = 3;
constexpr std::int32_t kHeadlessCaption = 20;

// A box that was shown, in the order in which they came up.
struct ShownBox {
  enum class Kind : std::uint8_t { kPlain, kFramework, kHelp };

  WindowHandle hBox;  // its window while it is up
  Kind kind;
  WindowHandle hOwner;
  CString sText;
  CString sCaption;
  std::uint32_t nFlags;
  std::int32_t nHelpTopic;  // -1 for none
  int nAnswer;              // the button; 0 while the box is up
};

// One thing that was drawn, in the terms of its window's inside, y downward.
struct DrawnItem {
  enum class Kind : std::uint8_t { kText, kLine, kFill, kIcon };

  Kind kind = Kind::kText;
  WindowHandle hWindow{};  // 0 for the screen
  Rect place{};            // of a line: from left and top up to, not including, right and bottom
  CString sText;           // one line of it, as it is shown
  Color nColor = 0;        // of the text, the pen or the brush
  Color nBackground = 0;   // of a text
  bool bOpaque = false;
  FontHandle hFont{};
  IconHandle hIcon{};
  std::optional<Rect> clip;  // what the item was narrowed to
};

// A part of a window that is to be painted anew, because a program said so or because the window
// was moved, sized, shown or hidden with repainting.
struct Invalidation {
  WindowHandle hWindow;
  Rect part;
  bool bErase;
};

struct OpenedTopic {
  WindowHandle hOwner;
  CString sFile;
  std::uint32_t nTopic;
};

// How many things of each kind are there now. What the desktop itself keeps is not counted.
struct LiveObjects {
  std::size_t nWindows = 0;
  std::size_t nMenus = 0;
  std::size_t nAccelerators = 0;
  std::size_t nTimers = 0;
  std::size_t nContexts = 0;
  std::size_t nFonts = 0;
  std::size_t nBrushes = 0;
  std::size_t nPens = 0;
  int nMapLocks = 0;
  bool operator==(const LiveObjects&) const = default;
};

// A desktop without a screen or a user: windows, controls, menus and a queue, kept in memory. It is
// deterministic, and time passes on the clock that it is given. A server host installs it so that
// nothing waits for a person; a test plays the person and looks at what came out.
//
// It belongs to the thread that made it.
//
// Boxes and dialogs are windows here, with their buttons as controls. Each time that one of them is
// up and no message waits, it asks the user of the test: first the function of WhenWaiting, then
// the next answer of Answer. If neither does anything, a dialog waits for timers; a box does not.
// When nothing can happen any more (no user and no timer, or a hundred timers and looks of the user
// that led to nothing), a box is answered with its default button, and a dialog is sent the command
// 2, Cancel, and ends with 2 if that did not end it. So nothing ever hangs. A quit message does the
// same to all of them, one after the other, and stays in the queue.
class ALDLIB_EXPORT HeadlessDesktop {
 public:
  // The clock must outlive the desktop.
  explicit HeadlessDesktop(Clock& clock);
  HeadlessDesktop(const HeadlessDesktop&) = delete;
  HeadlessDesktop& operator=(const HeadlessDesktop&) = delete;
  ~HeadlessDesktop();

  // The ports, for a Platform. They live as long as the desktop.
  Desktop Ports();

  // What stands in the caption of the application's own boxes; empty until it is set.
  void SetApplicationName(const CString& sName);

  // --- The user

  // Has the next boxes and dialogs that wait press these buttons, one each time. An answer whose
  // button is not there, or disabled, is used up without effect.
  void Answer(int nButton);
  void Answer(std::initializer_list<int> buttons);

  // The user who is asked first: called with the box or dialog in front that waits. Returns true if
  // it did something (pressed, typed), and false to leave it to Answer. Null for none.
  void WhenWaiting(std::function<bool(WindowHandle hModal)> user);

  // The box or dialog in front that waits for its answer; 0 if none does.
  WindowHandle Modal();

  // The id of the button that Enter presses in a dialog while no other button has the focus.
  std::int32_t DefaultButton(WindowHandle hDialog) const;

  // Whether the window is of that class or of one that stands on it.
  bool IsOfClass(WindowHandle hWindow, const CString& sClass) const;

  // Presses a button of a dialog: its state changes and its parent is told. False if there is no
  // such button, or if the user could not press it: it is hidden, or something above it is
  // disabled.
  bool Press(WindowHandle hDialog, std::int32_t nId);

  // Gives the control the focus and types into it, character by character; 8 is a backspace. In an
  // edit control the text replaces what is selected there. False if the user could not reach it.
  bool Type(WindowHandle hControl, std::string_view sText);

  // Selects an item of a list or combo, and has the parent told of it.
  bool Choose(WindowHandle hList, int nItem);

  // Puts a key press for the window with the focus into the queue. False if none has the focus.
  struct HeldWith {
    bool bControl = false;
    bool bShift = false;
    bool bAlt = false;
  };
  bool Key(std::uint32_t nKey, HeldWith held);
  bool Key(std::uint32_t nKey) { return Key(nKey, {}); }

  // Holds a key down from now on, or lets it go.
  void Hold(int nKey, bool bDown);

  // Picks a command of the main window's menu, which is sent it. False if the menu has no such
  // command, or it or the window is disabled.
  bool ChooseMenu(std::uint32_t nCommand);

  // Another application comes to the front: no window of this one is active or has the focus.
  void LeaveApplication();

  // What Queue::Idle does; null for nothing, which answers false.
  void WhenIdle(std::function<bool(int nCount)> idle);

  // A window of another program, which OfThread and ProcessOf tell of.
  WindowHandle AddForeignWindow(std::uint32_t nThread, std::uint32_t nProcess,
                                const CString& sClass, const CString& sText);

  // Whether there is a viewer of help files, as there is from the start.
  void SetHelpViewer(bool bThere);

  // --- What came out

  const std::vector<ShownBox>& Boxes() const;
  // All that was drawn, or what was drawn on one window.
  const std::vector<DrawnItem>& Drawn() const;
  std::vector<DrawnItem> DrawnOn(WindowHandle hWindow) const;
  const std::vector<Invalidation>& Invalidated() const;
  const std::vector<OpenedTopic>& OpenedTopics() const;
  // The windows whose captions were turned over and whose menus were redrawn, one entry each time.
  const std::vector<WindowHandle>& Flashed() const;
  const std::vector<WindowHandle>& RedrawnMenus() const;
  // The colour of a brush; none for a handle that names none.
  std::optional<Color> BrushColor(BrushHandle hBrush) const;
  // The selected stretch of an edit control's text. False for any other window.
  bool SelectedText(WindowHandle hEdit, std::int32_t& nFirst, std::int32_t& nEnd) const;
  AcceleratorHandle FrameAccelerator() const;
  LiveObjects Live() const;

  // Empties all the lists above but for the boxes that are up.
  void ForgetOutput();

  // Whether the lists are kept, as they are from the start. A host that runs for long keeps none,
  // since they only grow; a box is then listed for as long as it is up.
  void RecordOutput(bool bRecord);

 private:
  friend class DesktopInput;

  std::unique_ptr<HeadlessParts> m_pParts;
};

}  // namespace ald
