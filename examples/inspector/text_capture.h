#pragma once

#include <functional>
#include <string>

namespace inspector {

/// What `print` writes on standard output, which it does not reach; empty when it could not be
/// captured. One thread at a time.
std::string CapturedOutput(const std::function<void()>& print);

}  // namespace inspector
