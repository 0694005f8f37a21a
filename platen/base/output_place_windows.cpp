#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include <platen/base/carried_over_windows.h>
#include <platen/base/file_handles.h>
#include <platen/base/file_names.h>
#include <platen/base/files.h>
#include <platen/base/leading_handles_windows.h>
#include <platen/base/output_losses.h>
#include <platen/base/output_place.h>
#include <platen/base/system_error.h>
#include <platen/base/temporary_name.h>
#include <platen/platform/win32.h>

namespace platen {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
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
    DWORD readerAccess = GENERIC_READ;
    bool isFollowed = false;

    OutputFailure Examine(HANDLE there);
    [[nodiscard]] bool IsProtected() const;
    bool MakeAt(const std::wstring& candidate, void*& file);
    OutputFailure TakeName();
    bool OpenAgain(void* reader) const;
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

OutputFailure OutputPlace::CarryOver(void* file) {
    State& state = *m_state;
    if (!state.isTaken) {
        return {};
    }
    OutputFailure failure;
    if (!CarryOwner(state.path, state.temporary)) {
        failure = state.losses.Lose(kOwnerLost, SystemError());
    }
    if (failure.reason == nullptr && !(CarryAccessList(state.path, state.temporary) &&
                                       CarryAttributes(state.old, state.temporary, file) &&
                                       CarryStreams(state.path, state.temporary))) {
        failure = state.losses.Lose(kAttributesLost, SystemError());
    }
    return failure;
}

OutputFailure OutputPlace::Finish(void* file, void* reader) {
    State& state = *m_state;
    if (reader != FILE_none() && MayWrite(PlatformHandle(reader))) {
        state.readerAccess |= GENERIC_WRITE;
    }
    return !state.isTaken || FlushFileBuffers(file) != FALSE ? OutputFailure{}
                                                             : BySystem(kOutputNotFlushed);
}

/// The system replaces a file in one step, unless somebody has it open; then it stays. ReplaceFile
/// would move it away first, and the end of the process in between would leave nothing at the name.
OutputFailure OutputPlace::State::TakeName() {
    const wchar_t* const to = path.c_str();
    const bool isProtected = (old.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (isProtected) {
        SetFileAttributesW(to, old.dwFileAttributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
    }
    const DWORD how = MOVEFILE_WRITE_THROUGH | (isTaken ? DWORD{MOVEFILE_REPLACE_EXISTING} : 0);
    const bool isNamed = MoveFileExW(temporary.c_str(), to, how) != FALSE;
    OutputFailure failure = isNamed ? OutputFailure{} : BySystem(kOutputNotNamed);
    if (!isNamed && isTaken && !Opened(path, DELETE).IsOpen()) {
        failure.systemError = SystemError();  // the better word for a file that is in use
    }
    if (isProtected && SetFileAttributesW(to, old.dwFileAttributes) == FALSE) {
        losses.Note(kAttributesLost.note);
    }
    if (isNamed) {
        temporary.clear();
    }
    return failure;
}

/// Gives the reader, which was let go, a handle of what has the name.
bool OutputPlace::State::OpenAgain(void* reader) const {
    HANDLE opened = CreateFileW(path.c_str(), readerAccess, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    Lead(reader, opened);
    return opened != INVALID_HANDLE_VALUE;
}

OutputFailure OutputPlace::TakeName(void* reader) {
    const bool isRead = reader != FILE_none();
    if (isRead && !LetGo(reader)) {
        return BySystem(kOutputNotNamed);
    }
    const OutputFailure failure = m_state->TakeName();
    const bool isOpen = isRead && m_state->OpenAgain(reader);
    m_state->isFollowed = isOpen && failure.reason == nullptr;
    if (isRead && !isOpen) {
        m_state->losses.Note(kNotFollowed);
    }
    return failure;
}

bool OutputPlace::IsFollowed() const {
    return m_state->isFollowed;
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
