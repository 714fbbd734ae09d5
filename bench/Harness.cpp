#include "bench/Harness.h"

#include <sched.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iostream>
#include <string_view>

#include "bench/Report.h"

namespace ald::bench {

namespace {

constexpr double kPercentile = 0.2;
constexpr int kFewestRounds = 15;
constexpr double kSampleNanoseconds = 1e6;

// A process that wanders between cores times the wandering.
void PinToThisCore() {
  cpu_set_t cores;
  CPU_ZERO(&cores);
  CPU_SET(static_cast<std::size_t>(std::max(sched_getcpu(), 0)), &cores);
  if (sched_setaffinity(0, sizeof cores, &cores) != 0) {
    std::cerr << "The process could not be pinned to a core; expect noise.\n";
  }
}

std::string ProcessorName() {
  std::ifstream file("/proc/cpuinfo");
  for (std::string sLine; std::getline(file, sLine);) {
    const std::size_t nColon = sLine.find(": ");
    if (sLine.starts_with("model name") && nColon != std::string::npos)
      return sLine.substr(nColon + 2);
  }
  return "unknown processor";
}

// The time that this thread was given, so that others on the same core do not count.
double ThreadNanoseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

double NanosecondsOf(const std::function<void()>& pass, int nPasses) {
  const double fStart = ThreadNanoseconds();
  for (int i = 0; i < nPasses; ++i) pass();
  return ThreadNanoseconds() - fStart;
}

struct Options {
  std::string sFilter;
  std::string sFolder;
  int nRounds = 25;
};

// Returns false if an argument is not understood.
bool Read(Options& options, int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view sName = argv[i];
    if (sName == "--quick") {
      options.nRounds = 3;
      continue;
    }
    if (++i >= argc) return false;
    if (sName == "--filter") {
      options.sFilter = argv[i];
    } else if (sName == "--figures") {
      options.sFolder = argv[i];
    } else if (sName == "--rounds") {
      options.nRounds = std::atoi(argv[i]);
      if (options.nRounds < 1) return false;
    } else {
      return false;
    }
  }
  return true;
}

// Where the row comes in the tables.
template <class T>
std::ptrdiff_t PlaceOf(const std::vector<Case>& cases, const T& row) {
  const auto isRow = [&row](const Case& one) {
    return one.sOperation == row.sOperation && one.sSet == row.sSet;
  };
  return std::find_if(cases.begin(), cases.end(), isRow) - cases.begin();
}

}  // namespace

bool CHarness::AllAgree() const {
  bool bAgree = true;
  for (const Case& one : m_cases) {
    const std::string sFault = one.fault();
    if (sFault.empty()) continue;
    std::cerr << one.sPeer << ", " << one.sOperation << ' ' << one.sSet << ": " << sFault << '\n';
    bAgree = false;
  }
  return bAgree;
}

std::vector<Measurement> CHarness::Time(int nRounds) const {
  std::vector<int> passes;
  for (const Case& one : m_cases) {
    one.pass();
    passes.push_back(static_cast<int>(std::ceil(kSampleNanoseconds / NanosecondsOf(one.pass, 1))));
  }
  std::vector<std::vector<double>> samples(m_cases.size());
  for (int nRound = 0; nRound < nRounds; ++nRound) {
    for (std::size_t i = 0; i < m_cases.size(); ++i) {
      const double fOperations = static_cast<double>(m_cases[i].nOperations) * passes[i];
      samples[i].push_back(NanosecondsOf(m_cases[i].pass, passes[i]) / fOperations);
    }
  }
  std::vector<Measurement> times;
  for (std::size_t i = 0; i < m_cases.size(); ++i) {
    std::sort(samples[i].begin(), samples[i].end());
    const auto nPlace = static_cast<std::size_t>(kPercentile * (nRounds - 1));
    times.push_back({m_cases[i].sOperation, m_cases[i].sSet, m_cases[i].sPeer, samples[i][nPlace]});
  }
  return times;
}

std::vector<Ratio> CHarness::RatiosOf(const std::vector<Measurement>& times) const {
  const auto timeOf = [&times](const Ratio& wanted, const std::string& sPeer) {
    for (const Measurement& time : times) {
      if (time.sOperation == wanted.sOperation && time.sSet == wanted.sSet && time.sPeer == sPeer)
        return time.fNanoseconds;
    }
    return 0.0;
  };
  std::vector<Ratio> ratios = m_wanted;
  std::stable_sort(ratios.begin(), ratios.end(), [this](const Ratio& a, const Ratio& b) {
    return PlaceOf(m_cases, a) < PlaceOf(m_cases, b);
  });
  for (Ratio& ratio : ratios) {
    const double fOurs = timeOf(ratio, m_sOurs);
    if (fOurs > 0) ratio.fMeasured = timeOf(ratio, ratio.sPeer) / fOurs;
  }
  return ratios;
}

int CHarness::Main(int argc, char** argv) {
  Options options;
  if (!Read(options, argc, argv)) {
    std::cerr
        << "usage: bench_" << m_sTitle
        << " [--filter TEXT] [--rounds N] [--quick] [--figures FOLDER]\n"
           "  --filter    only the rows whose operation and set, as in 'add M', contain TEXT\n"
           "  --rounds    samples of each case, 25 if not given; --quick takes 3\n"
           "  --figures   where a full run writes its tables and its picture\n";
    return 2;
  }
  const auto& [sFilter, sFolder, nRounds] = options;

  std::erase_if(m_cases, [&options](const Case& one) {
    return (one.sOperation + ' ' + one.sSet).find(options.sFilter) == std::string::npos;
  });
  // All sets of an operation together.
  const auto placeOf = [given = m_cases](const Case& one) {
    return std::find_if(given.begin(), given.end(),
                        [&one](const Case& other) { return one.sOperation == other.sOperation; }) -
           given.begin();
  };
  std::stable_sort(m_cases.begin(), m_cases.end(),
                   [&placeOf](const Case& a, const Case& b) { return placeOf(a) < placeOf(b); });
  std::cerr << m_cases.size() << " cases: checking the results ...\n";
  if (!AllAgree()) {
    std::cerr << "Results disagree, so nothing was timed.\n";
    return 1;
  }
  PinToThisCore();
  std::cerr << "All agree. Timing " << nRounds << " rounds ...\n";
  Figures figures{m_sTitle, ProcessorName() + ", GCC " + __VERSION__, Time(nRounds), {}};
  figures.ratios = RatiosOf(figures.times);
  PrintTables(std::cout, figures, m_sOurs);

  if (sFolder.empty()) return 0;
  if (nRounds < kFewestRounds || !sFilter.empty()) {
    std::cerr << "Figures are written by a full run of " << kFewestRounds << " or more rounds.\n";
    return 0;
  }
  WriteFigures(sFolder, figures, m_sOurs);
  return 0;
}

}  // namespace ald::bench
