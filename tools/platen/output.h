#pragma once

#include <string_view>

namespace platen::tool {

/// Standard output, byte for byte. The first failed write is reported on standard error, and
/// nothing is written after it.
class Output {
  public:
    Output();

    void Write(std::string_view text);
    void Flush();
    /// Flushes; true when everything was written.
    bool Finish();

    [[nodiscard]] bool Failed() const { return m_failed; }
    [[nodiscard]] bool IsTerminal() const { return m_terminal; }

  private:
    void Check(bool good);

    bool m_terminal;
    bool m_failed = false;
};

}  // namespace platen::tool
