// A picture of a window as it stands on the screen.
#pragma once

#include "platform/windows/Windows.h"

// Writes the client area as a bitmap file of 24 bits a pixel. False if the window can't be read or the file can't be
// written.
bool SaveWindowPicture(HWND window, const wchar_t* path);
