// The active ANSI code page.
//
// Both conversions write at most `capacity` units, never split a character, and return how many units they wrote;
// with a capacity of 0 they return how many units the whole text needs. No terminator is written.
#pragma once

#include "JW_Base/Include/JW_Types.h"

namespace platform {

int WideToCodePage(const JW_WChar* text, int length, char* out, int capacity);
int CodePageToWide(const char* text, int length, JW_WChar* out, int capacity);

// White space in the sense of the C library's iswspace.
bool IsWideSpace(JW_WChar ch);

}  // namespace platform
