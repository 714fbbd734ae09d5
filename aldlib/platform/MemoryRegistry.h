#pragma once

#include <map>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/StoredRegistry.h"

namespace ald {

// A tree kept in memory: gone with the process.
class ALDLIB_EXPORT MemoryStore : public RegistryStore {
 public:
  MemoryStore();

  std::uint32_t Ready(bool bMake) override;
  KeyId RootKey() override;
  KeyId Find(KeyId nParent, Path path) override;
  KeyId Make(KeyId nParent, Path path, std::string_view sClass) override;
  bool Query(KeyId nKey, std::string_view sName, RegistryValue& value) override;
  bool Set(KeyId nKey, std::string_view sName, const RegistryValue& value) override;
  bool Delete(KeyId nKey, std::string_view sName) override;
  bool KeyAt(KeyId nKey, std::uint32_t nIndex, CString& sName, CString& sClass) override;
  bool ValueAt(KeyId nKey, std::uint32_t nIndex, CString& sName, RegistryValue& value) override;
  bool DeleteTree(KeyId nKey) override;

 private:
  struct NamedValue {
    CString sName;
    RegistryValue value;
  };
  struct Key {
    KeyId nParent = 0;
    CString sName;
    CString sClass;
    std::map<CString, KeyId> children;  // both by the folded name
    std::map<CString, NamedValue> values;
  };

  Key* Live(KeyId nKey);

  std::map<KeyId, Key> m_keys;
  KeyId m_nLastKey = 1;
};

namespace internal {

struct MemoryStores {
  MemoryStore m_userStore;
  MemoryStore m_machineStore;
};

}  // namespace internal

// For tests, and for hosts that keep nothing.
class ALDLIB_EXPORT MemoryRegistry : private internal::MemoryStores, public StoredRegistry {
 public:
  MemoryRegistry() : StoredRegistry(m_userStore, m_machineStore) {}
};

}  // namespace ald
