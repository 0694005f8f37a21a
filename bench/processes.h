#pragma once

namespace platen::bench {

/// Runs the command line program beside libtiff's `tiffdump` and beside a program that does
/// nothing, as whole processes, and prints times, memory and their ratios. 0, or 1 when a process
/// fails.
int CompareProcesses(const char* program);

}  // namespace platen::bench
