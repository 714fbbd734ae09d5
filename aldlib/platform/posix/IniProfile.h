#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/IniText.h"
#include "aldlib/platform/Profile.h"
#include "aldlib/platform/posix/FileState.h"

namespace ald {

// INI files as they lie on disk. A file is taken apart once and kept until its size, inode or
// change time differs; asking for that is one look-up a read. A bare name is looked for in the
// current folder.
//
// The system profile is SystemProfileFile() when there is one; the regional settings that it does
// not have come from the user's locale.
class ALDLIB_EXPORT IniProfile : public Profile {
 public:
  std::uint32_t ReadString(const char* szFile, const char* szSection, const char* szKey,
                           const char* szDefault, char* szBuffer, std::uint32_t nSize) override;
  std::uint32_t ReadInt(const char* szFile, const char* szSection, const char* szKey,
                        std::int32_t nDefault) override;

 private:
  struct KeptFile {
    FileState state;
    bool bSettled = false;  // a later change cannot bear the same time any more
    std::shared_ptr<const IniText> pText;
  };
  struct Layers {
    std::shared_ptr<const IniText> pFile;
    std::shared_ptr<const IniText> pLocale;
  };

  Layers LayersOf(const char* szFile);
  std::shared_ptr<const IniText> FileText(const CString& sPath);
  std::shared_ptr<const IniText> LocaleText();
  static KeptFile ReadFile(const CString& sPath);

  std::map<CString, KeptFile> m_files;
  CString m_sEnvironment;  // what the locale was read from
  std::shared_ptr<const IniText> m_pLocaleText;
};

}  // namespace ald
