// Texts on their way to a console: UTF-8, one line, nothing in them that a terminal would obey.
#pragma once

#include <string>

#include "JW_Base/Include/JW_String.h"

namespace conference {

// Surrogates are joined, line breaks and control characters become blanks, and blanks at the end go.
std::string Printable(const JW_WChar* text, int length);
inline std::string Printable(const JW_String& text) {
  return Printable(text.GetString(), text.GetLength());
}
// Of a record's text.
std::string Printable(const JW_StringA& utf8);

// Characters, each of which a terminal shows in one column (East Asian ones aside).
size_t Columns(const std::string& utf8);
// Cut to `columns`, with an ellipsis where something is missing.
std::string Shortened(const std::string& utf8, size_t columns);
// Filled up with blanks to `columns`.
std::string Padded(const std::string& utf8, size_t columns);

// The text of a string id from the resource module.
JW_String ResourceText(u32 id);

}  // namespace conference
