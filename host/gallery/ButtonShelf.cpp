#include "host/gallery/ButtonShelf.h"

#include "resources/ResourceIds.h"
#include "window/VoteResources.h"

namespace {

enum Column { kLive, kHot, kPushed, kDisabled, kCheckedLook, kZone };

constexpr int kFirstButtonId = 0x200;
constexpr DWORD kChild = WS_CHILD | WS_VISIBLE;

// Keeps the look that it was given: the pointer doesn't reach it.
template <class Base>
class HeldButton : public Base {
 public:
  void Hold(Column column) {
    if (column == kHot) this->State |= Base::kUnderPointer & 7;
    if (column == kPushed) this->State |= Base::kPressed & 7;
    if (column == kCheckedLook) this->SetChecked(true);
    if (column == kDisabled) EnableWindow(this->m_hWnd, FALSE);
    if (column == kZone) {
      RECT client;
      GetClientRect(this->m_hWnd, &client);
      SendMessageW(this->m_hWnd, WM_MOUSEMOVE, 0, MAKELPARAM(client.right - 3, client.bottom / 2));
    }
    m_bHeld = true;
    InvalidateRect(this->m_hWnd, nullptr, FALSE);
  }
  bool ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                            DWORD mapId) override {
    const bool isPointer = (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) || message == WM_MOUSELEAVE;
    if (m_bHeld && isPointer) return true;
    return Base::ProcessWindowMessage(window, message, wParam, lParam, result, mapId);
  }

 private:
  bool m_bHeld = false;
};

OwnedImageList LoadImages(UINT bitmapId, SIZE frame) {
  OwnedImageList list(ImageList_Create(frame.cx, frame.cy, ILC_COLOR24, 0, 4));
  const OwnedBitmap bitmap(LoadVoteBitmap(bitmapId));
  if (list && bitmap) ImageList_Add(list.get(), bitmap.get(), nullptr);
  return list;
}

JW_String Text(UINT id) {
  JW_String text;
  text.LoadString(id);
  return text;
}

HFONT CopyOfNormalFont() {
  LOGFONTW font = {};
  const VoteResources* const resources = VoteResources::Instance();
  if (!resources || !GetObjectW(resources->m_hFontNormal, sizeof(font), &font)) return nullptr;
  return CreateFontIndirectW(&font);
}

RECT At(int left, int top, int width, int height) {
  return {left, top, left + width, top + height};
}

}  // namespace

struct ButtonShelf::Look {
  UINT bitmap;
  UINT zoneBitmap;  // 0 for none
  SIZE frame;
  int zoneLeft;
  const wchar_t* caption;
  bool pushedIsSecond;  // the frames are normal, pushed, hot, disabled, and not normal, hot, pushed, disabled
  COLORREF color;
  COLORREF disabledColor;
  RECT margins;
};

template <class Button>
void ButtonShelf::AddButton(HWND parent, std::unique_ptr<Button> button, const Look& look, int column, POINT place) {
  m_Images.push_back(LoadImages(look.bitmap, look.frame));
  button->SetExtendedStyle(BitmapButton::kHover | BitmapButton::kSharedImageList);
  button->SetImageList(m_Images.back().get());
  button->SetImages(0, look.pushedIsSecond ? 1 : 2, look.pushedIsSecond ? 2 : 1, 3);
  button->SetColors(look.color, look.color, look.color, look.disabledColor);
  button->SetTextMargins(look.margins.left, look.margins.top, look.margins.right, look.margins.bottom);
  button->SetFont(CopyOfNormalFont());
  const RECT rect = At(place.x, place.y, look.frame.cx, look.frame.cy);
  const UINT id = kFirstButtonId + static_cast<UINT>(m_Buttons.size());
  button->Create(parent, &rect, look.caption, kChild, 0, id);
  if constexpr (std::is_base_of_v<SplitBitmapButton, Button>) {
    m_Images.push_back(LoadImages(look.zoneBitmap, look.frame));
    button->SetHotZone({look.zoneLeft, 0, look.frame.cx, look.frame.cy}, m_Images.back().get());
  }
  if (column != kLive) button->Hold(static_cast<Column>(column));
  m_Buttons.push_back(std::move(button));
}

