// The gallery's window: captions and grounds, and the controls and views upon them.
#pragma once

#include <string>

#include "dialogs/VoteAnswerView.h"
#include "host/gallery/ButtonShelf.h"
#include "host/gallery/GalleryVote.h"
#include "host/gallery/TableShelf.h"

class GalleryWindow final : public RegisteredWindow<GalleryWindow> {
 public:
  // With a path the window writes its picture there as soon as it stands, and closes.
  GalleryWindow(const GalleryTexts& texts, std::wstring picture);
  ~GalleryWindow() override;

  static WindowClassInfo& WindowClass();

  // Shows everything. False if that fails.
  bool Open();
  // Whether the picture, if one was asked for, was written.
  bool PictureDone() const { return m_bPictureDone; }

  bool ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                            DWORD mapId) override;

 private:
  LRESULT OnCreate(MessageArgs& args);
  LRESULT OnSize(MessageArgs& args);
  LRESULT OnPaint(MessageArgs& args);
  LRESULT OnTimer(MessageArgs& args);
  LRESULT OnMouseWheel(MessageArgs& args);
  LRESULT OnUiCommand(MessageArgs& args);
  LRESULT OnNotifyClicked(MessageArgs& args);
  LRESULT OnButtonClicked(MessageArgs& args);
  LRESULT OnZoneClicked(MessageArgs& args);
  LRESULT OnStepped(MessageArgs& args);
  LRESULT OnColumnClicked(MessageArgs& args);
  LRESULT OnNotifierClicked(MessageArgs& args);
  LRESULT OnDestroy(MessageArgs& args);

  void PaintCaptions(HDC dc) const;
  void PaintGrounds(HDC dc) const;
  void Tell(const std::wstring& text);
  void Tell(const wchar_t* format, int value);

  const GalleryTexts& m_Texts;
  std::wstring m_Picture;
  bool m_bPictureDone = false;
  std::wstring m_Status;
  ButtonShelf m_Buttons;
  TableShelf m_Tables;
  // Ended before the votes that they show.
  std::unique_ptr<GalleryVote> m_pVote;
  std::unique_ptr<VoteAnswerView> m_pVoterView;
  std::unique_ptr<VoteAnswerView> m_pManagerView;
};
