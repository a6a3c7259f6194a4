// The platform's own header, without the macros that rename operations of ours.
#pragma once

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#undef GetUserName
#undef DefWindowProc
#undef LoadString
