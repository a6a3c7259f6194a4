// The folder that takes the system folder's place where there is none. It is one of the user's own unless somebody
// chooses another.
#pragma once

namespace platform {

// `path` without a separator at the end; vote files pass through the "Temp" beside it, which the caller makes. An empty
// path goes back to the user's own. Not safe against calls of SystemFolder in other threads.
void ChooseSystemFolder(const char* path);

}  // namespace platform
