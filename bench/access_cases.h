#pragma once

#include <bench/ratios.h>

/// Tag access: one number taken out, and one put in.
namespace platen::bench {

void RegisterAccess();

/// Prints what the cases took; nothing when they did not run.
void PrintAccess(const MedianKeeper& medians);

}  // namespace platen::bench
