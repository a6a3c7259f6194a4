// The demonstration: a conference with an operator and 25 voters, each with a vote module of their own, plays a vote
// from its file to its report.
//
//   ZQVoteDemo [--verbose] [--color] [--out FOLDER] FILE.vot ...
//
// ZQVote.dll and ZQVoteRes.dll are looked for beside the program. Ends with 0 if every count was right, with 1 if one
// wasn't or a result could not be written, and with 2 if there is nothing to play.
#include "platform/windows/Windows.h"

#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "host/Play.h"
#include "host/Text.h"
#include "host/windows/LoadedVote.h"
#include "platform/Resources.h"

namespace {

using conference::LoadedVote;

enum ExitCode { kGood = 0, kFault = 1, kNothingToPlay = 2 };

struct Arguments {
  conference::Narrator::Style style;
  std::filesystem::path folder = L".";
  std::vector<std::filesystem::path> files;
  bool good = true;
};

Arguments ReadArguments() {
  Arguments result;
  int count = 0;
  LPWSTR* const words = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; words && i < count; ++i) {
    const std::wstring word = words[i];
    if (word == L"--verbose") {
      result.style.verbose = true;
    } else if (word == L"--color") {
      result.style.color = true;
    } else if (word == L"--out" && i + 1 < count) {
      result.folder = words[++i];
    } else if (word.starts_with(L"--")) {
      result.good = false;
    } else {
      result.files.push_back(word);
    }
  }
  LocalFree(words);
  result.good = result.good && !result.files.empty();
  return result;
}

std::filesystem::path ProgramFolder() {
  wchar_t path[MAX_PATH + 1] = {};
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  return std::filesystem::path(path).parent_path();
}

std::string Name(const std::filesystem::path& path) {
  return conference::Printable(JW_String(path.filename().c_str()));
}

int Fail(const std::string& sentence) {
  fflush(stdout);
  fprintf(stderr, "ZQVoteDemo: %s\n", sentence.c_str());
  return kNothingToPlay;
}

// Plays one file with a conference of its own.
int PlayFile(const std::filesystem::path& file, const Arguments& arguments, HMODULE resources) {
  conference::VoteDraft draft;
  const std::string problem = conference::LoadDraft(file, draft);
  if (!problem.empty()) return Fail(Name(file) + ": " + problem);

  conference::Narrator narrator(stdout, arguments.style);
  const std::filesystem::path module = ProgramFolder() / L"ZQVote.dll";
  const auto makeInstance = [&module](bool linked) -> std::unique_ptr<conference::VoteInstance> {
    if (linked) return std::make_unique<conference::LinkedVote>();
    std::string error;
    std::unique_ptr<LoadedVote> loaded = LoadedVote::Load(module, error);
    if (!loaded) throw std::runtime_error(error + ".");
    return loaded;
  };
  try {
    constexpr u32 kSeed = 20;
    conference::Stage stage(makeInstance, resources, narrator);
    conference::Play play(stage, narrator, draft, kSeed);
    const std::filesystem::path base = arguments.folder / file.stem();
    const bool good = play.Run({std::filesystem::path(base) += L"-saved.vot", std::filesystem::path(base) += L".html"});
    narrator.Say(std::to_string(stage.Room().BytesCarried() / 1024) +
                 " KB crossed the connections in this conference.");
    return good ? kGood : kFault;
  } catch (const std::runtime_error& error) {
    return Fail(error.what());
  }
}

}  // namespace

int main() {
  SetConsoleOutputCP(CP_UTF8);
  const Arguments arguments = ReadArguments();
  if (!arguments.good) return Fail("usage: ZQVoteDemo [--verbose] [--color] [--out FOLDER] FILE.vot ...");
  const conference::Library resources(ProgramFolder() / L"ZQVoteRes.dll");
  if (!resources.Handle()) return Fail("ZQVoteRes.dll can't be loaded.");
  platform::SetResourceModule(resources.Handle());
  int worst = kGood;
  for (const std::filesystem::path& file : arguments.files) {
    worst = std::max(worst, PlayFile(file, arguments, resources.Handle()));
  }
  return worst;
}
