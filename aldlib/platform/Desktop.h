#pragma once

#include "aldlib/platform/Canvas.h"
#include "aldlib/platform/Controls.h"
#include "aldlib/platform/Help.h"
#include "aldlib/platform/MenuBar.h"
#include "aldlib/platform/Presenter.h"
#include "aldlib/platform/Queue.h"
#include "aldlib/platform/Windows.h"

namespace ald {

// The ports that make up a desktop. They share their handles, so a host takes all of them from one
// backend: windows kept in memory, a terminal, or a real screen.
struct Desktop {
  Queue& queue;
  Windows& windows;
  Controls& controls;
  Canvas& canvas;
  MenuBar& menus;
  Presenter& presenter;
  Help& help;
};

}  // namespace ald
