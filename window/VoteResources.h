// What all windows of the module share: fonts, image lists of button bitmaps, the colours of the options, and the
// handle of the one information panel. The handles stay this object's. It belongs to the user-interface thread.
//
// Everything comes from the resource module as it is at the first call of Instance(). A bitmap that is missing there
// leaves its image list empty, and a missing face name leaves the choice of a face to the system.
#pragma once

#include "platform/windows/Windows.h"

// commctrl.h needs windows.h before it.
#include <commctrl.h>

class VoteResources {
 public:
  // Made at the first call; null only if memory runs out.
  static VoteResources* Instance();
  // Ends the object, if there is one. A later Instance() makes a new one.
  static void Destroy();

  COLORREF ColorOf(int index) const { return m_Palette[static_cast<unsigned>(index) % 16]; }

  virtual ~VoteResources();
  VoteResources(const VoteResources&) = delete;
  VoteResources& operator=(const VoteResources&) = delete;

  HWND m_hInfoPanel = nullptr;  // written by the main window

  HFONT m_hFontNormal = nullptr;  // 12 high, weight 400
  HFONT m_hFontBold = nullptr;    // 12 high, weight 800
  HFONT m_hFontTitle = nullptr;   // 13 high, weight 700

  // Frames of a page's buttons and marks, then of a vote's toolbar.
  HIMAGELIST m_hSignNames = nullptr;      // 81 x 22
  HIMAGELIST m_hSubmit = nullptr;         // 81 x 22
  HIMAGELIST m_hItemButton = nullptr;     // 50 x 27
  HIMAGELIST m_hMarkMultiple = nullptr;   // 15 x 15
  HIMAGELIST m_hMarkSingle = nullptr;     // 15 x 15
  HIMAGELIST m_hItemDown = nullptr;       // 27 x 27
  HIMAGELIST m_hItemUp = nullptr;         // 27 x 27
  HIMAGELIST m_hStartVote = nullptr;      // 68 x 22
  HIMAGELIST m_hAddItem = nullptr;        // 79 x 22
  HIMAGELIST m_hFetchResult = nullptr;    // 68 x 22
  HIMAGELIST m_hPublishResult = nullptr;  // 68 x 22
  HIMAGELIST m_hResetVote = nullptr;      // 79 x 22
  HIMAGELIST m_hChooseVoters = nullptr;   // 94 x 22
  HIMAGELIST m_hChooseViewers = nullptr;  // 113 x 22

  COLORREF m_Palette[16];

  HFONT m_hFontTahoma = nullptr;      // Tahoma, 12 high, in the weight of the system's interface font
  HFONT m_hFontTahomaBold = nullptr;  // the same, weight 800

 private:
  VoteResources();

  void CreateFonts();
  void CreateImageLists();
  void CreateTahomaFonts();
};

// From the resource module. The caller owns the bitmap; both are null or 0 where there is no such resource. For texts
// of any length there is JW_String::LoadString.
HBITMAP LoadVoteBitmap(UINT id);
int LoadVoteString(UINT id, wchar_t* buffer, int size);

// Deletes a drawing object, if there is one, and clears the handle.
template <class Handle>
void DeleteGdiObject(Handle& handle) {
  if (handle) DeleteObject(handle);
  handle = nullptr;
}
