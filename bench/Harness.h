#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

// Times pieces of work against each other in one process.
//
//   CHarness harness("arithmetic", "aldlib");
//   harness.Add({"add", "M", "GMP", nPairs, pass, fault});
//   harness.Want("add", "M", "GMP", 1.2, 2);
//   return harness.Main(argc, argv);
//
// Main first has every case prove its results. Then it times one sample of each case after the
// other, round by round, so that whatever else the machine does falls on all alike, and takes the
// 20th percentile of the rounds. What counts are the ratios within one run. No time is ever a
// failure.
namespace ald::bench {

struct Case {
  std::string sOperation;
  std::string sSet;  // of values; the operation and the set make the row, the peer the column
  std::string sPeer;
  std::size_t nOperations;  // in one pass
  std::function<void()> pass;
  std::function<std::string()> fault;  // what is wrong with the results, empty if nothing is
};

struct Measurement {
  std::string sOperation;
  std::string sSet;
  std::string sPeer;
  double fNanoseconds;  // of one operation
};

// The peer's time over ours.
struct Ratio {
  std::string sOperation;
  std::string sSet;
  std::string sPeer;
  double fAtLeast;
  double fAim;           // 0: none beyond the least
  double fMeasured = 0;  // 0: one of the two was not timed
};

struct Figures {
  std::string sTitle;
  std::string sMachine;  // processor and compiler
  std::vector<Measurement> times;
  std::vector<Ratio> ratios;
};

class CHarness {
 public:
  // The title names the files of figures; szOurs is the peer that all others are held against.
  CHarness(const char* szTitle, const char* szOurs) : m_sTitle(szTitle), m_sOurs(szOurs) {}

  void Add(Case oneCase) { m_cases.push_back(std::move(oneCase)); }
  // A row of the table of ratios.
  void Want(const char* szOperation, const std::string& sSet, const char* szPeer, double fAtLeast,
            double fAim) {
    m_wanted.push_back({szOperation, sSet, szPeer, fAtLeast, fAim});
  }

  // Reads the options, checks, times, prints the tables and writes the figures. Returns the
  // program's exit status: not 0 if results disagree, or if an option is not understood.
  int Main(int argc, char** argv);

 private:
  bool AllAgree() const;
  std::vector<Measurement> Time(int nRounds) const;
  std::vector<Ratio> RatiosOf(const std::vector<Measurement>& times) const;

  std::string m_sTitle;
  std::string m_sOurs;
  std::vector<Case> m_cases;
  std::vector<Ratio> m_wanted;
};

// Makes the compiler store the value, and believe that anything in memory may have changed.
template <class T>
inline void Keep(const T& value) {
  __asm__ volatile("" : : "g"(&value) : "memory");
}

}  // namespace ald::bench
