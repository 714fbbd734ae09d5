#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "aldlib/files/Filesyst.h"
#include "aldlib/frame/Alderlib.h"
#include "aldlib/messages/MessageLog.h"
#include "tests/support/FakePlatform.h"

namespace ald {

// An application with a few texts on a desktop without a screen. Its log lies in the current folder
// of the fake disk.
class MessagesFixture : public testing::Test {
 protected:
  MessagesFixture() {
    m_platform.m_desktop.SetApplicationName("Books");
    m_platform.AddModule({{100, "*|Invalid date"},
                          {101, "?Delete?"},
                          {102, "@Stop"},
                          {103, "!!Give ### to $$$"},
                          {104, "%%d of %s"},
                          {105, "*|!Topic only"},
                          {106, "Plain"},
                          {107, "!|Print %d: print now, Print"}},
                         1);
  }

  HeadlessDesktop& Desk() { return m_platform.m_desktop; }
  const ShownBox& LastBox() { return Desk().Boxes().back(); }

  // What the log holds; nothing if there is none.
  static CString LogBytes() {
    File file{};
    Lookup(&file, CPathNameString(kLogFileName), 0);
    if (file.nError != 0) return {};
    CString sBytes(2 * kLogSize, '\0');
    ReadBlock(&file, static_cast<std::uint16_t>(sBytes.size()), sBytes.data());
    sBytes.resize(file.nTransferred);
    Close(&file);
    return sBytes;
  }
  static std::vector<LoggedMessage> Logged() {
    std::vector<LoggedMessage> messages;
    EXPECT_TRUE(ReadMessageLog(LogBytes(), messages));
    return messages;
  }

  FakePlatform m_platform;
};

}  // namespace ald
