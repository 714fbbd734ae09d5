#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

// The find engine of dialogs and list filters, and below it the compares of whole texts with simple
// patterns, which give "*" another meaning.
//
//   WildcardSearch finder;
//   finder.setText("Invoice 1,204 of Alder & Sons");
//   finder.setQueryText("1204");
//   finder.setSearchBehavior({.numericCommas = true});
//   SearchResultInfo found;
//   while (finder.search(found)) Mark(found.startPosition, found.endPosition);   // 8 to 12
namespace ald {

struct SearchBehavior {
  bool caseSensitive = true;   // if not, A to Z and a to z are equal; accented letters never are
  bool useWildcards = false;   // "*" and "?" in the query are wildcards
  bool wholeWord = false;      // a match stands between spaces or ends of the text
  bool forward = true;         // towards the end of the text
  bool numericCommas = false;  // commas in text and query are skipped
};
static_assert(sizeof(SearchBehavior) == 5 && sizeof(bool) == 1);

// The first and the last character of a match, both inclusive, counted from 0.
struct SearchResultInfo {
  std::uint32_t startPosition = 0;
  std::uint32_t endPosition = 0;
};

// Finds one occurrence of a query in a text after another.
//
// Each search starts where the one before has left the position, so matches may overlap: "aa" is
// found in "aaaa" three times. A query without wildcards is found at the speed of a memory search,
// in either direction and whatever the case rule.
//
// With useWildcards, "?" is one character and "*" any number, where the way to the first character
// behind the "*" is taken and no other is tried: "a*bc" is not found in "a b bc". A "*" or "?" at
// the end of the query:
//   "abc?" in "abc"     -> 0 to 2      forward, where the text ends, "?" stands for nothing too
//   "ab*"  in "abcdef"  -> 0 to 1      a "*" at the end adds nothing
//   "*"    in "abc"     -> 0 to 0      wildcards alone take a single character
//   "*c"   in "abc"     -> 0 to 2      a "*" at the front reaches back to the position
//
// With wholeWord only the space bounds a word, and a forward search ends at a match at index 0 that
// is no word. A backward search returns a match at index 0 even if it is no word: callers that
// search backwards rely on being told of the text's beginning.
//
// A backward search finds what ends at the position or before it. A "*" within the query may reach
// past the position again, and then the same match is found again.
//
// Nothing is reported but true or false. An empty text or query, and a query of commas alone with
// numericCommas, find nothing. A text longer than 4,294,967,294 characters is cut there, and one
// that there is no memory for is empty.
class ALDLIB_EXPORT WildcardSearch {
 public:
  WildcardSearch() = default;
  WildcardSearch(const WildcardSearch&) = default;
  WildcardSearch& operator=(const WildcardSearch&) = default;
  ~WildcardSearch() = default;

  // The next search starts at the text's beginning, or backward at its end.
  void setText(std::string_view sText) noexcept;
  const CString& getText() const noexcept;

  // A new query is sought from where the last search has ended.
  void setQueryText(std::string_view sQuery) noexcept;
  const CString& getQueryText() const noexcept;

  void setSearchPosition(std::uint32_t nPosition) noexcept;
  // To index 0, or backward to the text's last index.
  void resetSearchPosition() noexcept;

  const SearchBehavior& getSearchBehavior() const noexcept;
  // Leaves the position where it is, also when the direction changes.
  void setSearchBehavior(const SearchBehavior& newBehavior) noexcept;

  // Finds the next match. On a miss `info` holds the position twice and no match. The position
  // moves on after a miss too, so a caller can go on.
  bool search(SearchResultInfo& info) noexcept;

 private:
  struct Attempt;
  class Occurrences;
  enum class Block { kGoOn, kNoMatch };

  char getSearchChar(std::size_t i) const noexcept;
  std::size_t getSearchTextSize() const noexcept;
  std::size_t getQueryTextSize() const noexcept;
  std::size_t getLengthToSearch() const noexcept;

