#include "aldlib/platform/Processes.h"

#include "aldlib/platform/Platform.h"

namespace ald {

std::vector<Task16> Processes::EnumerateTasks16(std::uint32_t) {
  return {};
}

bool Processes::HasToolHelp(const char*) {
  return false;
}

bool Processes::SnapshotProcesses(std::vector<tagPROCESSENTRY32>& processes) {
  processes.clear();
  return false;
}

bool Processes::SnapshotModules(std::uint32_t, std::vector<tagMODULEENTRY32>& modules) {
  modules.clear();
  return false;
}

ModuleHandle Processes::LoadResourceMeter(ResourceMeterFunction& pRead) {
  pRead = nullptr;
  return ModuleHandle{};
}

void Processes::FreeResourceMeter(ModuleHandle) {}

bool ToolHelpFunctions::Load() {
  Processes& processes = CurrentPlatform().processes;
  const struct {
    bool& bFound;
    const char* szName;
  } functions[] = {
      {CreateToolhelp32Snapshot, "CreateToolhelp32Snapshot"},
      {Module32First, "Module32First"},
      {Module32Next, "Module32Next"},
      {Process32First, "Process32First"},
      {Process32Next, "Process32Next"},
      {Thread32First, "Thread32First"},
      {Thread32Next, "Thread32Next"},
  };
  bool bAll = true;
  for (const auto& function : functions) {
    function.bFound = processes.HasToolHelp(function.szName);
    bAll = bAll && function.bFound;
  }
  return bAll;
}

}  // namespace ald