void ButtonShelf::CreateBitmapButtons(HWND parent, const GalleryTexts& texts, int left, int top) {
  const JW_String exportText = Text(IDS_BUTTON_EXPORT_VOTE);
  const JW_String startText = Text(IDS_BUTTON_START_VOTE);
  const Look exportLook = {IDB_BUTTON_EXPORT_VOTE, IDB_BUTTON_EXPORT_MENU, {65, 25},       55, exportText, true,
                           RGB(0x36, 0x50, 0x8D),  RGB(0x79, 0x80, 0x90),  {18, 2, -10, 0}};
  const Look startLook = {IDB_TOOL_START_VOTE,   0,           {68, 22}, 0, startText, false, RGB(0xFF, 0xFB, 0xF0),
                          RGB(0xFF, 0xFB, 0xF0), {0, 0, 0, 0}};
  const Look upLook = {IDB_ITEM_UP, 0, {27, 27}, 0, L"", false, 0, 0, {}};
  for (int column = 0; column < kShelfColumns; ++column) {
    const int x = left + column * kShelfPitch;
    AddButton(parent, std::make_unique<HeldButton<SplitBitmapButton>>(), exportLook, column, {x + 4, top + 4});
    if (column == kZone) continue;
    AddButton(parent, std::make_unique<HeldButton<BitmapButton>>(), startLook, column, {x + 3, top + 41});
    AddButton(parent, std::make_unique<HeldButton<BitmapButton>>(), upLook, column, {x + 23, top + 71});
  }
  m_Buttons[0]->SetToolTipText(Text(IDS_TIP_EXPORT_VOTE));
  m_Buttons[1]->SetExtendedStyle(m_Buttons[1]->GetExtendedStyle() | BitmapButton::kAutoRepeat);

  Look notifyLook = startLook;
  notifyLook.bitmap = IDB_TOOL_CHOOSE_VOTERS;
  notifyLook.frame = {94, 22};
  notifyLook.caption = texts.notifier;
  AddButton(parent, std::make_unique<HeldButton<BitmapButton>>(), notifyLook, kLive, {left, top});
  SetWindowLongPtrW(m_Buttons.back()->m_hWnd, GWLP_ID, kNotifyId);
}

void ButtonShelf::CreateFlatButtons(HWND parent, const GalleryTexts& texts, int left, int top) {
  const VoteResources* const resources = VoteResources::Instance();
  const HFONT font = resources ? resources->m_hFontNormal : nullptr;
  m_Strip.reset(LoadVoteBitmap(IDB_INFO_SHOW_DETAILS));
  constexpr DWORD kStyle = kChild | BS_OWNERDRAW;
  int x = left + 8;
  const auto place = [&](FlatButton& button, const wchar_t* text, COLORREF color) {
    const RECT rect = At(x, top + 7, 81, 22);
    button.Create(parent, &rect, nullptr, kStyle, 0, kFirstButtonId + 0x80 + static_cast<UINT>(x));
    button.SetText(text);
    button.SetFont(font);
    button.SetColors(RGB(0xC6, 0xD2, 0xF0), color, RGB(0x79, 0x80, 0x90));
    x += 87;
  };
  const JW_String details = Text(IDS_BUTTON_SHOW_DETAILS);
  for (FlatButton* const button : {&m_Skinned, &m_SkinnedDisabled}) {
    button->SetBitmap(m_Strip.get(), true);
    place(*button, details, RGB(0xEB, 0xEF, 0xFB));
  }
  m_SkinnedDisabled.SetDisabled(true);
  place(m_Plain, texts.flat, RGB(0x23, 0x3D, 0x7A));
  m_Plain.SetToolTipText(texts.flatTip);

  m_rcNumber = At(x, top + 7, 26, 22);
  const RECT rect = At(x + 28, top + 7, 44, 22);
  m_UpDown.SetRange(0, 10);
  m_UpDown.SetPos(3);
  m_UpDown.Create(parent, &rect, nullptr, kChild, 0, kUpDownId);
  m_UpDown.SetBackColor(RGB(0xD4, 0xDD, 0xF4));
  for (FlatButton* const button : {&m_UpDown.DownButton(), &m_UpDown.UpButton()}) {
    button->SetText(button == &m_UpDown.UpButton() ? L"+" : L"\u2212");
    button->SetFont(font);
    button->SetColors(RGB(0xC6, 0xD2, 0xF0), RGB(0x23, 0x3D, 0x7A), RGB(0x79, 0x80, 0x90));
  }
  SetWindowPos(m_Buttons.back()->m_hWnd, nullptr, x + 84, top + 7, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}
