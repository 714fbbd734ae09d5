#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

// A folder of the test's own, gone with all that is in it when the test ends.
namespace ald {

class TempFolder {
 public:
  TempFolder() : m_sPath(testing::TempDir() + "aldlib-XXXXXX") {
    if (::mkdtemp(m_sPath.data()) == nullptr) std::abort();
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_sPath, ignored);
  }

  std::string Path(std::string_view sName) const { return m_sPath + "/" + std::string(sName); }
  const std::string& Path() const { return m_sPath; }

  // Writes the file as a whole and returns its path.
  std::string Write(std::string_view sName, std::string_view sText) const {
    std::ofstream(Path(sName), std::ios::binary | std::ios::trunc) << sText;
    return Path(sName);
  }

 private:
  std::string m_sPath;
};

// Sets a variable of the environment while it lives.
class ScopedVariable {
 public:
  ScopedVariable(const char* szName, const std::string& sValue) : m_sName(szName) {
    if (const char* const szFormer = std::getenv(szName)) m_sFormer = szFormer, m_bFormer = true;
    ::setenv(szName, sValue.c_str(), 1);
  }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;
  ~ScopedVariable() {
    if (m_bFormer) {
      ::setenv(m_sName.c_str(), m_sFormer.c_str(), 1);
    } else {
      ::unsetenv(m_sName.c_str());
    }
  }

 private:
  std::string m_sName;
  std::string m_sFormer;
  bool m_bFormer = false;
};

}  // namespace ald
