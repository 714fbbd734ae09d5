#pragma once

#include <utility>

namespace ald {

// Takes back what a scope did to the desktop. A port may need memory for that, or call a handler
// that throws; then it stays as it is, since what ends a scope must not throw.
template <class TUndo>
void Undo(TUndo&& undo) noexcept {
  try {
    undo();
  } catch (...) {
  }
}

// The same at the end of a scope, whichever way it is left.
template <class TUndo>
class [[nodiscard]] UndoAtEnd {
 public:
  explicit UndoAtEnd(TUndo undo) : m_undo(std::move(undo)) {}
  UndoAtEnd(const UndoAtEnd&) = delete;
  UndoAtEnd& operator=(const UndoAtEnd&) = delete;
  ~UndoAtEnd() { Undo(m_undo); }

 private:
  TUndo m_undo;
};

}  // namespace ald
