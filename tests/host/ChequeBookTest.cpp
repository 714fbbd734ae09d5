#include "host/ChequeBook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "aldlib/arith/DecimalLiteral.h"
#include "aldlib/files/Filesyst.h"
#include "host/Texts.h"
#include "tests/support/FakePlatform.h"

namespace alder_checks {
namespace {

using namespace ald::literals;
using testing::SizeIs;

constexpr Cheque kCheque{{4, 7, 2003}, 1234.5_dec, "Ada Lovelace", 6100};

class ChequeBookTest : public testing::Test {
 protected:
  ChequeBookTest() {
    RegisterTexts();
    m_platform.m_disk.Write("C:\\BOOKS\\README.TXT", "");
  }

  ald::CString Bytes() {
    ald::MemoryNodePtr pFile;
    m_platform.m_disk.Find("C:\\BOOKS\\CHEQUES.DAT", pFile);
    return pFile != nullptr ? pFile->sData : "";
  }

  ald::FakePlatform m_platform;
  ChequeBook m_book{"C:\\BOOKS\\"};
};

TEST_F(ChequeBookTest, KeepsARecordOfSixtyBytesForACheque) {
  ASSERT_TRUE(m_book.Record(kCheque));
  ald::CString sBytes("\x04\x07\xD3\x07", 4);                      // 2003 is 0x07D3
  sBytes += ald::CString("\0\0\0\0\0\x12\x34\x50\0\0\0\x0F", 12);  // digits, then the sign
  sBytes += "Ada Lovelace" + ald::CString(28, '\0') + ald::CString("\xD4\x17\0\0", 4);
  EXPECT_EQ(Bytes(), sBytes);
}

TEST_F(ChequeBookTest, PutsTheNextChequeInPlaceOfARecordThatACrashCutShort) {
  EXPECT_THAT(m_book.ReadAll(), SizeIs(0));
  ASSERT_TRUE(m_book.Record(kCheque));
  m_platform.m_disk.Write("C:\\BOOKS\\CHEQUES.DAT", Bytes() + "torn");
  EXPECT_THAT(m_book.ReadAll(), SizeIs(1));
  Cheque next = kCheque;
  next.nAccount = 6200;
  ASSERT_TRUE(m_book.Record(next));
  ASSERT_THAT(m_book.ReadAll(), SizeIs(2));
  EXPECT_EQ(m_book.ReadAll()[0].sPayee, kCheque.sPayee);
  EXPECT_EQ(m_book.ReadAll()[0].amount, kCheque.amount);
  EXPECT_EQ(m_book.ReadAll()[1].nAccount, 6200);
}

TEST_F(ChequeBookTest, TellsOfEveryFailureAndLeavesNoFileOpen) {
  ASSERT_TRUE(m_book.Record(kCheque));
  for (int nCall = 1;; ++nCall) {
    const std::size_t nCheques = m_book.ReadAll().size();
    const std::size_t nBoxes = m_platform.m_desktop.Boxes().size();
    m_platform.m_files.FailCall(nCall, ald::kDiskFull);
    const bool bRecorded = m_book.Record(kCheque);
    const bool bFailed = m_platform.m_files.HasFailed();
    m_platform.m_files.FailCall(0);
    EXPECT_EQ(m_platform.m_files.OpenHandles(), 0U) << nCall;
    // A failure behind the write may leave the cheque in the book, but never unsaid.
    EXPECT_EQ(m_platform.m_desktop.Boxes().size(), nBoxes + (bRecorded ? 0 : 1)) << nCall;
    EXPECT_GE(m_book.ReadAll().size(), nCheques + (bRecorded ? 1 : 0)) << nCall;
    if (!bFailed) break;
  }
}

TEST_F(ChequeBookTest, AsksWhetherToWaitWhileSomebodyElseWrites) {
  m_platform.m_disk.Write("C:\\BOOKS\\SUA00001.LCK", "");
  ald::File other;
  ald::Create32(&other, "C:\\BOOKS\\SUA00001.LCK");
  m_platform.m_desktop.Answer({ald::kButtonRetry, ald::kButtonCancel});
  EXPECT_FALSE(m_book.Record(kCheque));
  EXPECT_EQ(m_platform.m_desktop.Boxes().size(), 2U);
  EXPECT_EQ(m_platform.m_desktop.Boxes()[0].sText, "Somebody else is recording a cheque.");
  EXPECT_EQ(Bytes(), "");
  ald::Close(&other);
  EXPECT_TRUE(m_book.Record(kCheque));
}

}  // namespace
}  // namespace alder_checks
