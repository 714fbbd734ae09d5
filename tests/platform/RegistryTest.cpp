// What every registry promises, asked of each of them.

#include "aldlib/platform/Registry.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "aldlib/platform/MemoryRegistry.h"
#include "aldlib/platform/posix/SqliteRegistry.h"
#include "tests/support/TempFolder.h"

namespace ald {

void PrintTo(const RegistryValue& value, std::ostream* pOut) {
  *pOut << static_cast<std::uint32_t>(value.eType) << ":" << testing::PrintToString(value.sData);
}

bool operator==(const RegistryValue& left, const RegistryValue& right) {
  return left.eType == right.eType && left.sData == right.sData;
}

namespace {

const RegistryValue kText{RegistryType::Text, CString("Ohio\0", 5)};
const RegistryValue kNumber{RegistryType::Number, CString("\0\1\2\xFF", 4)};

struct OnDisk {
  TempFolder folder;
#ifdef ALDLIB_SQLITE
  SqliteRegistry registry{folder.Path("a/b/user.sqlite"), folder.Path("machine.sqlite")};
#else
  MemoryRegistry registry;
#endif
};

struct InMemory {
  MemoryRegistry registry;
};

template <class Holder>
class RegistryContract : public testing::Test {
 protected:
  RegistryKey Make(const char* szPath, std::uint32_t nAccess = kAllAccess) {
    return m_registry.Create(kCurrentUser, szPath, nullptr, nAccess);
  }
  CString KeyNames(RegistryKey hKey) {
    CString sNames;
    CString sName;
    CString sClass;
    for (std::uint32_t i = 0; m_registry.EnumerateKey(hKey, i, sName, sClass); ++i) {
      sNames += sName + (sClass.empty() ? "" : "(" + sClass + ")") + " ";
    }
    return sNames;
  }
  CString ValueNames(RegistryKey hKey) {
    CString sNames;
    CString sName;
    RegistryValue value;
    for (std::uint32_t i = 0; m_registry.EnumerateValue(hKey, i, sName, value); ++i) {
      sNames += sName + " ";
    }
    return sNames;
  }

