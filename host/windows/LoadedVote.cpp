#include "host/windows/LoadedVote.h"

#include <cstring>

namespace conference {
namespace {

enum Ordinal { kCreateInstance = 1, kDestroyInstance, kGetInterfaceName, kInitialize, kUninitialize };

// An export by its name; null if its ordinal leads elsewhere.
template <class Function>
Function Export(HMODULE module, const char* name, Ordinal ordinal) {
  const FARPROC byName = GetProcAddress(module, name);
  const FARPROC byOrdinal = GetProcAddress(module, MAKEINTRESOURCEA(ordinal));
  return byName == byOrdinal ? reinterpret_cast<Function>(byName) : nullptr;
}

std::filesystem::path FreshCopyPath() {
  static unsigned number = 0;
  wchar_t folder[MAX_PATH + 1] = {};
  GetTempPathW(MAX_PATH, folder);
  return std::filesystem::path(folder) /
         (L"ZQVote-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++number) + L".dll");
}

}  // namespace

std::unique_ptr<LoadedVote> LoadedVote::Load(const std::filesystem::path& module, std::string& error) {
  std::unique_ptr<LoadedVote> loaded(new LoadedVote);
  return loaded->Open(module, error) && loaded->Bind(error) ? std::move(loaded) : nullptr;
}

bool LoadedVote::Open(const std::filesystem::path& module, std::string& error) {
  const std::filesystem::path copy = FreshCopyPath();
  if (!CopyFileW(module.c_str(), copy.c_str(), FALSE)) {
    error = "ZQVote.dll can't be copied to the folder for temporary files";
    return false;
  }
  m_Copy.path = copy;
  m_Library = std::make_unique<Library>(copy);
  if (!m_Library->Handle()) error = "ZQVote.dll can't be loaded";
  return m_Library->Handle() != nullptr;
}

bool LoadedVote::Bind(std::string& error) {
  const HMODULE module = m_Library->Handle();
  const auto create = Export<zqCreateInstance_t>(module, "zqCreateInstance", kCreateInstance);
  const auto name = Export<zqGetInterfaceName_t>(module, "zqGetInterfaceName", kGetInterfaceName);
  const auto initialize = Export<zqInitialize_t>(module, "zqInitialize", kInitialize);
  m_pDestroyInstance = Export<zqDestroyInstance_t>(module, "zqDestroyInstance", kDestroyInstance);
  m_pUninitialize = Export<zqUninitialize_t>(module, "zqUninitialize", kUninitialize);
  if (!create || !name || !initialize || !m_pDestroyInstance || !m_pUninitialize) {
    error = "ZQVote.dll lacks an export";
    return false;
  }
  char interfaceName[8] = {};
  if (!initialize() || !name(0, interfaceName) || strcmp(interfaceName, "IZQVote") != 0) {
    error = "ZQVote.dll doesn't offer the interface IZQVote";
    return false;
  }
  m_pVote = static_cast<IZQVote*>(create(interfaceName));
  if (!m_pVote) error = "ZQVote.dll gives no instance";
  return m_pVote != nullptr;
}

LoadedVote::~LoadedVote() {
  if (!m_pVote) return;
  m_pVote->DestroyVoteWindow();
  m_pDestroyInstance(m_pVote);
  m_pUninitialize();
}

}  // namespace conference
