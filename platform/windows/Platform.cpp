#include <io.h>
#include <stdio.h>
#include <time.h>
#include <wctype.h>

#include <new>

#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/CriticalSection.h"
#include "platform/Files.h"
#include "platform/Resources.h"
#include "platform/StandardOutput.h"
#include "platform/TextWidth.h"
#include "platform/windows/Windows.h"

namespace platform {

static_assert(sizeof(CRITICAL_SECTION) <= sizeof(CriticalSection), "the section fits its storage");

namespace {

CRITICAL_SECTION* SectionOf(void* storage) {
  return static_cast<CRITICAL_SECTION*>(storage);
}

HMODULE g_ResourceModule = nullptr;

DWORD AttributeBits(FileAttributes attributes) {
  return attributes == FileAttributes::kHidden ? FILE_ATTRIBUTE_HIDDEN : FILE_ATTRIBUTE_NORMAL;
}

}  // namespace

CriticalSection::CriticalSection() {
  InitializeCriticalSection(SectionOf(m_Storage));
}
CriticalSection::~CriticalSection() {
  DeleteCriticalSection(SectionOf(m_Storage));
}
void CriticalSection::Enter() {
  EnterCriticalSection(SectionOf(m_Storage));
}
void CriticalSection::Leave() {
  LeaveCriticalSection(SectionOf(m_Storage));
}

int WideToCodePage(const JW_WChar* text, int length, char* out, int capacity) {
  if (length <= 0) return 0;
  if (capacity == 0) return WideCharToMultiByte(CP_ACP, 0, text, length, nullptr, 0, nullptr, nullptr);
  const int written = WideCharToMultiByte(CP_ACP, 0, text, length, out, capacity, nullptr, nullptr);
  if (written > 0 || GetLastError() != ERROR_INSUFFICIENT_BUFFER) return written;
  // The text doesn't fit: the longest part of it that does, found by halving.
  int fits = 0;
  for (int step = length; step > 0; step /= 2) {
    while (fits + step <= length &&
           WideCharToMultiByte(CP_ACP, 0, text, fits + step, nullptr, 0, nullptr, nullptr) <= capacity) {
      fits += step;
    }
  }
  return fits == 0 ? 0 : WideCharToMultiByte(CP_ACP, 0, text, fits, out, capacity, nullptr, nullptr);
}

int CodePageToWide(const char* text, int length, JW_WChar* out, int capacity) {
  if (length <= 0) return 0;
  return MultiByteToWideChar(CP_ACP, 0, text, length, capacity == 0 ? nullptr : out, capacity);
}

bool IsWideSpace(JW_WChar ch) {
  return iswspace(ch) != 0;
}

JW_String SystemFolder() {
  wchar_t folder[256] = {};
  const UINT length = GetSystemDirectoryW(folder, 256);
  return length < 256 ? JW_String(folder) : JW_String();
}

char FolderSeparator() {
  return '\\';
}

bool RemoveFile(const JW_WChar* path) {
  return DeleteFileW(path) != 0;
}
bool SetAttributes(const JW_WChar* path, FileAttributes attributes) {
  return SetFileAttributesW(path, AttributeBits(attributes)) != 0;
}
bool SetAttributes(const char* path, FileAttributes attributes) {
  return SetFileAttributesA(path, AttributeBits(attributes)) != 0;
}
bool CopyOver(const JW_WChar* from, const JW_WChar* to) {
  return CopyFileW(from, to, FALSE) != 0;
}
FILE* OpenEmpty(const JW_WChar* path) {
  return _wfopen(path, L"w+b");
}

int SecondsSince1970() {
  return static_cast<int>(time(nullptr));
}
int TimeZoneSeconds() {
  _tzset();
  return static_cast<int>(_timezone);
}

void SetResourceModule(JW_HMODULE module) {
  g_ResourceModule = module;
}
JW_HMODULE ResourceModule() {
  return g_ResourceModule;
}
int LoadResourceText(u32 id, JW_WChar* buffer, int size) {
  if (size <= 0) return 0;
  buffer[0] = 0;
  // A null handle would mean the client's own executable.
  return g_ResourceModule ? LoadStringW(g_ResourceModule, id, buffer, size) : 0;
}

TextMeasure::TextMeasure() : m_hFont(nullptr) {
  LOGFONTW font = {};
  GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof(font), &font);
  font.lfHeight = -12;
  lstrcpyW(font.lfFaceName, L"Tahoma");
  m_hFont = CreateFontIndirectW(&font);
}
TextMeasure::~TextMeasure() {
  if (m_hFont) DeleteObject(m_hFont);
}
int TextMeasure::Width(const JW_String& text) const {
  const HDC screen = GetDC(nullptr);
  if (!screen) return 0;
  const HGDIOBJ old = m_hFont ? SelectObject(screen, m_hFont) : nullptr;
  RECT rect = {};
  DrawTextW(screen, text.GetString(), text.GetLength(), &rect, DT_CALCRECT);
  if (old) SelectObject(screen, old);
  ReleaseDC(nullptr, screen);
  return rect.right - rect.left;
}

bool HasStandardOutput() {
  const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
  return output != nullptr && output != INVALID_HANDLE_VALUE && _fileno(stdout) >= 0;
}

}  // namespace platform
