#include "JW_Base/Include/JW_CodePage.h"

#include "platform/CodePage.h"

JW_String JW_WideFromAnsi(const char* text, int length) {
  JW_String wide;
  const int units = platform::CodePageToWide(text, length, nullptr, 0);
  if (units > 0) {
    if (JW_WChar* const out = wide.GetBufferSetLength(units)) platform::CodePageToWide(text, length, out, units);
  }
  return wide;
}

JW_StringA JW_AnsiFromWide(const JW_WChar* text, int length) {
  JW_StringA narrow;
  const int size = platform::WideToCodePage(text, length, nullptr, 0);
  if (size > 0) {
    if (char* const out = narrow.GetBufferSetLength(size)) platform::WideToCodePage(text, length, out, size);
  }
  return narrow;
}
