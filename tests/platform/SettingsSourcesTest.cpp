// Where settings come from on this system: folders, INI files, the locale, the product.

#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>

#include "aldlib/platform/Platform.h"
#include "aldlib/platform/posix/IniProfile.h"
#include "aldlib/platform/posix/PosixLocale.h"
#include "aldlib/platform/posix/PosixProduct.h"
#include "aldlib/platform/posix/SettingsFolders.h"
#include "tests/support/TempFolder.h"

namespace ald {
namespace {

CString Read(Profile& profile, const char* szFile, const char* szSection, const char* szKey) {
  char szBuffer[64];
  return CString(szBuffer, profile.ReadString(szFile, szSection, szKey, "missing", szBuffer, 64));
}

TEST(SettingsFolders, FollowTheEnvironment) {
  const ScopedVariable home("HOME", "/home/ada");
  const ScopedVariable xdgHome("XDG_CONFIG_HOME", "");
  const ScopedVariable xdgDirs("XDG_CONFIG_DIRS", "");
  const ScopedVariable user("ALDLIB_USER_DIR", "");
  const ScopedVariable machine("ALDLIB_MACHINE_DIR", "");
  EXPECT_EQ(UserSettingsFolder(), "/home/ada/.config/aldlib");
  EXPECT_EQ(MachineSettingsFolder(), "/etc/xdg/aldlib");
  {
    const ScopedVariable xdg("XDG_CONFIG_HOME", "relative/does/not/count");
    EXPECT_EQ(UserSettingsFolder(), "/home/ada/.config/aldlib");
  }
  const ScopedVariable otherHome("XDG_CONFIG_HOME", "/srv/config/");
  const ScopedVariable otherDirs("XDG_CONFIG_DIRS", "relative:/opt/xdg:/etc/xdg");
  EXPECT_EQ(SystemProfileFile(), "/srv/config/aldlib/system.ini");
  EXPECT_EQ(MachinePreferencesFile(), "/opt/xdg/aldlib/preferences.sqlite");
  const ScopedVariable ownUser("ALDLIB_USER_DIR", "/srv/ada");
  const ScopedVariable ownMachine("ALDLIB_MACHINE_DIR", "/srv/all");
  EXPECT_EQ(UserPreferencesFile(), "/srv/ada/preferences.sqlite");
  EXPECT_EQ(MachineSettingsFolder(), "/srv/all");
}

TEST(SettingsFolders, TakePathsInBothSpellings) {
  EXPECT_EQ(NativeSettingsPath("C:\\DATA\\TaxInfo.Dat"), "/DATA/TaxInfo.Dat");
  EXPECT_EQ(NativeSettingsPath("c:DATA"), "/DATA");
  EXPECT_EQ(NativeSettingsPath("DATA\\A.INI"), "DATA/A.INI");
  EXPECT_EQ(NativeSettingsPath("/odd/na\\me"), "/odd/na\\me");
  EXPECT_EQ(NativeSettingsPath(""), "");
}

TEST(ProductOfTheSystem, AsksTheEnvironmentThenTheHost) {
  const TempFolder folder;
  const ScopedVariable user("ALDLIB_USER_DIR", folder.Path());
  const ScopedVariable machine("ALDLIB_MACHINE_DIR", "/machine");
  PosixProduct product;
  EXPECT_EQ(product.ProductName(), "ALDERW");
  EXPECT_EQ(product.IniFileName(), "/machine/ALDERW13.INI");
  folder.Write("ALDERW13.INI", "");
  EXPECT_EQ(product.IniFileName(), folder.Path("ALDERW13.INI"));
  product.SetIniFileName("/host/A.INI");
  EXPECT_FALSE(product.SetProductName("A\\B"));
  EXPECT_TRUE(product.SetProductName("LEDGER"));
  EXPECT_EQ(product.IniFileName(), "/host/A.INI");
  EXPECT_EQ(product.ProductName(), "LEDGER");
  const ScopedVariable file("ALDLIB_INI", "/env/B.INI");
  const ScopedVariable name("ALDLIB_PRODUCT", "ENV");
  EXPECT_EQ(product.IniFileName(), "/env/B.INI");
  EXPECT_EQ(product.ProductName(), "ENV");

  EXPECT_TRUE(product.FeatureEnabled(7));
  product.SetFeature(7, false);
  EXPECT_FALSE(product.FeatureEnabled(7));
  EXPECT_TRUE(product.FeatureEnabled(8));
}

TEST(IniName, HoldsProductAndVersion) {
  const struct {
    const char* szName;
    const char* szProduct;
    const char* szVersion;
  } rows[] = {
      {"ALDERW12.INI", "ALDERW", "12"},
      {"C:\\dir7\\a9.ini", "a", "9"},
      {"/etc/a010.Ini", "a", "010"},
      {"ALDERW.INI", "", ""},
      {"12.INI", "", ""},
      {"A12", "", ""},
      {"A1B2.INI", "", ""},
      {"A 12.INI", "", ""},
      {".INI", "", ""},
      {"", "", ""},
      {"A12.INI ", "", ""},
  };
  for (const auto& row : rows) {
    CString sProduct;
    CString sVersion;
    EXPECT_EQ(SplitUsualIniName(row.szName, sProduct, sVersion), *row.szProduct != '\0');
    EXPECT_EQ(sProduct + "/" + sVersion, CString(row.szProduct) + "/" + row.szVersion)
        << row.szName;
  }
}

TEST(IniFile, IsReadAgainWhenItHasChanged) {
  const TempFolder folder;
  const CString sFile = folder.Write("A.INI", "[s]\nk=1");
  IniProfile profile;
  EXPECT_EQ(Read(profile, sFile.c_str(), "s", "k"), "1");
  // Same size, and as a rule the same tick of the file system's clock.
  for (const char* szValue : {"2", "3", "4"}) {
    folder.Write("A.INI", CString("[s]\nk=") + szValue);
    EXPECT_EQ(Read(profile, sFile.c_str(), "s", "k"), szValue);
    EXPECT_EQ(Read(profile, sFile.c_str(), "s", "k"), szValue);
  }
  // Another file in its place, with the times of the old one.
  std::filesystem::rename(folder.Write("B.INI", "[s]\nk=5"), sFile);
  EXPECT_EQ(profile.ReadInt(sFile.c_str(), "s", "k", 0), 5U);
  std::filesystem::remove(sFile);
  EXPECT_EQ(Read(profile, sFile.c_str(), "s", "k"), "missing");
}

TEST(IniFile, ThatIsNoPlainFileHasNoSection) {
  IniProfile profile;
  for (const char* szFile : {"/", "/dev/zero", "/nowhere/A.INI", ""}) {
    EXPECT_EQ(Read(profile, szFile, "s", "k"), "missing") << szFile;
  }
}

TEST(SystemProfile, GoesBeforeTheLocale) {
  const TempFolder folder;
  const ScopedVariable user("ALDLIB_USER_DIR", folder.Path());
  IniProfile profile;
  EXPECT_EQ(Read(profile, nullptr, "intl", "sDecimal"), "missing");  // the locale "C"
  folder.Write("system.ini", "[intl]\nsDecimal=,\nsThousand=\niDigits=3\n[other]\nk=v");
  EXPECT_EQ(Read(profile, nullptr, "INTL", "SDECIMAL"), ",");
  EXPECT_EQ(Read(profile, nullptr, "intl", "sThousand"), "");
  EXPECT_EQ(Read(profile, nullptr, "other", "k"), "v");
  EXPECT_EQ(profile.ReadInt(nullptr, "intl", "iCurrDigits", 7), 7U);

  PosixLocale locale(&profile);
  const NumberSettings settings = locale.ReadNumberSettings();
  EXPECT_EQ(settings.sDecimalSeparator, ",");
  EXPECT_EQ(settings.sThousandSeparator, "");
  EXPECT_EQ(settings.nDecimals, 3U);
  EXPECT_EQ(settings.sGrouping, "3;0");
}

// Builds a locale of the system's own sources and has the settings read from it.
TEST(SystemProfile, TakesWhatItLacksFromTheUsersLocale) {
  const TempFolder folder;
  const struct {
    const char* szLocale;
    const char* szDecimal;
    const char* szThousand;
    const char* szDigits;
    const char* szDateSeparator;
    const char* szDateOrder;
  } rows[] = {
      {"de_DE", ",", ".", "2", ".", "1"},
      {"ja_JP", ".", ",", "0", "missing", "2"},
      {"fr_FR", ",", "\xA0", "2", "/", "1"},
      {"en_US", ".", ",", "2", "/", "0"},
  };
  const CString sProcessLocale = std::setlocale(LC_ALL, nullptr);
  for (const auto& row : rows) {
    const CString sName = CString(row.szLocale) + ".UTF-8";
    const CString sCommand = "localedef -i " + CString(row.szLocale) + " -f UTF-8 '" +
                             folder.Path(sName) + "' >/dev/null 2>&1";
    if (std::system(sCommand.c_str()) != 0 && !std::filesystem::exists(folder.Path(sName))) {
      GTEST_SKIP() << "localedef cannot build " << sName << " here";
    }
    const ScopedVariable path("LOCPATH", folder.Path());
    const ScopedVariable all("LC_ALL", sName);
    const ScopedVariable user("ALDLIB_USER_DIR", folder.Path());
    IniProfile profile;
    SCOPED_TRACE(sName);
    EXPECT_EQ(Read(profile, nullptr, "intl", "sDecimal"), row.szDecimal);
    EXPECT_EQ(Read(profile, nullptr, "intl", "sThousand"), row.szThousand);
    EXPECT_EQ(Read(profile, nullptr, "intl", "iCurrDigits"), row.szDigits);
    EXPECT_EQ(Read(profile, nullptr, "intl", "sDate"), row.szDateSeparator);
    EXPECT_EQ(Read(profile, nullptr, "intl", "iDate"), row.szDateOrder);
  }
  EXPECT_EQ(std::setlocale(LC_ALL, nullptr), sProcessLocale);
}

TEST(DateForm, FollowsFromTheShortFormOfALocale) {
  const struct {
    const char* szForm;
    const char* szSeparator;  // null: none
    int nOrder;               // -1: none
  } rows[] = {
      {"%d.%m.%Y", ".", 1},
      {"%d. %m. %Y", ".", 1},
      {"%m/%d/%Y", "/", 0},
      {"%D", "/", 0},
      {"%F", "-", 2},
      {"%-d/%-m/%y", "/", 1},
      {"%e %b %Y", " ", 1},
      {"%A %d-%m-%Y", "-", 1},
      {"%Y\u5E74%m\u6708%d\u65E5", nullptr, 2},
      {"\u200F%d\u200F/%m/%Y", "/", 1},
      {"%Od.%Om.%Ey", ".", 1},
      {"%Y%m%d", nullptr, 2},
      {"%d", nullptr, -1},
      {"%", nullptr, -1},
      {"", nullptr, -1},
      {nullptr, nullptr, -1},
      {"%d/%d/%d", nullptr, -1},
  };
  for (const auto& row : rows) {
    RegionalSettings settings;
    PosixLocale::SetDateForm(row.szForm, true, settings);
    SCOPED_TRACE(testing::Message() << "row " << &row - rows);
    EXPECT_EQ(settings.sDateSeparator.value_or("none"),
              row.szSeparator != nullptr ? row.szSeparator : "none");
    EXPECT_EQ(settings.nDateOrder.value_or(-1), row.nOrder);
  }
}

}  // namespace
}  // namespace ald
