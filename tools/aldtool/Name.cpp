#include <iomanip>
#include <iostream>
#include <string>
#include <string_view>
#include <tuple>

#include "aldlib/payroll/EmployeeName.h"
#include "aldlib/payroll/NameParser.h"
#include "aldlib/platform/Characters.h"
#include "tools/aldtool/Commands.h"

namespace aldtool {

namespace {

void Line(const char* szWhat, std::string_view sText) {
  std::cout << "  " << std::left << std::setw(20) << szWhat
            << (sText.empty() ? "(none)" : ald::Utf8FromCodePage1252(sText)) << '\n';
}

ald::CNameParser Parsed(ald::CStdNameParserFactory& factory, const std::string& sName) {
  ald::CNameParser parser = factory.GetNameParser();
  parser.SetName(sName);
  parser.ParseName();
  return parser;
}

bool AreAlike(const ald::CNameParser& one, const ald::CNameParser& other) {
  const auto pieces = [](const ald::CNameParser& parser) {
    return std::tuple(parser.GetFirst(), parser.GetMiddle(), parser.GetLast(), parser.GetSuffix());
  };
  return pieces(one) == pieces(other);
}

void Show(const ald::CNameParser& parser) {
  Line("first name", parser.GetFirst());
  Line("middle name", parser.GetMiddle());
  Line("last name", parser.GetLast());
  Line("suffix", parser.GetSuffix());
}

// The two texts that an employee's record makes of the name.
void ShowMerged(ald::CStdNameParserFactory& factory, const std::string& sName) {
  ald::CEmployeeName name(-1, -1, -1, factory);
  name.SetSinglePartName(sName);
  std::string sFirst;
  std::string sMiddle;
  std::string sLast;
  name.ReturnMultiPartName(sFirst, sMiddle, sLast);
  name.SetMultiPartName(sFirst, sMiddle, sLast);
  Line("first name first", name.ReturnSinglePartName(ald::PRNameOrder::FirstNameFirst));
  Line("last name first", name.ReturnSinglePartName(ald::PRNameOrder::LastNameFirst));
}

}  // namespace

int RunName(const std::string& sTyped) {
  const std::string sName = ald::CodePage1252FromUtf8(sTyped);
  ald::CStdNameParserFactory standard;
  const ald::CNameParser parser = Parsed(standard, sName);
  Show(parser);
  ShowMerged(standard, sName);

  ald::CSurnameSafeNameParserFactory surnameSafe;
  const ald::CNameParser other = Parsed(surnameSafe, sName);
  if (!AreAlike(parser, other)) {
    std::cout << "Without the suffixes that are also last names or initials\n";
    Show(other);
    ShowMerged(surnameSafe, sName);
  }
  return kGood;
}

}  // namespace aldtool
