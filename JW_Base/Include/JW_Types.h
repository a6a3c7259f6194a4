// The few types that everything else is spelled in, and what the headers need of a compiler.
//
// Headers under JW_Base/Include and records/ are compiled by hosts with other compilers too. They use nothing of
// the standard C++ library, so that no type of it can cross the module's boundary.
#pragma once

#include <stddef.h>
#include <stdint.h>

typedef uint8_t u8;
typedef uint16_t u16;
typedef uint32_t u32;
typedef uint64_t u64;

// The wide character is a UTF-16 code unit everywhere. JW_W("text") is a literal of it.
#if defined(_WIN32)
typedef wchar_t JW_WChar;
#define JW_W(text) L##text
#else
typedef char16_t JW_WChar;
#define JW_W(text) u##text
#endif
static_assert(sizeof(JW_WChar) == 2, "a wide character is one UTF-16 unit");

// Opaque handles, the same types that the platform's own headers declare under HWND and HINSTANCE.
typedef struct HWND__* JW_HWND;
typedef struct HINSTANCE__* JW_HMODULE;

// A programming error. `text` is the expression as the message shows it. Reports and aborts in builds with
// JW_ASSERTIONS, costs nothing elsewhere.
#if defined(JW_ASSERTIONS)
[[noreturn]] void JW_AssertionFailed(const char* text);
#define JW_ASSERT(condition, text) ((condition) ? static_cast<void>(0) : JW_AssertionFailed(text))
#else
#define JW_ASSERT(condition, text) static_cast<void>(0)
#endif
