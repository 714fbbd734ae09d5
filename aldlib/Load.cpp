// The one file that knows every floor of the library.
#include "aldlib/Load.h"

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/config/Reread.h"
#include "aldlib/config/internal/ForgetSettings.h"
#include "aldlib/files/Directories.h"
#include "aldlib/files/internal/DirectoryState.h"
#include "aldlib/frame/Alderlib.h"
#include "aldlib/frame/LibraryState.h"
#include "aldlib/frame/LibraryStrings.h"
#include "aldlib/frame/WindowMemory.h"
#include "aldlib/messages/internal/MessageEngine.h"
#include "aldlib/payroll/internal/ForgetTaxInfo.h"
#include "aldlib/screens/Menus.h"
#include "aldlib/screens/internal/ForgetScreens.h"

namespace ald {
namespace {

constexpr std::int16_t kOwnSearchOrder = 9;

// Reads the user's regional number and date settings into the exported variables.
void ReadRegionalSettings() {
  ReReadWinIni();
}

int Load(ModuleHandle hModule) {
  CDecimal::Initialize();
  if (!CurrentPlatform().resources.AttachExtension(hModule)) return 0;
  KeepLibraryHandle(hModule);
  StartWindowMemory();
  LibraryRecord() = {};
  OpenMessageDoor();
  RequirePerInstanceData(hModule, ModuleId::AlderLib, &LibraryRecord());
  AddWindowAtoms();
  ReadRegionalSettings();
  RegisterInstanceForStringSearch(hModule, kOwnSearchOrder);
  return 1;
}

void Unload(ModuleHandle hModule) {
  CurrentPlatform().resources.ReleaseExtension(hModule);
  DeleteWindowAtoms();
  ReleaseInstanceTable();
  EndWindowMemory();
  ForgetAccelerators();
  ForgetWindows();
  ForgetHelpLevels();
  ForgetColours();
  DelMenuIDOwnerTable();
  CloseFinds();
  g_directories = {};
  ForgetTaxInfo();
  ForgetSettings();
  CloseMessageDoor();
}

// The module that stands for the library on the platform in use.
constinit ModuleHandle g_hOwnModule{};

int LoadOwnModule() {
  g_hOwnModule = RegisterStringModule(LibraryStringTable());
  return AlderLibEntry(g_hOwnModule, kProcessAttach, nullptr);
}

void UnloadOwnModule() {
  AlderLibEntry(g_hOwnModule, kProcessDetach, nullptr);
  CurrentPlatform().resources.RemoveModule(g_hOwnModule);
}

// The process taking the library in and letting it go. All state of the library is constant-
// initialised or built on first use and never destroyed, so no order of initialisers matters here.
[[gnu::constructor]] void OnProcessAttach() {
  LoadOwnModule();
}
[[gnu::destructor]] void OnProcessDetach() {
  UnloadOwnModule();
}

}  // namespace

int AlderLibEntry(ModuleHandle hModule, std::uint32_t nReason, void*) {
  switch (nReason) {
    case kProcessAttach:
      return Load(hModule);
    case kProcessDetach:
      Unload(hModule);
      return 1;
    default:
      return 1;
  }
}

int MoveToPlatform(const Platform* pPlatform) {
  UnloadOwnModule();
  InstallPlatform(pPlatform);
  return LoadOwnModule();
}

}  // namespace ald
