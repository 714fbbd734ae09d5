#pragma once

#include <cstdint>
#include <functional>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

namespace ald {

// Flags of a box: buttons in the low four bits, the icon above them, then the default button and
// more.
constexpr std::uint32_t kBoxButtonsMask = 0x000F;
constexpr std::uint32_t kBoxOk = 0;
constexpr std::uint32_t kBoxOkCancel = 1;
constexpr std::uint32_t kBoxAbortRetryIgnore = 2;
constexpr std::uint32_t kBoxYesNoCancel = 3;
constexpr std::uint32_t kBoxYesNo = 4;
constexpr std::uint32_t kBoxRetryCancel = 5;
constexpr std::uint32_t kBoxIconMask = 0x00F0;
constexpr std::uint32_t kBoxStop = 0x10;
constexpr std::uint32_t kBoxQuestion = 0x20;
constexpr std::uint32_t kBoxExclamation = 0x30;
constexpr std::uint32_t kBoxInformation = 0x40;
constexpr std::uint32_t kBoxDefaultMask = 0x0F00;
constexpr std::uint32_t kBoxDefaultSecond = 0x100;
constexpr std::uint32_t kBoxDefaultThird = 0x200;
constexpr std::uint32_t kBoxSystemModal = 0x1000;
constexpr std::uint32_t kBoxHelp = 0x4000;

// The ids of a box's buttons, and so its answers.
constexpr int kButtonOk = 1;
constexpr int kButtonCancel = 2;
constexpr int kButtonAbort = 3;
constexpr int kButtonRetry = 4;
constexpr int kButtonIgnore = 5;
constexpr int kButtonYes = 6;
constexpr int kButtonNo = 7;
constexpr int kButtonHelp = 9;

// Boxes and dialogs that hold the user until they are answered. While one is up the queue is
// served, so messages come and boxes nest.
class ALDLIB_EXPORT Presenter {
 public:
  virtual ~Presenter() = default;

  // The application's name, which stands in the caption of its boxes.
  virtual CString ApplicationName() = 0;

  // The system's plain box. Returns the button pressed.
  virtual int PlainBox(WindowHandle hOwner, const CString& sText, const CString& sCaption,
                       std::uint32_t nFlags) = 0;

  // The framework's box: owner and caption are the application's, and its modeless windows are
  // disabled meanwhile. `nHelpTopic` is -1 for none. With kBoxHelp the owner is sent kMessageHelp,
  // as it is by the plain box.
  virtual int FrameworkBox(const CString& sText, std::uint32_t nFlags, std::int32_t nHelpTopic) = 0;

  // The system's box with help: with kBoxHelp it has a Help button, which runs `help` with the
  // topic and leaves the box up.
  virtual int HelpBox(WindowHandle hOwner, const CString& sText, const CString& sCaption,
                      std::uint32_t nFlags, std::int32_t nHelpTopic,
                      const std::function<void(std::int32_t)>& help) = 0;

  // The application's modeless windows, and back. The pairs nest.
  virtual void DisableModeless() = 0;
  virtual void EnableModeless() = 0;
  // The framework's choice of an owner for a box without one. Disables the top-level window that
  // this concerns and puts it into `hDisabled`; 0 there if none was.
  virtual WindowHandle SafeOwner(WindowHandle& hDisabled) = 0;

  // Builds the dialog, sends it kMessageInitDialog with `nInit` as the long, and serves the queue
  // until EndDialog. Returns that result; -1 if the dialog cannot be made, 0 if its window was
  // destroyed meanwhile. The owner, a top-level window or the one above it, is disabled meanwhile.
  virtual std::intptr_t RunDialog(WindowHandle hOwner, ModuleHandle hModule,
                                  const DialogTemplate& dialog, DialogProcedure procedure,
                                  std::intptr_t nInit) = 0;
  // Ends a dialog of RunDialog, once its handler has returned. False for another window.
  virtual bool EndDialog(WindowHandle hDialog, std::intptr_t nResult) = 0;
};

}  // namespace ald
