#pragma once

#include <QString>
#include <string_view>

#include "aldlib/platform/Characters.h"
#include "aldlib/platform/Types.h"

namespace ald {

// Each byte of code page 1252 is one unit of a QString, so positions in a text are the same.
inline QString QtTextOf(std::string_view sText) {
  return QString::fromStdString(Utf8FromCodePage1252(sText));
}

inline CString TextOf(const QString& text) {
  return CodePage1252FromUtf8(text.toStdString());
}

}  // namespace ald
