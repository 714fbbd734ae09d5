#include "aldlib/config/Preferences.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "aldlib/text/ResourceStrings.h"
#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

using Preferences = CALWMachineUserPreferences;
constexpr auto kRead = PreferenceOpenMode::Read;
constexpr auto kWrite = PreferenceOpenMode::Write;
constexpr auto kOptions = PreferenceGroup::Options;

constexpr const char* kProductKey = "SOFTWARE\\Alderfell\\PRODUCT\\13";
constexpr const char* kOptionsKey = "SOFTWARE\\Alderfell\\PRODUCT\\13\\Options";

// The registry under the preferences, seen from below.
class PreferencesTest : public testing::Test {
 protected:
  bool IsThere(const char* szKey, RegistryKey hRoot = kCurrentUser) {
    return CRegKey(m_registry.Open(hRoot, szKey, kReadAccess)).IsOpen();
  }
  void SetText(RegistryKey hRoot, const CString& sKey, const char* szName, const CString& sText) {
    const CRegKey key(m_registry.Create(hRoot, sKey.c_str(), nullptr, kAllAccess));
    ASSERT_TRUE(m_registry.SetValue(key.Get(), szName, {RegistryType::Text, sText + '\0'}));
  }
  CString Text(RegistryKey hRoot, const CString& sKey, const char* szName) {
    const CRegKey key(m_registry.Open(hRoot, sKey.c_str(), kReadAccess));
    RegistryValue value;
    return m_registry.QueryValue(key.Get(), szName, value) ? value.sData.c_str() : "missing";
  }

  FakePlatform m_platform;
  MemoryRegistry& m_registry = m_platform.m_registry;
};

TEST_F(PreferencesTest, KeepEveryKindOfValue) {
  Preferences options(kWrite, kOptions);
  ASSERT_TRUE(options.isOpen());
  EXPECT_TRUE(options.SetValue(Preference::defaultuser, "Ada"));
  CFixedString<9> sFixed("C:\\BOOKS");
  EXPECT_TRUE(options.SetValue(Preference::urlpath, sFixed));  // a text, not a yes or no
  EXPECT_TRUE(options.SetValue(Preference::tipflag, true));
  EXPECT_TRUE(options.SetValue(Preference::lasttip, std::int32_t{-7}));
  EXPECT_TRUE(options.SetValue(Preference::maxheap, 4000000000U));
  EXPECT_TRUE(options.SetValue(Preference::precision, std::int16_t{-2}));

  Preferences again(kRead, kOptions);
  CString sText;
  bool bFlag = false;
  std::int32_t nInt = 0;
  std::uint32_t nLong = 0;
  std::int16_t nShort = 0;
  EXPECT_TRUE(again.GetValue(Preference::defaultuser, "x", sText));
  EXPECT_TRUE(again.GetValue(Preference::tipflag, false, bFlag));
  EXPECT_TRUE(again.GetValue(Preference::lasttip, 0, nInt));
  EXPECT_TRUE(again.GetValue(Preference::maxheap, 0U, nLong));
  EXPECT_TRUE(again.GetValue(Preference::precision, std::int16_t{0}, nShort));
  EXPECT_EQ(sText, "Ada");
  EXPECT_TRUE(again.GetValue(Preference::urlpath, "x", sFixed));
  EXPECT_EQ(sFixed, "C:\\BOOKS");
  EXPECT_TRUE(bFlag);
  EXPECT_EQ(nInt, -7);
  EXPECT_EQ(nLong, 4000000000U);
  EXPECT_EQ(nShort, -2);
  // The same by name and by group; a short is stored with its sign.
  EXPECT_TRUE(again.GetValue("PRECISION", 0U, nLong));
  EXPECT_EQ(nLong, 4294967294U);
  EXPECT_TRUE(Preferences::GetBoolValue(kOptions, Preference::tipflag, false));
  EXPECT_EQ(Preferences::GetIntValue(kOptions, Preference::lasttip, 0), -7);
  EXPECT_EQ(Preferences::GetDWORDValue(kOptions, Preference::maxheap, 0), 4000000000U);
  EXPECT_EQ(Preferences::GetShortValue(kOptions, Preference::precision, 0), -2);
  EXPECT_EQ(Preferences::GetShortValue(kOptions, Preference::navaid, 3), 3);
  // As they lie in the store.
  const CRegKey key(m_registry.Open(kCurrentUser, kOptionsKey, kReadAccess));
  RegistryValue value;
  ASSERT_TRUE(m_registry.QueryValue(key.Get(), "defaultuser", value));
  EXPECT_EQ(value.sData, CString("Ada\0", 4));
  ASSERT_TRUE(m_registry.QueryValue(key.Get(), "precision", value));
  EXPECT_EQ(value.sData, "\xFE\xFF\xFF\xFF");
}

