#pragma once

#include <memory>

#include <platen/base/output_failure.h>

namespace platen {

/// What OutputFile asks of the system: the place where an output will stand, the file that stands
/// there now, and the temporary one beside it. The steps are taken in the order in which they are
/// declared, each after the success of the one before.
class OutputPlace {
  public:
    explicit OutputPlace(bool insists);
    /// Removes the temporary file if it did not take the name.
    ~OutputPlace();
    OutputPlace(const OutputPlace&) = delete;
    OutputPlace& operator=(const OutputPlace&) = delete;

    /// Finds out where `name` leads and whether what stands there may be replaced.
    OutputFailure Find(const char* name);
    /// Makes the temporary file and removes those that were left behind.
    OutputFailure MakeTemporary(void*& file);
    /// Gives it what the file that stands there has, but for the permissions.
    OutputFailure CarryOver(void* file);
    /// Gives it the permissions, and flushes it where it replaces something. `reader` is a handle
    /// of what it replaces, or FILE_none.
    OutputFailure Finish(void* file, void* reader);
    /// Gives it the name. It is closed.
    OutputFailure TakeName(void* reader);
    /// Flushes the folder where something was replaced.
    OutputFailure FlushFolder();

    /// Whether the reader was made a handle of what has the name now.
    [[nodiscard]] bool IsFollowed() const;
    [[nodiscard]] bool Holds(void* file) const;
    [[nodiscard]] const OutputNotes& Notes() const;

  private:
    struct State;

    std::unique_ptr<State> m_state;
};

}  // namespace platen
