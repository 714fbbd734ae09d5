#pragma once

#include <utility>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Registry.h"

namespace ald {

// Owns an open key of the platform's registry: what it holds is closed when it goes or takes
// another. 0 when it holds none.
class ALDLIB_EXPORT CRegKey {
 public:
  CRegKey() = default;
  explicit CRegKey(RegistryKey hKey) : m_hKey(hKey) {}
  CRegKey(CRegKey&& other) noexcept : m_hKey(other.Detach()) {}
  CRegKey& operator=(CRegKey&& other) noexcept {
    if (this != &other) Attach(other.Detach());
    return *this;
  }
  ~CRegKey() { Close(); }

  RegistryKey Get() const { return m_hKey; }
  bool IsOpen() const { return m_hKey != RegistryKey{}; }

  void Close();
  // Closes what it holds and owns the key from now on.
  void Attach(RegistryKey hKey) {
    Close();
    m_hKey = hKey;
  }
  // Gives the key up without closing it.
  RegistryKey Detach() { return std::exchange(m_hKey, RegistryKey{}); }

 private:
  RegistryKey m_hKey{};
};

}  // namespace ald
