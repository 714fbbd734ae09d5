#include "aldlib/platform/MemoryRegistry.h"

#include <iterator>

#include "aldlib/platform/internal/FoldedName.h"

namespace ald {

MemoryStore::MemoryStore() {
  m_keys[RootKey()] = {};
}

std::uint32_t MemoryStore::Ready(bool) {
  return 1;
}

RegistryStore::KeyId MemoryStore::RootKey() {
  return 1;
}

MemoryStore::Key* MemoryStore::Live(KeyId nKey) {
  const auto it = m_keys.find(nKey);
  return it != m_keys.end() ? &it->second : nullptr;
}

RegistryStore::KeyId MemoryStore::Find(KeyId nParent, Path path) {
  for (const std::string_view sElement : path) {
    const Key* const pKey = Live(nParent);
    if (pKey == nullptr) return 0;
    const auto it = pKey->children.find(FoldedName(sElement));
    if (it == pKey->children.end()) return 0;
    nParent = it->second;
  }
  return Live(nParent) != nullptr ? nParent : 0;
}

RegistryStore::KeyId MemoryStore::Make(KeyId nParent, Path path, std::string_view sClass) {
  for (const std::string_view sElement : path) {
    Key* const pKey = Live(nParent);
    if (pKey == nullptr) return 0;
    const KeyId nNew = m_nLastKey + 1;
    const auto [it, bNew] = pKey->children.try_emplace(FoldedName(sElement), nNew);
    if (bNew) {
      Key& key = m_keys[nNew];
      key.nParent = nParent;
      key.sName = sElement;
      key.sClass = sClass;
      m_nLastKey = nNew;
    }
    nParent = it->second;
  }
  return Live(nParent) != nullptr ? nParent : 0;
}

bool MemoryStore::Query(KeyId nKey, std::string_view sName, RegistryValue& value) {
  const Key* const pKey = Live(nKey);
  if (pKey == nullptr) return false;
  const auto it = pKey->values.find(FoldedName(sName));
  if (it == pKey->values.end()) return false;
  value = it->second.value;
  return true;
}

bool MemoryStore::Set(KeyId nKey, std::string_view sName, const RegistryValue& value) {
  Key* const pKey = Live(nKey);
  if (pKey == nullptr) return false;
  NamedValue newValue{CString(sName), value};
  const auto [it, bNew] = pKey->values.try_emplace(FoldedName(sName), newValue);
  if (!bNew) std::swap(it->second.value, newValue.value);
  return true;
}

bool MemoryStore::Delete(KeyId nKey, std::string_view sName) {
  Key* const pKey = Live(nKey);
  return pKey != nullptr && pKey->values.erase(FoldedName(sName)) > 0;
}

bool MemoryStore::KeyAt(KeyId nKey, std::uint32_t nIndex, CString& sName, CString& sClass) {
  const Key* const pKey = Live(nKey);
  if (pKey == nullptr || nIndex >= pKey->children.size()) return false;
  const Key* const pChild = Live(std::next(pKey->children.begin(), nIndex)->second);
  if (pChild == nullptr) return false;
  sName = pChild->sName;
  sClass = pChild->sClass;
  return true;
}

bool MemoryStore::ValueAt(KeyId nKey, std::uint32_t nIndex, CString& sName, RegistryValue& value) {
  const Key* const pKey = Live(nKey);
  if (pKey == nullptr || nIndex >= pKey->values.size()) return false;
  const NamedValue& found = std::next(pKey->values.begin(), nIndex)->second;
  sName = found.sName;
  value = found.value;
  return true;
}

bool MemoryStore::DeleteTree(KeyId nKey) {
  const auto it = m_keys.find(nKey);
  if (it == m_keys.end()) return false;
  const auto itParent = m_keys.find(it->second.nParent);
  if (itParent != m_keys.end()) itParent->second.children.erase(FoldedName(it->second.sName));
  std::vector<KeyId> doomed{nKey};
  while (!doomed.empty()) {
    const auto node = m_keys.extract(doomed.back());
    doomed.pop_back();
    for (const auto& [sChild, nChild] : node.mapped().children) doomed.push_back(nChild);
  }
  return true;
}

}  // namespace ald
