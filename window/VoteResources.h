// What all windows of the module share: fonts, image lists of button bitmaps, the colours of the options, and the
// handle of the one information panel. Handles stay this object's.
#pragma once

#include "platform/windows/Windows.h"

class VoteResources {
 public:
  // Made at the first call; null only if memory runs out.
  static VoteResources* Instance();
  static void Destroy();

  COLORREF ColorOf(int index) const { return m_Palette[static_cast<unsigned>(index) % 16]; }

  virtual ~VoteResources() = default;

  HWND m_hInfoPanel = nullptr;
  COLORREF m_Palette[16];

 private:
  VoteResources();
};

// From the resource module. The caller owns the bitmap; both are null or 0 where there is no such resource.
HBITMAP LoadVoteBitmap(UINT id);
int LoadVoteString(UINT id, wchar_t* buffer, int size);