TEST_F(PreferencesTest, GiveTheDefaultForWhatIsMissingOrOfAnotherKind) {
  Preferences options(kWrite, kOptions);
  options.SetValue("text", "Ohio");
  options.SetValue("two", 2U);
  bool bFlag = true;
  EXPECT_TRUE(options.GetValue("two", true, bFlag));
  EXPECT_FALSE(bFlag);  // only 1 is true
  EXPECT_FALSE(options.GetValue("text", true, bFlag));
  EXPECT_TRUE(bFlag);
  std::uint32_t nLong = 0;
  EXPECT_FALSE(options.GetValue("text", 9U, nLong));
  EXPECT_EQ(nLong, 9U);
  CFixedString<5> sFits;
  CFixedString<4> sShort;
  EXPECT_TRUE(options.GetValue("text", "def", sFits));
  EXPECT_EQ(sFits, "Ohio");
  EXPECT_FALSE(options.GetValue("text", "default", sShort));
  EXPECT_EQ(sShort, "def");
  EXPECT_FALSE(options.GetValue("two", nullptr, sFits));
  EXPECT_EQ(sFits, "Ohio");
  char szBuffer[6] = "#####";
  std::uint32_t nSize = 6;
  EXPECT_TRUE(options.GetValue("text", "d", szBuffer, nSize));
  EXPECT_EQ(CString(szBuffer, nSize), "Ohio");
  nSize = 4;
  EXPECT_FALSE(options.GetValue("text", "default", szBuffer, nSize));
  EXPECT_EQ(CString(szBuffer, nSize), "def");
  CString sHeap = "before";
  options.SetValue("long", CString(1024, 'x').c_str());
  EXPECT_FALSE(options.GetValue("long", nullptr, sHeap));
  EXPECT_EQ(sHeap, "before");
  options.SetValue("long", CString(1023, 'x').c_str());
  EXPECT_TRUE(options.GetValue("long", nullptr, sHeap));
  EXPECT_EQ(sHeap, CString(1023, 'x'));
}

TEST_F(PreferencesTest, TellWhatIsOpenAndWriteOnlyWhenOpenForWriting) {
  Preferences preferences;
  bool bFlag = false;
  CString sText = "before";
  EXPECT_FALSE(preferences.isOpen());
  EXPECT_EQ(preferences.CurrentGroup(), PreferenceGroup{33400});
  EXPECT_FALSE(preferences.GetValue("v", true, bFlag));
  EXPECT_TRUE(bFlag);
  EXPECT_FALSE(preferences.GetValue("v", "default", sText));  // unlike a number
  EXPECT_EQ(sText, "before");
  EXPECT_FALSE(preferences.SetValue("v", true));

  EXPECT_TRUE(preferences.Open(kRead, PreferenceGroup::Tips));
  EXPECT_TRUE(IsThere("SOFTWARE\\Alderfell\\PRODUCT\\13\\Tips"));  // reading makes the key
  EXPECT_EQ(preferences.OpenMode(), kRead);
  EXPECT_EQ(preferences.CurrentGroup(), PreferenceGroup::Tips);
  EXPECT_FALSE(preferences.SetValue("v", true));
  EXPECT_FALSE(preferences.RemoveValue("v"));
  EXPECT_FALSE(preferences.Open(PreferenceOpenMode::Closed, kOptions));
  EXPECT_EQ(preferences.CurrentGroup(), PreferenceGroup::Tips);

  EXPECT_TRUE(preferences.Open(kWrite, PreferenceGroup::Tips));
  EXPECT_TRUE(preferences.SetValue("v", true));
  const std::size_t nKeys = m_registry.OpenKeys();
  EXPECT_TRUE(preferences.Open(kWrite, PreferenceGroup::Tips));
  EXPECT_TRUE(preferences.RemoveValue("V"));
  EXPECT_FALSE(preferences.RemoveValue("v"));
  EXPECT_FALSE(preferences.SetValue("v", static_cast<const char*>(nullptr)));
  EXPECT_FALSE(preferences.SetValue(static_cast<const char*>(nullptr), true));
  EXPECT_FALSE(preferences.SetValue(Preference{33534}, true));  // a number without a name
  EXPECT_EQ(m_registry.OpenKeys(), nKeys);

  EXPECT_FALSE(preferences.Open(PreferenceOpenMode{3}, PreferenceGroup::Tips));
  EXPECT_FALSE(preferences.isOpen());
  EXPECT_FALSE(preferences.Open(kWrite, PreferenceGroup{33412}));
  EXPECT_EQ(preferences.CurrentGroup(), PreferenceGroup::Root);
  EXPECT_EQ(m_registry.OpenKeys(), 0U);
}

