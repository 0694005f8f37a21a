#pragma once

#include <string>
#include <string_view>

namespace platen::tool {

enum class LineEnds : bool { Shown, Kept };

/// A text as a terminal may have it: control characters (C0, DEL, and C1 in UTF-8), and bytes that
/// are no UTF-8, are shown as in "\n", "\x1B" and "\u009B". Kept line ends are "\r\n".
std::string ShownText(std::string_view text, LineEnds lineEnds = LineEnds::Shown);

/// A text in quotation marks, as JSON has it (RFC 8259). Bytes that are no UTF-8 become U+FFFD. For
/// a terminal, DEL and C1 are escaped too.
std::string JsonText(std::string_view text, bool forTerminal);

}  // namespace platen::tool
