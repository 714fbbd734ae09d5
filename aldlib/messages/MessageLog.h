#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "aldlib/frame/MessageArgument.h"
#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

// The log of the last 50 messages that the user has seen: "ERRORLOG.TXT" in the data folder, newest
// first. It is a stored format of fixed size, 50 records of 79 bytes:
//
//   0 to 4    the number of the message, right-aligned; blank for a message without one
//   5 to 6    blanks
//   7 to 75   the first 69 characters of the text, less its first signs; blanks behind it
//   76 to 78  blank, line feed, zero;  in a record never used: carriage return, line feed, zero
//
// A log cut short, as a crash or a full disk can leave it, is read as far as it goes: the rest
// counts as never used.
namespace ald {

constexpr std::size_t kLogRecordSize = 79;
constexpr std::size_t kLogRecordCount = 50;
constexpr std::size_t kLogSize = kLogRecordSize * kLogRecordCount;
static_assert(kLogSize == 3950);

constexpr const char* kLogFileName = "ERRORLOG.TXT";

using LogRecord = std::array<char, kLogRecordSize>;

// Returns the record of a message. Bytes of the text go in as they are, line feeds among them; it
// ends at its first zero.
ALDLIB_EXPORT LogRecord ComposeLogRecord(MessageArgument message, std::string_view sText) noexcept;

// Returns the record that has never been used.
ALDLIB_EXPORT LogRecord BlankLogRecord() noexcept;

// Makes the bytes of the next log out of those of the log so far, of which `nRead` are there (more
// than the log has do not count): the record comes first, and the oldest drops out.
ALDLIB_EXPORT void AddLogRecord(std::span<char, kLogSize> log, std::size_t nRead,
                                const LogRecord& record) noexcept;

// Enters a message into the log in the data folder, and makes the file if there is none. Nothing is
// reported: a message is never held back by its log. Nothing is written without the library's
// record or without memory, while another process has the file open for writing, or if the path has
// no room in 260 bytes.
ALDLIB_EXPORT void SaveTheMessage(MessageArgument message, const char* szText) noexcept;

// One message of a log.
struct LoggedMessage {
  std::uint16_t nNumber;  // 0 for none
  CString sText;          // without the blanks at its end
};

// Reads the messages of a log, newest first, without the records that were never used. False, with
// the messages up to there, if a record is not what a log holds, or if memory is short.
ALDLIB_EXPORT bool ReadMessageLog(std::string_view bytes,
                                  std::vector<LoggedMessage>& messages) noexcept;

}  // namespace ald
