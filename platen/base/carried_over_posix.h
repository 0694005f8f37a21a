#pragma once

#include <sys/stat.h>

#include <cstdint>

namespace platen {

/// How much of what one file has another one could be given. If not all, errno is the reason.
enum class Carried : std::uint8_t { All, AllButLabels, NotAll };

/// Gives the open file `to` owner and group.
Carried CarryOwner(const struct stat& from, int to);

/// Gives the open file `to` the extended attributes of `from`, access lists among them; what it had
/// of its own goes. Labels are those of the system's security modules, which give every file one.
Carried CarryAttributes(int from, int to);

/// The permissions of a file for one whose owner and group may be others: these are given no more
/// than everybody is.
mode_t PermissionsFor(const struct stat& from, const struct stat& to);

}  // namespace platen
