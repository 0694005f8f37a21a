#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <string>

#include <platen/base/carried_over_posix.h>
#include <platen/base/descriptor_posix.h>
#include <platen/base/file_handles.h>
#include <platen/base/files.h>
#include <platen/base/output_losses.h>
#include <platen/base/output_place.h>
#include <platen/base/temporary_name.h>
#include <platen/platform/win32/descriptors.h>

namespace platen {
namespace {

constexpr int kQuietly = O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;

OutputFailure BySystem(const char* reason) {
    return {reason, errno};
}

bool IsSame(const struct stat& left, const struct stat& right) {
    return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

std::size_t FolderLength(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? 0 : slash + 1;
}

/// Goes from a link to where it leads, be that nothing. False, with errno, when it leads nowhere.
bool FollowLinks(std::string& path) {
    constexpr int kMostLinks = 40;
    for (int i = 0; i < kMostLinks; ++i) {
        struct stat status = {};
        if (lstat(path.c_str(), &status) != 0) {
            return errno == ENOENT;
        }
        if (!S_ISLNK(status.st_mode)) {
            return true;
        }
        std::string target(PATH_MAX, '\0');
        const ssize_t size = readlink(path.c_str(), target.data(), target.size());
        if (size < 0) {
            return false;
        }
        target.resize(static_cast<std::size_t>(size));
        path.replace(target.starts_with('/') ? 0 : FolderLength(path), std::string::npos, target);
    }
    errno = ELOOP;
    return false;
}

/// Locks an open file against every other opening of it. Where the file system has no locks,
/// nothing is locked, and nothing that was left behind is taken for such.
bool Lock(int file) {
    return flock(file, LOCK_EX | LOCK_NB) == 0;
}

bool HasNoLocks() {
    return errno == ENOLCK || errno == EOPNOTSUPP || errno == ENOSYS || errno == EINVAL;
}

/// Removes a temporary file of which nobody holds the lock. Whoever has that of the file at the
/// name is alone in removing it.
void RemoveLeft(int folder, const std::string& name) {
    Descriptor left(openat(folder, name.c_str(), O_RDWR | kQuietly));
    if (!left.IsOpen() && errno == EACCES) {
        left = Descriptor(openat(folder, name.c_str(), O_RDONLY | kQuietly));
    }
    struct stat locked = {};
    struct stat named = {};
    if (left.IsOpen() && Lock(left.Number()) && fstat(left.Number(), &locked) == 0 &&
        S_ISREG(locked.st_mode) &&
        fstatat(folder, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 && IsSame(locked, named)) {
        unlinkat(folder, name.c_str(), 0);
    }
}

}  // namespace

struct OutputPlace::State {
    OutputLosses losses;
    Descriptor folder = {};
    bool isFolderReadable = true;
    std::string name = {};  ///< in the folder
    bool isTaken = false;
    struct stat old = {};           ///< of what stands there
    std::string temporary = {};     ///< in the folder; empty without one
    Descriptor lock = {};           ///< keeps the temporary file locked when it is closed
    void* following = FILE_none();  ///< what the reader will be
    bool isFollowed = false;

    bool OpenFolder(const std::string& path);
    [[nodiscard]] bool IsProtected() const;
    bool MakeAt(const std::string& candidate, Descriptor& made);
};

OutputPlace::OutputPlace(bool insists) : m_state(new State{.losses = OutputLosses(insists)}) {}

OutputPlace::~OutputPlace() {
    EndHandle(m_state->following);
    if (!m_state->temporary.empty()) {
        unlinkat(m_state->folder.Number(), m_state->temporary.c_str(), 0);
    }
}

/// A folder that cannot be read can be written all the same, but not flushed.
bool OutputPlace::State::OpenFolder(const std::string& path) {
    const std::size_t length = FolderLength(path);
    const std::string parent = length == 0 ? "." : path.substr(0, length);
    name = path.substr(length);
    if (name.empty()) {
        errno = path.empty() ? ENOENT : EISDIR;
        return false;
    }
    folder = Descriptor(open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.IsOpen() && errno == EACCES) {
        isFolderReadable = false;
        folder = Descriptor(open(parent.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    }
    return folder.IsOpen();
}

/// Whether nobody may write what stands there, or this process not; errno is 0 or the reason.
bool OutputPlace::State::IsProtected() const {
    errno = 0;
    return (old.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0 ||
           (faccessat(folder.Number(), name.c_str(), W_OK, AT_EACCESS) != 0 &&
            (errno == EACCES || errno == EPERM));
}

OutputFailure OutputPlace::Find(const char* name) {
    State& state = *m_state;
    struct stat status = {};
    const bool isThere = stat(name, &status) == 0;
    if (!isThere && errno != ENOENT) {
        return BySystem(kOutputNotCreated);
    }
    if (isThere && !S_ISREG(status.st_mode)) {
        return {S_ISDIR(status.st_mode) ? kOutputIsFolder : kOutputIsNoFile};
    }
    std::string path = name;
    if (!FollowLinks(path) || !state.OpenFolder(path)) {
        return BySystem(kOutputNotCreated);
    }
    const int found =
        fstatat(state.folder.Number(), state.name.c_str(), &state.old, AT_SYMLINK_NOFOLLOW);
    state.isTaken = found == 0;
    if (found != 0 && errno != ENOENT) {
        return BySystem(kOutputNotCreated);
    }
    if (state.isTaken != isThere || (isThere && !IsSame(status, state.old))) {
        return {kOutputNotCreated, ESTALE};  // it was exchanged, or is not where its link says
    }
    if (!state.isTaken) {
        return {};
    }
    if (!state.isFolderReadable) {
        return {kFolderNotFlushed, EACCES};
    }
    if (!state.losses.Insists() && state.IsProtected()) {
        return {kOutputIsProtected, errno, true};
    }
    return state.old.st_nlink > 1 ? state.losses.Lose(kLinksLost, 0) : OutputFailure{};
}

/// Makes and locks a temporary file. False, with errno, when it cannot be; EEXIST when another
/// output has that name.
bool OutputPlace::State::MakeAt(const std::string& candidate, Descriptor& made) {
    temporary = candidate;  // first, since it may throw
    // What nobody knew of yet gets the permissions of any new file.
    const mode_t permissions = isTaken ? 0600 : 0666;
    made = Descriptor(openat(folder.Number(), temporary.c_str(),
                             O_RDWR | O_CREAT | O_EXCL | kQuietly, permissions));
    if (!made.IsOpen()) {
        temporary.clear();
        return false;
    }
    struct stat status = {};
    if (Lock(made.Number())) {
        lock = Descriptor(fcntl(made.Number(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
        if (!lock.IsOpen() || fstat(made.Number(), &status) != 0) {
            return false;
        }
    } else if (HasNoLocks()) {
        return true;
    } else if (errno != EWOULDBLOCK) {
        return false;
    }
    // Between its making and its lock somebody could take it for one left behind, and remove it.
    if (status.st_nlink == 0) {
        temporary.clear();
        errno = EEXIST;
    }
    return !temporary.empty();
}

OutputFailure OutputPlace::MakeTemporary(void*& file) {
    State& state = *m_state;
    Descriptor made;
    bool isMade = false;
    for (int i = 0; i < kTemporaryNames; ++i) {
        const std::string candidate = TemporaryName(state.name, i);
        RemoveLeft(state.folder.Number(), candidate);
        isMade = isMade || state.MakeAt(candidate, made);
        if (!isMade && errno != EEXIST) {
            return BySystem(kOutputNotCreated);
        }
    }
    if (!isMade) {
        return {kOutputIsBusy};
    }
    file = win32::AdoptDescriptor(made.Release());
    return file == FILE_none() ? BySystem(kOutputNotCreated) : OutputFailure{};
}

OutputFailure OutputPlace::CarryOver(void* file) {
    State& state = *m_state;
    if (!state.isTaken) {
        return {};
    }
    const int to = win32::DescriptorBehind(file);
    OutputFailure failure;
    if (CarryOwner(state.old, to) != Carried::All) {
        failure = state.losses.Lose(kOwnerLost, errno);
    }
    if (failure.reason != nullptr) {
        return failure;
    }
    const Descriptor from(openat(state.folder.Number(), state.name.c_str(), O_RDONLY | kQuietly));
    switch (from.IsOpen() ? CarryAttributes(from.Number(), to) : Carried::NotAll) {
        case Carried::NotAll:
            return state.losses.Lose(kAttributesLost, errno);
        case Carried::AllButLabels:
            state.losses.Note(kLabelsLost);
            return {};
        default:
            return {};
    }
}

OutputFailure OutputPlace::Finish(void* file, void* reader) {
    State& state = *m_state;
    if (!state.isTaken) {
        return {};
    }
    // With the reader's access, while the permissions are still the temporary file's own.
    const bool isRead = reader != FILE_none();
    const int flags = isRead ? fcntl(win32::DescriptorBehind(reader), F_GETFL) : 0;
    if (isRead && flags >= 0) {
        state.following = win32::AdoptDescriptor(
            openat(state.folder.Number(), state.temporary.c_str(), (flags & O_ACCMODE) | kQuietly));
    }
    if (isRead && state.following == FILE_none()) {
        return BySystem(kOutputNotOpened);
    }
    const int number = win32::DescriptorBehind(file);
    struct stat now = {};
    if (fstat(number, &now) != 0 || fchmod(number, PermissionsFor(state.old, now)) != 0) {
        return BySystem(kPermissionsNotKept);
    }
    return fsync(number) == 0 ? OutputFailure{} : BySystem(kOutputNotFlushed);
}

/// Nobody's file is replaced that appeared meanwhile, where the file system can see to that.
OutputFailure OutputPlace::TakeName(void* reader) {
    State& state = *m_state;
    const int folder = state.folder.Number();
    const char* const from = state.temporary.c_str();
    const char* const to = state.name.c_str();
    bool isNamed = !state.isTaken && renameat2(folder, from, folder, to, RENAME_NOREPLACE) == 0;
    if (!isNamed && (state.isTaken || errno == EINVAL || errno == ENOSYS)) {
        isNamed = renameat(folder, from, folder, to) == 0;
    }
    if (!isNamed) {
        return BySystem(kOutputNotNamed);
    }
    state.temporary.clear();
    if (reader != FILE_none()) {
        state.isFollowed = win32::MoveHandle(reader, win32::DescriptorBehind(state.following));
        if (!state.isFollowed) {
            state.losses.Note(kNotFollowed);
        }
    }
    return {};
}

bool OutputPlace::IsFollowed() const {
    return m_state->isFollowed;
}

/// Some file systems have no such flush.
OutputFailure OutputPlace::FlushFolder() {
    if (m_state->isTaken && fsync(m_state->folder.Number()) != 0 && errno != EINVAL) {
        return BySystem(kFolderNotFlushed);
    }
    return {};
}

bool OutputPlace::Holds(void* file) const {
    struct stat status = {};
    const int number = file == FILE_none() ? -1 : win32::DescriptorBehind(file);
    return m_state->isTaken && number >= 0 && fstat(number, &status) == 0 &&
           IsSame(status, m_state->old);
}

const OutputNotes& OutputPlace::Notes() const {
    return m_state->losses.Notes();
}

}  // namespace platen
