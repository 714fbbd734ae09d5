#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Registry.h"

namespace ald {

// One tree of the registry as its store knows it: keys are numbers that are never used twice. Only
// well-formed names reach a store: elements of a path have 1 to 255 characters, values 0 to 255.
// Failures are false or 0; nothing but std::bad_alloc is thrown.
class RegistryStore {
 public:
  using KeyId = std::int64_t;
  using Path = std::span<const std::string_view>;

  virtual ~RegistryStore() = default;

  // Makes ready for one of the calls below, and returns which store it is now: a number above 0
  // that changes when another store has taken its place, so that keys of the old one are void.
  // Returns 0 if there is none; with bMake it is made if need be.
  virtual std::uint32_t Ready(bool bMake) = 0;

  virtual KeyId RootKey() = 0;
  virtual KeyId Find(KeyId nParent, Path path) = 0;
  virtual KeyId Make(KeyId nParent, Path path, std::string_view sClass) = 0;
  virtual bool Query(KeyId nKey, std::string_view sName, RegistryValue& value) = 0;
  virtual bool Set(KeyId nKey, std::string_view sName, const RegistryValue& value) = 0;
  virtual bool Delete(KeyId nKey, std::string_view sName) = 0;
  virtual bool KeyAt(KeyId nKey, std::uint32_t nIndex, CString& sName, CString& sClass) = 0;
  virtual bool ValueAt(KeyId nKey, std::uint32_t nIndex, CString& sName, RegistryValue& value) = 0;
  virtual bool DeleteTree(KeyId nKey) = 0;  // never the root
};

// The registry over two stores: handles, rights, paths and limits are the same whatever keeps the
// values. The stores outlive it.
class ALDLIB_EXPORT StoredRegistry : public Registry {
 public:
  StoredRegistry(RegistryStore& user, RegistryStore& machine) : m_user(user), m_machine(machine) {}
  StoredRegistry(const StoredRegistry&) = delete;
  StoredRegistry& operator=(const StoredRegistry&) = delete;

  RegistryKey Open(RegistryKey hParent, const char* szPath, std::uint32_t nAccess) override;
  RegistryKey Create(RegistryKey hParent, const char* szPath, const char* szClass,
                     std::uint32_t nAccess) override;
  bool Close(RegistryKey hKey) override;
  bool QueryValue(RegistryKey hKey, const char* szName, RegistryValue& value) override;
  bool SetValue(RegistryKey hKey, const char* szName, const RegistryValue& value) override;
  bool DeleteValue(RegistryKey hKey, const char* szName) override;
  bool EnumerateKey(RegistryKey hKey, std::uint32_t nIndex, CString& sName,
                    CString& sClass) override;
  bool EnumerateValue(RegistryKey hKey, std::uint32_t nIndex, CString& sName,
                      RegistryValue& value) override;
  bool DeleteTree(RegistryKey hParent, const char* szPath) override;

  // Handles given out and not closed yet.
  std::size_t OpenKeys() const;

 private:
  struct Place {
    RegistryStore* pStore = nullptr;  // null: free
    std::uint32_t nStore = 0;         // which store that was when the key was opened
    RegistryStore::KeyId nKey = 0;
    std::uint32_t nDepth = 0;  // keys above it
    std::uint32_t nAccess = 0;
    std::uint32_t nGeneration = 0;
  };

  Place* Find(RegistryKey hKey);
  // The open key, if it may be used so and its store is ready.
  bool Use(RegistryKey hKey, std::uint32_t nAccess, bool bMake, Place& place);
  RegistryKey Reach(RegistryKey hParent, const char* szPath, const char* szClass,
                    std::uint32_t nAccess, bool bMake);

  RegistryStore& m_user;
  RegistryStore& m_machine;
  std::vector<Place> m_places;
};

}  // namespace ald
