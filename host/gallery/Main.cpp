// The gallery: every control of the module and the pages of questions in their states, in one window.
//
//   ZQVoteGallery [--language en|zh] [--picture FILE.bmp]
//
// ZQVoteRes.dll is looked for beside the program. With --picture it writes a picture of its window and ends. Ends with
// 0, with 1 if the picture can't be written, and with 2 if nothing can be shown.
#include "platform/windows/Windows.h"

#include <shellapi.h>

#include <filesystem>

#include "host/gallery/GalleryWindow.h"
#include "platform/Resources.h"
#include "toolkit/Toolkit.h"
#include "window/VoteResources.h"

namespace {

enum ExitCode { kGood = 0, kNoPicture = 1, kNothingToShow = 2 };

struct Arguments {
  bool isChinese = false;
  std::wstring picture;
  bool good = true;
};

Arguments ReadArguments() {
  Arguments result;
  int count = 0;
  LPWSTR* const words = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; words && i < count; i += 2) {
    const std::wstring word = words[i];
    const std::wstring value = i + 1 < count ? words[i + 1] : L"";
    if (word == L"--language" && (value == L"en" || value == L"zh")) {
      result.isChinese = value == L"zh";
    } else if (word == L"--picture" && !value.empty()) {
      result.picture = value;
    } else {
      result.good = false;
    }
  }
  LocalFree(words);
  return result;
}

// The language in which the system looks for texts and dialogs.
void UseLanguage(bool chinese) {
  const LANGID language =
      chinese ? MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED) : MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
  SetThreadUILanguage(language);
  SetThreadLocale(MAKELCID(language, SORT_DEFAULT));
}

HMODULE LoadResources() {
  wchar_t path[MAX_PATH + 1] = {};
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  const std::filesystem::path file = std::filesystem::path(path).parent_path() / L"ZQVoteRes.dll";
  return LoadLibraryExW(file.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
}

int Run(const Arguments& arguments) {
  GalleryWindow window(arguments.isChinese ? ChineseTexts() : EnglishTexts(), arguments.picture);
  if (!window.Open()) return kNothingToShow;
  for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return arguments.picture.empty() || window.PictureDone() ? kGood : kNoPicture;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, LPWSTR /*commandLine*/, int /*show*/) {
  const Arguments arguments = ReadArguments();
  if (!arguments.good) return kNothingToShow;
  UseLanguage(arguments.isChinese);
  const HMODULE resources = LoadResources();
  if (!resources) return kNothingToShow;
  InitCommonControls();
  InitToolkit(instance);
  platform::SetResourceModule(resources);
  const int result = Run(arguments);
  VoteResources::Destroy();
  TermToolkit();
  FreeLibrary(resources);
  return result;
}
