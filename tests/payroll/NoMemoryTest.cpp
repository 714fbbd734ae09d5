// Names when memory runs out: this program can make any single allocation of a text fail.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <optional>
#include <string>

#include "aldlib/payroll/EmployeeName.h"
#include "aldlib/payroll/NameParser.h"

namespace {

constinit int g_nUntilFailure = 0;

}  // namespace

// Not inlined, or the compiler sees a free of what came from a new.
[[gnu::noinline]] void* operator new(std::size_t nBytes) {
  void* const pBytes = --g_nUntilFailure == 0 ? nullptr : std::malloc(nBytes);
  if (pBytes == nullptr) throw std::bad_alloc();
  return pBytes;
}
[[gnu::noinline]] void operator delete(void* pBytes) noexcept {
  std::free(pBytes);
}
[[gnu::noinline]] void operator delete(void* pBytes, std::size_t) noexcept {
  std::free(pBytes);
}

namespace ald {
namespace {

// Too long for a string to hold without memory.
const std::string g_sFirst(40, 'A');
const std::string g_sLast(40, 'B');

// Lets the first allocation of the work fail, then its second, and so on until none does, with a
// look at the result each time. Returns how many failed.
template <class Work, class Check>
int FailEach(Work work, Check check) {
  for (int nFail = 1;; ++nFail) {
    g_nUntilFailure = nFail;
    work();
    const bool bFailed = g_nUntilFailure <= 0;
    g_nUntilFailure = 0;
    check(bFailed);
    if (!bFailed) return nFail - 1;
  }
}

TEST(NoMemory, LeavesAParserWithoutResultsOrWithAllOfThem) {
  CNameParser parser = CStdNameParserFactory().GetNameParser();
  parser.SetName(g_sFirst + " Q " + g_sLast + " Jr");
  bool bParsed = false;
  const int nFailures = FailEach([&] { bParsed = parser.ParseName(); },
                                 [&](bool bFailed) {
                                   EXPECT_EQ(bParsed, !bFailed);
                                   EXPECT_EQ(parser.NameIsParsed(), bParsed);
                                   EXPECT_EQ(parser.GetFirst(), bParsed ? g_sFirst : "");
                                   EXPECT_EQ(parser.GetLast(), bParsed ? g_sLast : "");
                                 });
  EXPECT_GT(nFailures, 4);
}

TEST(NoMemory, LetsAFactoryTryAgain) {
  std::optional<CStdNameParserFactory> factory;
  const int nFailures = FailEach([&] { factory.emplace().GetNameParser(); },
                                 [&](bool) {
                                   CNameParser parser = factory->GetNameParser();
                                   parser.SetName("Mr. John Smith V.");
                                   parser.ParseName();
                                   EXPECT_EQ(parser.GetLast() + parser.GetSuffix(), "SmithV");
                                   EXPECT_EQ(factory->IgnoreSuffixes()->size(), 92U);
                                 });
  EXPECT_GT(nFailures, 10);
}

TEST(NoMemory, LeavesAnEmployeeWithAWholeNameOrNone) {
  CEmployeeName name;
  const CString* psName = nullptr;
  const int nFailures = FailEach(
      [&] {
        name.SetMultiPartName(g_sFirst, g_sLast);
        psName = &name.ReturnSinglePartName(PRNameOrder::LastNameFirst);
      },
      [&](bool bFailed) {
        EXPECT_EQ(*psName, bFailed ? "" : g_sLast + ", " + g_sFirst);
        name = CEmployeeName();
      });
  EXPECT_GT(nFailures, 2);
}

}  // namespace
}  // namespace ald
