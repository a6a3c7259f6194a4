// A vote module that is loaded from its file, as a client does it.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "host/VoteInstance.h"
#include "platform/windows/Windows.h"

namespace conference {

// A library, freed with its owner.
class Library {
 public:
  Library() = default;
  explicit Library(const std::filesystem::path& path) : m_hModule(LoadLibraryW(path.c_str())) {}
  Library(Library&& other) noexcept : m_hModule(other.m_hModule) { other.m_hModule = nullptr; }
  Library& operator=(Library&&) = delete;
  ~Library() {
    if (m_hModule) FreeLibrary(m_hModule);
  }

  HMODULE Handle() const { return m_hModule; }

 private:
  HMODULE m_hModule = nullptr;
};

// The data of a loaded module is one for all its instances. So that each participant of one process has a module of
// their own, each instance loads its own copy of the file.
class LoadedVote final : public VoteInstance {
 public:
  // Null, with the reason in `error`, if the module can't be loaded or isn't what it should be.
  static std::unique_ptr<LoadedVote> Load(const std::filesystem::path& module, std::string& error);
  ~LoadedVote() override;

  IZQVote& Vote() override { return *m_pVote; }

 private:
  LoadedVote() = default;

  bool Open(const std::filesystem::path& module, std::string& error);
  bool Bind(std::string& error);

  // A copy of the module's file, removed with its owner.
  struct Copy {
    ~Copy() {
      std::error_code ignored;
      if (!path.empty()) std::filesystem::remove(path, ignored);
    }
    std::filesystem::path path;
  };

  Copy m_Copy;  // outlives the library
  std::unique_ptr<Library> m_Library;
  zqDestroyInstance_t m_pDestroyInstance = nullptr;
  zqUninitialize_t m_pUninitialize = nullptr;
  IZQVote* m_pVote = nullptr;
};

}  // namespace conference
