#include <platen/platform/afx/common_dialogs.h>
#include <platen/platform/afx/message_map.h>

#include <algorithm>
#include <cstring>
#include <string_view>

IMPLEMENT_DYNAMIC(CFileDialog, CCommonDialog)

namespace {

/// Room for one path of any length, and at first for thousands of names.
constexpr std::size_t kRoomForOne = 0x8000;
constexpr std::size_t kRoomForSeveral = 0x100000;
constexpr std::size_t kMostRoom = 0x8000000;

/// The filter as the system takes it: each part ends with a zero, the whole with one more.
std::string SplitFilter(LPCSTR filter) {
    std::string parts = filter == nullptr ? "" : filter;
    std::ranges::replace(parts, '|', '\0');
    parts.append(2, '\0');
    return parts;
}

}  // namespace

CFileDialog::CFileDialog(BOOL open, LPCSTR defaultExtension, LPCSTR fileName, DWORD flags,
                         LPCSTR filter, CWnd* parent)
    : CCommonDialog(parent),
      m_open(open != FALSE),
      m_defaultExtension(defaultExtension == nullptr ? "" : defaultExtension),
      m_filter(SplitFilter(filter)) {
    const std::string_view name = fileName == nullptr ? "" : fileName;
    const bool several = (flags & OFN_ALLOWMULTISELECT) != 0;
    MakeRoom(std::max(several ? kRoomForSeveral : kRoomForOne, name.size() + 1));
    name.copy(m_names.data(), name.size());
    m_ofn.lStructSize = sizeof(m_ofn);
    m_ofn.lpstrDefExt = defaultExtension == nullptr ? nullptr : m_defaultExtension.c_str();
    m_ofn.lpstrFilter = filter == nullptr ? nullptr : m_filter.c_str();
    m_ofn.Flags = flags | OFN_EXPLORER;
}

void CFileDialog::MakeRoom(std::size_t size) {
    m_names.assign(size, '\0');
    m_ofn.lpstrFile = m_names.data();
    m_ofn.nMaxFile = static_cast<DWORD>(size);
}

BOOL CFileDialog::Ask() {
    m_ofn.hwndOwner = Owner();
    Follow(m_ofn.lpfnHook, m_ofn.Flags, OFN_ENABLEHOOK);
    const BOOL chosen = m_open ? ::GetOpenFileName(&m_ofn) : ::GetSaveFileName(&m_ofn);
    Unfollow();
    return chosen;
}

int CFileDialog::DoModal() {
    BOOL chosen = Ask();
    while (chosen == FALSE && ::CommDlgExtendedError() == FNERR_BUFFERTOOSMALL &&
           m_ofn.lpstrFile == m_names.data() && m_names.size() < kMostRoom) {
        MakeRoom(m_names.size() * 8);
        chosen = Ask();
    }
    return chosen != FALSE ? IDOK : IDCANCEL;
}

bool CFileDialog::HasSeveral() const {
    const std::size_t first = std::strlen(m_ofn.lpstrFile);
    return (m_ofn.Flags & OFN_ALLOWMULTISELECT) != 0 && first > 0 && first < m_ofn.nFileOffset;
}

CString CFileDialog::GetPathName() const {
    return m_ofn.lpstrFile;
}

CString CFileDialog::GetFileName() const {
    return m_ofn.lpstrFile + m_ofn.nFileOffset;
}

CString CFileDialog::GetFileExt() const {
    const std::string_view name = m_ofn.lpstrFile + m_ofn.nFileOffset;
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos ? "" : name.data() + dot + 1;
}

CString CFileDialog::GetFileTitle() const {
    const std::string_view name = m_ofn.lpstrFile + m_ofn.nFileOffset;
    return std::string(name.substr(0, name.rfind('.'))).c_str();
}

POSITION CFileDialog::GetStartPosition() const {
    return m_ofn.lpstrFile + (HasSeveral() ? m_ofn.nFileOffset : 0);
}

CString CFileDialog::GetNextPathName(POSITION& position) const {
    const POSITION current = position;
    if (!HasSeveral()) {
        position = nullptr;
        return current;
    }
    position += std::strlen(position) + 1;
    if (*position == '\0') {
        position = nullptr;
    }
    // The folder's own way to write paths: one that starts with a slash has no other separator.
    std::string path = m_ofn.lpstrFile;
    const char separator = path.front() == '/' ? '/' : '\\';
    if (path.back() != separator) {
        path += separator;
    }
    return (path += current).c_str();
}

BOOL CFileDialog::GetReadOnlyPref() const {
    return (m_ofn.Flags & OFN_READONLY) != 0 ? TRUE : FALSE;
}
