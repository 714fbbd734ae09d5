#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"
#include "aldlib/platform/posix/FileState.h"

namespace ald {

// The names of one folder, found whatever the case of their letters. Kept until the folder changes;
// asking for that is one look at the folder.
class ALDLIB_EXPORT FolderIndex {
 public:
  // Brings the names up to date. Returns false if the folder cannot be listed; there are no names
  // then.
  bool Refresh(const char* szFolder);

  // The name that is the same but for the case of its letters, or an empty text. Of several the
  // one that comes first by its bytes, so capitals go before small letters.
  std::string_view Find(std::string_view sName) const;

  // Makes the next Refresh read the folder again.
  void Forget() { m_bSettled = false; }

 private:
  bool ReadNames(const char* szFolder);
  void BuildTable();
  std::string_view NameAt(std::uint32_t nStart) const { return m_sNames.data() + nStart; }

  FileState m_state;
  bool m_bSettled = false;
  CString m_sNames;  // one behind the other, each with its terminating zero
  std::vector<std::uint32_t> m_starts;
  std::vector<std::uint32_t> m_table;  // start of a name plus one, 0 for a free place
};

// True if the two names differ in the case of letters of code page 1252 at most.
ALDLIB_EXPORT bool IsSameName(std::string_view sFirst, std::string_view sSecond) noexcept;

}  // namespace ald
