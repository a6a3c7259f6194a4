#include "tests/core/support.h"

#include "platform/Resources.h"

#if defined(_WIN32)
#include "platform/windows/Windows.h"

void UseTestTexts() {
  platform::SetResourceModule(GetModuleHandleW(nullptr));
}
#else
#include "platform/posix/TextTable.h"

void UseTestTexts() {
  static platform::TextTable table;
#define TEST_TEXT(id, text) table.Set(id, text);
#include "test_texts.inc"
  platform::SetResourceModule(table.Handle());
}
#endif
