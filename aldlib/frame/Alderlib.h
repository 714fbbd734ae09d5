#pragma once

#include <cstddef>
#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

namespace ald {

// The library's frame: the record of library-wide state that it shares with the application, the
// registry through which the application's modules find one another, and the list of modules that
// are searched for numbered texts. There is one of each in a process, for its user-interface
// thread.

#pragma pack(push, 1)

// A module that is searched for numbered texts.
struct InstanceSearchEntry {
  ModuleHandle hModule;
  std::int16_t nSearchOrder;  // the lowest comes first; the library itself has 9
};

// Read and written by the application in place, so order and width of the fields are part of the
// interface. Everything is zero after load.
struct AlderLibDataType {
  WindowHandle hMainWindow;             // the application's main frame window, once it has one
  WindowHandle hMDIClient;              // that window's multiple-document client
  unsigned char bWeAreActive;           // the application is the active one on the desktop
  std::uint32_t nReservedWord;          // the application's own
  WindowHandle hTopWindow;              // the modeless window that takes the focus back
  unsigned char bInMessage;             // a message box is on the screen
  InstanceSearchEntry* pInstanceTable;  // in search order; null counts as empty whatever nInstances
  std::uint16_t nInstances;             // modules registered, with those there was no memory for
  ModuleHandle hLastStringModule;       // where the last text was found: searched first
  char szDataPath[260];                 // the data folder, ending in a backslash once it is read
};

#pragma pack(pop)

static_assert(sizeof(InstanceSearchEntry) == 6 && offsetof(InstanceSearchEntry, nSearchOrder) == 4);
static_assert(offsetof(AlderLibDataType, hMainWindow) == 0);
static_assert(offsetof(AlderLibDataType, hMDIClient) == 4);
static_assert(offsetof(AlderLibDataType, bWeAreActive) == 8);
static_assert(offsetof(AlderLibDataType, nReservedWord) == 9);
static_assert(offsetof(AlderLibDataType, hTopWindow) == 13);
static_assert(offsetof(AlderLibDataType, bInMessage) == 17);
static_assert(offsetof(AlderLibDataType, pInstanceTable) == 18);
static_assert(offsetof(AlderLibDataType, nInstances) == 18 + sizeof(void*));
static_assert(offsetof(AlderLibDataType, hLastStringModule) == 20 + sizeof(void*));
static_assert(offsetof(AlderLibDataType, szDataPath) == 24 + sizeof(void*));
static_assert(sizeof(AlderLibDataType) == 284 + sizeof(void*));

// Points to the one record. The library never changes the pointer.
ALDLIB_EXPORT extern AlderLibDataType* MyAlderLibDataPtr;

// The cooperating modules: 0 to 14. Those without a name here belong to the application.
enum class ModuleId : std::int32_t {
  AlderLib = 3,        // this library; its data is the record above
  ProgressWindow = 5,  // provides the progress window of file copying
};
constexpr std::int32_t kModuleIdCount = 15;

// Links the library into the application framework's chain of resource and class modules. A
// framework without such a chain does nothing.
ALDLIB_EXPORT void InitAlderLibDLL();

// Returns the library's own module handle, as the load was told it.
ALDLIB_EXPORT ModuleHandle AlderLibHandle();

// Enters a module and its data under its number. Always returns 1. A second call for the same
// number replaces what the first one stored; a number outside 0 to 14 stores nothing.
ALDLIB_EXPORT std::int32_t RequirePerInstanceData(ModuleHandle hModule, ModuleId eModule,
                                                  void* pData);

// Returns the data of the module; null if none was entered.
ALDLIB_EXPORT void* GetPerInstanceData(ModuleId eModule);

// Returns the handle of the module; 0 if none was entered.
ALDLIB_EXPORT ModuleHandle GetLibraryHandle(ModuleId eModule);

// Adds a module to those that are searched for numbered texts. The list stands in ascending search
// order; modules of equal order stand as it happens. With no memory the list is lost, and
// nInstances counts on all the same; a later call begins a new one.
ALDLIB_EXPORT void RegisterInstanceForStringSearch(ModuleHandle hModule, std::int16_t nSearchOrder);

// Note in the record that the application has become, or is no longer, the active one.
ALDLIB_EXPORT void WeBecomeActive();
ALDLIB_EXPORT void WeBecomeInactive();

}  // namespace ald
