#include "aldlib/platform/qt/internal/QtKeys.h"

#include <algorithm>
#include <iterator>

#include "aldlib/platform/qt/internal/QtText.h"
#include "aldlib/text/Constants.h"

namespace ald {
namespace {

struct KeyNumber {
  int nQtKey;
  std::uint32_t nKey;
};

constexpr KeyNumber kKeys[] = {
    {Qt::Key_Backspace, 0x08}, {Qt::Key_Tab, 0x09},          {Qt::Key_Backtab, 0x09},
    {Qt::Key_Return, 0x0D},    {Qt::Key_Enter, 0x0D},        {Qt::Key_Shift, 0x10},
    {Qt::Key_Control, 0x11},   {Qt::Key_Alt, 0x12},          {Qt::Key_Pause, 0x13},
    {Qt::Key_CapsLock, 0x14},  {Qt::Key_Escape, 0x1B},       {Qt::Key_Space, 0x20},
    {Qt::Key_PageUp, 0x21},    {Qt::Key_PageDown, 0x22},     {Qt::Key_End, 0x23},
    {Qt::Key_Home, 0x24},      {Qt::Key_Left, 0x25},         {Qt::Key_Up, 0x26},
    {Qt::Key_Right, 0x27},     {Qt::Key_Down, 0x28},         {Qt::Key_Insert, 0x2D},
    {Qt::Key_Delete, 0x2E},    {Qt::Key_Semicolon, 0xBA},    {Qt::Key_Equal, 0xBB},
    {Qt::Key_Comma, 0xBC},     {Qt::Key_Minus, 0xBD},        {Qt::Key_Period, 0xBE},
    {Qt::Key_Slash, 0xBF},     {Qt::Key_QuoteLeft, 0xC0},    {Qt::Key_BracketLeft, 0xDB},
    {Qt::Key_Backslash, 0xDC}, {Qt::Key_BracketRight, 0xDD}, {Qt::Key_Apostrophe, 0xDE},
};

constexpr KeyNumber kKeypad[] = {
    {Qt::Key_Asterisk, 0x6A}, {Qt::Key_Plus, 0x6B},  {Qt::Key_Minus, 0x6D},
    {Qt::Key_Period, 0x6E},   {Qt::Key_Comma, 0x6E}, {Qt::Key_Slash, 0x6F},
};

template <std::size_t N>
std::uint32_t Find(const KeyNumber (&keys)[N], int nQtKey) {
  const auto it = std::find_if(std::begin(keys), std::end(keys),
                               [nQtKey](const KeyNumber& key) { return key.nQtKey == nQtKey; });
  return it != std::end(keys) ? it->nKey : 0;
}

bool IsKeypad(const QKeyEvent& key) {
  return key.modifiers().testFlag(Qt::KeypadModifier);
}

}  // namespace

bool IsCharacter(const QKeyEvent& key) {
  return (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0 &&
         !key.text().isEmpty() && key.text().front().isPrint();
}

std::uint32_t KeyNumberOf(const QKeyEvent& key) {
  const int nQtKey = key.key();
  if (IsKeypad(key)) {
    if (nQtKey >= Qt::Key_0 && nQtKey <= Qt::Key_9) {
      return 0x60 + static_cast<std::uint32_t>(nQtKey - Qt::Key_0);
    }
    if (const std::uint32_t nKey = Find(kKeypad, nQtKey); nKey != 0) return nKey;
  }
  if ((nQtKey >= Qt::Key_A && nQtKey <= Qt::Key_Z) ||
      (nQtKey >= Qt::Key_0 && nQtKey <= Qt::Key_9)) {
    return static_cast<std::uint32_t>(nQtKey);
  }
  if (nQtKey >= Qt::Key_F1 && nQtKey <= Qt::Key_F24) {
    return 0x70 + static_cast<std::uint32_t>(nQtKey - Qt::Key_F1);
  }
  const std::uint32_t nKey = Find(kKeys, nQtKey);
  return nKey != 0 ? nKey : kKeyPacket;
}

CString TypedTextOf(const QKeyEvent& key) {
  const int nQtKey = key.key();
  const bool bControl = key.modifiers().testFlag(Qt::ControlModifier);
  // Whatever the keyboard's own layout has there.
  if (IsKeypad(key) && !bControl && (nQtKey == Qt::Key_Period || nQtKey == Qt::Key_Comma)) {
    return DecimalPoint[0] != '\0' ? CString(1, DecimalPoint[0]) : CString(".");
  }
  switch (nQtKey) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return "\r";
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return "\t";
    case Qt::Key_Escape:
      return "\x1B";
    case Qt::Key_Backspace:
      return bControl ? CString() : "\b";
    default:
      return IsCharacter(key) ? TypableTextOf(key.text()) : CString();
  }
}

CString TypableTextOf(const QString& text) {
  CString sTyped;
  for (const QChar ch : text) {
    if (!ch.isPrint()) continue;
    const CString sOne = TextOf(QString(ch));
    if (QtTextOf(sOne) == QString(ch)) sTyped += sOne;
  }
  return sTyped;
}

}  // namespace ald
