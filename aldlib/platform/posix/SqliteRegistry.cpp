#include "aldlib/platform/posix/SqliteRegistry.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <iterator>

#include "aldlib/platform/Characters.h"
#include "aldlib/platform/internal/FoldedName.h"

namespace ald {
namespace {

// Written into the file's header, so that other programs' databases are told from ours: "ALDP".
constexpr int kApplicationId = 0x414C4450;
constexpr RegistryStore::KeyId kRootKey = 1;

// A stored format: a change of it takes the next kSchemaVersion and a step from the one before.
//
// Names are kept as UTF-8, once as spelled and once with their letters in upper case for finding
// them; data as the bytes that they are. AUTOINCREMENT keeps the number of a deleted key from
// coming back.
constexpr const char* kSchema =
    "CREATE TABLE keys ("
    "  id INTEGER PRIMARY KEY AUTOINCREMENT,"
    "  parent INTEGER REFERENCES keys(id) ON DELETE CASCADE,"
    "  folded TEXT NOT NULL,"
    "  name TEXT NOT NULL,"
    "  class TEXT NOT NULL,"
    "  UNIQUE (parent, folded));"
    "CREATE TABLE entries ("
    "  key INTEGER NOT NULL REFERENCES keys(id) ON DELETE CASCADE,"
    "  folded TEXT NOT NULL,"
    "  name TEXT NOT NULL,"
    "  type INTEGER NOT NULL,"
    "  data BLOB NOT NULL,"
    "  PRIMARY KEY (key, folded)) WITHOUT ROWID;"
    "INSERT INTO keys (id, parent, folded, name, class) VALUES (1, NULL, '', '', '');";

constexpr const char* kStatements[] = {
    "SELECT id FROM keys WHERE parent = ?1 AND folded = ?2",
    "INSERT INTO keys (parent, folded, name, class) VALUES (?1, ?2, ?3, ?4)",
    "SELECT id FROM keys WHERE id = ?1",
    "SELECT type, data FROM entries WHERE key = ?1 AND folded = ?2",
    ("INSERT INTO entries (key, folded, name, type, data) VALUES (?1, ?2, ?3, ?4, ?5)"
     " ON CONFLICT DO UPDATE SET type = excluded.type, data = excluded.data"),
    "DELETE FROM entries WHERE key = ?1 AND folded = ?2",
    "SELECT name, class FROM keys WHERE parent = ?1 ORDER BY folded LIMIT 1 OFFSET ?2",
    "SELECT name, type, data FROM entries WHERE key = ?1 ORDER BY folded LIMIT 1 OFFSET ?2",
    "DELETE FROM keys WHERE id = ?1",
    "BEGIN IMMEDIATE",
    "COMMIT",
    "ROLLBACK",
};

bool Execute(sqlite3* pDatabase, const char* szSql) {
  return ::sqlite3_exec(pDatabase, szSql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

// The number that a statement answers; -1 if it cannot be run.
std::int64_t NumberFrom(sqlite3* pDatabase, const char* szSql) {
  sqlite3_stmt* pStatement = nullptr;
  std::int64_t nNumber = -1;
  if (::sqlite3_prepare_v2(pDatabase, szSql, -1, &pStatement, nullptr) == SQLITE_OK &&
      ::sqlite3_step(pStatement) == SQLITE_ROW) {
    nNumber = ::sqlite3_column_int64(pStatement, 0);
  }
  ::sqlite3_finalize(pStatement);
  return nNumber;
}

// Makes the folders above the file that are not there.
bool MakeFolders(const CString& sFile, bool bPrivate) {
  for (std::size_t nAt = sFile.find('/', 1); nAt != CString::npos; nAt = sFile.find('/', nAt + 1)) {
    const CString sFolder = sFile.substr(0, nAt);
    if (::mkdir(sFolder.c_str(), bPrivate ? 0700 : 0755) != 0 && errno != EEXIST &&
        ::access(sFolder.c_str(), F_OK) != 0) {
      return false;
    }
  }
  return true;
}

}  // namespace

// One use of a prepared statement: bind, step, read the columns, and leave it ready for the next.
class SqliteStore::Run {
 public:
  Run(SqliteStore& store, Statement eStatement) : m_pStatement(store.m_apStatements[eStatement]) {
    static_assert(std::size(kStatements) == kStatementCount);
    if (m_pStatement == nullptr && store.m_pDatabase != nullptr) {
      // What cannot be prepared stays null, and SQLite answers every use of that with a failure.
      ::sqlite3_prepare_v3(store.m_pDatabase, kStatements[eStatement], -1,
                           SQLITE_PREPARE_PERSISTENT, &m_pStatement, nullptr);
      store.m_apStatements[eStatement] = m_pStatement;
    }
  }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;
  ~Run() {
    ::sqlite3_reset(m_pStatement);
    ::sqlite3_clear_bindings(m_pStatement);
  }

  Run& Bind(std::int64_t nNumber) {
    Note(::sqlite3_bind_int64(m_pStatement, ++m_nBound, nNumber));
    return *this;
  }
  Run& Bind(std::string_view sName) {
    const std::string sText = Utf8FromCodePage1252(sName);
    Note(::sqlite3_bind_text(m_pStatement, ++m_nBound, sText.data(), static_cast<int>(sText.size()),
                             SQLITE_TRANSIENT));
    return *this;
  }
  // The bytes stay where they are until the run is over.
  Run& BindData(const CString& sData) {
    Note(
        ::sqlite3_bind_blob64(m_pStatement, ++m_nBound, sData.data(), sData.size(), SQLITE_STATIC));
    return *this;
  }

  bool Row() { return !m_bFailed && ::sqlite3_step(m_pStatement) == SQLITE_ROW; }
  bool Done() { return !m_bFailed && ::sqlite3_step(m_pStatement) == SQLITE_DONE; }

  std::int64_t Number(int nColumn) { return ::sqlite3_column_int64(m_pStatement, nColumn); }
  CString Name(int nColumn) { return CodePage1252FromUtf8(Data(nColumn)); }
  CString Data(int nColumn) {
    const void* const pData = ::sqlite3_column_blob(m_pStatement, nColumn);
    const int nSize = ::sqlite3_column_bytes(m_pStatement, nColumn);
    return pData != nullptr
               ? CString(static_cast<const char*>(pData), static_cast<std::size_t>(nSize))
               : CString();
  }

 private:
  void Note(int nResult) { m_bFailed = m_bFailed || nResult != SQLITE_OK; }

  sqlite3_stmt* m_pStatement;
  int m_nBound = 0;
  bool m_bFailed = false;
};

SqliteStore::~SqliteStore() {
  CloseFile();
}

void SqliteStore::CloseFile() {
  const bool bOurs = m_nProcess == ::getpid();
  for (sqlite3_stmt*& pStatement : m_apStatements) {
    if (bOurs) ::sqlite3_finalize(pStatement);
    pStatement = nullptr;
  }
  // What came over a fork belongs to the other process: closing it here would meddle with its file.
  if (bOurs) ::sqlite3_close_v2(m_pDatabase);
  m_pDatabase = nullptr;
}

// Whether the file that is open no longer stands under its name.
bool SqliteStore::HasLeft() const {
  int bMoved = 0;
  ::sqlite3_file_control(m_pDatabase, "main", SQLITE_FCNTL_HAS_MOVED, &bMoved);
  return bMoved != 0;
}

std::uint32_t SqliteStore::Ready(bool bMake) {
  if (m_pDatabase != nullptr && (m_nProcess != ::getpid() || HasLeft())) CloseFile();
  if (m_pDatabase == nullptr && !OpenFile(bMake)) {
    CloseFile();
    return 0;
  }
  return m_nStore;
}

bool SqliteStore::OpenFile(bool bMake) {
  if (m_sFile.empty()) return false;
  if (bMake) {
    if (!MakeFolders(m_sFile, m_bPrivate)) return false;
    // Made here for its mode, which SQLite gives to the journal as well. Only a new file is opened:
    // closing one that is in use would drop the locks that this process has on it.
    const int nFile =
        ::open(m_sFile.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, m_bPrivate ? 0600 : 0644);
    if (nFile >= 0) ::close(nFile);
  }
  m_nProcess = ::getpid();
  if (::sqlite3_open_v2(m_sFile.c_str(), &m_pDatabase, SQLITE_OPEN_READWRITE, nullptr) !=
      SQLITE_OK) {
    return false;
  }
  ::sqlite3_busy_timeout(m_pDatabase, kBusyMilliseconds);
  if (!PrepareFile(bMake)) return false;
  ++m_nStore;
  return true;
}

bool SqliteStore::PrepareFile(bool bMake) {
  // EXTRA also makes the removal of the journal, which is what commits, outlast a loss of power.
  if (!Execute(m_pDatabase,
               "PRAGMA trusted_schema = OFF; PRAGMA foreign_keys = ON;"
               "PRAGMA synchronous = EXTRA;")) {
    return false;
  }
  const auto isOurs = [this] {
    return NumberFrom(m_pDatabase, "PRAGMA application_id") == kApplicationId &&
           NumberFrom(m_pDatabase, "PRAGMA user_version") == kSchemaVersion;
  };
  if (isOurs()) return true;
  if (!bMake || !Execute(m_pDatabase, "BEGIN IMMEDIATE")) return false;
  // Another process may have been first.
  bool bGood = isOurs();
  if (!bGood && NumberFrom(m_pDatabase, "PRAGMA application_id") == 0 &&
      NumberFrom(m_pDatabase, "PRAGMA user_version") == 0 &&
      NumberFrom(m_pDatabase, "SELECT count(*) FROM sqlite_master") == 0) {
    const CString sMark = "PRAGMA application_id = " + std::to_string(kApplicationId) +
                          "; PRAGMA user_version = " + std::to_string(kSchemaVersion) + ";";
    bGood = Execute(m_pDatabase, kSchema) && Execute(m_pDatabase, sMark.c_str());
  }
  if (bGood && Execute(m_pDatabase, "COMMIT")) return true;
  Execute(m_pDatabase, "ROLLBACK");
  return false;
}

RegistryStore::KeyId SqliteStore::RootKey() {
  return kRootKey;
}

RegistryStore::KeyId SqliteStore::FindElement(KeyId nParent, std::string_view sElement) {
  Run run(*this, kFindKey);
  return run.Bind(nParent).Bind(FoldedName(sElement)).Row() ? run.Number(0) : 0;
}

RegistryStore::KeyId SqliteStore::Find(KeyId nParent, Path path) {
  if (path.empty()) {
    Run run(*this, kKeyExists);
    return run.Bind(nParent).Row() ? nParent : 0;
  }
  for (const std::string_view sElement : path) {
    nParent = FindElement(nParent, sElement);
    if (nParent == 0) return 0;
  }
  return nParent;
}

RegistryStore::KeyId SqliteStore::MakeElement(KeyId nParent, std::string_view sElement,
                                              std::string_view sClass) {
  const KeyId nThere = FindElement(nParent, sElement);
  if (nThere != 0) return nThere;
  Run run(*this, kMakeKey);
  run.Bind(nParent).Bind(FoldedName(sElement)).Bind(sElement).Bind(sClass);
  return run.Done() ? ::sqlite3_last_insert_rowid(m_pDatabase) : 0;
}

RegistryStore::KeyId SqliteStore::Make(KeyId nParent, Path path, std::string_view sClass) {
  // Most keys are there already, and finding one takes no turn among the writers.
  const KeyId nThere = Find(nParent, path);
  if (nThere != 0 || path.empty()) return nThere;
  if (!Run(*this, kBegin).Done()) return 0;
  for (const std::string_view sElement : path) {
    nParent = MakeElement(nParent, sElement, sClass);
    if (nParent == 0) break;
  }
  if (nParent != 0 && Run(*this, kCommit).Done()) return nParent;
  Run(*this, kRollback).Done();
  return 0;
}

bool SqliteStore::Query(KeyId nKey, std::string_view sName, RegistryValue& value) {
  Run run(*this, kQueryValue);
  if (!run.Bind(nKey).Bind(FoldedName(sName)).Row()) return false;
  value.eType = static_cast<RegistryType>(run.Number(0));
  value.sData = run.Data(1);
  return true;
}

bool SqliteStore::Set(KeyId nKey, std::string_view sName, const RegistryValue& value) {
  Run run(*this, kSetValue);
  run.Bind(nKey).Bind(FoldedName(sName)).Bind(sName);
  run.Bind(static_cast<std::int64_t>(value.eType)).BindData(value.sData);
  return run.Done();
}

bool SqliteStore::Delete(KeyId nKey, std::string_view sName) {
  Run run(*this, kDeleteValue);
  return run.Bind(nKey).Bind(FoldedName(sName)).Done() && ::sqlite3_changes(m_pDatabase) > 0;
}

bool SqliteStore::KeyAt(KeyId nKey, std::uint32_t nIndex, CString& sName, CString& sClass) {
  Run run(*this, kKeyAt);
  if (!run.Bind(nKey).Bind(std::int64_t{nIndex}).Row()) return false;
  sName = run.Name(0);
  sClass = run.Name(1);
  return true;
}

bool SqliteStore::ValueAt(KeyId nKey, std::uint32_t nIndex, CString& sName, RegistryValue& value) {
  Run run(*this, kValueAt);
  if (!run.Bind(nKey).Bind(std::int64_t{nIndex}).Row()) return false;
  sName = run.Name(0);
  value.eType = static_cast<RegistryType>(run.Number(1));
  value.sData = run.Data(2);
  return true;
}

bool SqliteStore::DeleteTree(KeyId nKey) {
  Run run(*this, kDeleteKey);
  return nKey != kRootKey && run.Bind(nKey).Done() && ::sqlite3_changes(m_pDatabase) > 0;
}

}  // namespace ald
