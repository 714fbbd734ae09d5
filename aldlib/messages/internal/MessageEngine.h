#pragma once

namespace ald {

// Joins the message door to the engine: from here on what stands below it, the memory store above
// all, speaks to the user in boxes. A door that a host has connected itself stays. Not for callers:
// load and unload do it.
void OpenMessageDoor() noexcept;
void CloseMessageDoor() noexcept;

}  // namespace ald
