#pragma once

#include <filesystem>
#include <string>

/// What an output asks of the file system beyond the FILE_ functions.
namespace platen::tiff {

/// A name as the FILE_ functions take it, on Windows in the system's code page, as a path, and
/// back. Empty when the other form has no such name.
std::filesystem::path PathOf(const char* name);
std::string NameOf(const std::filesystem::path& path);

/// Gives `whole` the name and the permissions of `target`, which may be missing or open for
/// reading. When that fails, false is answered, `target` stays as it was, and `whole` is gone.
///
/// Windows does not let an open file be replaced: there the bytes of `whole` are copied into it. If
/// that stops in the middle, `whole` stays, since the target is no longer what it was.
bool TakeName(const std::filesystem::path& whole, const std::filesystem::path& target);

/// Makes errno, on Windows the last error, say that nothing failed.
void ForgetSystemError();

}  // namespace platen::tiff
