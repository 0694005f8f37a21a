#pragma once

#include <string_view>

namespace platen::tool {

/// Standard output. The first failed write is reported on standard error, and nothing is written
/// after it.
class Output {
  public:
    Output();

    /// Byte for byte.
    void Write(std::string_view bytes);
    /// A file's text, in one line: on a terminal control characters are shown escaped.
    void WriteText(std::string_view text);
    /// The same for what the engine prints, whose lines end in "\r\n".
    void WriteReport(std::string_view report);
    void Flush();
    /// Flushes and closes; true when everything was written. Nothing else may be written then.
    bool Finish();

    [[nodiscard]] bool Failed() const { return m_failed; }
    [[nodiscard]] bool IsTerminal() const { return m_terminal; }

  private:
    void Check(bool good);

    bool m_terminal;
    bool m_failed = false;
};

}  // namespace platen::tool
