#pragma once

#include <bench/ratios.h>
#include <bench/scratch.h>

/// Files that are made to exhaust whoever reads them: what the dearest of them takes.
namespace platen::bench {

/// Throws when the files cannot be written.
void RegisterHostile(const Scratch& scratch);

/// Prints the dearest file; nothing when none was read.
void PrintHostile(const MedianKeeper& medians);

}  // namespace platen::bench
