#pragma once

#include <vector>

#include "aldlib/platform/Presenter.h"
#include "aldlib/platform/WindowTypes.h"

namespace ald {

struct BoxButton {
  int nId;
  const char* szCaption;  // with its mnemonic
};

// The buttons of a box by its flags, from left to right, Help last. Flags that name no set give OK.
std::vector<BoxButton> ButtonsOf(std::uint32_t nFlags);

// The id of the button that Enter presses: of the place that the flags name, or else of the first.
int DefaultButtonOf(std::uint32_t nFlags);

// The id of the button that Escape stands for: Cancel, or OK where it is alone; 0 if there is none.
int EscapeButtonOf(std::uint32_t nFlags);

// The room of a text in the box's font, in dialog units, where a character is 4 wide and 8 high.
Size BoxTextUnits(const CString& sText);

// The box as a dialog: an icon if it has one, the text as the control kBoxTextId, the buttons.
DialogTemplate BoxTemplate(const CString& sText, Size textUnits, const CString& sCaption,
                           std::uint32_t nFlags);

constexpr std::uint32_t kBoxTextStyle = 0x0080;  // a & stands for itself

constexpr std::int32_t kBoxTextId = 0xFFFF;
constexpr std::int32_t kBoxIconId = 20;

}  // namespace ald
