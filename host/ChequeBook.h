#pragma once

#include <system_error>
#include <utility>
#include <vector>

#include "aldlib/files/SingleUser.h"
#include "aldlib/platform/Types.h"
#include "host/Cheque.h"

namespace alder_checks {

// Held alone by whoever writes into a book.
constexpr ald::Areas kAreaOfChequeBook{1};

// The cheques of one company: the file "CHEQUES.DAT" in its folder, one record behind the other.
// Several programs may use it at once. What a crash leaves of a record at the end is not read, and
// the next cheque takes its place.
class ChequeBook {
 public:
  // The folder ends in a backslash or a slash.
  explicit ChequeBook(ald::CString sFolder) : m_sFolder(std::move(sFolder)) {}

  // Adds a cheque. If that fails, the user has been told, and nothing was added.
  bool Record(const Cheque& cheque) const;

  // All cheques, the oldest first; none if there is no file. A record without an amount is passed
  // over.
  std::vector<Cheque> ReadAll() const;

 private:
  ald::CPathNameString Path() const {
    return ald::CPathNameString((m_sFolder + "CHEQUES.DAT").c_str());
  }
  std::error_code Append(const Cheque& cheque) const;

  ald::CString m_sFolder;
};

}  // namespace alder_checks
