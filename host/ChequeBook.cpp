#include "host/ChequeBook.h"

#include <limits>

#include "aldlib/files/FileErrors.h"
#include "aldlib/messages/Messages.h"
#include "host/Texts.h"

namespace alder_checks {

namespace {

// Moves to where the next cheque goes. False if the file does not tell, or is full: then writing
// would hit a cheque that is there.
bool GoBehindTheLast(ald::File& file) {
  constexpr std::uint32_t kMost = std::numeric_limits<std::int32_t>::max() - sizeof(Cheque);
  std::uint32_t nLength = 0;
  ald::FileLength(&file, &nLength);
  if (nLength > kMost) return false;
  const auto nEnd = static_cast<std::int32_t>(nLength - nLength % sizeof(Cheque));
  ald::SetPos(&file, nEnd);
  std::int32_t nPosition = -1;
  ald::GetPos(&file, &nPosition);
  return nPosition == nEnd;
}

}  // namespace

bool ChequeBook::Record(const Cheque& cheque) const {
  // While somebody else writes, the user is asked whether to wait; no means the cheque waits.
  ald::CALWSingleUserAccess alone(kAreaOfChequeBook);
  if (!alone.Start(kTextBookInUse, ald::LockMode::Exclusive, m_sFolder.c_str())) return false;
  const std::error_code error = Append(cheque);
  alone.End(m_sFolder.c_str());
  if (!error) return true;
  ald::MessageWithString(0, ald::MessageByNumber(kTextNotRecorded), error.message().c_str());
  return false;
}

std::error_code ChequeBook::Append(const Cheque& cheque) const {
  std::error_code error;
  ald::File file;
  ald::Lookup(&file, Path(), 1);
  if (file.nError != 0) return ald::ErrorOf(file);
  {
    const ald::CFileGuard guard(file, &error);
    if (!GoBehindTheLast(file)) return ald::FileStatus::SystemFailure;
    ald::WriteBlock(&file, sizeof cheque, &cheque);
    if (file.nError == 0) ald::Flush(&file);
    if (file.nError != 0) return ald::ErrorOf(file);
  }
  return error;
}

std::vector<Cheque> ChequeBook::ReadAll() const {
  std::vector<Cheque> cheques;
  ald::File file;
  ald::MultiLookup(&file, Path(), 1, 1, 0);
  if (file.nError != 0) return cheques;
  const ald::CFileGuard guard(file);
  for (;;) {
    Cheque cheque;  // a fresh one each time: an amount may not be laid over another one
    ald::ReadBlock(&file, sizeof cheque, &cheque);
    if (file.nError != 0 || file.nTransferred != sizeof cheque) break;
    if (cheque.amount.IsValid()) cheques.push_back(cheque);
  }
  return cheques;
}

}  // namespace alder_checks
