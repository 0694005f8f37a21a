#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include <platen/base/file_handles.h>
#include <platen/base/file_names.h>
#include <platen/base/files.h>
#include <platen/base/output_losses.h>
#include <platen/base/output_place.h>
#include <platen/base/system_error.h>
#include <platen/base/temporary_name.h>
#include <platen/platform/win32.h>

namespace platen {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
/// What is carried over of a file's attributes before it is replaced; write protection is
/// afterwards.
constexpr DWORD kCarried =
    FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

/// Closes with the object.
class Opened {
  public:
    Opened(const std::wstring& path, DWORD access)
        : m_file(CreateFileW(path.c_str(), access, kShareAll, nullptr, OPEN_EXISTING,
                             FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {}
    ~Opened() {
        if (IsOpen()) {
            CloseHandle(m_file);
        }
    }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    [[nodiscard]] bool IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE Handle() const { return m_file; }

  private:
    HANDLE m_file;
};

OutputFailure BySystem(const char* reason) {
    return {reason, SystemError()};
}

/// Runs `ask(buffer, size)`, which answers the length or the size that it needs, into a text; empty
/// when it failed.
template <typename Ask>
std::wstring AskForPath(Ask ask) {
    std::wstring path(ask(nullptr, 0), L'\0');
    const DWORD length = ask(path.data(), static_cast<DWORD>(path.size()));
    path.resize(length < path.size() ? length : 0);
    return path;
}

std::wstring FullPath(const std::wstring& name) {
    return AskForPath([&](wchar_t* buffer, DWORD size) {
        return GetFullPathNameW(name.c_str(), size, buffer, nullptr);
    });
}

std::wstring PathOfOpened(HANDLE file) {
    return AskForPath([file](wchar_t* buffer, DWORD size) {
        return GetFinalPathNameByHandleW(file, buffer, size, FILE_NAME_NORMALIZED);
    });
}

/// Whether a handle may write its file. Writing nothing changes nothing.
bool MayWrite(HANDLE file) {
    DWORD written = 0;
    return WriteFile(file, "", 0, &written, nullptr) != FALSE;
}

}  // namespace

struct OutputPlace::State {
    OutputLosses losses;
    std::wstring path = {};
    bool isTaken = false;
    BY_HANDLE_FILE_INFORMATION old = {};  ///< of what stands there
    std::wstring temporary = {};          ///< empty without one
    DWORD followingAccess = GENERIC_READ;

