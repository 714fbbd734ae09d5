#include "aldlib/messages/MessageLog.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <new>

#include "aldlib/files/Filesyst.h"
#include "aldlib/frame/Alderlib.h"
#include "aldlib/frame/MemStore.h"
#include "aldlib/text/FixedString.h"
#include "aldlib/text/Strings.h"

namespace ald {
namespace {

constexpr std::size_t kNumberWidth = 5;
constexpr std::size_t kTextStart = 7;
constexpr std::size_t kTextEnd = 76;
constexpr std::string_view kUnusedEnd("\r\n\0", 3);
constexpr std::string_view kUsedEnd(" \n\0", 3);
static_assert(kTextEnd + kUnusedEnd.size() == kLogRecordSize);
static_assert(kTextEnd + kUsedEnd.size() == kLogRecordSize);

constexpr MessageArgument kLastNumber = 65535;

LogRecord RecordEndingIn(std::string_view sEnd) {
  LogRecord record;
  record.fill(' ');
  std::copy(sEnd.begin(), sEnd.end(), record.begin() + kTextEnd);
  return record;
}

// What stands at a place of the log that was never written.
char UnusedByte(std::size_t nOffset) {
  const std::size_t nInRecord = nOffset % kLogRecordSize;
  return nInRecord < kTextEnd ? ' ' : kUnusedEnd[nInRecord - kTextEnd];
}

// A block of the memory store, given back at the end.
class LogBlock {
 public:
  LogBlock() : m_pBytes(static_cast<char*>(_RealAllocate(kLogSize))) {}
  LogBlock(const LogBlock&) = delete;
  LogBlock& operator=(const LogBlock&) = delete;
  ~LogBlock() { _RealDeAllocate(m_pBytes); }

  char* Bytes() const { return m_pBytes; }

 private:
  char* m_pBytes;
};

bool LogPath(CPathNameString& sPath) {
  const std::string_view sFolder =
      internal::TextView(MyAlderLibDataPtr->szDataPath, sizeof MyAlderLibDataPtr->szDataPath);
  if (sFolder.size() + std::strlen(kLogFileName) >= static_cast<std::size_t>(sPath.GetSize())) {
    return false;
  }
  internal::CopyText(sPath, sPath.GetSize(), sFolder);
  sstrcat(sPath, kLogFileName, sPath.GetSize());
  return true;
}

// The log opened for reading and writing with other writers denied, so that no record is half
// another process's: whoever comes second leaves its own out.
class OpenLog {
 public:
  explicit OpenLog(const CPathNameString& sPath) {
    Lookup(&m_file, sPath, 1);
    m_bOpen = m_file.nError == 0;
  }
  OpenLog(const OpenLog&) = delete;
  OpenLog& operator=(const OpenLog&) = delete;
  ~OpenLog() {
    if (m_bOpen) Close(&m_file);
  }

  // False if it is not open or cannot be read: what cannot be read is not written over. A log that
  // was just made is read too, since bCreated is also set where a former one was hard to open.
  bool Read(char* pBytes, std::size_t& nRead) {
    const bool bRead = m_bOpen && ReadBlock(&m_file, kLogSize, pBytes);
    nRead = m_file.nTransferred;
    return bRead;
  }

  // The whole log in one write over the former one: a process that is killed leaves the one or the
  // other, and whatever a failing disk leaves is read as far as it goes.
  void Write(const char* pBytes) {
    SetPos(&m_file, 0);
    std::int32_t nPosition = -1;
    GetPos(&m_file, &nPosition);  // a move that fails is not told in another way
    if (nPosition != 0) return;
    WriteBlock(&m_file, kLogSize, pBytes);
  }

 private:
  File m_file{};
  bool m_bOpen = false;
};

// Returns whether the field holds a number as ComposeLogRecord writes it, or none.
bool ReadNumber(std::string_view sField, std::uint16_t& nNumber) {
  nNumber = 0;
  sField.remove_prefix(std::min(sField.find_first_not_of(' '), sField.size()));
  if (sField.empty()) return true;
  const char* const pEnd = sField.data() + sField.size();
  const auto result = std::from_chars(sField.data(), pEnd, nNumber);
  return result.ec == std::errc{} && result.ptr == pEnd;
}

}  // namespace

LogRecord BlankLogRecord() noexcept {
  return RecordEndingIn(kUnusedEnd);
}

LogRecord ComposeLogRecord(MessageArgument message, std::string_view sText) noexcept {
  LogRecord record = RecordEndingIn(kUsedEnd);
  if (message > 0 && message <= kLastNumber) {
    char szNumber[kNumberWidth];
    const char* const pEnd = std::to_chars(szNumber, std::end(szNumber), message).ptr;
    std::copy_backward(szNumber, szNumber + (pEnd - szNumber), record.begin() + kNumberWidth);
  }
  sText = sText.substr(0, std::min(sText.find('\0'), kTextEnd - kTextStart));
  std::copy(sText.begin(), sText.end(), record.begin() + kTextStart);
  return record;
}

void AddLogRecord(std::span<char, kLogSize> log, std::size_t nRead,
                  const LogRecord& record) noexcept {
  for (std::size_t i = nRead; i < log.size(); ++i) log[i] = UnusedByte(i);
  std::copy_backward(log.begin(), log.end() - kLogRecordSize, log.end());
  std::copy(record.begin(), record.end(), log.begin());
}

void SaveTheMessage(MessageArgument message, const char* szText) noexcept try {
  if (MyAlderLibDataPtr == nullptr) return;
  const LogBlock block;
  CPathNameString sPath;
  if (block.Bytes() == nullptr || !LogPath(sPath)) return;
  OpenLog log(sPath);
  std::size_t nRead = 0;
  if (!log.Read(block.Bytes(), nRead)) return;
  AddLogRecord(std::span<char, kLogSize>(block.Bytes(), kLogSize), nRead,
               ComposeLogRecord(message, internal::ViewOrEmpty(szText)));
  log.Write(block.Bytes());
} catch (const std::bad_alloc&) {
  // No memory below: no log.
}

bool ReadMessageLog(std::string_view bytes, std::vector<LoggedMessage>& messages) noexcept try {
  const LogRecord unused = BlankLogRecord();
  const std::string_view sUnused(unused.data(), unused.size());
  for (bytes = bytes.substr(0, kLogSize); !bytes.empty();) {
    const std::string_view sRecord = bytes.substr(0, kLogRecordSize);
    bytes.remove_prefix(sRecord.size());
    if (sUnused.starts_with(sRecord)) continue;  // a cut one among them
    LoggedMessage logged{};
    if (sRecord.size() < kTextStart) {
      return ReadNumber(sRecord.substr(0, kNumberWidth), logged.nNumber);
    }
    const std::string_view sEnd = sRecord.substr(std::min(kTextEnd, sRecord.size()));
    if (!kUsedEnd.starts_with(sEnd) ||
        !ReadNumber(sRecord.substr(0, kNumberWidth), logged.nNumber)) {
      return false;
    }
    const std::string_view sText = sRecord.substr(kTextStart, kTextEnd - kTextStart);
    logged.sText = sText.substr(0, sText.find_last_not_of(' ') + 1);
    messages.push_back(logged);
  }
  return true;
} catch (const std::bad_alloc&) {
  return false;
}

}  // namespace ald
