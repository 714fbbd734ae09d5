#pragma once

#include <cstddef>
#include <cstdint>

#include "aldlib/platform/Types.h"

namespace ald {

// An open key. 0 stands for none.
enum class RegistryKey : std::uint32_t {};

// The two roots: the current user's tree, and the tree of all users of the machine. They are always
// open and need no closing.
inline constexpr RegistryKey kCurrentUser{0x80000001};
inline constexpr RegistryKey kLocalMachine{0x80000002};

// What an open key is to be used for, as a sum of rights.
enum RegistryAccess : std::uint32_t {
  kQueryAccess = 0x1,      // read values
  kSetAccess = 0x2,        // set and delete values
  kCreateAccess = 0x4,     // create and delete keys below
  kEnumerateAccess = 0x8,  // list the keys below
  kReadAccess = 0x20019,
  kWriteAccess = 0x20006,
  kReadWriteAccess = 0x2001F,
  kAllAccess = 0xF003F,
};

// What a value is. Numbers other than these are stored and given back as they are.
enum class RegistryType : std::uint32_t {
  Text = 1,    // characters with their terminating zero
  Binary = 3,  // any bytes
  Number = 4,  // four bytes, the lowest first
};

struct RegistryValue {
  RegistryType eType = RegistryType::Binary;
  CString sData;  // the bytes as they are stored
};

inline constexpr std::size_t kMaxRegistryName = 255;       // characters of one key or value
inline constexpr std::size_t kMaxRegistryDepth = 100;      // keys one below the other
inline constexpr std::size_t kMaxRegistryData = 1U << 20;  // bytes of one value

// What the library asks of the system for keeping settings: two trees of named keys that hold named
// values with a type. It keeps what was set when the process ends, however it ends, and several
// processes may use it at once.
//
// A key is named from another open key by a path with backslashes; elements of no character do not
// count. Names are found whatever the case of their letters, and kept as first spelled. A value may
// have the empty name.
//
// Nothing here throws, and a failure of the store itself (no permission, a full disk, a damaged
// file) is a false or zero result like any other. A handle that names no open key, or a key that
// has been deleted since, is harmless: every call with it fails.
class Registry {
 public:
  virtual ~Registry() = default;

  // Opens a key that is there. Returns 0 if it is not. An empty or null path opens the parent
  // again.
  virtual RegistryKey Open(RegistryKey hParent, const char* szPath, std::uint32_t nAccess) = 0;

  // Opens a key and makes it, and those above it, where they are missing. `szClass` is kept with a
  // key that is made; null means an empty class. The parent needs no right for this.
  virtual RegistryKey Create(RegistryKey hParent, const char* szPath, const char* szClass,
                             std::uint32_t nAccess) = 0;

  // Returns false if the handle is not open. A root stays open.
  virtual bool Close(RegistryKey hKey) = 0;

  // Reads, sets and deletes a value. False without the right, for a null name, for one that is not
  // there (when reading or deleting), and for a name or data past the limits above.
  virtual bool QueryValue(RegistryKey hKey, const char* szName, RegistryValue& value) = 0;
  virtual bool SetValue(RegistryKey hKey, const char* szName, const RegistryValue& value) = 0;
  virtual bool DeleteValue(RegistryKey hKey, const char* szName) = 0;

  // The key or value at an index, counted from 0 in the order of their names. False past the end.
  // Values need the right to query, keys the right to enumerate.
  virtual bool EnumerateKey(RegistryKey hKey, std::uint32_t nIndex, CString& sName,
                            CString& sClass) = 0;
  virtual bool EnumerateValue(RegistryKey hKey, std::uint32_t nIndex, CString& sName,
                              RegistryValue& value) = 0;

  // Deletes a key with everything below it, all or nothing. False if it is not there, if the path
  // is empty, and if the parent is open without kCreateAccess.
  virtual bool DeleteTree(RegistryKey hParent, const char* szPath) = 0;
};

}  // namespace ald