TEST_F(PreferencesTest, HandTheirKeyToACopy) {
  static_assert(!std::is_constructible_v<Preferences, const Preferences&>);
  Preferences first(kWrite, kOptions);
  Preferences second(first);
  EXPECT_TRUE(second.SetValue("v", true));
  EXPECT_TRUE(first.isOpen());  // so it says, but there is no key in it
  EXPECT_FALSE(first.SetValue("v", true));
  EXPECT_TRUE(first.Open(kWrite, kOptions));
  EXPECT_FALSE(first.SetValue("v", true));
  Preferences third(kRead, PreferenceGroup::Tips);
  third = second;
  EXPECT_EQ(third.CurrentGroup(), kOptions);
  EXPECT_TRUE(third.RemoveValue("v"));
  EXPECT_EQ(m_registry.OpenKeys(), 1U);
}

TEST_F(PreferencesTest, RemoveAGroupAndComeBackToTheOneThatWasOpen) {
  SetText(kCurrentUser, CString(kProductKey) + "\\Positions\\deep", "v", "x");
  Preferences preferences(kWrite, kOptions);
  EXPECT_TRUE(preferences.RemoveGroup(PreferenceGroup::Positions));
  EXPECT_FALSE(IsThere("SOFTWARE\\Alderfell\\PRODUCT\\13\\Positions"));
  EXPECT_EQ(preferences.CurrentGroup(), kOptions);
  EXPECT_EQ(preferences.OpenMode(), kWrite);
  EXPECT_TRUE(preferences.RemoveGroup(kOptions));
  EXPECT_FALSE(preferences.isOpen());
  EXPECT_FALSE(IsThere(kOptionsKey));
  EXPECT_TRUE(preferences.RemoveGroup(kOptions));  // nothing to delete
  SetText(kCurrentUser, kProductKey, "v", "x");
  for (const int nGroup : {33400, 33412, 0}) {
    EXPECT_FALSE(preferences.RemoveGroup(PreferenceGroup{nGroup})) << nGroup;
  }
  EXPECT_EQ(Text(kCurrentUser, kProductKey, "v"), "x");
}

