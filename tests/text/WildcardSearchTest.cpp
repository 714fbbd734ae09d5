#include "aldlib/text/WildcardSearch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ald {

bool operator==(const SearchResultInfo& a, const SearchResultInfo& b) {
  return a.startPosition == b.startPosition && a.endPosition == b.endPosition;
}
void PrintTo(const SearchResultInfo& info, std::ostream* pOut) {
  *pOut << info.startPosition << " to " << info.endPosition;
}

namespace {

using Matches = std::vector<SearchResultInfo>;

constexpr SearchBehavior kBackward{.forward = false};
constexpr SearchBehavior kWildcards{.useWildcards = true};
constexpr SearchBehavior kCommas{.numericCommas = true};

// All matches up to the first miss, but no more than a few.
Matches FindAll(const char* szText, const char* szQuery, const SearchBehavior& behavior = {}) {
  WildcardSearch finder;
  finder.setSearchBehavior(behavior);
  finder.setText(szText);
  finder.setQueryText(szQuery);
  Matches matches;
  SearchResultInfo info;
  while (matches.size() < 6 && finder.search(info)) matches.push_back(info);
  return matches;
}

TEST(WildcardSearch, FindsOneMatchAfterAnother) {
  const struct {
    const char* szText;
    const char* szQuery;
    SearchBehavior behavior;
    Matches matches;
  } rows[] = {
      {"xabyab", "ab", {}, {{1, 2}, {4, 5}}},
      {"aaaa", "aa", {}, {{0, 1}, {1, 2}, {2, 3}}},
      {"xabyab", "ab", kBackward, {{4, 5}, {1, 2}}},
      {"xaby", "AB", {}, {}},
      {"xaby", "AB", {.caseSensitive = false}, {{1, 2}}},
      {"\xE9t\xE9", "\xC9", {.caseSensitive = false}, {}},
      {"a*b", "*", {}, {{1, 1}}},
      {"", "a", {}, {}},
      {"a", "", {}, {}},

      {"concat cat", "cat", {.wholeWord = true}, {{7, 9}}},
      {"cat,dog", "cat", {.wholeWord = true}, {}},
      {"cats cat", "cat", {.wholeWord = true}, {}},  // index 0 is no word and ends the search
      {"cats cat", "cat", {.wholeWord = true, .forward = false}, {{5, 7}, {0, 2}}},

      {"1,000", "1000", kCommas, {{0, 4}}},
      {"1000", "1,000", kCommas, {{0, 3}}},
      {",,", ",", kCommas, {}},
      {"a,,b", ",,", kCommas, {}},

      {"ac abc", "a?c", kWildcards, {{3, 5}}},
      {"abbbc", "a*c", kWildcards, {{0, 4}}},
      {"a b bc", "a*bc", kWildcards, {}},  // no second try behind the first b
      {"abc", "abc?", kWildcards, {{0, 2}}},
      {"abcdef", "ab*", kWildcards, {{0, 1}}},
      {"abcdef", "ab*?", kWildcards, {{0, 2}}},
      {"ab", "ab*??", kWildcards, {{0, 1}}},
      {"abc", "*c", kWildcards, {{0, 2}, {1, 2}, {2, 2}}},
      {"abc", "*", kWildcards, {{0, 0}, {1, 1}, {2, 2}}},
      {"abc", "?*", kWildcards, {{0, 0}, {1, 1}, {2, 2}}},
      {"xab", "ab*", {.useWildcards = true, .forward = false}, {{1, 2}}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(FindAll(row.szText, row.szQuery, row.behavior), row.matches)
        << row.szQuery << " in " << row.szText;
  }
}

TEST(WildcardSearch, GoesOnBehindAMissAndTellsThePosition) {
  WildcardSearch finder;
  finder.setText("a.b.a");
  finder.setQueryText("b");
  finder.setSearchPosition(3);
  SearchResultInfo info{77, 78};
  EXPECT_FALSE(finder.search(info));
  EXPECT_EQ(info, (SearchResultInfo{3, 3}));
  finder.setQueryText("a");  // leaves the position behind the text's end
  EXPECT_FALSE(finder.search(info));
  EXPECT_EQ(info, (SearchResultInfo{5, 5}));
  finder.resetSearchPosition();
  EXPECT_TRUE(finder.search(info));
  EXPECT_EQ(info, (SearchResultInfo{0, 0}));
}

TEST(WildcardSearch, KeepsTextAndPositionWhenTheBehaviourChanges) {
  WildcardSearch finder;
  finder.setText("Abab");
  finder.setQueryText("AB");
  finder.setSearchBehavior({.caseSensitive = false});
  EXPECT_EQ(finder.getText(), "Abab");
  SearchResultInfo info;
  ASSERT_TRUE(finder.search(info));
  EXPECT_EQ(info, (SearchResultInfo{0, 1}));
  finder.setSearchBehavior({.caseSensitive = true});
  EXPECT_FALSE(finder.search(info));
  EXPECT_EQ(info, (SearchResultInfo{2, 2}));
  const WildcardSearch copy = finder;
  EXPECT_EQ(copy.getText() + copy.getQueryText(), "AbabAB");
}

// The engine's steps one after another, with nothing left out: each attempt is made, and each
// character looked at alone.
class SlowSearch {
 public:
  SlowSearch(std::string sText, std::string sQuery, SearchBehavior behavior)
      : m_sText(std::move(sText)), m_sQuery(std::move(sQuery)), m_behavior(behavior) {
    m_nPosition = m_behavior.forward || m_sText.empty() ? 0 : Size() - 1;
  }

  void SetPosition(long nPosition) { m_nPosition = nPosition; }

  bool Search(SearchResultInfo& info) {
    long nStart = m_nPosition;
    long nEnd = m_nPosition;
    const bool bFound = Inner(nStart, nEnd, m_nPosition);
    info = {static_cast<std::uint32_t>(nStart), static_cast<std::uint32_t>(nEnd)};
    if (m_behavior.forward) {
      m_nPosition = Next(nStart);
    } else if (nEnd != 0) {
      m_nPosition = Next(nEnd);
    }
    return bFound;
  }

 private:
  long Size() const { return static_cast<long>(m_sText.size()); }
  long Length() const { return static_cast<long>(m_sQuery.size()); }
  int Fold(char ch) const { return m_behavior.caseSensitive ? ch : std::tolower(ch); }
  int TextAt(long i) const {
    return i >= 0 && i < Size() ? Fold(m_sText[static_cast<std::size_t>(i)]) : -1;
  }
  int QueryAt(long i) const {
    return i < Length() ? Fold(m_sQuery[static_cast<std::size_t>(i)]) : -2;
  }
  bool IsWildcard(long q) const { return QueryAt(q) == '*' || QueryAt(q) == '?'; }

  long Limit() const {
    if (m_behavior.forward) return Size();
    return m_nPosition < Size() ? m_nPosition + 1 : m_nPosition;
  }

  long Find(int nCharacter, long nStart) const {
    if (m_behavior.forward || m_bStarted) {
      while (nStart < Size() && TextAt(nStart) != nCharacter) ++nStart;
      return nStart < Size() ? nStart : -1;
    }
    nStart = std::min(nStart, Size() - 1);
    while (nStart >= 0 && TextAt(nStart) != nCharacter) --nStart;
    return nStart;
  }

  long Next(long p) const {
    const long nNext = m_behavior.forward ? p + 1 : std::max(p - 1, 0L);
    if (m_behavior.useWildcards) return nNext;
    const long nFound = Find(QueryAt(0), nNext);
    return nFound >= 0 ? nFound : m_behavior.forward ? Size() : 0;
  }

  bool IsWord(long nStart, long nEnd) const {
    return (nStart == 0 || TextAt(nStart - 1) == ' ' || TextAt(nStart) == ' ') &&
           (nEnd == Size() - 1 || TextAt(nEnd + 1) == ' ' || TextAt(nEnd) == ' ');
  }

  long StepOverWildcards(long& q) const {
    long nSingles = 0;
    for (; IsWildcard(q); ++q) nSingles += QueryAt(q) == '?' ? 1 : 0;
    return nSingles;
  }

  // Returns false if the search is over.
  bool Block(long p, long& nStart, long& t, long& q, long nLimit, bool& bStop) {
    const long nSingles = StepOverWildcards(q);
    if (q == Length()) {
      if (!m_bStarted) {
        bStop = TextAt(t) == -1;
        return true;
      }
      bStop = true;
      if (m_behavior.forward) {
        t += nSingles;
        return t <= nLimit;
      }
      nStart = p;
      t = std::min(m_nPosition + 1, Size());
      return true;
    }
    const long f = Find(QueryAt(q), t);
    if (f < 0) {
      bStop = true;
      if (!m_bStarted) m_nPosition = nLimit;
    } else if (!m_behavior.forward && !m_bStarted) {
      t = nStart = f;
    } else if (f - t < nSingles) {
      bStop = true;
    } else {
      if (m_behavior.forward && !m_bStarted) nStart = m_nPosition;
      t = f;
    }
    return true;
  }

  bool Inner(long& nStart, long& nEnd, long p) {
    if (m_behavior.numericCommas && m_sQuery.find_first_not_of(',') == std::string::npos)
      return false;
    for (;; p = Next(p)) {
      if (!m_behavior.forward && m_behavior.numericCommas && p != 0 && TextAt(p) == ',') --p;
      long nFirst = p, t = p, q = 0;
      const long nLimit = Limit();
      if (nLimit == 0 || Length() == 0) return false;
      for (bool bStop = false; q < Length() && !bStop;) {
        if (m_behavior.numericCommas && QueryAt(q) == ',') ++q;
        if (m_behavior.numericCommas && TextAt(t) == ',') ++t;
        if (t >= nLimit) {
          long nBehind = q;
          const long nSingles = StepOverWildcards(nBehind);
          if (m_behavior.useWildcards && (m_behavior.forward || nSingles == 0)) q = nBehind;
          break;
        }
        if (m_behavior.useWildcards && QueryAt(q) == '*') {
          if (!Block(p, nFirst, t, q, nLimit, bStop)) return m_bStarted = false;
        } else if (m_behavior.useWildcards && QueryAt(q) == '?') {
          bStop = TextAt(t) == -1;
        } else {
          bStop = TextAt(t) != QueryAt(q);
        }
        if (!bStop) {
          ++q, ++t;
          if (m_behavior.numericCommas && QueryAt(q) == ',') ++q;
        }
        m_bStarted = true;
      }
      m_bStarted = false;
      if (q < Length() || t - 1 < nFirst) {
        if (m_behavior.forward ? p >= nLimit : p == 0) return false;
        continue;
      }
      const bool bWord = !m_behavior.wholeWord || IsWord(nFirst, t - 1);
      if (!bWord && (t == 1 || (p == 0 && m_behavior.forward))) return false;
      if (bWord || p == 0) {
        nStart = nFirst;
        nEnd = t - 1;
        return true;
      }
    }
  }

  std::string m_sText;
  std::string m_sQuery;
  SearchBehavior m_behavior;
  long m_nPosition;
  bool m_bStarted = false;
};

SearchBehavior BehaviorOf(unsigned nBits) {
  return {(nBits & 1) != 0, (nBits & 2) != 0, (nBits & 4) != 0, (nBits & 8) != 0,
          (nBits & 16) != 0};
}

class WildcardSearchModel : public testing::Test {
 protected:
  std::string Random(std::size_t nMost, std::string_view sAlphabet) {
    std::string sText(m_random() % (nMost + 1), ' ');
    for (char& ch : sText) ch = sAlphabet[m_random() % sAlphabet.size()];
    return sText;
  }

  // Searches several times from one start, by the engine and by the model.
  void Compare(const std::string& sText, const std::string& sQuery, unsigned nBits,
               std::optional<std::uint32_t> nPosition) {
    SlowSearch model(sText, sQuery, BehaviorOf(nBits));
    m_finder.setSearchBehavior(BehaviorOf(nBits));
    m_finder.setText(sText);
    m_finder.setQueryText(sQuery);
    if (nPosition) {
      model.SetPosition(*nPosition);
      m_finder.setSearchPosition(*nPosition);
    }
    for (int nSearch = 0; nSearch < 6; ++nSearch) {
      SearchResultInfo expected;
      SearchResultInfo actual;
      ASSERT_EQ(m_finder.search(actual), model.Search(expected))
          << "'" << sQuery << "' in '" << sText << "', flags " << nBits << ", search " << nSearch;
      ASSERT_EQ(actual, expected) << "'" << sQuery << "' in '" << sText << "', flags " << nBits
                                  << ", search " << nSearch;
    }
  }

  std::mt19937 m_random{33};
  WildcardSearch m_finder;
};

TEST_F(WildcardSearchModel, AgreesOnShortTextsWithEveryBehaviour) {
  for (int i = 0; i < 12'000; ++i) {
    const std::string sText = Random(12, i % 2 == 0 ? "abA ," : "a,b ab");
    const std::string sQuery = Random(5, i % 3 == 0 ? "ab,?*" : i % 3 == 1 ? "aB*?" : "ab ");
    std::optional<std::uint32_t> nPosition;
    if (m_random() % 2 == 0) nPosition = m_random() % (sText.size() + 3);
    for (unsigned nBits = 0; nBits < 32; ++nBits) {
      Compare(sText, sQuery, nBits, nPosition);
      if (HasFatalFailure()) return;
    }
  }
}

TEST_F(WildcardSearchModel, AgreesOnTextsOfManyBlocks) {
  for (int i = 0; i < 2'000; ++i) {
    std::string sText = Random(700, i % 2 == 0 ? "ab" : "abcdefghijklmn OPQRST,[{@`");
    std::string sQuery = Random(i % 5 == 0 ? 90 : 4, "abc[{ ");
    if (i % 3 == 0 && sText.size() > 9) sQuery = sText.substr(m_random() % (sText.size() - 8), 8);
    for (unsigned nBits : {0u, 1u, 5u, 8u, 9u, 13u, 16u, 24u, 2u, 10u}) {
      Compare(sText, sQuery, nBits, std::nullopt);
      if (HasFatalFailure()) return;
    }
  }
}

// Each place of the run matches a good part of the query, so that the comparing outgrows its budget
// somewhere in it; the match, or what only begins like it, comes at every distance from there.
TEST_F(WildcardSearchModel, AgreesWhereManyPlacesNearlyMatch) {
  const auto run = [](std::size_t nLength) { return std::string(nLength, 'a'); };
  for (std::size_t nRun = 0; nRun < 300; ++nRun) {
    const std::string sBegin = run(100) + 'b' + Random(30, "aaab");
    const std::string sQuery = sBegin + run(120) + "ba";
    const std::string sNear = sBegin + run(121);  // and a match may begin in its last hundred
    const std::string texts[] = {
        run(nRun) + sQuery + run(nRun),
        run(nRun) + sNear + sQuery.substr(100) + run(nRun),
        run(nRun) + sNear + Random(9, "ab") + sNear + run(nRun),
    };
    for (const std::string& sText : texts) {
      for (unsigned nBits : {0u, 1u, 8u, 9u}) {
        const SearchBehavior behavior = BehaviorOf(nBits);
        m_finder.setSearchBehavior(behavior);
        m_finder.setText(sText);
        m_finder.setQueryText(sQuery);
        const std::size_t nExpected = behavior.forward ? sText.find(sQuery) : sText.rfind(sQuery);
        SearchResultInfo info;
        ASSERT_EQ(m_finder.search(info), nExpected != std::string::npos) << nRun << ' ' << nBits;
        if (nExpected != std::string::npos) {
          ASSERT_EQ(info.startPosition, nExpected) << nRun << ' ' << nBits;
        }
      }
    }
  }
}

TEST(MatchMask, OrdersATextAgainstAMask) {
  const struct {
    const char* szText;
    const char* szMask;
    int nResult;
  } rows[] = {
      {"ABC", "AB*", 0}, {"AB", "AB*", 0},    {"ABCD", "AB*", 1}, {"AB", "AB**", 0},
      {"AB", "AB*C", 1}, {"AXC", "A*C", 0},   {"B", "A", 1},      {"A", "B", -1},
      {"A", "AB", -1},   {"AB", "A", 1},      {"any", "", 0},     {"any", nullptr, 0},
      {"", "A", -1},     {"A\xE9", "Az", -1}, {"A", "A\xE9", 1},  {nullptr, "*", 0},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(MatchMask(row.szText, row.szMask), row.nResult)
        << (row.szText ? row.szText : "null") << " by " << (row.szMask ? row.szMask : "null");
  }
}

TEST(CheckForWildCard, FindsTheFirstWildcardAndUnescapesIt) {
  const struct {
    const char* szText;
    int nResult;
    const char* szAfter;
  } rows[] = {
      {"a*b", 1, "a*b"},    {"*b", 0, "*b"},        {"ab", -1, "ab"},
      {"a\\*b", -1, "a*b"}, {"a\\*b*", -1, "a*b*"},  // the second one is not looked at
      {"", -1, ""},         {"\\*", -1, "*"},
  };
  for (const auto& row : rows) {
    std::string sText = row.szText;
    EXPECT_EQ(CheckForWildCard(sText.data(), '*'), row.nResult) << row.szText;
    EXPECT_STREQ(sText.c_str(), row.szAfter);
  }
  EXPECT_EQ(CheckForWildCard(nullptr, '*'), -1);
  std::string sLong(40'000, 'a');
  sLong.back() = '*';
  EXPECT_EQ(CheckForWildCard(sLong.data(), '*'), -1);
}

TEST(CompareStr, MatchesPatternsOfQuestionMarksAndAnAsterisk) {
  EXPECT_EQ(CompareStrWithQuestion("abc", "a?c", 1), 0);
  EXPECT_EQ(CompareStrWithQuestion("abc", "a?c", 2), 1);
  EXPECT_EQ(CompareStrWithQuestion("abc", "a?", 1), 1);
  EXPECT_EQ(CompareStrWithQuestion("", "", 0), 1);
  EXPECT_EQ(CompareStrWithMultipleQuestion("abc", "??c"), 0);
  EXPECT_EQ(CompareStrWithMultipleQuestion("abc", "?b?d"), 1);
  EXPECT_EQ(CompareStrWithMultipleQuestion("", ""), 1);
  const struct {
    const char* szText;
    const char* szPattern;
    std::int16_t nPosition;
    int nResult;
  } rows[] = {
      {"aba", "ab*ba", 2, 0}, {"abxba", "ab*ba", 2, 0}, {"abx", "ab*ba", 2, 1},
      {"ab", "ab*", 2, 0},    {"a", "ab*", 2, 1},       {"x", "*", 0, 0},
      {"", "*", 0, 1},        {nullptr, "*", 0, 1},     {"b", "*ab", 0, 1},
      {"ab", "ab*", -1, 1},   {"ab", "ab*", 9, 1},      {"ab", nullptr, 0, 1},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(CompareStrWithAsterisk(row.szText, row.szPattern, row.nPosition), row.nResult)
        << (row.szText ? row.szText : "null");
  }
}

}  // namespace
}  // namespace ald
