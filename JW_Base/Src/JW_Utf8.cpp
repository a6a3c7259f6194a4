#include "JW_Base/Include/JW_Utf8.h"

namespace {

// Bytes of the sequence that starts with `lead`; 0 for a lead that is skipped without a unit.
int SequenceLength(u8 lead) {
  if ((lead & 0x80) == 0) return 1;
  if ((lead & 0x20) == 0) return 2;
  if ((lead & 0x10) == 0) return 3;
  return 0;
}

int UnitLength(JW_WChar unit) {
  return unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3;
}

}  // namespace

JW_String JW_WideFromUtf8(const char* text, int length) {
  const u8* const bytes = reinterpret_cast<const u8*>(text);
  int plain = 0;
  while (plain < length && bytes[plain] < 0x80) ++plain;
  int units = plain;
  for (int i = plain; i < length;) {
    const int sequence = SequenceLength(bytes[i]);
    units += sequence > 0;
    i += sequence > 0 ? sequence : 1;
  }
  JW_String wide;
  JW_WChar* out = units > 0 ? wide.GetBufferSetLength(units) : nullptr;
  if (!out) return wide;
  for (int i = 0; i < plain; ++i) *out++ = bytes[i];
  const auto rest = [&](int at) { return at < length ? bytes[at] & 0x3Fu : 0u; };
  for (int i = plain; i < length;) {
    const int sequence = SequenceLength(bytes[i]);
    switch (sequence) {
      case 1:
        *out++ = bytes[i];
        break;
      case 2:
        *out++ = static_cast<JW_WChar>((bytes[i] & 0x1Fu) << 6 | rest(i + 1));
        break;
      case 3:
        *out++ = static_cast<JW_WChar>((bytes[i] & 0x0Fu) << 12 | rest(i + 1) << 6 | rest(i + 2));
        break;
      default:
        break;
    }
    i += sequence > 0 ? sequence : 1;
  }
  return wide;
}

JW_StringA JW_Utf8FromWide(const JW_WChar* text, int length) {
  int size = 0;
  for (int i = 0; i < length; ++i) {
    size += UnitLength(text[i]);
    if (size > kJW_MaxStringLength) return JW_StringA();
  }
  JW_StringA narrow;
  char* out = size > 0 ? narrow.GetBufferSetLength(size) : nullptr;
  if (!out) return narrow;
  for (int i = 0; i < length; ++i) {
    const u32 unit = text[i];
    switch (UnitLength(text[i])) {
      case 1:
        *out++ = static_cast<char>(unit);
        break;
      case 2:
        *out++ = static_cast<char>(0xC0 | unit >> 6);
        *out++ = static_cast<char>(0x80 | (unit & 0x3F));
        break;
      default:
        *out++ = static_cast<char>(0xE0 | unit >> 12);
        *out++ = static_cast<char>(0x80 | (unit >> 6 & 0x3F));
        *out++ = static_cast<char>(0x80 | (unit & 0x3F));
    }
  }
  return narrow;
}
