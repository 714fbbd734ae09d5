#include "host/WriteChecksScreen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "aldlib/arith/DecimalLiteral.h"
#include "aldlib/dates/Calendar.h"
#include "aldlib/messages/MessageLog.h"
#include "aldlib/screens/Controls.h"
#include "aldlib/screens/HelpLevel.h"
#include "aldlib/screens/Layout.h"
#include "aldlib/screens/MessagePump.h"
#include "aldlib/screens/WindowTable.h"
#include "host/EditKinds.h"
#include "host/Texts.h"
#include "tests/support/FakePlatform.h"

namespace alder_checks {
namespace {

using namespace ald::literals;
using ald::WindowHandle;
using testing::ElementsAre;
using testing::Field;
using testing::SizeIs;

constexpr std::uint32_t kTabKey = 0x09;
constexpr std::uint32_t kF1Key = 0x70;

// A person in front of the form, on July 4, 2003.
class WriteChecks : public testing::Test {
 protected:
  WriteChecks() {
    RegisterTexts();
    EXPECT_TRUE(RegisterEditKinds());
    m_platform.m_disk.Write("C:\\BOOKS\\README.TXT", "");
    ald::sstrcpy(ald::MyAlderLibDataPtr->szDataPath, "C:\\BOOKS\\", 260);
    ald::ClearDate(ald::TodaysDate);
    ald::ColorMapperInit({}, 0);
    m_hScreen = Open(1);
  }
  ~WriteChecks() override { ald::ColorMapperDispose(); }

  WindowHandle Open(std::uint16_t nMenuId) {
    return WriteChecksScreen::Open({}, m_book, m_choices, nMenuId);
  }
  WindowHandle Control(int nId) { return m_windows.Child(m_hScreen, nId); }
  ald::CString Text(int nId) { return m_windows.Text(Control(nId)); }
  void Type(int nId, std::string_view sText) { EXPECT_TRUE(m_desktop.Type(Control(nId), sText)); }
  void Press(int nId) { EXPECT_TRUE(m_desktop.Press(m_hScreen, nId)); }
  // Serves what waits as the event loop of a program does.
  void Pump() {
    ald::WindowMessage message{};
    while (m_desktop.Ports().queue.Peek(message, true)) ald::Dispatch(&message);
  }
  void Key(std::uint32_t nKey) {
    EXPECT_TRUE(m_desktop.Key(nKey));
    Pump();
  }
  // Fills in a good cheque, but for what the test changes afterwards.
  void FillIn() {
    m_desktop.Choose(Control(kPayee), 1);
    Type(kDate, "7/1");
    Type(kAmount, "1234.5");
    m_windows.SetFocus(Control(kAccounts));
    m_desktop.Choose(Control(kAccounts), 2);
  }
  ald::Rect PlaceOf(int nId) {
    const ald::Rect rect = m_windows.WindowRect(Control(nId));
    const ald::Point at = m_windows.ToClient(m_hScreen, {rect.left, rect.top});
    return {at.x, at.y, at.x + rect.Width(), at.y + rect.Height()};
  }
  std::vector<ald::LoggedMessage> Logged() {
    ald::MemoryNodePtr pLog;
    m_platform.m_disk.Find("C:\\BOOKS\\ERRORLOG.TXT", pLog);
    std::vector<ald::LoggedMessage> messages;
    EXPECT_TRUE(ald::ReadMessageLog(pLog != nullptr ? pLog->sData : "", messages));
    return messages;
  }

