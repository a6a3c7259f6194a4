#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "JW_Base/Include/JW_CodePage.h"
#include "JW_Base/Include/JW_String.h"
#include "platform/Resources.h"

namespace {

// One conversion of a wide format, read from its '%'. Numbers are left to the C library, texts are placed here.
class Conversion {
 public:
  // Reads the conversion at `format`, which stands on a '%', taking "*" widths from `args`.
  Conversion(const JW_WChar* format, va_list* args) {
    const JW_WChar* at = format + 1;
    while (*at == '#' || *at == '-' || *at == '+' || *at == '0' || *at == ' ' || *at == '*') {
      if (*at == '*') break;
      AddFlag(static_cast<char>(*at++));
    }
    m_nWidth = Number(at, args, 0);
    if (m_nWidth < 0) {
      AddFlag('-');
      m_nWidth = -m_nWidth;
    }
    if (*at == '.') m_nPrecision = Number(++at, args, 0);
    if (at[0] == 'I' && at[1] == '6' && at[2] == '4') {
      m_bLong = true;
      at += 3;
    }
    for (int letters = 0; *at == 'l' || *at == 'h' || *at == 'L' || *at == 'w'; ++at) {
      if (*at == 'l' && ++letters == 2) m_bLong = true;
      if (*at == 'h') m_bNarrow = true;
      if (*at == 'l' || *at == 'w') m_bWide = true;
    }
    m_Type = *at;
    m_pEnd = *at ? at + 1 : at;
  }

  const JW_WChar* End() const { return m_pEnd; }

  void AppendTo(JW_String& out, va_list* args) const {
    switch (m_Type) {
      case 's':
        return m_bNarrow ? AppendText(out, WideOf(va_arg(*args, const char*)))
                         : AppendText(out, va_arg(*args, const JW_WChar*));
      case 'S':
        return m_bWide ? AppendText(out, va_arg(*args, const JW_WChar*))
                       : AppendText(out, WideOf(va_arg(*args, const char*)));
      case 'c':
      case 'C': {
        const JW_WChar text[2] = {static_cast<JW_WChar>(va_arg(*args, int)), 0};
        return AppendPadded(out, text, 1);
      }
      case 'd':
      case 'i':
      case 'o':
      case 'u':
      case 'x':
      case 'X':
        return m_bLong ? AppendNumber(out, "ll", va_arg(*args, long long)) : AppendNumber(out, "", va_arg(*args, int));
      case 'e':
      case 'E':
      case 'f':
      case 'g':
      case 'G':
        return AppendNumber(out, "", va_arg(*args, double));
      case 'p':
        return AppendNumber(out, "", va_arg(*args, void*));
      case 0:
        return;
      default:
        out += m_Type;
    }
  }

 private:
  static constexpr int kMaxFlags = 5;
  // Wider than any text of the system; a format from a translator's hand can't ask for more memory than this.
  static constexpr int kMaxNumber = 4096;
  // A string grows to the unit, so its text comes in pieces.
  static constexpr int kAtOnce = 64;

  // Each of the five once.
  void AddFlag(char flag) {
    if (!memchr(m_Flags, flag, static_cast<size_t>(m_nFlags))) m_Flags[m_nFlags++] = flag;
  }
  static int Number(const JW_WChar*& at, va_list* args, int value) {
    if (*at == '*') {
      ++at;
      value = va_arg(*args, int);
    }
    for (; *at >= '0' && *at <= '9'; ++at) value = value < kMaxNumber ? value * 10 + (*at - '0') : value;
    return value > kMaxNumber ? kMaxNumber : value < -kMaxNumber ? -kMaxNumber : value;
  }
  static JW_String WideOf(const char* text) { return JW_WideFromAnsi(text, JW_StringA::Length(text)); }

