#include "host/Text.h"

#include "JW_Base/Include/JW_Utf8.h"

namespace conference {
namespace {

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

void Append(std::string& out, u32 code) {
  const auto put = [&out](u32 byte) { out += static_cast<char>(static_cast<u8>(byte)); };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | code >> 6);
    put(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    put(0xE0 | code >> 12);
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
  } else {
    put(0xF0 | code >> 18);
    put(0x80 | (code >> 12 & 0x3F));
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
  }
}

bool IsControl(u32 code) {
  // Those of the terminal, and those that turn the direction of the text around.
  return code < 0x20 || (code >= 0x7F && code < 0xA0) || (code >= 0x202A && code <= 0x202E) ||
         (code >= 0x2066 && code <= 0x2069);
}

}  // namespace

std::string Printable(const JW_WChar* text, int length) {
  std::string out;
  for (int i = 0; i < length; ++i) {
    u32 code = text[i];
    const bool high = code >= 0xD800 && code < 0xDC00;
    if (high && i + 1 < length && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
      code = 0x10000 + ((code - 0xD800) << 10) + (static_cast<u32>(text[++i]) - 0xDC00);
    } else if (code >= 0xD800 && code < 0xE000) {
      code = 0xFFFD;
    }
    Append(out, IsControl(code) ? ' ' : code);
  }
  while (!out.empty() && out.back() == ' ') out.pop_back();
  return out;
}

std::string Printable(const JW_StringA& utf8) {
  return Printable(JW_WideFromUtf8(utf8));
}

size_t Columns(const std::string& utf8) {
  size_t count = 0;
  for (const char byte : utf8) count += !IsContinuation(byte);
  return count;
}

std::string Shortened(const std::string& utf8, size_t columns) {
  if (Columns(utf8) <= columns) return utf8;
  std::string out;
  size_t count = 0;
  for (const char byte : utf8) {
    if (!IsContinuation(byte) && ++count + 3 > columns) break;
    out += byte;
  }
  return out + "...";
}

std::string Padded(const std::string& utf8, size_t columns) {
  const size_t used = Columns(utf8);
  return used < columns ? utf8 + std::string(columns - used, ' ') : utf8;
}

JW_String ResourceText(u32 id) {
  JW_String text;
  text.LoadString(id);
  return text;
}

}  // namespace conference
