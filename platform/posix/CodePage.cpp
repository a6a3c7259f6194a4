#include "platform/CodePage.h"

#include <iconv.h>

#include <memory>
#include <string>

#include "platform/posix/CodePageChoice.h"

namespace platform {
namespace {

// One direction of the active code page.
class Converter {
 public:
  Converter(const char* to, const char* from) : m_Handle(iconv_open(to, from)) {}
  ~Converter() {
    if (IsOpen()) iconv_close(m_Handle);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  bool IsOpen() const { return m_Handle != reinterpret_cast<iconv_t>(-1); }

  // Converts one character of `size` bytes. Returns the bytes written, 0 if it can't be converted.
  size_t One(const void* in, size_t size, char* out, size_t room) const {
    char* from = const_cast<char*>(static_cast<const char*>(in));
    const size_t all = room;
    iconv(m_Handle, nullptr, nullptr, nullptr, nullptr);
    if (iconv(m_Handle, &from, &size, &out, &room) == static_cast<size_t>(-1)) return 0;
    return all - room;
  }

 private:
  iconv_t m_Handle;
};

struct CodePage {
  explicit CodePage(const char* name) : narrow(name, "UTF-16LE"), wide("UTF-16LE", name) {}
  Converter narrow;
  Converter wide;
};

std::unique_ptr<CodePage>& Active() {
  static std::unique_ptr<CodePage> page = std::make_unique<CodePage>("CP1252");
  return page;
}

}  // namespace

bool ChooseCodePage(const char* name) {
  auto page = std::make_unique<CodePage>(name);
  if (!page->narrow.IsOpen() || !page->wide.IsOpen()) return false;
  Active() = std::move(page);
  return true;
}

int WideToCodePage(const JW_WChar* text, int length, char* out, int capacity) {
  int written = 0;
  for (int i = 0; i < length;) {
    char bytes[8];
    size_t size = 1;
    int units = 1;
    if (text[i] < 0x80) {
      bytes[0] = static_cast<char>(text[i]);
    } else {
      const bool pair = text[i] >= 0xD800 && text[i] < 0xDC00 && i + 1 < length && (text[i + 1] & 0xFC00) == 0xDC00;
      units = pair ? 2 : 1;
      size = Active()->narrow.One(&text[i], static_cast<size_t>(units) * 2, bytes, sizeof(bytes));
      if (size == 0) {
        bytes[0] = '?';
        size = 1;
      }
    }
    if (capacity != 0) {
      if (written + static_cast<int>(size) > capacity) break;
      std::copy(bytes, bytes + size, out + written);
    }
    written += static_cast<int>(size);
    i += units;
  }
  return written;
}

int CodePageToWide(const char* text, int length, JW_WChar* out, int capacity) {
  // Every code page agrees with ASCII.
  int plain = 0;
  while (plain < length && static_cast<unsigned char>(text[plain]) < 0x80) ++plain;
  if (capacity != 0) {
    if (plain > capacity) plain = capacity;
    for (int i = 0; i < plain; ++i) out[i] = static_cast<JW_WChar>(text[i]);
  }
  int written = plain;
  for (int i = plain; i < length;) {
    JW_WChar units[4] = {static_cast<JW_WChar>(static_cast<unsigned char>(text[i]))};
    size_t size = 2;
    int bytes = 1;
    if (units[0] >= 0x80) {
      size = 0;
      // A lead byte alone converts to nothing: then the next byte belongs to the character.
      for (bytes = 1; bytes <= 2 && i + bytes <= length && size == 0; ++bytes) {
        size = Active()->wide.One(&text[i], static_cast<size_t>(bytes), reinterpret_cast<char*>(units), sizeof(units));
      }
      --bytes;
      if (size == 0) {
        units[0] = u'?';
        size = 2;
        bytes = 1;
      }
    }
    const int count = static_cast<int>(size / 2);
    if (capacity != 0) {
      if (written + count > capacity) break;
      std::copy(units, units + count, out + written);
    }
    written += count;
    i += bytes;
  }
  return written;
}

bool IsWideSpace(JW_WChar ch) {
  return (ch >= 0x09 && ch <= 0x0D) || ch == 0x20 || ch == 0x85 || ch == 0xA0 || ch == 0x1680 ||
         (ch >= 0x2000 && ch <= 0x200A) || ch == 0x2028 || ch == 0x2029 || ch == 0x202F || ch == 0x205F || ch == 0x3000;
}

}  // namespace platform
