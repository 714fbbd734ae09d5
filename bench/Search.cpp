#include <cstring>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "aldlib/text/WildcardSearch.h"
#include "bench/Harness.h"

// Searching a ledger's worth of text for something that stands near its end, against the C
// library's searches of memory and std::string's.
namespace ald::bench {

namespace {

constexpr std::size_t kLines = 40'000;

struct Sought {
  const char* szSet;
  std::string sQuery;
  std::string sOtherCase;  // the same for a search without regard to case
};

// Lines of accounts, payees and amounts, some 2.6 million characters.
std::string MakeLedger() {
  const std::vector<std::string> words = {"Office",  "supplies", "rent",    "Harrowgate", "travel",
                                          "Bank",    "charges",  "payroll", "of",         "the",
                                          "Quarter", "invoice",  "Pell",    "Street",     "refund"};
  std::mt19937 random(40'000);
  std::string sText;
  for (std::size_t i = 0; i < kLines; ++i) {
    sText += std::to_string(10'000 + random() % 80'000) + "  ";
    for (int nWord = 0; nWord < 6; ++nWord) sText += words[random() % words.size()] + ' ';
    sText += std::to_string(random() % 900) + ',' + std::to_string(100 + random() % 900) + ".00\n";
  }
  return sText + "Zambezi Traders of the Pell Street bank 4,711.25\n";
}

// The position of a match, or npos.
using Search = std::function<std::size_t(const std::string& sQuery)>;

Search Finder(const std::string& sText, const SearchBehavior& behavior) {
  const auto pFinder = std::make_shared<WildcardSearch>();
  pFinder->setSearchBehavior(behavior);
  pFinder->setText(sText);
  return [pFinder](const std::string& sQuery) {
    pFinder->setQueryText(sQuery);
    pFinder->resetSearchPosition();
    SearchResultInfo info;
    return pFinder->search(info) ? info.startPosition : std::string::npos;
  };
}

std::size_t PlaceOf(const std::string& sText, const void* pFound) {
  return pFound == nullptr
             ? std::string::npos
             : static_cast<std::size_t>(static_cast<const char*>(pFound) - sText.data());
}

void AddCase(CHarness& harness, const char* szOperation, const char* szSet, const char* szPeer,
             const std::string& sQuery, std::size_t nExpected, const Search& search) {
  harness.Add({szOperation, szSet, szPeer, 1, [sQuery, search] { Keep(search(sQuery)); },
               [sQuery, search, nExpected] {
                 return search(sQuery) == nExpected ? std::string() : "another place than expected";
               }});
}

}  // namespace

}  // namespace ald::bench

int main(int argc, char** argv) {
  using namespace ald::bench;
  const std::string sText = MakeLedger();
  const std::string sReversed(sText.rbegin(), sText.rend());
  const std::string sEvil(1'000'000, 'a');

  const Sought soughts[] = {
      {"rare", "Zambezi", "zAMBEZI"},  // begins with a letter that is seldom
      {"common", "the Pell Street bank", "THE PELL street BANK"},  // all its words are frequent
      {"single", "Z", "z"},
      {"missing", "Street of no account", "STREET OF NO ACCOUNT"},
  };
  const Search memmemSearch = [&sText](const std::string& sQuery) {
    return PlaceOf(sText, memmem(sText.data(), sText.size(), sQuery.data(), sQuery.size()));
  };
  const Search stringSearch = [&sText](const std::string& sQuery) { return sText.find(sQuery); };
  const Search strcasestrSearch = [&sText](const std::string& sQuery) {
    return PlaceOf(sText, strcasestr(sText.c_str(), sQuery.c_str()));
  };
  const Search rfindSearch = [&sReversed](const std::string& sQuery) {
    return sReversed.rfind(sQuery);
  };

  CHarness harness("search", "aldlib");
  for (const auto& [szSet, sQuery, sOtherCase] : soughts) {
    const std::size_t nPlace = sText.find(sQuery);
    AddCase(harness, "forward", szSet, "aldlib", sQuery, nPlace, Finder(sText, {}));
    AddCase(harness, "forward", szSet, "memmem", sQuery, nPlace, memmemSearch);
    AddCase(harness, "forward", szSet, "string::find", sQuery, nPlace, stringSearch);
    // For a single character both are one call of memchr, and ours then goes to the next one.
    harness.Want("forward", szSet, "memmem", sQuery.size() == 1 ? 0.5 : 1, 0);
    harness.Want("forward", szSet, "string::find", 0.5, 0);

    // "z" alone stands in the text earlier, so the place is taken from the peer.
    const std::size_t nBlindPlace = strcasestrSearch(sOtherCase);
    AddCase(harness, "any case", szSet, "aldlib", sOtherCase, nBlindPlace,
            Finder(sText, {.caseSensitive = false}));
    AddCase(harness, "any case", szSet, "strcasestr", sOtherCase, nBlindPlace, strcasestrSearch);
    // What the same search costs where case counts.
    AddCase(harness, "any case", szSet, "memmem", sQuery, nPlace, memmemSearch);
    harness.Want("any case", szSet, "strcasestr", 1, 0);
    harness.Want("any case", szSet, "memmem", 0.25, 1);

    const std::string sBackQuery(sQuery.rbegin(), sQuery.rend());
    const std::size_t nBackPlace = sReversed.rfind(sBackQuery);
    AddCase(harness, "backward", szSet, "aldlib", sBackQuery, nBackPlace,
            Finder(sReversed, {.forward = false}));
    AddCase(harness, "backward", szSet, "string::rfind", sBackQuery, nBackPlace, rfindSearch);
    harness.Want("backward", szSet, "string::rfind", 1, 0);
  }

  // With wildcards or commas the engine goes step by step.
  AddCase(harness, "commas", "amount", "aldlib", "4711.25", sText.find("4,711.25"),
          Finder(sText, {.numericCommas = true}));
  AddCase(harness, "commas", "amount", "memmem", "4,711.25", sText.find("4,711.25"), memmemSearch);
  harness.Want("commas", "amount", "memmem", 0, 0);
  const std::size_t nWild = sText.find("Zambezi");
  AddCase(harness, "wildcards", "Z?mb*i", "aldlib", "Z?mb*i", nWild,
          Finder(sText, {.useWildcards = true}));
  AddCase(harness, "wildcards", "Z?mb*i", "memmem", "Zambezi", nWild, memmemSearch);
  harness.Want("wildcards", "Z?mb*i", "memmem", 0, 0);

  // Every place of the text matches the first half of the query.
  const std::string sHalves = std::string(500, 'a') + "b" + std::string(500, 'a');
  AddCase(harness, "forward", "repeats", "aldlib", sHalves, std::string::npos, Finder(sEvil, {}));
  AddCase(harness, "forward", "repeats", "memmem", sHalves, std::string::npos,
          [&sEvil](const std::string& sQuery) {
            return PlaceOf(sEvil, memmem(sEvil.data(), sEvil.size(), sQuery.data(), sQuery.size()));
          });
  harness.Want("forward", "repeats", "memmem", 0, 0);
  return harness.Main(argc, argv);
}
