#include <platen/base/output_file.h>

#include <limits>

#include <platen/base/file_handles.h>
#include <platen/base/output_place.h>
#include <platen/base/system_error.h>

namespace platen {

OutputFile::OutputFile() = default;

OutputFile::~OutputFile() {
    Close();
}

bool OutputFile::Good(const OutputFailure& failure) {
    if (m_failure.reason == nullptr) {
        m_failure = failure;
    }
    return m_failure.reason == nullptr;
}

bool OutputFile::Close() {
    const bool closed = m_file == FILE_none() || EndHandle(m_file);
    m_file = FILE_none();
    return closed;
}

bool OutputFile::Create(const char* name, bool insists) {
    m_place = std::make_unique<OutputPlace>(insists);
    return Good(m_place->Find(name)) && Good(m_place->MakeTemporary(m_file)) &&
           Good(m_place->CarryOver(m_file));
}

bool OutputFile::Write(const void* bytes, std::size_t size) {
    if (m_failure.reason != nullptr) {
        return false;
    }
    ClearSystemError();
    const bool written = size <= std::numeric_limits<std::int32_t>::max() &&
                         (size == 0 || FILE_write(m_file, bytes, static_cast<LONG>(size)) ==
                                           static_cast<LONG>(size));
    return written || Good({"the output could not be written", SystemError()});
}

bool OutputFile::Replaces(void* file) const {
    return m_place != nullptr && m_place->Holds(file);
}

bool OutputFile::Commit(void* reader) {
    if (m_failure.reason != nullptr || m_file == FILE_none() ||
        !Good(m_place->Finish(m_file, reader))) {
        return false;
    }
    ClearSystemError();
    if (!Close()) {
        return Good({"the output could not be closed", SystemError()});
    }
    m_hasName = Good(m_place->TakeName(reader));
    return m_hasName && Good(m_place->FlushFolder());
}

bool OutputFile::IsFollowed() const {
    return m_place != nullptr && m_place->IsFollowed();
}

OutputNotes OutputFile::Notes() const {
    return m_place == nullptr ? OutputNotes{} : m_place->Notes();
}

}  // namespace platen
