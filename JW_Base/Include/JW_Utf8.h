// The codec between UTF-16 and the UTF-8 of the records.
//
// Each 16-bit unit is stored on its own: surrogates aren't joined, so a character above the Basic Multilingual Plane
// travels as two three-byte sequences and comes back as the same two units. The decoder goes by the first byte of a
// sequence alone and doesn't check what follows it: a four-byte sequence of another writer loses its character.
#pragma once

#include "JW_Base/Include/JW_String.h"

// Each returns an empty string if memory runs out. A sequence that the end of the text cuts off is completed by zero
// bits; nothing behind `length` is read.
JW_String JW_WideFromUtf8(const char* text, int length);
JW_StringA JW_Utf8FromWide(const JW_WChar* text, int length);

inline JW_String JW_WideFromUtf8(const JW_StringA& text) {
  return JW_WideFromUtf8(text.GetString(), text.GetLength());
}
inline JW_StringA JW_Utf8FromWide(const JW_String& text) {
  return JW_Utf8FromWide(text.GetString(), text.GetLength());
}
