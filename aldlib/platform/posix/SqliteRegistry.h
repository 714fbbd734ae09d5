#pragma once

#include <sys/types.h>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/StoredRegistry.h"

struct sqlite3;
struct sqlite3_stmt;

namespace ald {

// A tree kept in an SQLite file, made with its folder when the first key is.
//
// Every change is a transaction of its own and is on the disk when the call returns, so a process
// or a machine that stops at any moment leaves the last finished change. Writers of several
// processes wait for one another, up to kBusyMilliseconds. The file is one file: its journal stands
// beside it only while a change is under way, so that a tree that nobody may write to can be read.
//
// The file says which form it has (kSchemaVersion). One of a later form, of another program, or no
// database at all is never touched: the store is not there then. A file that is put in the place of
// another is seen at the next call, and so is one that is taken away.
class ALDLIB_EXPORT SqliteStore : public RegistryStore {
 public:
  static constexpr int kSchemaVersion = 1;
  static constexpr int kBusyMilliseconds = 10000;

  // An empty path stands for a store that is never there. A private file is made for its owner's
  // eyes only.
  SqliteStore(CString sFile, bool bPrivate) : m_sFile(std::move(sFile)), m_bPrivate(bPrivate) {}
  SqliteStore(const SqliteStore&) = delete;
  SqliteStore& operator=(const SqliteStore&) = delete;
  ~SqliteStore() override;

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
  // In the order of the texts in the source file.
  enum Statement {
    kFindKey,
    kMakeKey,
    kKeyExists,
    kQueryValue,
    kSetValue,
    kDeleteValue,
    kKeyAt,
    kValueAt,
    kDeleteKey,
    kBegin,
    kCommit,
    kRollback,
    kStatementCount
  };
  class Run;

  bool OpenFile(bool bMake);
  bool PrepareFile(bool bMake);
  bool HasLeft() const;
  void CloseFile();
  KeyId FindElement(KeyId nParent, std::string_view sElement);
  KeyId MakeElement(KeyId nParent, std::string_view sElement, std::string_view sClass);

  CString m_sFile;
  bool m_bPrivate;
  sqlite3* m_pDatabase = nullptr;
  sqlite3_stmt* m_apStatements[kStatementCount] = {};
  std::uint32_t m_nStore = 0;  // how often a file has been opened
  pid_t m_nProcess = 0;        // which process opened it
};

namespace internal {

struct SqliteStores {
  SqliteStore m_userStore;
  SqliteStore m_machineStore;
};

}  // namespace internal

// The two roots, a file each.
class ALDLIB_EXPORT SqliteRegistry : private internal::SqliteStores, public StoredRegistry {
 public:
  SqliteRegistry(CString sUserFile, CString sMachineFile)
      : internal::SqliteStores{{std::move(sUserFile), true}, {std::move(sMachineFile), false}},
        StoredRegistry(m_userStore, m_machineStore) {}
};

}  // namespace ald
