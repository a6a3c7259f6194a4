// Conversions between UTF-16 and the active ANSI code page. What the code page lacks is lost.
#pragma once

#include "JW_Base/Include/JW_String.h"

JW_String JW_WideFromAnsi(const char* text, int length);
JW_StringA JW_AnsiFromWide(const JW_WChar* text, int length);

inline JW_String JW_WideFromAnsi(const JW_StringA& text) {
  return JW_WideFromAnsi(text.GetString(), text.GetLength());
}
inline JW_StringA JW_AnsiFromWide(const JW_String& text) {
  return JW_AnsiFromWide(text.GetString(), text.GetLength());
}
