#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <new>

#include "JW_Base/Include/JW_Utf8.h"
#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/CriticalSection.h"
#include "platform/Files.h"
#include "platform/Resources.h"
#include "platform/StandardOutput.h"
#include "platform/TextWidth.h"
#include "platform/posix/SystemFolderChoice.h"
#include "platform/posix/TextTable.h"

namespace platform {

static_assert(sizeof(std::recursive_mutex) <= sizeof(CriticalSection), "the section fits its storage");

namespace {

std::recursive_mutex* SectionOf(void* storage) {
  return std::launder(static_cast<std::recursive_mutex*>(storage));
}

TextTable* g_pTexts = nullptr;

std::u16string& ChosenFolder() {
  static std::u16string folder;
  return folder;
}

// Empty, which names no file, for text that isn't UTF-16.
std::filesystem::path PathOf(const JW_WChar* path) try {
  return std::filesystem::path(path);
} catch (const std::exception&) {
  return {};
}

bool IsOwnFolder(const char* path) {
  struct stat facts = {};
  return lstat(path, &facts) == 0 && S_ISDIR(facts.st_mode) && facts.st_uid == geteuid();
}

}  // namespace

CriticalSection::CriticalSection() {
  ::new (static_cast<void*>(m_Storage)) std::recursive_mutex;
}
CriticalSection::~CriticalSection() {
  SectionOf(m_Storage)->~recursive_mutex();
}
void CriticalSection::Enter() {
  SectionOf(m_Storage)->lock();
}
void CriticalSection::Leave() {
  SectionOf(m_Storage)->unlock();
}

// There is no system folder to stand beside: a folder of this user's takes its place, so that nobody else can write
// to the "Temp" beside it. Empty if somebody else holds the name.
JW_String SystemFolder() {
  if (!ChosenFolder().empty()) return JW_String(ChosenFolder().c_str());
  static const std::u16string folder = [] {
    const std::filesystem::path path = "/tmp/zqvote-" + std::to_string(geteuid());
    mkdir(path.c_str(), S_IRWXU);
    if (!IsOwnFolder(path.c_str())) return std::u16string();
    mkdir((path / "Temp").c_str(), S_IRWXU);
    return (path / "system").u16string();
  }();
  return JW_String(folder.c_str());
}

void ChooseSystemFolder(const char* path) {
  ChosenFolder() = std::filesystem::path(path).u16string();
}

char FolderSeparator() {
  return '/';
}

bool RemoveFile(const JW_WChar* path) {
  std::error_code error;
  return std::filesystem::remove(PathOf(path), error);
}
// A normal file is one that its owner can write; nothing hides a file under a name that is given.
bool SetAttributes(const JW_WChar* path, FileAttributes attributes) {
  return SetAttributes(PathOf(path).c_str(), attributes);
}
bool SetAttributes(const char* path, FileAttributes attributes) {
  struct stat facts = {};
  if (stat(path, &facts) != 0) return false;
  if (attributes != FileAttributes::kNormal || (facts.st_mode & S_IWUSR) != 0) return true;
  return chmod(path, (facts.st_mode & 07777) | S_IWUSR) == 0;
}
bool CopyOver(const JW_WChar* from, const JW_WChar* to) {
  std::error_code error;
  return std::filesystem::copy_file(PathOf(from), PathOf(to), std::filesystem::copy_options::overwrite_existing, error);
}
FILE* OpenEmpty(const JW_WChar* path) {
  return fopen(PathOf(path).c_str(), "w+b");
}

int SecondsSince1970() {
  return static_cast<int>(time(nullptr));
}
int TimeZoneSeconds() {
  tzset();
  return static_cast<int>(timezone);
}

void SetResourceModule(JW_HMODULE module) {
  g_pTexts = reinterpret_cast<TextTable*>(module);
}
JW_HMODULE ResourceModule() {
  return reinterpret_cast<JW_HMODULE>(g_pTexts);
}
int LoadResourceText(u32 id, JW_WChar* buffer, int size) {
  if (size <= 0) return 0;
  buffer[0] = 0;
  const std::u16string* const text = g_pTexts ? g_pTexts->Find(id) : nullptr;
  if (!text) return 0;
  const size_t count = text->copy(buffer, static_cast<size_t>(size - 1));
  buffer[count] = 0;
  return static_cast<int>(count);
}

void TextTable::Set(u32 id, const char* utf8) {
  const JW_String wide = JW_WideFromUtf8(utf8, JW_StringA::Length(utf8));
  m_Texts[id].assign(wide.GetString(), static_cast<size_t>(wide.GetLength()));
}
const std::u16string* TextTable::Find(u32 id) const {
  const auto at = m_Texts.find(id);
  return at == m_Texts.end() ? nullptr : &at->second;
}

// No fonts here: Tahoma at 12 pixels is close to 6 pixels a letter, and an ideograph fills its square.
TextMeasure::TextMeasure() : m_hFont(nullptr) {}
TextMeasure::~TextMeasure() = default;
int TextMeasure::Width(const JW_String& text) const {
  int width = 0;
  for (int i = 0; i < text.GetLength(); ++i) width += text.GetString()[i] >= 0x2E80 ? 12 : 6;
  return width;
}

bool HasStandardOutput() {
  return fcntl(STDOUT_FILENO, F_GETFD) != -1;
}

}  // namespace platform
