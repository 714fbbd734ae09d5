#include "aldlib/platform/posix/IniProfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <new>

#include "aldlib/platform/posix/Descriptor.h"
#include "aldlib/platform/posix/PathMapper.h"
#include "aldlib/platform/posix/PosixLocale.h"
#include "aldlib/platform/posix/SettingsFolders.h"

namespace ald {
namespace {

constexpr off_t kLargestFile = 64 << 20;
constexpr std::size_t kMostFiles = 64;

bool ReadAll(int nFile, off_t nSize, CString& sText) {
  // One byte more than the file had, so that its end is seen.
  sText.resize(static_cast<std::size_t>(nSize) + 1);
  std::size_t nRead = 0;
  while (true) {
    if (nRead == sText.size()) return false;  // it is growing: whoever writes it is not done
    const ssize_t nPart = ::read(nFile, sText.data() + nRead, sText.size() - nRead);
    if (nPart < 0 && errno == EINTR) continue;
    if (nPart < 0) return false;
    if (nPart == 0) break;
    nRead += static_cast<std::size_t>(nPart);
  }
  sText.resize(nRead);
  return true;
}

// All that the C library looks at when it is asked for the user's locale.
CString LocaleEnvironment() {
  CString sEnvironment;
  for (const char* szVariable :
       {"LC_ALL", "LC_CTYPE", "LC_NUMERIC", "LC_MONETARY", "LC_TIME", "LANG", "LOCPATH"}) {
    const char* const szValue = std::getenv(szVariable);
    sEnvironment.append(szValue != nullptr ? szValue : "").push_back('\n');
  }
  return sEnvironment;
}

CString RegionalIniText(const RegionalSettings& settings) {
  CString sText = "[intl]\n";
  const auto addText = [&sText](const char* szKey, const std::optional<CString>& sValue) {
    // In quotes, since a separator may be a blank.
    if (sValue) sText.append(szKey).append("=\"").append(*sValue).append("\"\n");
  };
  const auto addNumber = [&sText](const char* szKey, const std::optional<int>& nValue) {
    if (nValue) sText.append(szKey).append("=").append(std::to_string(*nValue)).append("\n");
  };
  addText("sDecimal", settings.sDecimal);
  addText("sThousand", settings.sThousand);
  addNumber("iCurrDigits", settings.nCurrencyDigits);
  addText("sDate", settings.sDateSeparator);
  addNumber("iDate", settings.nDateOrder);
  return sText;
}

}  // namespace

std::uint32_t IniProfile::ReadString(const char* szFile, const char* szSection, const char* szKey,
                                     const char* szDefault, char* szBuffer, std::uint32_t nSize) {
  const Layers layers = LayersOf(szFile);
  const IniText* const aTexts[] = {layers.pFile.get(), layers.pLocale.get()};
  return ReadIniString(aTexts, szSection, szKey, szDefault, szBuffer, nSize);
}

std::uint32_t IniProfile::ReadInt(const char* szFile, const char* szSection, const char* szKey,
                                  std::int32_t nDefault) {
  const Layers layers = LayersOf(szFile);
  const IniText* const aTexts[] = {layers.pFile.get(), layers.pLocale.get()};
  return ReadIniInt(aTexts, szSection, szKey, nDefault);
}

IniProfile::Layers IniProfile::LayersOf(const char* szFile) try {
  if (szFile != nullptr) return {FileText(SystemPaths().Native(szFile)), nullptr};
  return {FileText(SystemProfileFile()), LocaleText()};
} catch (const std::bad_alloc&) {
  return {};
}

std::shared_ptr<const IniText> IniProfile::FileText(const CString& sPath) {
  struct stat status {};
  if (sPath.empty() || ::stat(sPath.c_str(), &status) != 0) {
    m_files.erase(sPath);
    return nullptr;
  }
  const FileState state = FileState::Of(status);
  const auto it = m_files.find(sPath);
  if (it != m_files.end() && it->second.bSettled && it->second.state == state) {
    return it->second.pText;
  }
  KeptFile file = ReadFile(sPath);
  if (m_files.size() >= kMostFiles) m_files.clear();
  return m_files.insert_or_assign(sPath, std::move(file)).first->second.pText;
}

IniProfile::KeptFile IniProfile::ReadFile(const CString& sPath) {
  KeptFile file;
  // Without waiting for the other end of a pipe.
  const Descriptor descriptor(::open(sPath.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (descriptor.get() < 0 || ::fstat(descriptor.get(), &status) != 0) return file;
  if (!S_ISREG(status.st_mode) || status.st_size > kLargestFile) return file;
  CString sText;
  if (!ReadAll(descriptor.get(), status.st_size, sText)) return file;
  file.pText = std::make_shared<const IniText>(std::move(sText));
  file.state = FileState::Of(status);
  file.bSettled = file.state.IsSettled();
  return file;
}

std::shared_ptr<const IniText> IniProfile::LocaleText() {
  CString sEnvironment = LocaleEnvironment();
  if (m_pLocaleText == nullptr || sEnvironment != m_sEnvironment) {
    m_pLocaleText =
        std::make_shared<const IniText>(RegionalIniText(PosixLocale::ReadRegionalSettings()));
    m_sEnvironment.swap(sEnvironment);
  }
  return m_pLocaleText;
}

}  // namespace ald
