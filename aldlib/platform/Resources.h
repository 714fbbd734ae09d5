#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/StringTable.h"
#include "aldlib/platform/Types.h"

namespace ald {

// What the library asks of the system about modules: the numbered and the long texts that they
// carry, names that the whole process shares as atoms, and the application framework's record of
// each module.
//
// A module handle that names no module, 0 among them, is harmless everywhere: it carries no text.
class ALDLIB_EXPORT Resources {
 public:
  virtual ~Resources() = default;

  // Takes a module in, with its texts, and returns its handle; 0 if there is no room. A handle is
  // not used again soon after its module has left.
  virtual ModuleHandle AddModule(StringTable strings) = 0;

  // Lets the module and its texts go. Returns false if the handle names no module.
  virtual bool RemoveModule(ModuleHandle hModule) = 0;

  // Copies text `nNumber` of the module into `szBuffer`, which has room for `nSize` bytes, and
  // returns the number of characters copied without the terminator. A longer text is cut at
  // nSize - 1. Whenever a text is copied a terminator follows it; nothing behind that is written.
  // Returns 0 if the module has no such text, or an empty one: the buffer is then left untouched.
  // With nSize 1 a text that is there leaves a terminator alone and 0. A null buffer or a size
  // below 1 gives 0.
  virtual int LoadString(ModuleHandle hModule, std::uint32_t nNumber, char* szBuffer,
                         int nSize) = 0;

  // Copies the module's text resource of that number and type; types are known in any case. Returns
  // false, with the text as it was, if the module has no such resource.
  virtual bool LoadText(ModuleHandle hModule, std::uint32_t nNumber, const CString& sType,
                        CString& sText) = 0;

  // Returns the atom of a name of 1 to 255 characters, the same one for each spelling that differs
  // in the case of A to Z only. Each AddAtom needs its DeleteAtom. Returns 0 for a null, empty or
  // longer name and for a full table (16,384 names).
  virtual Atom AddAtom(const char* szName) = 0;

  // Takes back one AddAtom; the last one lets the name go. Returns false for an atom not in use.
  virtual bool DeleteAtom(Atom nAtom) = 0;

  // The application framework's record of an extension module. Attach makes the record when the
  // module loads, and returns false when the module must not load. Link joins the record to the
  // framework's chain of resource and class modules; the framework owns the link, and one that
  // cannot be made is silently not there. Release drops the record at unload.
  virtual bool AttachExtension(ModuleHandle hModule) = 0;
  virtual void LinkExtension(ModuleHandle hModule) = 0;
  virtual void ReleaseExtension(ModuleHandle hModule) = 0;
};

}  // namespace ald
