#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The few types that every floor of the library shares.
namespace ald {

// The heap string and its array: bytes of code page 1252.
using CString = std::string;
using CStringArray = std::vector<CString>;

// Handles are numbers from a backend's own table, never pointers; 0 stands for none.
enum class WindowHandle : std::uint32_t {};
enum class ModuleHandle : std::uint32_t {};
enum class MemoryHandle : std::uint32_t {};

// The number of a text in the process-wide table of atoms; 0 stands for none.
enum class Atom : std::uint16_t {};

}  // namespace ald
