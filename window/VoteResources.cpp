#include "window/VoteResources.h"

#include <algorithm>
#include <iterator>
#include <new>

#include "JW_Base/Include/JW_String.h"
#include "files/VotePalette.h"
#include "platform/Resources.h"
#include "resources/ResourceIds.h"

namespace {

VoteResources* g_pResources = nullptr;

struct ImageListSource {
  HIMAGELIST VoteResources::*List;
  UINT Bitmap;
  int Width;
  int Height;
};

constexpr ImageListSource kImageLists[] = {
    {&VoteResources::m_hSignNames, IDB_SIGN_NAMES, 81, 22},
    {&VoteResources::m_hSubmit, IDB_SUBMIT, 81, 22},
    {&VoteResources::m_hItemButton, IDB_ITEM_BUTTON, 50, 27},
    {&VoteResources::m_hMarkMultiple, IDB_MARK_MULTIPLE, 15, 15},
    {&VoteResources::m_hMarkSingle, IDB_MARK_SINGLE, 15, 15},
    {&VoteResources::m_hItemDown, IDB_ITEM_DOWN, 27, 27},
    {&VoteResources::m_hItemUp, IDB_ITEM_UP, 27, 27},
    {&VoteResources::m_hStartVote, IDB_TOOL_START_VOTE, 68, 22},
    {&VoteResources::m_hAddItem, IDB_TOOL_ADD_ITEM, 79, 22},
    {&VoteResources::m_hFetchResult, IDB_TOOL_FETCH_RESULT, 68, 22},
    {&VoteResources::m_hPublishResult, IDB_TOOL_PUBLISH_RESULT, 68, 22},
    {&VoteResources::m_hResetVote, IDB_TOOL_RESET_VOTE, 79, 22},
    {&VoteResources::m_hChooseVoters, IDB_TOOL_CHOOSE_VOTERS, 94, 22},
    {&VoteResources::m_hChooseViewers, IDB_TOOL_CHOOSE_VIEWERS, 113, 22},
};

constexpr int kImageListGrowth = 4;

void SetFace(LOGFONTW& font, const wchar_t* face) {
  lstrcpynW(font.lfFaceName, face, LF_FACESIZE);
}

HFONT CreateSizedFont(LOGFONTW& font, LONG height, LONG weight) {
  font.lfHeight = height;
  font.lfWeight = weight;
  return CreateFontIndirectW(&font);
}

}  // namespace

VoteResources* VoteResources::Instance() {
  if (!g_pResources) g_pResources = new (std::nothrow) VoteResources;
  return g_pResources;
}

void VoteResources::Destroy() {
  delete g_pResources;
  g_pResources = nullptr;
}

VoteResources::VoteResources() {
  CreateFonts();
  CreateImageLists();
  std::copy(std::begin(kVotePalette), std::end(kVotePalette), m_Palette);
  CreateTahomaFonts();
}

VoteResources::~VoteResources() {
  DeleteGdiObject(m_hFontNormal);
  DeleteGdiObject(m_hFontBold);
  DeleteGdiObject(m_hFontTitle);
  for (const ImageListSource& source : kImageLists) {
    if (this->*source.List) ImageList_Destroy(this->*source.List);
  }
  DeleteGdiObject(m_hFontTahoma);
  DeleteGdiObject(m_hFontTahomaBold);
}

void VoteResources::CreateFonts() {
  JW_String face;
  face.LoadString(IDS_FONT_FACE);
  LOGFONTW font = {};
  SetFace(font, face);
  m_hFontNormal = CreateSizedFont(font, -12, 400);
  m_hFontBold = CreateSizedFont(font, -12, 800);
  m_hFontTitle = CreateSizedFont(font, -13, 700);
}

void VoteResources::CreateImageLists() {
  for (const ImageListSource& source : kImageLists) {
    const HIMAGELIST list = ImageList_Create(source.Width, source.Height, ILC_COLOR24, 0, kImageListGrowth);
    this->*source.List = list;
    HBITMAP bitmap = LoadVoteBitmap(source.Bitmap);
    if (list && bitmap) ImageList_Add(list, bitmap, nullptr);
    DeleteGdiObject(bitmap);
  }
}

void VoteResources::CreateTahomaFonts() {
  LOGFONTW font = {};
  GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof(font), &font);
  SetFace(font, L"Tahoma");
  m_hFontTahoma = CreateSizedFont(font, -12, font.lfWeight);
  m_hFontTahomaBold = CreateSizedFont(font, -12, 800);
}

HBITMAP LoadVoteBitmap(UINT id) {
  const HMODULE module = platform::ResourceModule();
  return module ? LoadBitmapW(module, MAKEINTRESOURCEW(id)) : nullptr;
}

int LoadVoteString(UINT id, wchar_t* buffer, int size) {
  return platform::LoadResourceText(id, buffer, size);
}
