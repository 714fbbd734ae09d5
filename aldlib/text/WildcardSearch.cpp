#include "aldlib/text/WildcardSearch.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>

#include "aldlib/platform/Characters.h"
#include "aldlib/text/internal/TextScan.h"

namespace ald {

using internal::kNowhere;

namespace {

constexpr std::uint32_t kLastPosition = UINT32_MAX;
constexpr std::size_t kLongestText = kLastPosition - 1;

void Store(CString& sTarget, std::string_view sText) noexcept {
  try {
    sTarget.assign(sText.substr(0, kLongestText));
  } catch (const std::bad_alloc&) {
    sTarget.clear();
  }
}

std::uint32_t AsPosition(std::size_t n) {
  return static_cast<std::uint32_t>(std::min<std::size_t>(n, kLastPosition));
}

}  // namespace

// One attempt to match the query from index p of the text on.
struct WildcardSearch::Attempt {
  std::size_t p;
  std::size_t start;  // of the match
  std::size_t t;      // the place in the text
  std::size_t q = 0;  // the place in the query
  std::size_t limit;
  bool stop = false;
};

// What earlier attempts of one search have found out about where a character occurs next. Without
// it each attempt would run to the end of the text again for a character that does not come.
class WildcardSearch::Occurrences {
 public:
  // As ScanForward for a single character.
  std::size_t Find(std::string_view sText, char ch, std::size_t nStart, bool bBlind) noexcept {
    Known& known = m_known[static_cast<unsigned char>(ch) % m_known.size()];
    const std::string_view sSought(&ch, 1);
    if (!known.bUsed || known.ch != ch || nStart > known.nFound) {
      known = {true, ch, nStart, internal::ScanForward(sText, sSought, nStart, bBlind)};
    } else if (nStart < known.nFrom) {
      const std::size_t nFound =
          internal::ScanForward(sText.substr(0, known.nFrom), sSought, nStart, bBlind);
      if (nFound != kNowhere) known.nFound = nFound;
      known.nFrom = nStart;
    }
    return known.nFound;
  }

  // As ScanBackward for a place up to nStart. No start lies behind that of the call before, and the
  // character is the same: the one behind the wildcards that a query begins with.
  std::size_t FindBack(std::string_view sText, char ch, std::size_t nStart, bool bBlind) noexcept {
    if (!m_bBackUsed || nStart < m_nBackFound) {
      m_bBackUsed = true;
      m_nBackFound = internal::ScanBackward(sText.substr(0, nStart + 1), {&ch, 1}, bBlind);
    }
    return m_nBackFound;
  }

