// The active code page where the system has none of its own. It is windows-1252 until somebody chooses another.
#pragma once

namespace platform {

// A name that the C library's iconv knows, such as "CP936". False, with the choice as it was, if it doesn't. Not safe
// against conversions in other threads.
bool ChooseCodePage(const char* name);

}  // namespace platform
