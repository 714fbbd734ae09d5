#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "aldlib/platform/Presenter.h"
#include "aldlib/platform/headless/HeadlessDesktop.h"

namespace ald {

struct HeadlessParts;

class HeadlessPresenter : public Presenter {
 public:
  explicit HeadlessPresenter(HeadlessParts& parts) : m_parts(parts) {}

  CString ApplicationName() override { return m_sApplication; }
  int PlainBox(WindowHandle hOwner, const CString& sText, const CString& sCaption,
               std::uint32_t nFlags) override;
  int FrameworkBox(const CString& sText, std::uint32_t nFlags, std::int32_t nHelpTopic) override;
  int HelpBox(WindowHandle hOwner, const CString& sText, const CString& sCaption,
              std::uint32_t nFlags, std::int32_t nHelpTopic,
              const std::function<void(std::int32_t)>& help) override;
  void DisableModeless() override;
  void EnableModeless() override;
  WindowHandle SafeOwner(WindowHandle& hDisabled) override;
  std::intptr_t RunDialog(WindowHandle hOwner, ModuleHandle hModule, const DialogTemplate& dialog,
                          DialogProcedure procedure, std::intptr_t nInit) override;
  bool EndDialog(WindowHandle hDialog, std::intptr_t nResult) override;

  // The box or dialog in front that waits for an answer; 0 if none does.
  WindowHandle Modal() const;
  bool IsModal(WindowHandle hWindow) const;

  CString m_sApplication;
  std::vector<ShownBox> m_boxes;
  std::deque<int> m_answers;
  std::function<bool(WindowHandle)> m_user;

 private:
  struct Running {
    WindowHandle hDialog{};
    int nStuckAnswer = kButtonCancel;  // the button for when nothing can happen any more
    bool bBox = false;
    bool bEnded = false;
    std::intptr_t nResult = 0;
  };

  int ShowBox(ShownBox box, const std::function<void(std::int32_t)>& help);
  std::intptr_t Run(const Running& begun, WindowHandle hOwner, ModuleHandle hModule,
                    const DialogTemplate& dialog, DialogProcedure procedure, std::intptr_t nInit);
  Size TextUnits(const CString& sText);
  void CenterOverOwner(WindowHandle hBox);
  WindowHandle Frame();
  void Serve(std::size_t nRun);
  void GiveUp(std::size_t nRun);
  bool AskUser(WindowHandle hDialog);

  HeadlessParts& m_parts;
  std::vector<Running> m_running;  // the innermost last
  std::vector<WindowHandle> m_disabledModeless;
  int m_nModelessDisabled = 0;
};

}  // namespace ald
