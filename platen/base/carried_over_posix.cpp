#include <platen/base/carried_over_posix.h>

#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace platen {
namespace {

constexpr std::string_view kLabels = "security.";
/// Checksums of what the old file holds.
constexpr std::array<std::string_view, 2> kChecksums = {"security.ima", "security.evm"};

/// Runs `ask(buffer, size)`, which answers the size for null, into a text of that size. False when
/// it failed; what grows in between is asked for again.
template <typename Ask>
bool AskInto(std::string& text, Ask ask) {
    for (;;) {
        const ssize_t size = ask(nullptr, 0);
        if (size < 0) {
            return false;
        }
        text.resize(static_cast<std::size_t>(size));
        const ssize_t got = size == 0 ? 0 : ask(text.data(), text.size());
        if (got >= 0) {
            text.resize(static_cast<std::size_t>(got));
            return true;
        }
        if (errno != ERANGE) {
            return false;
        }
    }
}

/// Names of attributes. A file system without any has none.
bool ListAttributes(int file, std::vector<std::string>& names) {
    std::string list;
    const bool listed = AskInto(
        list, [file](char* buffer, std::size_t size) { return flistxattr(file, buffer, size); });
    for (std::size_t start = 0; start < list.size(); start += names.back().size() + 1) {
        names.emplace_back(list.c_str() + start);
    }
    return listed || errno == ENOTSUP;
}

bool GetAttribute(int file, const std::string& name, std::string& value) {
    return AskInto(value, [&](char* buffer, std::size_t size) {
        return fgetxattr(file, name.c_str(), buffer, size);
    });
}

bool CarryAttribute(int from, int to, const std::string& name) {
    std::string value;
    std::string own;
    if (!GetAttribute(from, name, value)) {
        return errno == ENODATA;
    }
    return (GetAttribute(to, name, own) && own == value) ||
           fsetxattr(to, name.c_str(), value.data(), value.size(), 0) == 0;
}

bool Has(const std::vector<std::string>& names, const std::string& name) {
    return std::ranges::find(names, name) != names.end();
}

}  // namespace

Carried CarryOwner(const struct stat& from, int to) {
    struct stat now = {};
    if (fstat(to, &now) != 0) {
        return Carried::NotAll;
    }
    if ((now.st_uid == from.st_uid && now.st_gid == from.st_gid) ||
        fchown(to, from.st_uid, from.st_gid) == 0) {
        return Carried::All;
    }
    const int reason = errno;
    // The group alone may be to be had.
    if (now.st_uid != from.st_uid && now.st_gid != from.st_gid &&
        fchown(to, static_cast<uid_t>(-1), from.st_gid) != 0) {
        errno = reason;
    }
    errno = reason;
    return Carried::NotAll;
}

Carried CarryAttributes(int from, int to) {
    std::vector<std::string> wanted;
    std::vector<std::string> own;
    if (!ListAttributes(from, wanted) || !ListAttributes(to, own)) {
        return Carried::NotAll;
    }
    Carried carried = Carried::All;
    const auto note = [&carried](const std::string& name, bool good) {
        const bool isLabel = std::string_view(name).starts_with(kLabels);
        carried = std::max(carried, good      ? Carried::All
                                    : isLabel ? Carried::AllButLabels
                                              : Carried::NotAll);
        return carried != Carried::NotAll;
    };
    for (const std::string& name : wanted) {
        const bool isChecksum = std::ranges::find(kChecksums, name) != kChecksums.end();
        if (!isChecksum && !note(name, CarryAttribute(from, to, name))) {
            return carried;
        }
    }
    for (const std::string& name : own) {
        if (!Has(wanted, name) && !note(name, fremovexattr(to, name.c_str()) == 0)) {
            return carried;
        }
    }
    return carried;
}

mode_t PermissionsFor(const struct stat& from, const struct stat& to) {
    constexpr mode_t kAll = 07777;
    constexpr mode_t kAsOthers = 06000;
    mode_t mode = from.st_mode & kAll;
    if (from.st_uid != to.st_uid || from.st_gid != to.st_gid) {
        mode &= ~kAsOthers;
    }
    if (from.st_gid != to.st_gid) {
        mode &= ~static_cast<mode_t>(S_IRWXG) | (mode & S_IRWXO) << 3U;
    }
    return mode;
}

}  // namespace platen
