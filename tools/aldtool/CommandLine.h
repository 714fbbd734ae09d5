#pragma once

#include <CLI/CLI.hpp>

namespace aldtool {

// Adds every command with its options. Parsing runs the command that is asked for, which leaves the
// exit status of the program in `nStatus`.
void AddCommands(CLI::App& app, int& nStatus);

}  // namespace aldtool
