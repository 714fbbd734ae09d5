// A place is a candidate if the first and the last character of the sought text stand there. The
// places are tried 64 at a time, and the few candidates then compared in full. A text made to
// defeat this (many a's in search of many a's and a b) would cost the product of both lengths, so
// the comparing is counted, and when it outgrows the way covered, the rest is searched with the
// table of Knuth, Morris and Pratt, which never looks at a character twice.
//
// As long as the first character is seldom, the C library's search for it alone is faster still.

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <new>
#include <vector>

#include "aldlib/platform/Characters.h"
#include "aldlib/text/internal/TextScan.h"

namespace ald::internal {
namespace {

// Sixteen characters, which every compiler that knows the extension works on at once.
using Chunk = std::uint8_t __attribute__((vector_size(16)));

constexpr std::size_t kChunk = sizeof(Chunk);
constexpr std::size_t kBlock = 4 * kChunk;

// Comparing that is free, and comparing that each place passed by pays for.
constexpr std::size_t kFreeCompares = 4096;
constexpr std::size_t kComparesPerPlace = 8;

// A character is seldom if no more than so many of it come in so many places.
constexpr std::size_t kFewHits = 8;
constexpr std::size_t kPlacesPerHit = 256;

// One character to look for. Setting the bit that tells a letter's cases apart makes both cases one
// value, and no other character that value. A character without cases is looked for as it is.
struct Mark {
  Mark(char ch, bool bBlind) {
    const char chLower = ToLowerAscii(ch);
    const bool bLetter = chLower >= 'a' && chLower <= 'z';
    const auto nBit = static_cast<std::uint8_t>(bBlind && bLetter ? 0x20 : 0);
    bits = Chunk{} + nBit;
    value = Chunk{} + static_cast<std::uint8_t>(static_cast<unsigned char>(ch) | nBit);
  }

  // All ones in each of the 16 places where the character stands.
  auto In(const char* pText) const {
    Chunk text;
    std::memcpy(&text, pText, sizeof text);
    return (text | bits) == value;
  }

  Chunk bits;
  Chunk value;
};

using Hits = std::int8_t __attribute__((vector_size(16)));  // what comparing two of them gives

bool Any(Hits hits) {
  std::uint64_t aHalves[2];
  std::memcpy(aHalves, &hits, sizeof hits);
  return (aHalves[0] | aHalves[1]) != 0;
}

class Scanner {
 public:
  Scanner(std::string_view sText, std::string_view sSought, bool bBlind)
      : m_sText(sText),
        m_sSought(sSought),
        m_bBlind(bBlind),
        m_first(sSought.front(), bBlind),
        m_last(sSought.back(), bBlind) {}

  std::size_t Forward(std::size_t nStart) {
    const std::size_t nEnd = m_sText.size() - m_sSought.size() + 1;  // of the places
    std::size_t nPlace = nStart;
    if (!m_bBlind) {
      nPlace = SkipToFirst(nPlace, nEnd);
      if (nPlace == nEnd) return kNowhere;
      if (MatchesAt(nPlace)) return nPlace;
    }
    for (; nEnd - nPlace >= kBlock; nPlace += kBlock) {
      if (!AnyCandidate(nPlace)) continue;
      for (std::size_t nChunk = nPlace; nChunk < nPlace + kBlock; nChunk += kChunk) {
        const std::size_t nFound = FirstMatch(nChunk);
        if (nFound != kNowhere) return nFound;
      }
      if (IsTooDear(nPlace - nStart)) return ByTable<true>(nPlace + kBlock, nEnd);
    }
    for (; nPlace < nEnd; ++nPlace) {  // few enough to compare whatever it costs
      if (MatchesAt(nPlace)) return nPlace;
    }
    return kNowhere;
  }

  std::size_t Backward() {
    const std::size_t nEnd = m_sText.size() - m_sSought.size() + 1;
    std::size_t nPlace = nEnd;  // all from here on are done
    while (nPlace >= kBlock) {
      nPlace -= kBlock;
      if (!AnyCandidate(nPlace)) continue;
      for (std::size_t nChunk = nPlace + kBlock; nChunk > nPlace;) {
        nChunk -= kChunk;
        const std::size_t nFound = LastMatch(nChunk);
        if (nFound != kNowhere) return nFound;
      }
      if (IsTooDear(nEnd - nPlace)) return ByTable<false>(0, nPlace);
    }
    while (nPlace > 0) {
      if (MatchesAt(--nPlace)) return nPlace;
    }
    return kNowhere;
  }

 private:
  char Folded(char ch) const { return m_bBlind ? ToLowerAscii(ch) : ch; }
  bool IsTooDear(std::size_t nPassed) const {
    return m_nCompared / kComparesPerPlace > nPassed + kFreeCompares / kComparesPerPlace;
  }

  Hits CandidatesAt(std::size_t nPlace) const {
    const char* const pFirst = m_sText.data() + nPlace;
    if (m_sSought.size() == 1) return m_first.In(pFirst);
    return m_first.In(pFirst) & m_last.In(pFirst + m_sSought.size() - 1);
  }
  bool AnyCandidate(std::size_t nPlace) const {
    return Any((CandidatesAt(nPlace) | CandidatesAt(nPlace + kChunk)) |
               (CandidatesAt(nPlace + 2 * kChunk) | CandidatesAt(nPlace + 3 * kChunk)));
  }

