#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Resources.h"

namespace ald {

// Resources over string tables kept in memory. A framework's module chain is nothing here: a module
// that is in the table attaches, linking and releasing do nothing.
class ALDLIB_EXPORT TableResources : public Resources {
 public:
  ModuleHandle AddModule(StringTable strings) override;
  bool RemoveModule(ModuleHandle hModule) override;
  int LoadString(ModuleHandle hModule, std::uint32_t nNumber, char* szBuffer, int nSize) override;
  bool LoadText(ModuleHandle hModule, std::uint32_t nNumber, const CString& sType,
                CString& sText) override;
  Atom AddAtom(const char* szName) override;
  bool DeleteAtom(Atom nAtom) override;
  bool AttachExtension(ModuleHandle hModule) override;
  void LinkExtension(ModuleHandle hModule) override;
  void ReleaseExtension(ModuleHandle hModule) override;

  // Gives a module a text resource, in place of one that it has under that number and type. Returns
  // false if the handle names no module.
  bool AddText(ModuleHandle hModule, std::uint32_t nNumber, const CString& sType, CString sText);

 private:
  using TextKey = std::pair<std::uint32_t, CString>;  // number, and type in upper case

  // A handle is the place in m_modules plus one, and above that the generation of the place, so
  // that the handle of a module that has left does not answer for the one that took its place.
  struct ModulePlace {
    std::uint16_t nGeneration = 0;
    std::optional<StringTable> strings;
    std::map<TextKey, CString> texts;
  };
  struct AtomPlace {
    CString sName;  // upper case
    std::uint32_t nUses = 0;
  };

  ModulePlace* Find(ModuleHandle hModule);

  std::vector<ModulePlace> m_modules;
  std::vector<AtomPlace> m_atoms;
};

}  // namespace ald