TEST_F(PreferencesTest, AreCopiedFromTheMachineAtFirstUse) {
  SetText(kLocalMachine, kOptionsKey, "defaultuser", "everybody");
  SetText(kLocalMachine, CString(kProductKey) + "\\Positions\\a\\b", "deep", "down");
  SetText(kLocalMachine, CString(kProductKey) + "\\Foreign", "v", "x");  // no group
  SetText(kLocalMachine, kOptionsKey, "long", CString(2000, 'x'));
  SetText(kCurrentUser, kOptionsKey, "own", "mine");
  CString sText;
  EXPECT_TRUE(Preferences::GetValue(kOptions, Preference::defaultuser, "", sText));
  EXPECT_EQ(sText, "everybody");
  EXPECT_EQ(Text(kCurrentUser, CString(kProductKey) + "\\positions\\A\\B", "deep"), "down");
  EXPECT_EQ(Text(kCurrentUser, kOptionsKey, "own"), "mine");
  EXPECT_FALSE(IsThere("SOFTWARE\\Alderfell\\PRODUCT\\13\\Foreign"));
  // A long value is copied as its first 1024 bytes.
  EXPECT_EQ(Text(kCurrentUser, kOptionsKey, "long"), CString(1024, 'x'));
  std::uint32_t nMark = 0;
  EXPECT_TRUE(
      Preferences(kRead, PreferenceGroup::Root).GetValue("UserPreferencesConverted", 0U, nMark));
  EXPECT_EQ(nMark, 1U);

  // Once a user: the mark in the store holds for a process that has not seen it yet.
  SetText(kLocalMachine, kOptionsKey, "defaultuser", "later");
  Preferences::m_bConverted = false;
  EXPECT_TRUE(Preferences::GetValue(kOptions, Preference::defaultuser, "", sText));
  EXPECT_EQ(sText, "everybody");
  EXPECT_TRUE(Preferences::m_bConverted);
  EXPECT_EQ(m_registry.OpenKeys(), 0U);
}

TEST_F(PreferencesTest, OfAFormerVersionOverlayTheMachines) {
  const struct {
    const char* szUpgrade;
    const char* szUser;   // what the user gets
    const char* szOther;  // and where the former version has nothing to say
  } rows[] = {
      {"PRODUCT12.INI", "former", "everybody"},
      {"OTHER13.INI", "other product", "everybody"},
      {"PRODUCT13.INI", "everybody", "everybody"},  // this very version
      {"PRODUCT.INI", "everybody", "everybody"},
      {"PRODUCT0000000012.INI", "everybody", "everybody"},  // longer than 19 characters
  };
  for (const auto& row : rows) {
    m_registry.DeleteTree(kCurrentUser, "SOFTWARE");
    Preferences::m_bConverted = false;
    SetText(kLocalMachine, kProductKey, "UPGRADEINI", row.szUpgrade);
    SetText(kLocalMachine, kOptionsKey, "defaultuser", "everybody");
    SetText(kLocalMachine, kOptionsKey, "urlpath", "everybody");
    SetText(kCurrentUser, "SOFTWARE\\Alderfell\\PRODUCT\\12\\Options", "defaultuser", "former");
    SetText(kCurrentUser, "SOFTWARE\\Alderfell\\OTHER\\13\\Options", "defaultuser",
            "other product");
    CString sUser;
    CString sOther;
    Preferences::GetValue(kOptions, Preference::defaultuser, "", sUser);
    Preferences::GetValue(kOptions, Preference::urlpath, "", sOther);
    EXPECT_EQ(sUser, row.szUser) << row.szUpgrade;
    EXPECT_EQ(sOther, row.szOther) << row.szUpgrade;
  }
}

TEST(PreferenceNames, AreTextsOfTheLibrary) {
  FakePlatform platform;
  CFixedString<64> sName;
  int nNames = 0;
  for (auto n = static_cast<std::uint32_t>(kFirstPreference);
       n <= static_cast<std::uint32_t>(kLastPreference); ++n) {
    nNames += MyLoadString(n, sName) > 0 ? 1 : 0;
  }
  EXPECT_EQ(nNames, 68);
  const struct {
    std::uint32_t nNumber;
    const char* szName;
  } rows[] = {{33400, ""},
              {33404, "Open History"},
              {33411, "OFXBankFIURL"},
              {33412, ""},
              {33505, "defaulttab"},
              {33545, ""},
              {33554, "enableddetodebug"},
              {33566, "autodecimal"},
              {33576, "dontautorunDM"}};
  for (const auto& row : rows) {
    MyLoadString(row.nNumber, sName);
    EXPECT_EQ(sName, row.szName) << row.nNumber;
  }
  CString sIndexed;
  for (int n = 33400; n <= 33412; ++n) {
    sIndexed += Preferences::isStringIndexedGroup(PreferenceGroup{n}) ? 'y' : 'n';
  }
  EXPECT_EQ(sIndexed, "nnnnyyynyynnn");
}

}  // namespace
}  // namespace ald