    OutputFailure Examine(HANDLE there);
    [[nodiscard]] bool IsProtected() const;
    bool MakeAt(const std::wstring& candidate, void*& file);
    bool Replace();
};

OutputPlace::OutputPlace(bool insists) : m_state(new State{.losses = OutputLosses(insists)}) {}

OutputPlace::~OutputPlace() {
    if (!m_state->temporary.empty()) {
        DeleteFileW(m_state->temporary.c_str());
    }
}

bool OutputPlace::State::IsProtected() const {
    if ((old.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0) {
        SetLastError(ERROR_SUCCESS);
        return true;
    }
    const Opened toWrite(path, GENERIC_WRITE);
    return !toWrite.IsOpen() && GetLastError() == ERROR_ACCESS_DENIED;
}

OutputFailure OutputPlace::State::Examine(HANDLE there) {
    if (GetFileType(there) != FILE_TYPE_DISK || GetFileInformationByHandle(there, &old) == FALSE) {
        return {kOutputIsNoFile};
    }
    if ((old.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return {kOutputIsFolder};
    }
    isTaken = true;
    if (std::wstring real = PathOfOpened(there); !real.empty()) {
        path = std::move(real);
    }
    if (!losses.Insists() && IsProtected()) {
        return {kOutputIsProtected, SystemError(), true};
    }
    return old.nNumberOfLinks > 1 ? losses.Lose(kLinksLost, 0) : OutputFailure{};
}

OutputFailure OutputPlace::Find(const char* name) {
    State& state = *m_state;
    const std::wstring given = PathOf(name).wstring();
    state.path = given.empty() ? given : FullPath(given);
    if (state.path.empty()) {
        return {kOutputNotCreated, ERROR_INVALID_NAME};
    }
    const Opened there(state.path, FILE_READ_ATTRIBUTES);
    if (there.IsOpen()) {
        return state.Examine(there.Handle());
    }
    if (GetLastError() != ERROR_FILE_NOT_FOUND) {
        return BySystem(kOutputNotCreated);
    }
    if (GetFileAttributesW(state.path.c_str()) != INVALID_FILE_ATTRIBUTES) {
        return {"the output is a link that leads to nothing"};
    }
    return {};
}

bool OutputPlace::State::MakeAt(const std::wstring& candidate, void*& file) {
    temporary = candidate;  // first, since it may throw
    file = CreateFileW(temporary.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                       CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        temporary.clear();
        return false;
    }
    return true;
}

/// Nobody can remove the file of an output that is still open.
OutputFailure OutputPlace::MakeTemporary(void*& file) {
    State& state = *m_state;
    const std::size_t start = state.path.find_last_of(L"\\/") + 1;
    bool isMade = false;
    for (int i = 0; i < kTemporaryNames; ++i) {
        const std::wstring candidate =
            state.path.substr(0, start) + TemporaryName(state.path.substr(start), i);
        DeleteFileW(candidate.c_str());
        isMade = isMade || state.MakeAt(candidate, file);
        if (!isMade && GetLastError() != ERROR_FILE_EXISTS) {
            return BySystem(kOutputNotCreated);
        }
    }
    return isMade ? OutputFailure{} : OutputFailure{kOutputIsBusy};
}

/// The replacement itself gives it streams and access lists.
OutputFailure OutputPlace::CarryOver(void* /*file*/) {
    const State& state = *m_state;
    const DWORD attributes = state.old.dwFileAttributes & kCarried;
    if (attributes != 0 && SetFileAttributesW(state.temporary.c_str(), attributes) == FALSE) {
        return m_state->losses.Lose(kAttributesLost, SystemError());
    }
    return {};
}

OutputFailure OutputPlace::Finish(void* file, void* reader) {
    State& state = *m_state;
    if (reader != FILE_none() && MayWrite(PlatformHandle(reader))) {
        state.followingAccess |= GENERIC_WRITE;
    }
    return !state.isTaken || FlushFileBuffers(file) != FALSE ? OutputFailure{}
                                                             : BySystem(kOutputNotFlushed);
}

/// Puts the temporary file in the place of what stands there.
bool OutputPlace::State::Replace() {
    const wchar_t* const to = path.c_str();
    const wchar_t* const from = temporary.c_str();
    if (ReplaceFileW(to, from, nullptr, 0, nullptr, nullptr) != FALSE) {
        return true;
    }
    const DWORD error = GetLastError();
    if (error == ERROR_UNABLE_TO_MOVE_REPLACEMENT || error == ERROR_FILE_NOT_FOUND) {
        const bool isMoved = MoveFileExW(from, to, MOVEFILE_WRITE_THROUGH) != FALSE;
        SetLastError(error);
        return isMoved;
    }
    const bool isHeld = error == ERROR_SHARING_VIOLATION;
    if (isHeld || !losses.Insists() ||
        ReplaceFileW(to, from, nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) ==
            FALSE) {
        SetLastError(error);
        return false;
    }
    losses.Note(kAttributesLost.note);
    return true;
}

OutputFailure OutputPlace::TakeName() {
    State& state = *m_state;
    const wchar_t* const to = state.path.c_str();
    const bool isProtected = (state.old.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (isProtected) {
        SetFileAttributesW(to, state.old.dwFileAttributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
    }
    const bool isNamed =
        state.isTaken ? state.Replace()
                      : MoveFileExW(state.temporary.c_str(), to, MOVEFILE_WRITE_THROUGH) != FALSE;
    const OutputFailure failure = isNamed ? OutputFailure{} : BySystem(kOutputNotNamed);
    if (isProtected && SetFileAttributesW(to, state.old.dwFileAttributes) == FALSE) {
        state.losses.Note(kAttributesLost.note);
    }
    // What stood there may be gone; then the temporary file is all that is left.
    if (isNamed || failure.systemError == ERROR_UNABLE_TO_MOVE_REPLACEMENT) {
        state.temporary.clear();
    }
    return failure;
}

bool OutputPlace::Follow(void* reader) {
    HANDLE following = CreateFileW(m_state->path.c_str(), m_state->followingAccess, kShareAll,
                                   nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (following != INVALID_HANDLE_VALUE && GoOver(reader, following)) {
        return true;
    }
    if (following != INVALID_HANDLE_VALUE) {
        CloseHandle(following);
    }
    m_state->losses.Note(kNotFollowed);
    return false;
}

/// The system keeps the order of such changes itself.
OutputFailure OutputPlace::FlushFolder() {
    return {};
}

bool OutputPlace::Holds(void* file) const {
    const BY_HANDLE_FILE_INFORMATION& old = m_state->old;
    BY_HANDLE_FILE_INFORMATION other = {};
    return m_state->isTaken && file != FILE_none() &&
           GetFileInformationByHandle(PlatformHandle(file), &other) != FALSE &&
           other.dwVolumeSerialNumber == old.dwVolumeSerialNumber &&
           other.nFileIndexHigh == old.nFileIndexHigh && other.nFileIndexLow == old.nFileIndexLow;
}

const OutputNotes& OutputPlace::Notes() const {
    return m_state->losses.Notes();
}

}  // namespace platen
