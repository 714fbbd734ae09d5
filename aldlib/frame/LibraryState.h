#pragma once

#include <span>

#include "aldlib/frame/Alderlib.h"

namespace ald {

// The steps of load and unload that belong to the frame, and what they leave behind for the rest of
// the library. Not for callers.

// The record itself, wherever a host may have turned MyAlderLibDataPtr.
AlderLibDataType& LibraryRecord();

void KeepLibraryHandle(ModuleHandle hModule);

// The modules to search for a text, in order: empty without a record or without a table, and never
// more than there is memory for, whatever a host has written into nInstances.
std::span<const InstanceSearchEntry> SearchedModules();

// Gives back the memory of the search list. nInstances stays as it is.
void ReleaseInstanceTable();

// Adds the two names under which windows keep things of ours, and lets them go.
void AddWindowAtoms();
void DeleteWindowAtoms();

// The window property behind SetMyWindowData and GetMyWindowData, and the one behind
// SS_NOPREFIX_Save. 0 while the library is not loaded.
Atom WindowDataAtom();
Atom NoPrefixSaveAtom();

}  // namespace ald
