#include "aldlib/platform/StoredRegistry.h"

#include <algorithm>
#include <new>

namespace ald {
namespace {

// A handle is the place in the table plus one, and above that the generation of the place, so that
// the handle of a closed key does not reach the one that took its place. The top bit is the roots'.
constexpr unsigned kPlaceBits = 20;
constexpr std::uint32_t kPlaceMask = (1U << kPlaceBits) - 1;
constexpr std::uint32_t kGenerationMask = 0x7FFFFFFFU >> kPlaceBits;

// Returns false if an element is too long.
bool SplitPath(const char* szPath, std::vector<std::string_view>& elements) {
  std::string_view sRest(szPath != nullptr ? szPath : "");
  while (!sRest.empty()) {
    const std::size_t nEnd = std::min(sRest.find('\\'), sRest.size());
    if (nEnd > kMaxRegistryName) return false;
    if (nEnd > 0) elements.push_back(sRest.substr(0, nEnd));
    sRest.remove_prefix(std::min(nEnd + 1, sRest.size()));
  }
  return true;
}

bool IsValueName(const char* szName) {
  return szName != nullptr && std::string_view(szName).size() <= kMaxRegistryName;
}

}  // namespace

StoredRegistry::Place* StoredRegistry::Find(RegistryKey hKey) {
  const auto nHandle = static_cast<std::uint32_t>(hKey);
  const std::uint32_t nPlace = nHandle & kPlaceMask;
  if (nPlace == 0 || nPlace > m_places.size()) return nullptr;
  Place& place = m_places[nPlace - 1];
  const bool bLive = place.pStore != nullptr && place.nGeneration == nHandle >> kPlaceBits;
  return bLive ? &place : nullptr;
}

bool StoredRegistry::Use(RegistryKey hKey, std::uint32_t nAccess, bool bMake, Place& place) {
  if (hKey == kCurrentUser || hKey == kLocalMachine) {
    RegistryStore& store = hKey == kCurrentUser ? m_user : m_machine;
    place = {.pStore = &store, .nStore = store.Ready(bMake), .nAccess = kAllAccess};
    if (place.nStore != 0) place.nKey = store.RootKey();
    return place.nKey != 0;
  }
  const Place* const pPlace = Find(hKey);
  if (pPlace == nullptr || (pPlace->nAccess & nAccess) != nAccess) return false;
  place = *pPlace;
  return place.pStore->Ready(false) == place.nStore;
}

RegistryKey StoredRegistry::Reach(RegistryKey hParent, const char* szPath, const char* szClass,
                                  std::uint32_t nAccess, bool bMake) try {
  Place place;
  std::vector<std::string_view> elements;
  if (!SplitPath(szPath, elements) || !Use(hParent, 0, bMake, place)) return RegistryKey{};
  if (place.nDepth + elements.size() > kMaxRegistryDepth) return RegistryKey{};

  // Room for the handle first, so that nothing is made that cannot be given back.
  auto it = std::find_if(m_places.begin(), m_places.end(),
                         [](const Place& other) { return other.pStore == nullptr; });
  if (it == m_places.end()) {
    if (m_places.size() == kPlaceMask) return RegistryKey{};
    it = m_places.emplace(m_places.end());
  }
  RegistryStore& store = *place.pStore;
  place.nKey =
      bMake ? store.Make(
                  place.nKey, elements,
                  std::string_view(szClass != nullptr ? szClass : "").substr(0, kMaxRegistryName))
            : store.Find(place.nKey, elements);
  if (place.nKey == 0) return RegistryKey{};
  place.nDepth += static_cast<std::uint32_t>(elements.size());
  place.nAccess = nAccess;
  place.nGeneration = it->nGeneration;
  *it = place;
  const auto nPlace = static_cast<std::uint32_t>(it - m_places.begin());
  return RegistryKey{(place.nGeneration << kPlaceBits) | (nPlace + 1)};
} catch (const std::bad_alloc&) {
  return RegistryKey{};
}

RegistryKey StoredRegistry::Open(RegistryKey hParent, const char* szPath, std::uint32_t nAccess) {
  return Reach(hParent, szPath, nullptr, nAccess, false);
}

RegistryKey StoredRegistry::Create(RegistryKey hParent, const char* szPath, const char* szClass,
                                   std::uint32_t nAccess) {
  return Reach(hParent, szPath, szClass, nAccess, true);
}

bool StoredRegistry::Close(RegistryKey hKey) {
  if (hKey == kCurrentUser || hKey == kLocalMachine) return true;
  Place* const pPlace = Find(hKey);
  if (pPlace == nullptr) return false;
  pPlace->pStore = nullptr;
  pPlace->nGeneration = (pPlace->nGeneration + 1) & kGenerationMask;
  return true;
}

bool StoredRegistry::QueryValue(RegistryKey hKey, const char* szName, RegistryValue& value) try {
  Place place;
  return IsValueName(szName) && Use(hKey, kQueryAccess, false, place) &&
         place.pStore->Query(place.nKey, szName, value);
} catch (const std::bad_alloc&) {
  return false;
}

bool StoredRegistry::SetValue(RegistryKey hKey, const char* szName,
                              const RegistryValue& value) try {
  Place place;
  return IsValueName(szName) && value.sData.size() <= kMaxRegistryData &&
         Use(hKey, kSetAccess, true, place) && place.pStore->Set(place.nKey, szName, value);
} catch (const std::bad_alloc&) {
  return false;
}

bool StoredRegistry::DeleteValue(RegistryKey hKey, const char* szName) try {
  Place place;
  return IsValueName(szName) && Use(hKey, kSetAccess, false, place) &&
         place.pStore->Delete(place.nKey, szName);
} catch (const std::bad_alloc&) {
  return false;
}

bool StoredRegistry::EnumerateKey(RegistryKey hKey, std::uint32_t nIndex, CString& sName,
                                  CString& sClass) try {
  Place place;
  return Use(hKey, kEnumerateAccess, false, place) &&
         place.pStore->KeyAt(place.nKey, nIndex, sName, sClass);
} catch (const std::bad_alloc&) {
  return false;
}

bool StoredRegistry::EnumerateValue(RegistryKey hKey, std::uint32_t nIndex, CString& sName,
                                    RegistryValue& value) try {
  Place place;
  return Use(hKey, kQueryAccess, false, place) &&
         place.pStore->ValueAt(place.nKey, nIndex, sName, value);
} catch (const std::bad_alloc&) {
  return false;
}

bool StoredRegistry::DeleteTree(RegistryKey hParent, const char* szPath) try {
  Place place;
  std::vector<std::string_view> elements;
  if (!SplitPath(szPath, elements) || elements.empty()) return false;
  if (!Use(hParent, kCreateAccess, false, place)) return false;
  const RegistryStore::KeyId nKey = place.pStore->Find(place.nKey, elements);
  return nKey != 0 && place.pStore->DeleteTree(nKey);
} catch (const std::bad_alloc&) {
  return false;
}

std::size_t StoredRegistry::OpenKeys() const {
  return static_cast<std::size_t>(
      std::count_if(m_places.begin(), m_places.end(),
                    [](const Place& place) { return place.pStore != nullptr; }));
}

}  // namespace ald