  Holder m_holder;
  Registry& m_registry = m_holder.registry;
};

using Registries = testing::Types<InMemory, OnDisk>;
TYPED_TEST_SUITE(RegistryContract, Registries);

TYPED_TEST(RegistryContract, KeepsValuesByNameWhateverTheCase) {
  Registry& registry = this->m_registry;
  const RegistryKey hKey = this->Make("Software\\Tree\\Options");
  ASSERT_NE(hKey, RegistryKey{});
  EXPECT_TRUE(registry.SetValue(hKey,
                                "\xC4"
                                "pfel",
                                kText));
  EXPECT_TRUE(registry.SetValue(hKey,
                                "\xE4"
                                "PFEL",
                                kNumber));  // the same name
  EXPECT_TRUE(registry.SetValue(hKey, "", kText));
  EXPECT_TRUE(registry.SetValue(hKey, "empty", {RegistryType{77}, ""}));

  const RegistryKey hAgain =
      registry.Open(kCurrentUser, "\\SOFTWARE\\\\tree\\options\\", kQueryAccess);
  RegistryValue value;
  EXPECT_TRUE(registry.QueryValue(hAgain, "\xC4PFEL", value));
  EXPECT_EQ(value, kNumber);
  EXPECT_TRUE(registry.QueryValue(hAgain, "", value));
  EXPECT_EQ(value, kText);
  EXPECT_TRUE(registry.QueryValue(hAgain, "EMPTY", value));
  EXPECT_EQ(value, (RegistryValue{RegistryType{77}, ""}));
  EXPECT_EQ(this->ValueNames(hAgain),
            " empty \xC4"
            "pfel ");

  EXPECT_TRUE(registry.DeleteValue(hKey, "Empty"));
  EXPECT_FALSE(registry.DeleteValue(hKey, "empty"));
  EXPECT_FALSE(registry.QueryValue(hAgain, "empty", value));
}

TYPED_TEST(RegistryContract, MakesKeysAndListsThemInOrder) {
  Registry& registry = this->m_registry;
  EXPECT_EQ(registry.Open(kCurrentUser, "A\\B", kReadAccess), RegistryKey{});
  const RegistryKey hRoot = this->Make("A");
  registry.Create(hRoot, "c", "class", kAllAccess);
  registry.Create(hRoot, "B\\deep", nullptr, kAllAccess);
  registry.Create(hRoot, "C", "another", kAllAccess);  // is there
  EXPECT_EQ(this->KeyNames(hRoot), "B c(class) ");
  EXPECT_NE(registry.Open(kCurrentUser, "a\\b\\DEEP", kReadAccess), RegistryKey{});
  // The other root knows nothing of it.
  EXPECT_EQ(registry.Open(kLocalMachine, "A", kReadAccess), RegistryKey{});
}

TYPED_TEST(RegistryContract, DeletesATreeWithEverythingBelow) {
  Registry& registry = this->m_registry;
  const RegistryKey hTree = this->Make("A\\Tree");
  const RegistryKey hDeep = this->Make("A\\Tree\\x\\y\\z");
  const RegistryKey hBeside = this->Make("A\\Trees");
  EXPECT_TRUE(registry.SetValue(hDeep, "v", kText));
  EXPECT_FALSE(registry.DeleteTree(kCurrentUser, "A\\None"));
  EXPECT_FALSE(registry.DeleteTree(kCurrentUser, ""));
  EXPECT_FALSE(registry.DeleteTree(kCurrentUser, "\\"));
  EXPECT_TRUE(registry.DeleteTree(kCurrentUser, "a\\TREE"));
  EXPECT_EQ(registry.Open(kCurrentUser, "A\\Tree", kReadAccess), RegistryKey{});
  // Keys that were open below it are harmless, also when the name is there again.
  RegistryValue value;
  this->Make("A\\Tree\\x\\y\\z");
  EXPECT_FALSE(registry.QueryValue(hDeep, "v", value));
  EXPECT_FALSE(registry.SetValue(hDeep, "v", kText));
  EXPECT_EQ(registry.Create(hTree, "new", nullptr, kAllAccess), RegistryKey{});
  EXPECT_TRUE(registry.SetValue(hBeside, "v", kText));
}

TYPED_TEST(RegistryContract, HoldsAKeyToItsRights) {
  Registry& registry = this->m_registry;
  const RegistryKey hAll = this->Make("A");
  this->Make("A\\B");
  ASSERT_TRUE(registry.SetValue(hAll, "v", kText));
  const struct {
    std::uint32_t nAccess;
    bool bQuery, bSet, bEnumerate, bDeleteTree;
  } rows[] = {
      {kQueryAccess, true, false, false, false}, {kReadAccess, true, false, true, false},
      {kWriteAccess, false, true, false, true},  {kReadWriteAccess, true, true, true, true},
      {0, false, false, false, false},
  };
  for (const auto& row : rows) {
    const RegistryKey hKey = registry.Open(kCurrentUser, "A", row.nAccess);
    RegistryValue value;
    CString sName;
    CString sClass;
    SCOPED_TRACE(row.nAccess);
    EXPECT_EQ(registry.QueryValue(hKey, "v", value), row.bQuery);
    EXPECT_EQ(registry.EnumerateValue(hKey, 0, sName, value), row.bQuery);
    EXPECT_EQ(registry.SetValue(hKey, "v", kText), row.bSet);
    EXPECT_EQ(registry.EnumerateKey(hKey, 0, sName, sClass), row.bEnumerate);
    EXPECT_EQ(registry.DeleteTree(hKey, "B"), row.bDeleteTree);
    this->Make("A\\B");
  }
}

TYPED_TEST(RegistryContract, RefusesClosedHandlesAndNamesPastTheLimits) {
  Registry& registry = this->m_registry;
  const RegistryKey hClosed = this->Make("A");
  EXPECT_TRUE(registry.Close(hClosed));
  const RegistryKey hKey = this->Make("A");  // in the place of the closed one
  const CString sLong(256, 'x');
  RegistryValue value;
  for (const RegistryKey hNone : {hClosed, RegistryKey{}, RegistryKey{12345}, RegistryKey{~0U}}) {
    EXPECT_FALSE(registry.Close(hNone));
    EXPECT_FALSE(registry.SetValue(hNone, "v", kText));
    EXPECT_FALSE(registry.QueryValue(hNone, "v", value));
    EXPECT_EQ(registry.Open(hNone, "A", kReadAccess), RegistryKey{});
  }
  EXPECT_EQ(this->Make(sLong.c_str()), RegistryKey{});
  EXPECT_FALSE(registry.SetValue(hKey, sLong.c_str(), kText));
  EXPECT_FALSE(registry.SetValue(hKey, nullptr, kText));
  EXPECT_FALSE(registry.SetValue(hKey, "v", {RegistryType::Binary, CString((1 << 20) + 1, 'x')}));
  EXPECT_TRUE(registry.SetValue(hKey, sLong.c_str() + 1, kText));
  CString sDeep;
  for (int i = 0; i < 100; ++i) sDeep += "\\k";
  EXPECT_NE(this->Make(sDeep.c_str()), RegistryKey{});
  EXPECT_EQ(this->Make((sDeep + "\\k").c_str()), RegistryKey{});
  EXPECT_TRUE(registry.DeleteTree(kCurrentUser, "k"));
}

}  // namespace
}  // namespace ald
