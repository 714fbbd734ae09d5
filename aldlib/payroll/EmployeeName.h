#pragma once

#include <cstdint>

#include "aldlib/payroll/NameParser.h"
#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

namespace ald {

// The order of a merged name. Every value but 0 is last name first.
enum class PRNameOrder : std::int32_t { FirstNameFirst = 0, LastNameFirst = 1 };

// The name of an employee, as one text and in parts of the widths that a record has for them. Set
// either, ask for either:
//
//   CEmployeeName name(15, 1, 20);
//   name.SetMultiPartName("John", "Quincy", "Smith");
//   name.ReturnSinglePartName(PRNameOrder::LastNameFirst);   // "Smith, John Q."
//
// What was set last is what counts, but asking for the one text fills it from the parts, and once
// it is there, asking for the parts takes them from it. So a middle name survives until somebody
// asks for the text, and then is an initial.
//
// Widths are bytes of code page 1252, which are characters. A negative one sets no limit, and 0
// empties the part. Where memory runs out the name, or what was asked for, is empty;
// nothing throws.
class ALDLIB_EXPORT CEmployeeName {
 public:
  // Without limits.
  CEmployeeName();
  // Names are taken apart by the standard parser.
  CEmployeeName(int nFirstWidth, int nMiddleWidth, int nLastWidth);
  // By a copy of the factory's parser, such as one that keeps last names like "Ma".
  CEmployeeName(int nFirstWidth, int nMiddleWidth, int nLastWidth, CStdNameParserFactory& factory);

  // Stores the text, however long, and empties the parts.
  void SetSinglePartName(const CString& sName);
  // Store the parts, each cut at its width, and empty the rest. Mind that two parts are first and
  // last, not first and middle.
  void SetMultiPartName(const CString& sFirst);
  void SetMultiPartName(const CString& sFirst, const CString& sLast);
  void SetMultiPartName(const CString& sFirst, const CString& sMiddle, const CString& sLast);

  // The name as one text of any length, without blanks at its ends. Parts, if there are any, are
  // merged into it, the middle name as its initial. The text stands until the next call.
  //   "John" "Quincy" "Smith"   ->  "John Q. Smith"   or  "Smith, John Q."
  //   "" "Quincy" ""            ->  "Q."
  const CString& ReturnSinglePartName(PRNameOrder eOrder);
  // The parts, cut at their widths. If there is a text it is parsed first; its suffix follows the
  // last name, so a width too small loses the suffix first.
  //   "John Smithson Jr."       ->  "John" "" "Smithson Jr", or "Smithson" with the width 8
  void ReturnMultiPartName(CString& sFirst, CString& sMiddle, CString& sLast);

 protected:
  // Makes the text from the parts; without any, only takes the blanks off its ends.
  void MergeString(PRNameOrder eOrder);
  void TruncateNameParts();

 private:
  CNameParser m_parser;
  CString m_sSinglePart;
  CString m_sFirst;
  CString m_sMiddle;
  CString m_sLast;
  int m_nFirstWidth = -1;
  int m_nMiddleWidth = -1;
  int m_nLastWidth = -1;
};

}  // namespace ald
