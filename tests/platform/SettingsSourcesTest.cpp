// Where settings come from on this system: folders, INI files, the locale, the product.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

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

// Builds a locale that has the numbers, money and dates of the given one, as the system knows them.
// Returns false if the system has no means for that.
bool BuildLocale(const TempFolder& folder, const CString& sLike, const CString& sName) {
  CString sSource = "LC_CTYPE\ncopy \"POSIX\"\nEND LC_CTYPE\n";
  for (const char* szCategory : {"LC_NUMERIC", "LC_MONETARY", "LC_TIME"}) {
    sSource += CString(szCategory) + "\ncopy \"" + sLike + "\"\nEND " + szCategory + "\n";
  }
  const CString sCommand = "localedef -c -i '" + folder.Write("source", sSource) + "' -f UTF-8 '" +
                           folder.Path(sName) + "' >/dev/null 2>&1";
  // Its status tells of categories that are left out on purpose.
  return std::system(sCommand.c_str()) >= 0 &&
         std::filesystem::exists(folder.Path(sName) + "/LC_TIME");
}

// What section "intl" says under a locale, key after key. Read in a process of its own, since a C
// library may leak when it looks for locales in LOCPATH.
CString RegionOf(const TempFolder& folder, const CString& sLocale) {
  int anPipe[2];
  if (::pipe(anPipe) != 0) return "no pipe";
  const pid_t nChild = ::fork();
  if (nChild == 0) {
    const CString sProcessLocale = std::setlocale(LC_ALL, nullptr);
    ::setenv("LOCPATH", folder.Path().c_str(), 1);
    ::setenv("LC_ALL", sLocale.c_str(), 1);
    IniProfile profile;
    CString sRegion;
    for (const char* szKey : {"sDecimal", "sThousand", "iCurrDigits", "sDate", "iDate"}) {
      sRegion += Read(profile, nullptr, "intl", szKey) + " ";
    }
    if (sProcessLocale != std::setlocale(LC_ALL, nullptr)) sRegion += "and touched the process";
    const ssize_t nWritten = ::write(anPipe[1], sRegion.data(), sRegion.size());
    ::_exit(nWritten > 0 ? 0 : 1);
  }
  ::close(anPipe[1]);
  char szRegion[200];
  const ssize_t nRead = ::read(anPipe[0], szRegion, sizeof szRegion);
  ::close(anPipe[0]);
  ::waitpid(nChild, nullptr, 0);
  return CString(szRegion, static_cast<std::size_t>(nRead > 0 ? nRead : 0));
}

TEST(SystemProfile, TakesWhatItLacksFromTheUsersLocale) {
  const TempFolder folder;
  const ScopedVariable user("ALDLIB_USER_DIR", folder.Path());
  if (!BuildLocale(folder, "de_DE", "de.UTF-8") || !BuildLocale(folder, "sv_SE", "sv.UTF-8") ||
      !BuildLocale(folder, "vi_VN", "vi.UTF-8")) {
    GTEST_SKIP() << "localedef cannot build locales here";
  }
  EXPECT_EQ(RegionOf(folder, "de.UTF-8"), ", . 2 . 1 ");
  EXPECT_EQ(RegionOf(folder, "sv.UTF-8"), ", \xA0 2 - 2 ");
  EXPECT_EQ(RegionOf(folder, "vi.UTF-8"), ", . 0 / 1 ");
  folder.Write("system.ini", "[intl]\nsThousand=' '\niDate=0");
  EXPECT_EQ(RegionOf(folder, "de.UTF-8"), ",   2 . 0 ");
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
