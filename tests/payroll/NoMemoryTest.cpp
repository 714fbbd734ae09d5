// Names when memory runs out.
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "aldlib/payroll/EmployeeName.h"
#include "aldlib/payroll/NameParser.h"
#include "tests/support/WatchedMemory.h"

namespace ald {
namespace {

// Too long for a string to hold without memory.
const std::string g_sFirst(40, 'A');
const std::string g_sLast(40, 'B');

TEST(NoMemory, LeavesAParserWithoutResultsOrWithAllOfThem) {
  CNameParser parser = CStdNameParserFactory().GetNameParser();
  parser.SetName(g_sFirst + " Q " + g_sLast + " Jr");
  bool bParsed = false;
  const int nRefused = RefuseEach([&] { bParsed = parser.ParseName(); },
                                  [&](bool bRefused) {
                                    EXPECT_EQ(bParsed, !bRefused);
                                    EXPECT_EQ(parser.NameIsParsed(), bParsed);
                                    EXPECT_EQ(parser.GetFirst(), bParsed ? g_sFirst : "");
                                    EXPECT_EQ(parser.GetLast(), bParsed ? g_sLast : "");
                                  });
  EXPECT_GT(nRefused, 4);
}

TEST(NoMemory, LetsAFactoryTryAgain) {
  std::optional<CStdNameParserFactory> factory;
  const int nRefused = RefuseEach([&] { factory.emplace().GetNameParser(); },
                                  [&](bool) {
                                    CNameParser parser = factory->GetNameParser();
                                    parser.SetName("Mr. John Smith V.");
                                    parser.ParseName();
                                    EXPECT_EQ(parser.GetLast() + parser.GetSuffix(), "SmithV");
                                    EXPECT_EQ(factory->IgnoreSuffixes()->size(), 92U);
                                  });
  EXPECT_GT(nRefused, 10);
}

TEST(NoMemory, LeavesAnEmployeeWithAWholeNameOrNone) {
  CEmployeeName name;
  const CString* psName = nullptr;
  const int nRefused = RefuseEach(
      [&] {
        name.SetMultiPartName(g_sFirst, g_sLast);
        psName = &name.ReturnSinglePartName(PRNameOrder::LastNameFirst);
      },
      [&](bool bRefused) {
        EXPECT_EQ(*psName, bRefused ? "" : g_sLast + ", " + g_sFirst);
        name = CEmployeeName();
      });
  EXPECT_GT(nRefused, 2);
}

}  // namespace
}  // namespace ald