  ald::FakePlatform m_platform;
  ald::HeadlessDesktop& m_desktop = m_platform.m_desktop;
  ald::Windows& m_windows = m_desktop.Ports().windows;
  ChequeBook m_book{"C:\\BOOKS\\"};
  ChequeChoices m_choices{{"Ada Lovelace", "Blaise Pascal"},
                          {{6100, "Rent"}, {6200, "Power"}, {6300, "Postage"}},
                          "Checking"};
  WindowHandle m_hScreen{};
};

TEST_F(WriteChecks, RecordsWhatWasTypedAndIsReadyForTheNext) {
  FillIn();
  EXPECT_EQ(Text(kAmount), "1,234.50");
  EXPECT_EQ(Text(kWords), "One Thousand Two Hundred Thirty-Four and 50/100 Dollars");
  EXPECT_EQ(Text(kAccountName), "Postage");
  EXPECT_EQ(Text(kAccountDebit) + "|" + Text(kAccountCredit), "1,234.50|");
  EXPECT_EQ(Text(kCheckingDebit) + "|" + Text(kCheckingCredit), "|1,234.50");
  Press(kRecord);
  ASSERT_THAT(m_book.ReadAll(), SizeIs(1));
  const Cheque cheque = m_book.ReadAll()[0];
  EXPECT_EQ(cheque.date, (ald::DatesType{1, 7, 2003}));
  EXPECT_EQ(cheque.amount, 1234.5_dec);
  EXPECT_STREQ(cheque.sPayee, "Blaise Pascal");
  EXPECT_EQ(cheque.nAccount, 6300);
  EXPECT_EQ(Text(kBook), "Cheques in the book: 1, in all 1,234.50");
  EXPECT_EQ(Text(kPayee) + Text(kAmount) + Text(kWords) + Text(kAccountDebit), "");
  EXPECT_EQ(Text(kDate), "Jul 4, 2003");
  EXPECT_EQ(m_windows.Focus(), Control(kPayee));
  EXPECT_THAT(m_desktop.Boxes(), SizeIs(0));
}

TEST_F(WriteChecks, RefusesWhatMakesNoChequeByAMessageThatIsLogged) {
  const struct {
    std::function<void()> spoil;
    std::uint16_t nMessage;
    const char* szText;
    std::int32_t nFocus;
  } rows[] = {
      {[&] { m_desktop.Ports().controls.Select(Control(kPayee), -1); }, kTextNoPayee,
       "Choose whom the cheque is for.", kPayee},
      {[&] { Type(kDate, "2/30"); }, 20311, "Invalid date", kDate},
      {[&] { Type(kDate, "soon"); }, 20311, "Invalid date", kDate},
      {[&] { Type(kAmount, "twelve"); }, kTextNoAmount, "Type an amount above zero.", kAmount},
      {[&] { Type(kAmount, "(12)"); }, kTextNoAmount, "Type an amount above zero.", kAmount},
      {[&] { Type(kAmount, "0.004"); }, kTextNoAmount, "Type an amount above zero.", kAmount},
      {[&] { Type(kAmount, "1000000000"); }, kTextAmountTooLarge,
       "A cheque cannot be written for more than 999,999,999.99.", kAmount},
      {[&] { m_desktop.Ports().controls.Select(Control(kAccounts), -1); }, kTextNoAccount,
       "Choose the account that the money is spent on.", kAccounts},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.nMessage);
    FillIn();
    row.spoil();
    Press(kRecord);
    EXPECT_EQ(m_desktop.Boxes().back().sText, row.szText);
    EXPECT_EQ(m_desktop.Boxes().back().nFlags & ald::kBoxHelp, ald::kBoxHelp);
    EXPECT_EQ(m_windows.Focus(), Control(row.nFocus));
    EXPECT_EQ(Logged().front().nNumber, row.nMessage);
  }
  EXPECT_THAT(Logged(), SizeIs(std::size(rows)));
  EXPECT_THAT(m_book.ReadAll(), SizeIs(0));
}

TEST_F(WriteChecks, PutsWhatWasTypedInOrderWhenItIsLeft) {
  const struct {
    int nControl;
    const char* szTyped;
    const char* szShown;
  } rows[] = {
      {kDate, "0229", "0229"},  // no such day in 2003: it stays for the user to mend
      {kDate, "8/15/49", "Aug 15, 2049"},
      {kDate, "Dec 5, 2004", "Dec 5, 2004"},
      {kDate, "20", "Jul 20, 2003"},
      {kAmount, "7", "7.00"},
      {kAmount, "1,000.005", "1,000.01"},
      {kAmount, "999999999.99", "999,999,999.99"},
      {kAmount, "1000000000", "1000000000"},
      {kAmount, "1o", "1o"},
  };
  for (const auto& row : rows) {
    Type(row.nControl, row.szTyped);
    Key(kTabKey);
    EXPECT_EQ(Text(row.nControl), row.szShown);
  }
}

TEST_F(WriteChecks, KeepsADateOfAnyYearThroughItsText) {
  for (const std::uint16_t nYear : std::initializer_list<std::uint16_t>{1901, 1949, 2050, 2099}) {
    const ald::DatesType date{31, 12, nYear};
    ald::SetDlgItemDate(m_hScreen, kDate, date);
    ald::DatesType read{};
    EXPECT_EQ(ald::GetDlgItemDate(m_hScreen, kDate, &read), 1) << nYear;
    EXPECT_EQ(read, date);
  }
}

TEST_F(WriteChecks, AsksBeforeWhatWasTypedIsLost) {
  Type(kAmount, "12");
  m_desktop.Answer(ald::kButtonCancel);
  Press(kClose);
  ASSERT_TRUE(m_windows.IsWindow(m_hScreen));
  // Saving is asked for but fails: the cheque has no payee.
  m_desktop.Answer({ald::kButtonYes, ald::kButtonOk});
  Press(kClose);
  ASSERT_TRUE(m_windows.IsWindow(m_hScreen));
  m_desktop.Answer(ald::kButtonNo);
  Press(kClose);
  EXPECT_FALSE(m_windows.IsWindow(m_hScreen));
  EXPECT_THAT(m_desktop.Boxes(), SizeIs(4));
}

TEST_F(WriteChecks, IsGoneWithAllItHadWhenItsOwnHandlerDestroysIt) {
  EXPECT_EQ(ald::GetHelpLevel(), kWriteChecksTopic);
  EXPECT_EQ(ald::GetWindowFromMenu(1, true), m_hScreen);
  EXPECT_TRUE(ald::DataEntryTableHandleHelp(m_hScreen));
  EXPECT_EQ(ald::GetDialogID(m_hScreen), kWriteChecksTopic);
  const std::size_t nBrushes = m_desktop.Live().nBrushes;
  // While the message is up another part of the program closes the screen; the answer comes late.
  Type(kAmount, "12");
  m_desktop.WhenWaiting([&](WindowHandle hBox) {
    m_windows.Destroy(m_hScreen);
    return m_desktop.Press(hBox, ald::kButtonNo);
  });
  Press(kClose);
  EXPECT_FALSE(m_windows.IsWindow(m_hScreen));
  EXPECT_EQ(ald::GetHelpLevel(), 0);
  EXPECT_EQ(ald::DataEntryManagerData.nDialogs, 0);
  EXPECT_EQ(ald::DataEntryManagerData.nDataEntries, 0);
  EXPECT_EQ(ald::GetDialogID(m_hScreen), 0);
  EXPECT_EQ(m_desktop.Live(), (ald::LiveObjects{.nBrushes = nBrushes}));
}

TEST_F(WriteChecks, TwoScreensShareTheBookAndNothingElse) {
  const WindowHandle hOther = Open(2);
  ASSERT_NE(hOther, WindowHandle{});
  FillIn();
  EXPECT_EQ(m_windows.Text(m_windows.Child(hOther, kAmount)), "");
  Press(kRecord);
  EXPECT_EQ(m_windows.Text(m_windows.Child(hOther, kBook)), Text(kBook));
  // Keys belong to the screen in front.
  m_windows.SetFocus(m_windows.Child(hOther, kDate));
  Key(kTabKey);
  EXPECT_EQ(m_windows.Focus(), m_windows.Child(hOther, kAmount));
  Press(kClose);
  EXPECT_TRUE(m_windows.IsWindow(hOther));
  EXPECT_EQ(ald::GetHelpLevel(), kWriteChecksTopic);
}

TEST_F(WriteChecks, OpensNoMoreThanTheTablesHoldAndLeavesNothingBehind) {
  EXPECT_EQ(Open(1), WindowHandle{});  // the menu id is taken
  const std::size_t nWindows = m_desktop.Live().nWindows;
  EXPECT_EQ(m_desktop.Boxes().back().sText, "No more screens can be opened.");
  for (int n = 2; n <= ald::kWindowTableSize; ++n) EXPECT_NE(Open(0), WindowHandle{});
  const std::size_t nFull = m_desktop.Live().nWindows;
  EXPECT_EQ(Open(0), WindowHandle{});
  EXPECT_EQ(m_desktop.Live().nWindows, nFull);
  EXPECT_EQ(nFull % nWindows, 0U);
}

TEST_F(WriteChecks, HelpIsThatOfTheScreenOrOfTheMessageInFront) {
  m_platform.m_profile.m_files["PRODUCT.INI"] = "[Install]\nPROGRAMPATH=C:\\\n";
  Press(kHelp);
  m_windows.SetFocus(Control(kDate));
  Key(kF1Key);
  FillIn();
  Type(kDate, "99");
  m_desktop.Answer({ald::kButtonHelp, ald::kButtonOk});
  Press(kRecord);
  EXPECT_THAT(m_desktop.OpenedTopics(),
              ElementsAre(Field(&ald::OpenedTopic::nTopic, kWriteChecksTopic),
                          Field(&ald::OpenedTopic::nTopic, kWriteChecksTopic),
                          Field(&ald::OpenedTopic::nTopic, 20311U)));
}

// A dialog unit is 7/4 of a pixel across and 13/8 down.
TEST_F(WriteChecks, StandsWhereTheFormSaysInTheDialogsUnits) {
  EXPECT_EQ(m_windows.ClientRect(m_hScreen), (ald::Rect{0, 0, 529, 260}));
  EXPECT_EQ(PlaceOf(kPayee), (ald::Rect{91, 13, 354, 33}));
  EXPECT_EQ(PlaceOf(kAmount), (ald::Rect{91, 72, 214, 91}));
  EXPECT_EQ(PlaceOf(kRecord), (ald::Rect{438, 13, 518, 36}));
  EXPECT_EQ(PlaceOf(kAccounts), (ald::Rect{14, 153, 196, 234}));
  // The label stands upon its list.
  EXPECT_EQ(PlaceOf(kAccountLabel).bottom, PlaceOf(kAccounts).top);
  // No control lies on another, and all lie inside.
  const std::vector<WindowHandle> controls = m_windows.Children(m_hScreen);
  const ald::Rect inside = m_windows.ClientRect(m_hScreen);
  for (std::size_t i = 0; i < controls.size(); ++i) {
    ald::Rect one = m_windows.WindowRect(controls[i]);
    for (std::size_t j = 0; j < i; ++j) {
      const ald::Rect other = m_windows.WindowRect(controls[j]);
      EXPECT_FALSE(one.left < other.right && other.left < one.right && one.top < other.bottom &&
                   other.top < one.bottom)
          << m_windows.Text(controls[i]) << " on " << m_windows.Text(controls[j]);
    }
    ald::ScreenToClientRect(m_hScreen, &one);
    EXPECT_TRUE(one.left >= 0 && one.top >= 0 && one.right <= inside.right &&
                one.bottom <= inside.bottom);
  }
}

TEST_F(WriteChecks, GivesEveryZoneItsColourOfTheSchemeWhereverItStands) {
  const auto colorOf = [&](int nId, std::uint32_t nAsk) {
    const WindowHandle hControl = nId != 0 ? Control(nId) : m_hScreen;
    const ald::ContextHandle hContext = m_desktop.Ports().canvas.Context(hControl);
    const auto nBrush =
        m_desktop.Ports().queue.Send(m_hScreen, nAsk, static_cast<std::uint32_t>(hContext),
                                     static_cast<std::intptr_t>(hControl));
    m_desktop.Ports().canvas.Release(hContext);
    return m_desktop.BrushColor(static_cast<ald::BrushHandle>(nBrush)).value_or(0) & 0xFFFFFF;
  };
  for (const std::int32_t nLeft : {0, 300}) {
    m_windows.Place(m_hScreen, ald::WindowOrder::kKeep, nLeft, 0, 0, 0, ald::kPlaceNoSize);
    EXPECT_EQ(colorOf(0, ald::kMessageColorDialog), 0xC0C0C0U);
    EXPECT_EQ(colorOf(kAmount, ald::kMessageColorEdit), 0xFFFFFFU);
    EXPECT_EQ(colorOf(kWords, ald::kMessageColorStatic), 0x00FFFFU);
    EXPECT_EQ(colorOf(kAccounts, ald::kMessageColorListBox), 0xFFFFFFU);
    EXPECT_EQ(colorOf(kBook, ald::kMessageColorStatic), 0xC0C0C0U);
  }
}

}  // namespace
}  // namespace alder_checks
