#include "window/VoteResources.h"

#include <algorithm>
#include <iterator>
#include <new>

#include "files/VotePalette.h"
#include "platform/Resources.h"

namespace {

VoteResources* g_pResources = nullptr;

}  // namespace

VoteResources* VoteResources::Instance() {
  if (!g_pResources) g_pResources = new (std::nothrow) VoteResources;
  return g_pResources;
}

void VoteResources::Destroy() {
  delete g_pResources;
  g_pResources = nullptr;
}

VoteResources::VoteResources() { std::copy(std::begin(kVotePalette), std::end(kVotePalette), m_Palette); }

HBITMAP LoadVoteBitmap(UINT id) {
  const HMODULE module = platform::ResourceModule();
  return module ? LoadBitmapW(module, MAKEINTRESOURCEW(id)) : nullptr;
}

int LoadVoteString(UINT id, wchar_t* buffer, int size) { return platform::LoadResourceText(id, buffer, size); }
