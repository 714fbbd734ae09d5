#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "aldlib/payroll/EmployeeName.h"
#include "aldlib/payroll/NameParser.h"

namespace ald {
namespace {

using Row = std::vector<std::string>;

std::string Field(const std::string& sText) {
  const std::size_t nStart = sText.find_first_not_of(' ');
  if (nStart == std::string::npos) return "";
  const std::string sField = sText.substr(nStart, sText.find_last_not_of(' ') + 1 - nStart);
  return sField.front() == '"' ? sField.substr(1, sField.size() - 2) : sField;
}

// The rows of one part of names.txt, without the row of headings. Each has five fields.
std::vector<Row> RowsOf(const std::string& sPart) {
  std::vector<Row> rows;
  std::ifstream file(NAMES);
  bool bInPart = false;
  for (std::string sLine; std::getline(file, sLine);) {
    if (sLine.starts_with("== ")) bInPart = sLine == "== " + sPart;
    if (!bInPart || sLine.find('|') == std::string::npos) continue;
    Row& row = rows.emplace_back();
    std::istringstream fields(sLine + ' ');
    for (std::string sField; std::getline(fields, sField, '|');) row.push_back(Field(sField));
    EXPECT_EQ(row.size(), 5U) << sLine;
    row.resize(5);
  }
  EXPECT_GT(rows.size(), 2U) << "no rows below == " << sPart;
  if (!rows.empty()) rows.erase(rows.begin());
  return rows;
}

Row Parsed(CNameParser& parser, const std::string& sName) {
  parser.SetName(sName);
  EXPECT_TRUE(parser.ParseName());
  EXPECT_TRUE(parser.NameIsParsed());
  return {sName, parser.GetFirst(), parser.GetMiddle(), parser.GetLast(), parser.GetSuffix()};
}

TEST(NameParser, SplitsNamesByTheStandardLists) {
  CNameParser parser = CStdNameParserFactory().GetNameParser();
  for (const Row& row : RowsOf("Standard lists")) EXPECT_EQ(Parsed(parser, row[0]), row);
}

TEST(NameParser, KeepsSurnamesThatLookLikeSuffixesIfAskedTo) {
  CNameParser parser = CSurnameSafeNameParserFactory().GetNameParser();
  for (const Row& row : RowsOf("Surname-safe lists")) EXPECT_EQ(Parsed(parser, row[0]), row);
}

TEST(NameParser, TellsSuffixesByTheirCaseIfAskedTo) {
  CNameParser parser = CStdNameParserFactory().GetNameParser();
  parser.IgnoreSuffixCase(false);
  for (const Row& row : RowsOf("Exact case")) EXPECT_EQ(Parsed(parser, row[0]), row);
}

TEST(NameParser, ReadsBothOrdersAlikeWhereverTheSuffixStands) {
  CNameParser parser = CStdNameParserFactory().GetNameParser();
  const char* const aszWords[] = {"Anna", "Q.", "de", "Pell", "O'Neil", "Jos\xE9", "Y"};
  std::mt19937 random(7);
  for (int nRound = 0; nRound < 2000; ++nRound) {
    const auto word = [&] { return std::string(aszWords[random() % std::size(aszWords)]); };
    const std::string sFirst = word();
    const std::string sLast = word();
    std::string sMiddle;
    for (auto n = random() % 3; n > 0; --n) sMiddle += (sMiddle.empty() ? "" : " ") + word();
    const std::string sGiven = sFirst + (sMiddle.empty() ? "" : " ") + sMiddle;
    const std::string sSuffix = random() % 2 == 0 ? "Jr" : "iv";
    for (const std::string& sName :
         {sGiven + ' ' + sLast + ' ' + sSuffix, sGiven + ' ' + sLast + " , " + sSuffix + '.',
          sLast + ' ' + sSuffix + "., " + sGiven, sLast + ", " + sSuffix + ' ' + sGiven,
          sLast + ", " + sGiven + ",," + sSuffix + ',', sSuffix + ' ' + sGiven + '\t' + sLast}) {
      ASSERT_EQ(Parsed(parser, sName), (Row{sName, sFirst, sMiddle, sLast, sSuffix}));
    }
  }
}

// Lets a test see the list through the eyes of a derived parser.
struct OpenParser : CNameParser {
  using CNameParser::FindInSuffixList;
};

TEST(SuffixList, IsSearchedByTheCaseRuleButChangedByExactText) {
  OpenParser parser;
  EXPECT_EQ(parser.FindInSuffixList("AB"), -1);
  parser.AddIgnoreSuffix("AB");
  parser.AddIncludeSuffix("JR");
  parser.AddIncludeSuffix("AB");
  EXPECT_EQ(parser.FindInSuffixList("ab"), 0);
  EXPECT_EQ(parser.FindInSuffixList(""), -1);
  EXPECT_FALSE(parser.RemoveIgnoreSuffix("ab"));
  EXPECT_FALSE(parser.RemoveIgnoreSuffix("JR"));  // of the other kind
  EXPECT_EQ(Parsed(parser, "Al Ab")[4], "");      // the first entry decides
  EXPECT_TRUE(parser.RemoveIgnoreSuffix("AB"));
  EXPECT_EQ(Parsed(parser, "Al Ab")[4], "Ab");
  parser.SetIgnoreSuffixes({"MR", "DR"});
  parser.ClearIncludeSuffixes();
  EXPECT_EQ(parser.FindInSuffixList("jr"), -1);
  EXPECT_EQ(parser.FindInSuffixList("dr"), 1);
}

TEST(NameParserFactory, HandsOutItsListsOnceTheParserWasAskedFor) {
  CStdNameParserFactory factory;
  EXPECT_TRUE(factory.IgnoreSuffixes()->empty() && factory.IncludeSuffixes()->empty());
  const CNameParser& parser = factory.GetNameParser();
  EXPECT_EQ(&factory.GetNameParser(), &parser);
  EXPECT_EQ(factory.IgnoreSuffixes()->size(), 92U);
  EXPECT_EQ(factory.IncludeSuffixes()->size(), 14U);
  EXPECT_EQ(factory.IgnoreSuffixes()->at(1), "AB.");
}

TEST(NameParser, ForgetsItsResultsWithANewName) {
  CNameParser parser = CStdNameParserFactory().GetNameParser();
  EXPECT_EQ(parser.GetMiddleInitial(), ' ');
  Parsed(parser, "John Quincy Smith Jr");
  EXPECT_EQ(parser.GetMiddleInitial(), 'Q');
  const CNameParser copy = parser;
  parser.SetName(" Ann ");
  EXPECT_EQ(parser.GetFullName(), "Ann");
  EXPECT_EQ(parser.GetFirst() + parser.GetMiddle() + parser.GetLast() + parser.GetSuffix(), "");
  EXPECT_FALSE(parser.NameIsParsed());
  EXPECT_EQ(copy.GetLast(), "Smith");
}

TEST(EmployeeName, MergesItsPartsInEitherOrder) {
  for (const Row& row : RowsOf("Merged")) {
    CEmployeeName name;
    name.SetMultiPartName(row[0], row[1], row[2]);
    EXPECT_EQ(name.ReturnSinglePartName(PRNameOrder::FirstNameFirst), row[3]);
    EXPECT_EQ(name.ReturnSinglePartName(PRNameOrder::LastNameFirst), row[4]);
    EXPECT_EQ(name.ReturnSinglePartName(static_cast<PRNameOrder>(-7)), row[4]);
  }
}

Row PartsOf(CEmployeeName& name) {
  Row parts(3);
  name.ReturnMultiPartName(parts[0], parts[1], parts[2]);
  return parts;
}

TEST(EmployeeName, CutsEachPartToItsWidthWhenItTakesATextApart) {
  for (const Row& row : RowsOf("Cut to widths")) {
    int anWidths[3] = {};
    std::istringstream(row[1]) >> anWidths[0] >> anWidths[1] >> anWidths[2];
    CEmployeeName name(anWidths[0], anWidths[1], anWidths[2]);
    name.SetSinglePartName(row[0]);
    EXPECT_EQ(name.ReturnSinglePartName(PRNameOrder::LastNameFirst), row[0]);  // uncut so far
    EXPECT_EQ(PartsOf(name), Row(row.begin() + 2, row.end())) << row[0] << ", " << row[1];
  }
}

TEST(EmployeeName, KeepsAMiddleNameUntilTheTextHasBeenAskedFor) {
  CEmployeeName name(6, 6, 6);
  name.SetMultiPartName("Johnny", "Quincy", "Smithson");
  EXPECT_EQ(PartsOf(name), (Row{"Johnny", "Quincy", "Smiths"}));
  EXPECT_EQ(name.ReturnSinglePartName(PRNameOrder::FirstNameFirst), "Johnny Q. Smiths");
  EXPECT_EQ(PartsOf(name), (Row{"Johnny", "Q", "Smiths"}));
  name.SetMultiPartName("Anna", "Pell");
  EXPECT_EQ(PartsOf(name), (Row{"Anna", "", "Pell"}));
  name.SetMultiPartName("Anna");
  EXPECT_EQ(PartsOf(name), (Row{"Anna", "", ""}));
  name.SetSinglePartName("  John  ");
  EXPECT_EQ(name.ReturnSinglePartName(PRNameOrder::FirstNameFirst), "John");
}

TEST(EmployeeName, TakesNamesApartAsTheGivenFactoryDoes) {
  CSurnameSafeNameParserFactory factory;
  CEmployeeName name(-1, -1, -1, factory);
  name.SetSinglePartName("Andrew Ma");
  EXPECT_EQ(PartsOf(name), (Row{"Andrew", "", "Ma"}));
}

}  // namespace
}  // namespace ald
