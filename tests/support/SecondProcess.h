#pragma once

#include <sys/types.h>

#include <cstdio>
#include <string>

// The test program started again, as another program that uses the library: it does what it is told
// line by line, and answers each line with one. A test that wants it compiles SecondProcess.cpp in.
//
//   open ACCESS SHARING DISPOSITION WHEN PATH   -> the number of the error; WHEN is a moment of
//                                                  CLOCK_MONOTONIC in nanoseconds to wait for
//   close                                       -> the error; of what was opened last
//   lock START LENGTH, unlock START LENGTH      -> the error
//   read COUNT, write COUNT                     -> the error
//   delete PATH                                 -> the error
//   nobody                                      -> 1 if it has given up the rights of root
//   enter ROUNDS PATH                           -> how often it was alone with the file, making and
//                                                  deleting it, and how often it was not
namespace ald {

class SecondProcess {
 public:
  SecondProcess();
  SecondProcess(const SecondProcess&) = delete;
  SecondProcess& operator=(const SecondProcess&) = delete;
  ~SecondProcess() { Kill(); }

  void Send(const std::string& sLine);
  std::string Receive();
  std::string Ask(const std::string& sLine) {
    Send(sLine);
    return Receive();
  }

  // As if the power of that program had failed. Returns when it is gone.
  void Kill();

 private:
  pid_t m_nProcess = -1;
  std::FILE* m_pTo = nullptr;
  std::FILE* m_pFrom = nullptr;
};

}  // namespace ald
