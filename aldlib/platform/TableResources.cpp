#include "aldlib/platform/TableResources.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>
#include <utility>

namespace ald {
namespace {

constexpr unsigned kPlaceBits = 16;
constexpr std::uint32_t kPlaceMask = (1U << kPlaceBits) - 1;

constexpr std::uint16_t kFirstAtom = 0xC000;
constexpr std::size_t kMaxAtoms = 0x4000;
constexpr std::size_t kMaxAtomName = 255;

CString UpperCase(CString sName) {
  for (char& c : sName) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return sName;
}

}  // namespace

TableResources::ModulePlace* TableResources::Find(ModuleHandle hModule) {
  const auto nHandle = static_cast<std::uint32_t>(hModule);
  const std::uint32_t nPlace = nHandle & kPlaceMask;
  if (nPlace == 0 || nPlace > m_modules.size()) return nullptr;
  ModulePlace& place = m_modules[nPlace - 1];
  const bool bLive = place.strings && place.nGeneration == nHandle >> kPlaceBits;
  return bLive ? &place : nullptr;
}

ModuleHandle TableResources::AddModule(StringTable strings) try {
  auto it = std::find_if(m_modules.begin(), m_modules.end(),
                         [](const ModulePlace& place) { return !place.strings; });
  if (it == m_modules.end()) {
    if (m_modules.size() == kPlaceMask) return ModuleHandle{};
    it = m_modules.emplace(m_modules.end());
  }
  it->strings = std::move(strings);
  const auto nPlace = static_cast<std::uint32_t>(it - m_modules.begin());
  return ModuleHandle{(std::uint32_t{it->nGeneration} << kPlaceBits) | (nPlace + 1)};
} catch (const std::bad_alloc&) {
  return ModuleHandle{};
}

bool TableResources::RemoveModule(ModuleHandle hModule) {
  ModulePlace* const pPlace = Find(hModule);
  if (pPlace == nullptr) return false;
  pPlace->strings.reset();
  pPlace->texts.clear();
  ++pPlace->nGeneration;
  return true;
}

int TableResources::LoadString(ModuleHandle hModule, std::uint32_t nNumber, char* szBuffer,
                               int nSize) {
  const ModulePlace* const pPlace = Find(hModule);
  if (pPlace == nullptr || szBuffer == nullptr || nSize < 1) return 0;
  const CString* const pText = pPlace->strings->Find(nNumber);
  if (pText == nullptr || pText->empty()) return 0;
  const std::size_t nCopied = std::min(pText->size(), static_cast<std::size_t>(nSize) - 1);
  std::memcpy(szBuffer, pText->data(), nCopied);
  szBuffer[nCopied] = '\0';
  return static_cast<int>(nCopied);
}

bool TableResources::LoadText(ModuleHandle hModule, std::uint32_t nNumber, const CString& sType,
                              CString& sText) try {
  const ModulePlace* const pPlace = Find(hModule);
  if (pPlace == nullptr) return false;
  const auto it = pPlace->texts.find({nNumber, UpperCase(sType)});
  if (it == pPlace->texts.end()) return false;
  sText = it->second;
  return true;
} catch (const std::bad_alloc&) {
  return false;
}

bool TableResources::AddText(ModuleHandle hModule, std::uint32_t nNumber, const CString& sType,
                             CString sText) {
  ModulePlace* const pPlace = Find(hModule);
  if (pPlace == nullptr) return false;
  pPlace->texts[{nNumber, UpperCase(sType)}] = std::move(sText);
  return true;
}

Atom TableResources::AddAtom(const char* szName) try {
  if (szName == nullptr || *szName == '\0' || std::strlen(szName) > kMaxAtomName) return Atom{};
  const CString sName = UpperCase(szName);
  auto it = std::find_if(m_atoms.begin(), m_atoms.end(), [&](const AtomPlace& place) {
    return place.nUses > 0 && place.sName == sName;
  });
  if (it == m_atoms.end()) {
    it = std::find_if(m_atoms.begin(), m_atoms.end(),
                      [](const AtomPlace& place) { return place.nUses == 0; });
    if (it == m_atoms.end()) {
      if (m_atoms.size() == kMaxAtoms) return Atom{};
      it = m_atoms.emplace(m_atoms.end());
    }
    it->sName = sName;
  }
  ++it->nUses;
  return Atom{static_cast<std::uint16_t>(kFirstAtom + (it - m_atoms.begin()))};
} catch (const std::bad_alloc&) {
  return Atom{};
}

bool TableResources::DeleteAtom(Atom nAtom) {
  const auto nNumber = static_cast<std::uint16_t>(nAtom);
  if (nNumber < kFirstAtom) return false;
  const std::size_t nPlace = nNumber - kFirstAtom;
  if (nPlace >= m_atoms.size() || m_atoms[nPlace].nUses == 0) return false;
  --m_atoms[nPlace].nUses;
  return true;
}

bool TableResources::AttachExtension(ModuleHandle hModule) {
  return Find(hModule) != nullptr;
}

void TableResources::LinkExtension(ModuleHandle) {}

void TableResources::ReleaseExtension(ModuleHandle) {}

}  // namespace ald
