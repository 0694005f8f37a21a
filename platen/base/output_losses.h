#pragma once

#include <algorithm>

#include <platen/base/output_failure.h>

namespace platen {

inline constexpr const char* kOutputNotCreated = "the output could not be created";
inline constexpr const char* kOutputIsFolder = "the output is a directory";
inline constexpr const char* kOutputIsNoFile = "the output is not a regular file";
inline constexpr const char* kOutputIsProtected = "the output is write-protected";
inline constexpr const char* kOutputIsBusy = "the output is being written by others";
inline constexpr const char* kOutputNotOpened = "the output could not be opened for reading";
inline constexpr const char* kOutputNotFlushed = "the output could not be flushed to the disk";
inline constexpr const char* kFolderNotFlushed =
    "the output's folder could not be flushed to the disk";
inline constexpr const char* kOutputNotNamed = "the output could not be given its name";
inline constexpr const char* kPermissionsNotKept = "the output's permissions could not be kept";

/// What a file can lose when another one replaces it: why that is refused, and what is told where
/// it is insisted on.
struct OutputLoss {
    const char* refusal;
    const char* note;
};

inline constexpr OutputLoss kLinksLost = {
    "the output has other names (hard links), which would keep its old contents",
    "the output had other names (hard links), which keep its old contents"};
inline constexpr OutputLoss kOwnerLost = {"the output's owner and group cannot be kept",
                                          "the output's owner and group could not be kept"};
inline constexpr OutputLoss kAttributesLost = {
    "the output's extended attributes or access lists cannot be kept",
    "the output's extended attributes or access lists could not be kept"};
inline constexpr const char* kLabelsLost = "the output's security labels could not be kept";
inline constexpr const char* kNotFollowed = "the output could not be opened for reading on";

/// Refuses what is lost, or gathers what is to be told.
class OutputLosses {
  public:
    explicit OutputLosses(bool insists) : m_insists(insists) {}

    [[nodiscard]] bool Insists() const { return m_insists; }
    [[nodiscard]] const OutputNotes& Notes() const { return m_notes; }

    void Note(const char* text) {
        auto* const free = std::ranges::find(m_notes, nullptr);
        if (free != m_notes.end()) {
            *free = text;
        }
    }
    OutputFailure Lose(const OutputLoss& loss, int systemError) {
        if (!m_insists) {
            return {loss.refusal, systemError, true};
        }
        Note(loss.note);
        return {};
    }

  private:
    bool m_insists;
    OutputNotes m_notes = {};
};

}  // namespace platen