  void adjustQueryForNumericCommas(std::size_t& q) const noexcept;
  void adjustTextForNumericCommas(std::size_t& t, bool moveForward) const noexcept;
  void adjustForNumericCommas(std::size_t& q, std::size_t& t) const noexcept;
  std::size_t adjustForWildcardBlock(std::size_t& q) const noexcept;
  void advancePositions(std::size_t& q, std::size_t& t) const noexcept;
  bool isMatch(std::size_t q, std::size_t t) const noexcept;

  std::size_t find(char ch, std::size_t start) const noexcept;
  std::size_t find(std::string_view sSought, std::size_t start) const noexcept;
  std::size_t calcNextSearchPosition(std::size_t p) const noexcept;
  void setNextSearchPosition(std::size_t p) noexcept;
  void movePosition(std::size_t p) noexcept;

  bool inner_search(SearchResultInfo& info, std::size_t position) noexcept;
  bool searchPlainText(SearchResultInfo& info, std::size_t position) const noexcept;
  bool runAttempt(Attempt& attempt, Occurrences& seen) noexcept;
  Block passWildcardBlock(Attempt& attempt, Occurrences& seen) noexcept;
  bool isQueryOfCommas() const noexcept;

  bool isBeginningOfWord(const SearchResultInfo& info) const noexcept;
  bool isEndOfWord(const SearchResultInfo& info) const noexcept;
  bool isCompleteWord(const SearchResultInfo& info) const noexcept;

  CString text;        // with caseSensitive
  CString textNoCase;  // without; only the one in use holds the text
  CString queryText;
  std::uint32_t searchPosition = 0;
  std::uint32_t searchPositionCopy = 0;  // the same, for endPosition before a search
  char multiWildcard = '*';
  char singleWildcard = '?';
  SearchBehavior behavior;
  bool dirtyPosition = true;  // the position is to be reset before the next search
  bool matchStarted = false;  // within one attempt: a step of the query is done
};

// Compares szText with a mask, place by place. A "*" stands for exactly one character, or for none
// behind the text's end. Returns 0 for a match, and else the order of the two: 1 if szText is the
// greater or goes on behind the mask, -1 if it is the smaller. Bytes count as signed. A null or
// empty mask matches every text; a null text counts as empty.
//   MatchMask("ABC", "AB*") -> 0    MatchMask("AB", "AB*") -> 0    MatchMask("ABCD", "AB*") -> 1
[[nodiscard]] ALDLIB_EXPORT std::int16_t MatchMask(const char* szText, const char* szMask) noexcept;

// Returns the index of the first cWildcard, or -1 if there is none, or if it is escaped: with a
// backslash before it. That backslash is then taken out of the text. Later wildcards are not looked
// at. An index above 32,767 counts as none.
//   'a*b' -> 1      'a\*b' -> -1, leaving 'a*b'
ALDLIB_EXPORT std::int16_t CheckForWildCard(char* szText, char cWildcard) noexcept;

// The three below return 0 for a match and else 1; null counts as an empty text.

// Texts of one length above 0 that are equal everywhere but at nPosition.
[[nodiscard]] ALDLIB_EXPORT std::int16_t CompareStrWithQuestion(const char* szText,
                                                                const char* szPattern,
                                                                std::int16_t nPosition) noexcept;

// Texts of one length above 0 that are equal but where the pattern has a "?".
[[nodiscard]] ALDLIB_EXPORT std::int16_t CompareStrWithMultipleQuestion(
    const char* szText, const char* szPattern) noexcept;

// A text that begins with what stands before the pattern's "*", which is at nPosition, and ends
// with what stands behind it. The two may overlap: "aba" matches "ab*ba". An empty text never
// matches, nor does anything if nPosition lies outside the pattern.
[[nodiscard]] ALDLIB_EXPORT std::int16_t CompareStrWithAsterisk(const char* szText,
                                                                const char* szPattern,
                                                                std::int16_t nPosition) noexcept;

}  // namespace ald
