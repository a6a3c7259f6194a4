// The gallery's buttons: bitmap buttons in each of their looks, flat buttons and an up-down control.
#pragma once

#include <memory>
#include <vector>

#include "host/gallery/GalleryTexts.h"
#include "toolkit/BitmapButton.h"
#include "toolkit/FlatButton.h"
#include "toolkit/UpDownCtrl.h"

// The ids of those controls that the gallery answers itself.
constexpr UINT kNotifyId = 0x100;
constexpr UINT kUpDownId = 0x101;

// Places, in client coordinates of the gallery.
constexpr int kShelfColumns = 6;
constexpr int kShelfPitch = 75;

class ButtonShelf {
 public:
  // The buttons stand in rows below `top`: one of 33 pixels on the header's ground, two on the page's.
  void CreateBitmapButtons(HWND parent, const GalleryTexts& texts, int left, int top);
  // On the ground of the information panel.
  void CreateFlatButtons(HWND parent, const GalleryTexts& texts, int left, int top);
  const RECT& NumberRect() const { return m_rcNumber; }
  int Number() const { return m_UpDown.GetPos(); }

 private:
  struct Look;
  template <class Button>
  void AddButton(HWND parent, std::unique_ptr<Button> button, const Look& look, int column, POINT place);

  std::vector<OwnedImageList> m_Images;  // outlive the buttons that show them
  std::vector<std::unique_ptr<BitmapButton>> m_Buttons;
  OwnedBitmap m_Strip;
  FlatButton m_Skinned;
  FlatButton m_SkinnedDisabled;
  FlatButton m_Plain;
  UpDownCtrl m_UpDown;
  RECT m_rcNumber = {};
};
