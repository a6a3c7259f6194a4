// The library in a process that loads and unloads it, and what its windows share.
#include <gtest/gtest.h>

#include "module/IZQVote.h"
#include "platform/Resources.h"
#include "resources/ResourceIds.h"
#include "tests/toolkit/HandleLevel.h"
#include "tests/toolkit/ToolkitEnvironment.h"
#include "window/VoteResources.h"

namespace {

void UseLibraryOnce(HMODULE resources, HWND host) {
  const HMODULE library = LoadLibraryW(ZQVOTE_LIBRARY);
  ASSERT_NE(nullptr, library);
  const auto create = reinterpret_cast<void* (*)(const char*)>(GetProcAddress(library, "zqCreateInstance"));
  const auto destroy = reinterpret_cast<void (*)(void*)>(GetProcAddress(library, "zqDestroyInstance"));
  auto* const vote = static_cast<IZQVote*>(create("IZQVote"));
  ASSERT_NE(nullptr, vote);
  vote->SetResourceModule(resources);
  vote->CreateVoteWindow(host);
  vote->DestroyVoteWindow();
  destroy(vote);
  ASSERT_TRUE(FreeLibrary(library));
  ASSERT_EQ(nullptr, GetModuleHandleW(L"ZQVote.dll"));
}

TEST(Library, IsLoadedUsedAndUnloadedAHundredTimes) {
  const HMODULE resources = LoadLibraryW(ZQVOTE_RESOURCES);
  ASSERT_NE(nullptr, resources);
  const HWND host = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 900, 600, nullptr, nullptr, nullptr, nullptr);
  UseLibraryOnce(resources, host);
  const HandleLevel before = HandleLevel::Now();
  for (int i = 0; i < 100 && !HasFatalFailure(); ++i) UseLibraryOnce(resources, host);
  EXPECT_EQ(before, HandleLevel::Now());
  DestroyWindow(host);
  FreeLibrary(resources);
}

TEST(VoteResources, HoldsFontsAndFramesOfTheResourceModule) {
  const HMODULE resources = LoadLibraryW(ZQVOTE_RESOURCES);
  ASSERT_NE(nullptr, resources);
  platform::SetResourceModule(resources);
  const VoteResources& shared = *VoteResources::Instance();

  const auto font = [](HFONT handle) {
    LOGFONTW description = {};
    GetObjectW(handle, sizeof(description), &description);
    return description;
  };
  wchar_t face[64];
  LoadVoteString(IDS_FONT_FACE, face, 64);
  const struct {
    HFONT Font;
    LONG Height, Weight;
    const wchar_t* Face;
  } fonts[] = {
      {shared.m_hFontNormal, -12, 400, face},
      {shared.m_hFontBold, -12, 800, face},
      {shared.m_hFontTitle, -13, 700, face},
      {shared.m_hFontTahoma, -12, font(static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT))).lfWeight, L"Tahoma"},
      {shared.m_hFontTahomaBold, -12, 800, L"Tahoma"}};
  for (const auto& expected : fonts) {
    const LOGFONTW found = font(expected.Font);
    EXPECT_EQ(expected.Height, found.lfHeight);
    EXPECT_EQ(expected.Weight, found.lfWeight);
    EXPECT_STREQ(expected.Face, found.lfFaceName);
  }

  const struct {
    HIMAGELIST List;
    int Width, Height;
  } lists[] = {{shared.m_hSignNames, 81, 22},    {shared.m_hSubmit, 81, 22},        {shared.m_hItemButton, 50, 27},
               {shared.m_hMarkMultiple, 15, 15}, {shared.m_hMarkSingle, 15, 15},    {shared.m_hItemDown, 27, 27},
               {shared.m_hItemUp, 27, 27},       {shared.m_hStartVote, 68, 22},     {shared.m_hAddItem, 79, 22},
               {shared.m_hFetchResult, 68, 22},  {shared.m_hPublishResult, 68, 22}, {shared.m_hResetVote, 79, 22},
               {shared.m_hChooseVoters, 94, 22}, {shared.m_hChooseViewers, 113, 22}};
  for (const auto& expected : lists) {
    int width = 0, height = 0;
    ImageList_GetIconSize(expected.List, &width, &height);
    EXPECT_EQ(expected.Width, width);
    EXPECT_EQ(expected.Height, height);
    EXPECT_GE(ImageList_GetImageCount(expected.List), 2);
  }
  EXPECT_EQ(shared.ColorOf(0), shared.ColorOf(16));
  EXPECT_EQ(COLORREF{0x0000FF}, shared.ColorOf(31));
  VoteResources::Destroy();
  FreeLibrary(resources);
}

// Image lists keep shared objects of their own from the first of them on, hence the round before the count.
TEST(VoteResources, DoesWithoutAResourceModuleAndLeavesNothing) {
  platform::SetResourceModule(nullptr);
  const auto round = [] {
    EXPECT_EQ(0, ImageList_GetImageCount(VoteResources::Instance()->m_hSubmit));
    VoteResources::Destroy();
    VoteResources::Destroy();
  };
  round();
  const HandleLevel before = HandleLevel::Now();
  for (int i = 0; i < 1000; ++i) round();
  EXPECT_EQ(before, HandleLevel::Now());
}

}  // namespace