  bool MatchesAt(std::size_t nPlace) {
    const char* const pText = m_sText.data() + nPlace;
    std::size_t i = 0;
    while (i < m_sSought.size() && Folded(pText[i]) == Folded(m_sSought[i])) ++i;
    m_nCompared += i;
    return i == m_sSought.size();
  }

  std::size_t FirstMatch(std::size_t nChunk) {
    const Hits hits = CandidatesAt(nChunk);
    if (!Any(hits)) return kNowhere;
    for (std::size_t i = 0; i < kChunk; ++i) {
      if (hits[i] != 0 && MatchesAt(nChunk + i)) return nChunk + i;
    }
    return kNowhere;
  }
  std::size_t LastMatch(std::size_t nChunk) {
    const Hits hits = CandidatesAt(nChunk);
    if (!Any(hits)) return kNowhere;
    for (std::size_t i = kChunk; i-- > 0;) {
      if (hits[i] != 0 && MatchesAt(nChunk + i)) return nChunk + i;
    }
    return kNowhere;
  }

  // Returns the first match, or a place before it where the first character has turned out to be
  // frequent; nEnd if neither comes.
  std::size_t SkipToFirst(std::size_t nStart, std::size_t nEnd) {
    std::size_t nPlace = nStart;
    for (std::size_t nHits = 0; nPlace < nEnd; ++nPlace, ++nHits) {
      const void* const pHit =
          std::memchr(m_sText.data() + nPlace, m_sSought.front(), nEnd - nPlace);
      if (pHit == nullptr) return nEnd;
      nPlace = static_cast<std::size_t>(static_cast<const char*>(pHit) - m_sText.data());
      if (nHits > kFewHits + (nPlace - nStart) / kPlacesPerHit || MatchesAt(nPlace)) return nPlace;
    }
    return nEnd;
  }

  // The first or last match at a place in [nBegin, nEnd). Backwards both texts are read from their
  // ends.
  template <bool kForward>
  std::size_t ByTable(std::size_t nBegin, std::size_t nEnd) const {
    const std::size_t nLength = m_sSought.size();
    if (nBegin >= nEnd) return kNowhere;
    const std::size_t nTextEnd = nEnd + nLength - 1;
    const auto sought = [&](std::size_t i) {
      return Folded(m_sSought[kForward ? i : nLength - 1 - i]);
    };
    std::vector<std::size_t>
        borders;  // of the first i characters, the longest start that ends them
    try {
      borders.resize(nLength + 1);
    } catch (const std::bad_alloc&) {
      return OneByOne<kForward>(nBegin, nEnd);
    }
    for (std::size_t i = 1, nBorder = 0; i < nLength; borders[++i] = nBorder) {
      while (nBorder > 0 && sought(i) != sought(nBorder)) nBorder = borders[nBorder];
      if (sought(i) == sought(nBorder)) ++nBorder;
    }
    std::size_t nMatched = 0;
    for (std::size_t i = 0; i < nTextEnd - nBegin; ++i) {
      const char ch = Folded(m_sText[kForward ? nBegin + i : nTextEnd - 1 - i]);
      while (nMatched > 0 && ch != sought(nMatched)) nMatched = borders[nMatched];
      if (ch == sought(nMatched)) ++nMatched;
      if (nMatched == nLength) return kForward ? nBegin + i + 1 - nLength : nTextEnd - 1 - i;
    }
    return kNowhere;
  }

  // Without memory for the table.
  template <bool kForward>
  std::size_t OneByOne(std::size_t nBegin, std::size_t nEnd) const {
    Scanner plain = *this;
    for (std::size_t i = 0; i < nEnd - nBegin; ++i) {
      const std::size_t nPlace = kForward ? nBegin + i : nEnd - 1 - i;
      if (plain.MatchesAt(nPlace)) return nPlace;
    }
    return kNowhere;
  }

  std::string_view m_sText;
  std::string_view m_sSought;
  bool m_bBlind;
  Mark m_first;
  Mark m_last;
  std::size_t m_nCompared = 0;
};

}  // namespace

std::size_t ScanForward(std::string_view sText, std::string_view sSought, std::size_t nStart,
                        bool bBlind) noexcept {
  if (sSought.empty() || nStart > sText.size() || sText.size() - nStart < sSought.size()) {
    return kNowhere;
  }
  if (sSought.size() == 1 && !bBlind) {
    const std::size_t nFound = sText.find(sSought.front(), nStart);
    return nFound != std::string_view::npos ? nFound : kNowhere;
  }
  return Scanner(sText, sSought, bBlind).Forward(nStart);
}

std::size_t ScanBackward(std::string_view sText, std::string_view sSought, bool bBlind) noexcept {
  if (sSought.empty() || sText.size() < sSought.size()) return kNowhere;
  return Scanner(sText, sSought, bBlind).Backward();
}

}  // namespace ald::internal
