// The toolkit's state in its module: begun when the library enters the process, ended when it leaves.
#pragma once

#include "platform/windows/Windows.h"

// `instance` owns the window classes and is the resource module until the host hands in another. Not counted: one
// begin, one end. Test programs call both as well.
void InitToolkit(HINSTANCE instance);

// Ends windows that are still open, without any code of theirs, unregisters the classes and gives the thunks' memory
// back. No window object may be used afterwards.
void TermToolkit();

// The module that window classes belong to.
HINSTANCE ToolkitInstance();
