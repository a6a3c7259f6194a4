// The UTF-8 codec: any 16-bit units survive it, and any bytes that were decoded once are decoded to the same again.
#include "JW_Base/Include/JW_CodePage.h"
#include "JW_Base/Include/JW_Utf8.h"
#include "fuzz/fuzz_input.h"
#include "platform/posix/CodePageChoice.h"

extern "C" int LLVMFuzzerTestOneInput(const u8* data, size_t size) {
  const char* const bytes = reinterpret_cast<const char*>(data);
  const JW_String decoded = JW_WideFromUtf8(bytes, static_cast<int>(size));
  Require(decoded.GetLength() <= static_cast<int>(size));
  Require(JW_WideFromUtf8(JW_Utf8FromWide(decoded)) == decoded);

  JW_String units;
  for (size_t i = 0; i + 1 < size; i += 2) units += static_cast<JW_WChar>(data[i] | data[i + 1] << 8);
  const JW_StringA encoded = JW_Utf8FromWide(units);
  Require(encoded.GetLength() <= 3 * units.GetLength());
  Require(JW_WideFromUtf8(encoded) == units);

  // What a code page can hold, it keeps.
  for (const char* const page : {"CP936", "CP1252"}) {
    Require(platform::ChooseCodePage(page));
    const JW_StringA narrow = JW_AnsiFromWide(JW_WideFromAnsi(bytes, static_cast<int>(size)));
    Require(JW_AnsiFromWide(JW_WideFromAnsi(narrow)) == narrow);
    JW_AnsiFromWide(units);
  }
  return 0;
}
