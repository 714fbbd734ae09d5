#pragma once

#include <cstdint>

#include "aldlib/platform/WindowTypes.h"
#include "host/ChequeBook.h"

namespace alder_checks {

// A module beside the program: it has texts of its own, and merges its commands into the menus of
// the main window while it is loaded. It sums up the cheques of each payee.
class AddOn {
 public:
  explicit AddOn(const ChequeBook& book) : m_book(book) {}

  bool IsLoaded() const { return m_bLoaded; }
  void Load(ald::MenuHandle hBar);
  void Unload(ald::MenuHandle hBar);

  // Carries out a command that the module merged into a menu of the bar. False if it is not its
  // own.
  bool OnCommand(ald::MenuHandle hBar, std::uint16_t nCommand);

 private:
  void ShowTotals() const;

  const ChequeBook& m_book;
  ald::ModuleHandle m_hModule{};
  bool m_bLoaded = false;
};

}  // namespace alder_checks
