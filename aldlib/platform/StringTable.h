#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

namespace ald {

// The numbered texts of one module, built in code or read from a text file, so that a module's
// texts can be a file and so can a translation of them. Texts are bytes of code page 1252.
//
// The file has one text a line: the number (0 to 65535), one blank or tab, then the text up to the
// end of the line. Blanks before the number are allowed. A line of blanks alone, or one that begins
// with "#", is passed over. "\n", "\r", "\t", "\\" and "\xHH" (two hexadecimal digits, not 00)
// stand for one character each:
//
//   # Messages of the payroll module
//   30100 @The state\'s table is missing.        an error: \' is no escape
//   30101 *Done.\r\nPrint the checks now?        the text has two lines
//   30102 *50 \x80                               the sign at 0x80 of the code page
//
// An empty text cannot be told from a missing one when it is loaded, so a number without a text is
// an error.
class ALDLIB_EXPORT StringTable {
 public:
  // Adds one text. Returns false, and changes nothing, if the number is there already, the text is
  // empty or contains a zero byte, or there is no memory.
  bool Add(std::uint16_t nNumber, std::string_view text) noexcept;

  // Adds every text of the file, or none. Returns false on any error, with `sError` saying where
  // and why: "texts.txt:12: number 30101 stands here for the second time". Numbers that the table
  // holds already count as duplicates. With no memory left `sError` may be empty.
  bool AddFile(const CString& sPath, CString& sError) noexcept;

  // As AddFile, from memory; `sourceName` stands for the file's name in `sError`.
  bool AddLines(std::string_view lines, std::string_view sourceName, CString& sError) noexcept;

  // Returns the text of the number, or null.
  const CString* Find(std::uint32_t nNumber) const noexcept;

  std::size_t Count() const { return m_texts.size(); }

 private:
  std::map<std::uint16_t, CString> m_texts;
};

}  // namespace ald