  void AppendText(JW_String& out, const JW_WChar* text) const {
    int length = JW_String::Length(text);
    if (m_nPrecision >= 0 && length > m_nPrecision) length = m_nPrecision;
    AppendPadded(out, text, length);
  }
  void AppendPadded(JW_String& out, const JW_WChar* text, int length) const {
    const bool left = memchr(m_Flags, '-', static_cast<size_t>(m_nFlags)) != nullptr;
    if (!left) AppendBlanks(out, m_nWidth - length);
    out.Append(text, length);
    if (left) AppendBlanks(out, m_nWidth - length);
  }
  static void AppendBlanks(JW_String& out, int count) {
    JW_WChar blanks[kAtOnce];
    std::fill_n(blanks, kAtOnce, JW_WChar(' '));
    for (; count > 0; count -= kAtOnce) out.Append(blanks, std::min(count, kAtOnce));
  }

  template <class Value>
  void AppendNumber(JW_String& out, const char* size, Value value) const {
    char format[32];
    char text[kMaxNumber * 2];
    const char type = static_cast<char>(m_Type);
    const int length = m_nPrecision >= 0
                           ? (Compose(format, "*.*", size, type), Print(text, format, m_nWidth, m_nPrecision, value))
                           : (Compose(format, "*", size, type), Print(text, format, m_nWidth, value));
    JW_WChar wide[kAtOnce];
    for (int done = 0; done < length; done += kAtOnce) {
      const int now = std::min(length - done, kAtOnce);
      std::copy_n(text + done, now, wide);
      out.Append(wide, now);
    }
  }
  void Compose(char* format, const char* stars, const char* size, char type) const {
    snprintf(format, 32, "%%%.*s%s%s%c", m_nFlags, m_Flags, stars, size, type);
  }
  template <size_t kRoom, class... Values>
  static int Print(char (&text)[kRoom], const char* format, Values... values) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
    const int length = snprintf(text, kRoom, format, values...);
#pragma GCC diagnostic pop
    return length < static_cast<int>(kRoom) ? length : static_cast<int>(kRoom) - 1;
  }

  char m_Flags[kMaxFlags] = {};
  int m_nFlags = 0;
  int m_nWidth = 0;
  int m_nPrecision = -1;
  bool m_bLong = false;
  bool m_bNarrow = false;
  bool m_bWide = false;
  JW_WChar m_Type = 0;
  const JW_WChar* m_pEnd = nullptr;
};

// va_list is an array type on some targets; in a structure it can be passed by pointer on all of them.
struct Arguments {
  va_list list;
};

}  // namespace

template <>
void JW_StringT<JW_WChar>::Format(const JW_WChar* format, ...) {
  Arguments args;
  va_start(args.list, format);
  JW_String out;
  const JW_WChar* at = format ? format : JW_W("");
  while (*at) {
    const JW_WChar* plain = at;
    while (*at && *at != '%') ++at;
    out.Append(plain, static_cast<int>(at - plain));
    if (!*at) break;
    const Conversion conversion(at, &args.list);
    conversion.AppendTo(out, &args.list);
    at = conversion.End();
  }
  va_end(args.list);
  *this = static_cast<JW_String&&>(out);
}

template <>
void JW_StringT<char>::Format(const char* format, ...) {
  va_list args;
  va_start(args, format);
  va_list again;
  va_copy(again, args);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  const int length = vsnprintf(nullptr, 0, format, args);
  JW_StringA out;
  char* const buffer = length > 0 ? out.GetBufferSetLength(length) : nullptr;
  if (buffer) vsnprintf(buffer, static_cast<size_t>(length) + 1, format, again);
#pragma GCC diagnostic pop
  va_end(again);
  va_end(args);
  *this = static_cast<JW_StringA&&>(out);
}

template <>
bool JW_StringT<JW_WChar>::LoadString(u32 id) {
  constexpr int kStep = 256;
  JW_WChar first[kStep];
  int length = platform::LoadResourceText(id, first, kStep);
  if (length <= kStep - 2) {
    AssignText(first, length);
    return length > 0;
  }
  // A text that fills the buffer to within two characters may have been cut.
  for (int size = 2 * kStep;; size += kStep) {
    JW_String grown;
    JW_WChar* const buffer = grown.GetBufferSetLength(size);
    if (!buffer) return false;
    length = platform::LoadResourceText(id, buffer, size);
    if (length <= size - 2) {
      grown.ReleaseBuffer(length);
      *this = static_cast<JW_String&&>(grown);
      return length > 0;
    }
  }
}
