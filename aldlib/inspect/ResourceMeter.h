#pragma once

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Processes.h"
#include "aldlib/platform/Types.h"

namespace ald {

// How much of the system's resources is free, in percent, by an optional library of the system. On
// a machine without it every reading is 90, which callers take for plenty.
//
//   if (CResourceMeter::GetResourceMeter()->GetSystemFree() < 15) Warn();
class ALDLIB_EXPORT CResourceMeter {
 public:
  // The one instance, which is made when it is first asked for and loads the library. Null only if
  // memory ran out.
  static CResourceMeter* GetResourceMeter() noexcept;
  // Lets the instance and the library go; pointers to it are void then. The next call of
  // GetResourceMeter makes a new one. To be called before another platform is installed.
  static void FreeResourceMeter() noexcept;

  CResourceMeter(const CResourceMeter&) = delete;
  CResourceMeter& operator=(const CResourceMeter&) = delete;
  ~CResourceMeter();

  // Whether the library was loaded.
  bool IsMeterInstalled() const { return m_hLibrary != ModuleHandle{}; }

  int GetSystemFree() const { return GetFree(0); }
  int GetGDIFree() const { return GetFree(1); }
  int GetUserFree() const { return GetFree(2); }

 private:
  CResourceMeter();
  int GetFree(int nSelector) const;
  void ReleaseMeter();

  ModuleHandle m_hLibrary{};
  ResourceMeterFunction m_pRead = nullptr;
};

}  // namespace ald
