#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace platen {

/// Notes what goes wrong in the FILE_ functions that the thread calls while the object lives: many
/// of their callers look at no more than a status has to tell. The objects of a thread end in the
/// opposite order of their beginning.
class FileWatch {
  public:
    enum class Step : std::uint8_t {
        Open,
        Read,
        ReadToEnd,  ///< no failure: the file ended before all was read that was asked for
        Write,
        Seek,
        Close
    };

    FileWatch();
    ~FileWatch();
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;

    /// The system's reason for the first failure of that step, 0 when it gave none; nothing when
    /// the step never failed.
    [[nodiscard]] const std::optional<int>& Of(Step step) const {
        return m_first[static_cast<std::size_t>(step)];
    }

    /// What the FILE_ functions tell. The reason is the system's last error.
    static void Note(Step step);

  private:
    static constexpr std::size_t kSteps = 6;

    std::array<std::optional<int>, kSteps> m_first;
    FileWatch* m_outer;
};

/// Makes the FILE_ functions transfer nothing any more, in all threads, or as usual again: what is
/// under way ends soon, by their failure. Signal handlers may call it.
void StopTransfers(bool stop);
[[nodiscard]] bool AreTransfersStopped();

}  // namespace platen
