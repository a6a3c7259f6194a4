#include "host/gallery/GalleryWindow.h"

#include "host/gallery/WindowPicture.h"
#include "notifier/TaskbarNotifier.h"
#include "pages/VoteCommandPost.h"
#include "resources/ResourceIds.h"
#include "window/VoteResources.h"

namespace {

constexpr int kWidth = 996;
constexpr int kHeight = 760;
constexpr int kMargin = 16;
constexpr int kLeftWidth = 452;
constexpr int kRightLeft = 2 * kMargin + kLeftWidth;
constexpr int kTableWidth = 218;
constexpr int kCaptionHeight = 16;

// Upper edges.
constexpr int kButtonsCaption = 12;
constexpr int kStates = 32;
constexpr int kHeader = 50;
constexpr int kFlatCaption = 162;
constexpr int kPanel = 182;
constexpr int kTableCaption = 232;
constexpr int kTables = 252;
constexpr int kTableHeight = 122;
constexpr int kVoterCaption = 388;
constexpr int kVoterView = 408;
constexpr int kManagerView = 32;
constexpr int kBottom = 34;

constexpr COLORREF kPage = RGB(0xF2, 0xFB, 0xFF);
constexpr COLORREF kPanelColor = RGB(0xD4, 0xDD, 0xF4);
constexpr COLORREF kLine = RGB(0xAD, 0xBD, 0xE4);
constexpr COLORREF kQuiet = RGB(0x5C, 0x6C, 0x92);
constexpr COLORREF kStrong = RGB(0x23, 0x3D, 0x7A);

constexpr DWORD kViewStyle = WS_CHILD | WS_VISIBLE | WS_VSCROLL;
constexpr UINT_PTR kPictureTimer = 1;
constexpr UINT kSettleTime = 800;

void Fill(HDC dc, const RECT& rect, COLORREF color) {
  SetBkColor(dc, color);
  ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
}

void DrawWords(HDC dc, const wchar_t* text, RECT rect, UINT format) {
  DrawTextW(dc, text, -1, &rect, format | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

// A line around a child.
void Frame(HDC dc, HWND parent, HWND child) {
  RECT rect;
  if (!child || !GetWindowRect(child, &rect)) return;
  MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
  InflateRect(&rect, 1, 1);
  const OwnedBrush brush(CreateSolidBrush(kLine));
  FrameRect(dc, &rect, brush.get());
}

std::unique_ptr<VoteAnswerView> CreateView(HWND parent, VoteTopicEntry* topic) {
  auto view = std::make_unique<VoteAnswerView>();
  view->m_pTopic = topic;
  const RECT rect = {0, 0, kLeftWidth, kLeftWidth};
  view->Create(parent, &rect, nullptr, kViewStyle);
  return view;
}

}  // namespace

GalleryWindow::GalleryWindow(const GalleryTexts& texts, std::wstring picture)
    : m_Texts(texts), m_Picture(std::move(picture)), m_Status(texts.welcome) {}

GalleryWindow::~GalleryWindow() {
  DestroyWindow();
}

WindowClassInfo& GalleryWindow::WindowClass() {
  static WindowClassInfo info = DescribeWindowClass(nullptr, CS_HREDRAW | CS_VREDRAW, 0);
  return info;
}

bool GalleryWindow::Open() {
  constexpr DWORD kStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
  RECT size = {0, 0, kWidth, kHeight};
  AdjustWindowRect(&size, kStyle, FALSE);
  const int left = (GetSystemMetrics(SM_CXSCREEN) - (size.right - size.left)) / 2;
  const int top = (GetSystemMetrics(SM_CYSCREEN) - (size.bottom - size.top)) / 2;
  OffsetRect(&size, (left > 0 ? left : 0) - size.left, (top > 0 ? top : 0) - size.top);
  if (!Create(nullptr, &size, m_Texts.title, kStyle)) return false;
  ShowWindow(m_hWnd, SW_SHOW);
  // The views follow events only while they can be seen.
  m_pVote->Play();
  m_Status = m_Texts.welcome;
  SetFocus(m_pVoterView->m_hWnd);
  RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
  if (!m_Picture.empty()) SetTimer(m_hWnd, kPictureTimer, kSettleTime, nullptr);
  return true;
}

bool GalleryWindow::ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                                         DWORD /*mapId*/) {
  MessageMap map(this, window, message, wParam, lParam, result);
  return map.On(WM_CREATE, &GalleryWindow::OnCreate) || map.On(WM_SIZE, &GalleryWindow::OnSize) ||
         map.On(WM_PAINT, &GalleryWindow::OnPaint) || map.On(WM_TIMER, &GalleryWindow::OnTimer) ||
         map.On(WM_MOUSEWHEEL, &GalleryWindow::OnMouseWheel) || map.On(kMsgUiCommand, &GalleryWindow::OnUiCommand) ||
         map.OnCommand(kNotifyId, &GalleryWindow::OnNotifyClicked) ||
         map.On(WM_COMMAND, &GalleryWindow::OnButtonClicked) ||
         map.On(kSplitZoneMessage, &GalleryWindow::OnZoneClicked) ||
         map.OnNotify(kUpDownId, UDN_DELTAPOS, &GalleryWindow::OnStepped) ||
         map.OnNotify(kListId, LVN_COLUMNCLICK, &GalleryWindow::OnColumnClicked) ||
         map.On(kMsgNotifierClick, &GalleryWindow::OnNotifierClicked) ||
         map.On(WM_DESTROY, &GalleryWindow::OnDestroy) || map.ReflectToChild();
}

LRESULT GalleryWindow::OnCreate(MessageArgs& /*args*/) {
  m_Buttons.CreateBitmapButtons(m_hWnd, m_Texts, kMargin, kHeader);
  m_Buttons.CreateFlatButtons(m_hWnd, m_Texts, kMargin, kPanel);
  m_Tables.CreateGrid(m_hWnd, m_Texts, {kMargin, kTables, kMargin + kTableWidth, kTables + kTableHeight});
  const int right = kMargin + kLeftWidth - 1;
  m_Tables.CreateList(m_hWnd, m_Texts, {right - kTableWidth, kTables + 1, right, kTables + kTableHeight - 1});
  m_pVote = std::make_unique<GalleryVote>(m_Texts, m_hWnd, [this](const std::wstring& text) { Tell(text); });
  m_pVoterView = CreateView(m_hWnd, m_pVote->VoterTopic());
  m_pManagerView = CreateView(m_hWnd, m_pVote->ManagerTopic());
  return 0;
}

LRESULT GalleryWindow::OnSize(MessageArgs& args) {
  const int width = LOWORD(args.LParam);
  const int height = HIWORD(args.LParam);
  if (!m_pManagerView || width == 0) return 0;
  MoveWindow(m_pVoterView->m_hWnd, kMargin + 1, kVoterView + 1, kLeftWidth - 2, height - kVoterView - kBottom - 2,
             TRUE);
  MoveWindow(m_pManagerView->m_hWnd, kRightLeft + 1, kManagerView + 1, width - kRightLeft - kMargin - 2,
             height - kManagerView - kBottom - 2, TRUE);
  return 0;
}

LRESULT GalleryWindow::OnPaint(MessageArgs& /*args*/) {
  const PaintContext paint(m_hWnd);
  if (!paint.get()) return 0;
  RECT client;
  GetClientRect(m_hWnd, &client);
  Fill(paint.get(), client, kPage);
  PaintGrounds(paint.get());
  PaintCaptions(paint.get());
  return 0;
}

void GalleryWindow::PaintGrounds(HDC dc) const {
  const RECT header = {kMargin, kHeader, kMargin + kLeftWidth, kHeader + 33};
  const OwnedBitmap middle(LoadVoteBitmap(IDB_FRAME_HEADER_MIDDLE));
  DrawBitmapInRect(middle.get(), dc, header, true);
  const RECT panel = {kMargin, kPanel, kMargin + kLeftWidth, kPanel + 36};
  Fill(dc, panel, kLine);
  Fill(dc, {panel.left + 1, panel.top + 1, panel.right - 1, panel.bottom - 1}, kPanelColor);
  Frame(dc, m_hWnd, GetDlgItem(m_hWnd, static_cast<int>(kListId)));
  Frame(dc, m_hWnd, m_pVoterView->m_hWnd);
  Frame(dc, m_hWnd, m_pManagerView->m_hWnd);
}

void GalleryWindow::PaintCaptions(HDC dc) const {
  const VoteResources* const resources = VoteResources::Instance();
  if (!resources) return;
  RECT client;
  GetClientRect(m_hWnd, &client);
  SetBkMode(dc, TRANSPARENT);
  const auto caption = [dc](const wchar_t* text, int left, int top, int right) {
    DrawWords(dc, text, {left, top, right, top + kCaptionHeight}, DT_LEFT);
  };
  {
    const Selection font(dc, resources->m_hFontBold);
    SetTextColor(dc, kStrong);
    const int right = kMargin + kLeftWidth;
    caption(m_Texts.buttons, kMargin, kButtonsCaption, right);
    caption(m_Texts.flatButtons, kMargin, kFlatCaption, right);
    caption(m_Texts.grid, kMargin, kTableCaption, kMargin + kTableWidth);
    caption(m_Texts.list, right - kTableWidth - 1, kTableCaption, right);
    caption(m_Texts.voterView, kMargin, kVoterCaption, right);
    caption(m_Texts.managerView, kRightLeft, kButtonsCaption, client.right - kMargin);
  }
  const Selection font(dc, resources->m_hFontNormal);
  SetTextColor(dc, kQuiet);
  for (int i = 0; i < kShelfColumns; ++i) {
    const int left = kMargin + i * kShelfPitch;
    DrawWords(dc, m_Texts.states[i], {left, kStates, left + kShelfPitch, kStates + kCaptionHeight}, DT_CENTER);
  }
  caption(m_Status.c_str(), kMargin, client.bottom - 25, client.right - kMargin);
  wchar_t number[12];
  wsprintfW(number, L"%d", m_Buttons.Number());
  SetTextColor(dc, kStrong);
  DrawWords(dc, number, m_Buttons.NumberRect(), DT_CENTER);
}

LRESULT GalleryWindow::OnTimer(MessageArgs& args) {
  if (args.WParam != kPictureTimer) return 0;
  KillTimer(m_hWnd, kPictureTimer);
  RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  m_bPictureDone = SaveWindowPicture(m_hWnd, m_Picture.c_str());
  PostMessageW(m_hWnd, WM_CLOSE, 0, 0);
  return 0;
}

// The view under the pointer scrolls, wherever the focus is.
LRESULT GalleryWindow::OnMouseWheel(MessageArgs& args) {
  const HWND target = WindowFromPoint(args.Point());
  for (const VoteAnswerView* const view : {m_pVoterView.get(), m_pManagerView.get()}) {
    if (view->m_hWnd == target) SendMessageW(target, args.Message, args.WParam, args.LParam);
  }
  return 0;
}

LRESULT GalleryWindow::OnUiCommand(MessageArgs& args) {
  const std::unique_ptr<VoteUiCommand> command(reinterpret_cast<VoteUiCommand*>(args.WParam));
  const VoteDataHold data;
  if (data && command) data->OnUiCommand(*command);
  return 0;
}

LRESULT GalleryWindow::OnNotifyClicked(MessageArgs& /*args*/) {
  JW_String path = TaskbarNotifier::GetSkinDirectory();
  path += L"VCMsgNotify.bmp";
  TaskbarNotifier::ShowNotifier(m_hWnd, m_Texts.notifierText, path);
  return 0;
}

LRESULT GalleryWindow::OnButtonClicked(MessageArgs& args) {
  Tell(m_Texts.clicked, static_cast<int>(args.Id()));
  return 0;
}

LRESULT GalleryWindow::OnZoneClicked(MessageArgs& args) {
  Tell(m_Texts.zoneClicked, static_cast<int>(args.WParam));
  return 0;
}

LRESULT GalleryWindow::OnStepped(MessageArgs& args) {
  Tell(m_Texts.stepped, args.Notification<NMUPDOWN>()->iPos);
  InvalidateRect(m_hWnd, &m_Buttons.NumberRect(), FALSE);
  return 0;
}

LRESULT GalleryWindow::OnColumnClicked(MessageArgs& args) {
  m_Tables.SortBy(args.Notification<NMLISTVIEW>()->iSubItem);
  return 0;
}

LRESULT GalleryWindow::OnNotifierClicked(MessageArgs& /*args*/) {
  Tell(m_Texts.notifierClicked);
  return 0;
}

LRESULT GalleryWindow::OnDestroy(MessageArgs& /*args*/) {
  TaskbarNotifier::CloseAll();
  PostQuitMessage(0);
  return 0;
}

void GalleryWindow::Tell(const std::wstring& text) {
  m_Status = text;
  if (!m_hWnd) return;
  RECT rect;
  GetClientRect(m_hWnd, &rect);
  rect.top = rect.bottom - kBottom + 2;
  InvalidateRect(m_hWnd, &rect, FALSE);
}

void GalleryWindow::Tell(const wchar_t* format, int value) {
  JW_String text;
  text.Format(format, value);
  Tell(text.GetString());
}