 private:
  struct Known {
    bool bUsed = false;
    char ch = 0;
    std::size_t nFrom = 0;  // from here to nFound the character does not occur
    std::size_t nFound = 0;
  };
  std::array<Known, 8> m_known;
  bool m_bBackUsed = false;
  std::size_t m_nBackFound = 0;
};

void WildcardSearch::setText(std::string_view sText) noexcept {
  Store(behavior.caseSensitive ? text : textNoCase, sText);
  dirtyPosition = true;
}

const CString& WildcardSearch::getText() const noexcept {
  return behavior.caseSensitive ? text : textNoCase;
}

void WildcardSearch::setQueryText(std::string_view sQuery) noexcept {
  Store(queryText, sQuery);
}

const CString& WildcardSearch::getQueryText() const noexcept {
  return queryText;
}

void WildcardSearch::setSearchPosition(std::uint32_t nPosition) noexcept {
  movePosition(nPosition);
}

void WildcardSearch::resetSearchPosition() noexcept {
  const std::size_t nSize = getSearchTextSize();
  movePosition(behavior.forward || nSize == 0 ? 0 : nSize - 1);
}

const SearchBehavior& WildcardSearch::getSearchBehavior() const noexcept {
  return behavior;
}

void WildcardSearch::setSearchBehavior(const SearchBehavior& newBehavior) noexcept {
  if (newBehavior.caseSensitive != behavior.caseSensitive) text.swap(textNoCase);
  behavior = newBehavior;
}

bool WildcardSearch::search(SearchResultInfo& info) noexcept {
  if (dirtyPosition) resetSearchPosition();
  info = {searchPosition, searchPositionCopy};
  const bool bFound = inner_search(info, searchPosition);
  if (behavior.forward) {
    setNextSearchPosition(info.startPosition);
  } else if (info.endPosition != 0) {
    setNextSearchPosition(info.endPosition);
  }
  dirtyPosition = false;
  return bFound;
}

// A character outside the text is none that a query could hold or a word could end at.
char WildcardSearch::getSearchChar(std::size_t i) const noexcept {
  return i < getSearchTextSize() ? getText()[i] : '\0';
}

std::size_t WildcardSearch::getSearchTextSize() const noexcept {
  return getText().size();
}

std::size_t WildcardSearch::getQueryTextSize() const noexcept {
  return queryText.size();
}

// Text from here on is out of reach.
std::size_t WildcardSearch::getLengthToSearch() const noexcept {
  const std::size_t nSize = getSearchTextSize();
  if (behavior.forward) return nSize;
  return searchPosition < nSize ? std::size_t{searchPosition} + 1 : searchPosition;
}

void WildcardSearch::adjustQueryForNumericCommas(std::size_t& q) const noexcept {
  if (q < getQueryTextSize() && queryText[q] == ',') ++q;
}

void WildcardSearch::adjustTextForNumericCommas(std::size_t& t, bool moveForward) const noexcept {
  if (getSearchChar(t) == ',') t += moveForward ? std::size_t{1} : std::size_t(-1);
}

void WildcardSearch::adjustForNumericCommas(std::size_t& q, std::size_t& t) const noexcept {
  adjustQueryForNumericCommas(q);
  adjustTextForNumericCommas(t, true);
}

// Steps over a run of wildcards and returns how many characters it asks for.
std::size_t WildcardSearch::adjustForWildcardBlock(std::size_t& q) const noexcept {
  std::size_t nSingles = 0;
  for (; q < getQueryTextSize(); ++q) {
    if (queryText[q] == singleWildcard) {
      ++nSingles;
    } else if (queryText[q] != multiWildcard) {
      break;
    }
  }
  return nSingles;
}

void WildcardSearch::advancePositions(std::size_t& q, std::size_t& t) const noexcept {
  ++q;
  ++t;
  if (behavior.numericCommas) adjustQueryForNumericCommas(q);
}

bool WildcardSearch::isMatch(std::size_t q, std::size_t t) const noexcept {
  if (t >= getSearchTextSize() || q >= getQueryTextSize()) return false;
  const char chText = getText()[t];
  const char chQuery = queryText[q];
  return behavior.caseSensitive ? chText == chQuery : ToLowerAscii(chText) == ToLowerAscii(chQuery);
}

std::size_t WildcardSearch::find(char ch, std::size_t start) const noexcept {
  return find(std::string_view(&ch, 1), start);
}

std::size_t WildcardSearch::find(std::string_view sSought, std::size_t start) const noexcept {
  const std::string_view sText = getText();
  const bool bBlind = !behavior.caseSensitive;
  if (behavior.forward || matchStarted) {
    return internal::ScanForward(sText, sSought, start, bBlind);
  }
  // Backward the match may begin at the start at the latest.
  const std::size_t nReach = start < sText.size() ? start + sSought.size() : sText.size();
  return internal::ScanBackward(sText.substr(0, nReach), sSought, bBlind);
}

std::size_t WildcardSearch::calcNextSearchPosition(std::size_t p) const noexcept {
  const std::size_t nNext = behavior.forward ? p + 1 : p - (p > 0 ? 1 : 0);
  if (behavior.useWildcards) return nNext;
  const std::size_t nFound = queryText.empty() ? kNowhere : find(queryText.front(), nNext);
  if (nFound != kNowhere) return nFound;
  return behavior.forward ? getSearchTextSize() : 0;
}

void WildcardSearch::setNextSearchPosition(std::size_t p) noexcept {
  movePosition(calcNextSearchPosition(p));
}

void WildcardSearch::movePosition(std::size_t p) noexcept {
  searchPosition = searchPositionCopy = AsPosition(p);
  dirtyPosition = false;
}

// Finds the match that the attempts below would find, without making them: with every character of
// the query standing for itself, an attempt succeeds exactly where the whole query stands within
// reach, and the attempts go over all places in turn.
bool WildcardSearch::searchPlainText(SearchResultInfo& info, std::size_t position) const noexcept {
  const std::string_view sText = getText();
  const std::size_t nLength = getQueryTextSize();
  const bool bBlind = !behavior.caseSensitive;
  std::size_t nReach = std::min(getLengthToSearch(), sText.size());
  for (std::size_t p = position;;) {
    p = behavior.forward ? internal::ScanForward(sText, queryText, p, bBlind)
                         : internal::ScanBackward(sText.substr(0, nReach), queryText, bBlind);
    if (p == kNowhere) return false;
    const SearchResultInfo candidate{AsPosition(p), AsPosition(p + nLength - 1)};
    const bool bWord = !behavior.wholeWord || isCompleteWord(candidate);
    if (!bWord && (candidate.endPosition == 0 || (p == 0 && behavior.forward))) return false;
    if (bWord || p == 0) {
      info = candidate;
      return true;
    }
    ++p;                       // forward: the first place of the next
    nReach = p + nLength - 2;  // backward: one less than the end of this
  }
}

bool WildcardSearch::isQueryOfCommas() const noexcept {
  return queryText.find_first_not_of(',') == CString::npos;
}

bool WildcardSearch::inner_search(SearchResultInfo& info, std::size_t position) noexcept {
  if (getLengthToSearch() == 0 || getQueryTextSize() == 0) return false;
  if (!behavior.useWildcards && !behavior.numericCommas) return searchPlainText(info, position);
  if (behavior.numericCommas && isQueryOfCommas()) return false;

  // Where the query begins with a character that stands for itself, the attempts at all places
  // without that character would fail at their first step.
  const char chFirst = queryText.front();
  const bool bSkips =
      !behavior.numericCommas && chFirst != multiWildcard && chFirst != singleWildcard;
  Occurrences seen;
  for (std::size_t p = position;; p = calcNextSearchPosition(p)) {
    if (bSkips) {
      p = find(chFirst, p);
      if (p == kNowhere) return false;
    }
    if (!behavior.forward && behavior.numericCommas && p != 0) adjustTextForNumericCommas(p, false);
    Attempt attempt{.p = p, .start = p, .t = p, .limit = getLengthToSearch()};
    const bool bGoOn = runAttempt(attempt, seen);
    matchStarted = false;
    if (!bGoOn) return false;

    // A match holds a character, so wildcards alone match nothing behind the text.
    if (attempt.q < getQueryTextSize() || attempt.t <= attempt.start) {
      if (behavior.forward ? p >= attempt.limit : p == 0) return false;
      continue;
    }
    const SearchResultInfo candidate{AsPosition(attempt.start), AsPosition(attempt.t - 1)};
    if (!behavior.wholeWord || isCompleteWord(candidate)) {
      info = candidate;
      return true;
    }
    if (candidate.endPosition == 0) return false;
    if (p == 0) {
      if (!behavior.forward) info = candidate;  // though it is no word
      return !behavior.forward;
    }
  }
}

// Goes along the query. Returns false if the whole search is over without a match.
bool WildcardSearch::runAttempt(Attempt& attempt, Occurrences& seen) noexcept {
  auto& [p, start, t, q, limit, stop] = attempt;
  while (q < getQueryTextSize() && !stop) {
    if (behavior.numericCommas) adjustForNumericCommas(q, t);
    if (q >= getQueryTextSize()) break;  // the query's last character was a comma
    if (t >= limit) {
      if (behavior.useWildcards) {
        std::size_t nBehind = q;
        const std::size_t nSingles = adjustForWildcardBlock(nBehind);
        if (behavior.forward || nSingles == 0) q = nBehind;
      }
      break;
    }
    if (behavior.useWildcards && queryText[q] == singleWildcard) {
      stop = t >= getSearchTextSize();
    } else if (behavior.useWildcards && queryText[q] == multiWildcard) {
      if (passWildcardBlock(attempt, seen) == Block::kNoMatch) return false;
    } else {
      stop = !isMatch(q, t);
    }
    if (!stop) advancePositions(q, t);
    matchStarted = true;
  }
  return true;
}

WildcardSearch::Block WildcardSearch::passWildcardBlock(Attempt& attempt,
                                                        Occurrences& seen) noexcept {
  auto& [p, start, t, q, limit, stop] = attempt;
  const std::size_t nSingles = adjustForWildcardBlock(q);
  if (q >= getQueryTextSize()) {
    if (!matchStarted) {  // wildcards alone: the one character at t is the match
      stop = t >= getSearchTextSize();
      return Block::kGoOn;
    }
    stop = true;  // and the query is at its end: a match
    if (behavior.forward) {
      t += nSingles;
      return t > limit ? Block::kNoMatch : Block::kGoOn;
    }
    start = p;
    t = std::min(std::size_t{searchPosition} + 1, getSearchTextSize());
    return Block::kGoOn;
  }

  const bool bForward = behavior.forward || matchStarted;
  const std::size_t f = bForward
                            ? seen.Find(getText(), queryText[q], t, !behavior.caseSensitive)
                            : seen.FindBack(getText(), queryText[q], t, !behavior.caseSensitive);
  if (f == kNowhere) {
    stop = true;
    if (matchStarted) return Block::kGoOn;
    movePosition(limit);
    // Later attempts look through less of the same text, so they would not find it either.
    return Block::kNoMatch;
  }
  if (!bForward) {
    start = t = f;
  } else if (f - t < nSingles) {
    stop = true;
  } else {
    if (!matchStarted) start = searchPosition;
    t = f;
  }
  return Block::kGoOn;
}

bool WildcardSearch::isBeginningOfWord(const SearchResultInfo& info) const noexcept {
  return info.startPosition == 0 || getSearchChar(info.startPosition - 1) == ' ' ||
         getSearchChar(info.startPosition) == ' ';
}

bool WildcardSearch::isEndOfWord(const SearchResultInfo& info) const noexcept {
  const std::size_t nEnd = info.endPosition;
  return nEnd + 1 == getSearchTextSize() || getSearchChar(nEnd + 1) == ' ' ||
         getSearchChar(nEnd) == ' ';
}

bool WildcardSearch::isCompleteWord(const SearchResultInfo& info) const noexcept {
  return isBeginningOfWord(info) && isEndOfWord(info);
}

}  // namespace ald
