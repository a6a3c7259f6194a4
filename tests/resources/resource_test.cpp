// The strings of the default resource module, as a client finds them.
#include <gtest/gtest.h>
#include <windows.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct StringId {
  UINT id;
  const char* name;
  std::string_view placeholders;
};
constexpr StringId kStrings[] = {
#include "resources/ids.inc"
};

struct Text {
  UINT id;
  const char* utf8;
};
constexpr Text kEnglishTexts[] = {
#include "resources/texts.en.inc"
};
constexpr Text kChineseTexts[] = {
#include "resources/texts.zh-Hans.inc"
};

constexpr LANGID kEnglish = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
constexpr LANGID kChinese = MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED);

struct FreeModule {
  void operator()(HMODULE module) const { FreeLibrary(module); }
};
using Module = std::unique_ptr<std::remove_pointer_t<HMODULE>, FreeModule>;

// The test runs in the folder of the module.
Module Load(DWORD flags) {
  return Module(LoadLibraryExW(L"ZQVoteRes.dll", nullptr, flags));
}

std::wstring Wide(const char* utf8) {
  std::wstring text(static_cast<size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8, -1, nullptr, 0)), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8, -1, text.data(), static_cast<int>(text.size()));
  text.pop_back();
  return text;
}

// All strings of one language, read from the blocks of 16 counted strings that string tables are kept in.
std::map<UINT, std::wstring> StringTable(HMODULE module, LANGID language) {
  constexpr UINT kBlockSize = 16;
  std::map<UINT, std::wstring> strings;
  for (UINT block = 1; block <= 0x10000 / kBlockSize; ++block) {
    const HRSRC found = FindResourceExW(module, RT_STRING, MAKEINTRESOURCEW(block), language);
    if (!found) continue;
    const auto* next = static_cast<const wchar_t*>(LockResource(LoadResource(module, found)));
    for (UINT i = 0; i < kBlockSize; ++i) {
      const size_t length = *next++;
      if (length > 0) strings[(block - 1) * kBlockSize + i].assign(next, length);
      next += length;
    }
  }
  return strings;
}

// The conversions of a format, each as "%d" and so on, with blanks between them.
std::string Placeholders(std::wstring_view format) {
  std::string found;
  for (size_t at = format.find(L'%'); at != format.npos && at + 1 < format.size(); at = format.find(L'%', at + 2)) {
    if (format[at + 1] == L'%') continue;
    if (!found.empty()) found += ' ';
    found += {'%', static_cast<char>(format[at + 1])};
  }
  return found;
}

// Makes a language the thread's own for as long as it lives.
class ThreadLanguage {
 public:
  explicit ThreadLanguage(LANGID language) {
    SetThreadLocale(MAKELCID(language, SORT_DEFAULT));
    m_bTaken = SetThreadUILanguage(language) == language;
  }
  ~ThreadLanguage() {
    SetThreadUILanguage(m_nOldLanguage);
    SetThreadLocale(m_nOldLocale);
  }
  ThreadLanguage(const ThreadLanguage&) = delete;
  ThreadLanguage& operator=(const ThreadLanguage&) = delete;
  bool IsTaken() const { return m_bTaken; }

 private:
  const LANGID m_nOldLanguage = GetThreadUILanguage();
  const LCID m_nOldLocale = GetThreadLocale();
  bool m_bTaken = false;  // false where the system lacks the language
};

class Strings : public testing::TestWithParam<LANGID> {
 protected:
  void SetUp() override {
    module = Load(LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_TRUE(module) << GetLastError();
    strings = StringTable(module.get(), GetParam());
  }
  Module module;
  std::map<UINT, std::wstring> strings;
};

TEST_P(Strings, AreAllThereWithTheirPlaceholders) {
  for (const StringId& wanted : kStrings) {
    SCOPED_TRACE(wanted.name);
    ASSERT_TRUE(strings.contains(wanted.id));
    EXPECT_EQ(Placeholders(strings[wanted.id]), wanted.placeholders);
  }
  EXPECT_EQ(strings.size(), std::size(kStrings)) << "the module holds strings that no id names";
}

TEST_P(Strings, ComeThroughTheResourceCompilerUnchanged) {
  for (const Text& text : GetParam() == kChinese ? kChineseTexts : kEnglishTexts) {
    EXPECT_EQ(strings[text.id], Wide(text.utf8)) << std::hex << text.id;
  }
}

// A client loads the module with or without the data file flag; LoadString follows the thread's language.
TEST_P(Strings, AnswerLoadString) {
  const ThreadLanguage language(GetParam());
  for (const DWORD flags : {DWORD{0}, DWORD{LOAD_LIBRARY_AS_DATAFILE}}) {
    const Module loaded = Load(flags);
    ASSERT_TRUE(loaded) << GetLastError();
    for (const StringId& wanted : kStrings) {
      wchar_t buffer[512];
      const int length = LoadStringW(loaded.get(), wanted.id, buffer, static_cast<int>(std::size(buffer)));
      EXPECT_GT(length, 0) << wanted.name;
      if (language.IsTaken()) {
        EXPECT_EQ(buffer, strings[wanted.id]) << wanted.name;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Languages, Strings, testing::Values(kEnglish, kChinese),
                         [](const auto& of) { return of.param == kChinese ? "Chinese" : "English"; });

}  // namespace
