#include "dialogs/VoteAnswerView.h"

#include "pages/VoteText.h"
#include "resources/ResourceIds.h"
#include "toolkit/GdiHandles.h"
#include "window/VoteResources.h"

namespace {

constexpr int kScrollPage = 100;
constexpr int kSubmitGap = 40;
constexpr int kSubmitWidth = 81;
constexpr int kSubmitHeight = 22;
constexpr int kSubmitPadding = 24;
constexpr int kContentBelowPages = 112;

}  // namespace

int VoteAnswerView::s_nLastRange = 0;

VoteAnswerView::VoteAnswerView() : VotePageList(kScrollPage, &s_nLastRange), m_Pages(34) {
  JW_String caption;
  caption.LoadString(IDS_BUTTON_SUBMIT);
  m_btnSubmit.SetText(caption);
  m_btnSubmit.SetCommand(kCmdSubmit);
  m_btnSubmit.SetWidth(MeasureTextWidth(caption, PageFont()) + kSubmitPadding);
  if (const VoteResources* const resources = VoteResources::Instance()) {
    m_btnSubmit.SetImageList(&resources->m_hSubmit);
  }
  if (VoteData* const data = VoteData::Get()) data->AddListener(this);
}

VoteAnswerView::~VoteAnswerView() {
  if (VoteData* const data = VoteData::Get()) data->RemoveListener(this);
  DestroyWindow();
  for (auto& page : m_Pages) delete page.value;
}

bool VoteAnswerView::ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                                          DWORD mapId) {
  MessageMap map(this, window, message, wParam, lParam, result);
  return map.On(WM_CREATE, &VoteAnswerView::OnCreate) || map.On(WM_LBUTTONDOWN, &VoteAnswerView::OnButtonDown) ||
         map.On(WM_LBUTTONDBLCLK, &VoteAnswerView::OnButtonDown) || map.On(WM_LBUTTONUP, &VoteAnswerView::OnButtonUp) ||
         map.On(WM_MOUSEMOVE, &VoteAnswerView::OnMouseMove) || map.On(WM_MOUSELEAVE, &VoteAnswerView::OnMouseLeave) ||
         map.On(kMsgViewRight, &VoteAnswerView::OnAskViewRight) ||
         map.On(kMsgVoteRight, &VoteAnswerView::OnAskVoteRight) ||
         map.On(kMsgElementDestroyed, &VoteAnswerView::OnElementDestroyed) ||
         VotePageList::ProcessWindowMessage(window, message, wParam, lParam, result, mapId);
}

LRESULT VoteAnswerView::OnCreate(MessageArgs& /*args*/) {
  m_btnSubmit.SetOwner(m_hWnd);
  // Questions that arrived before this window.
  for (auto& page : m_Pages) page.value->SetOwner(m_hWnd);
  if (m_pTopic) {
    for (auto& item : m_pTopic->m_Items) AddPage(item.value);
  }
  UpdateRights();
  // The right to vote decides on the submit button, so it comes first.
  UpdateRoles();
  UpdateSubmit();
  return 0;
}

LRESULT VoteAnswerView::OnAskViewRight(MessageArgs& /*args*/) {
  return m_nViewRight;
}

LRESULT VoteAnswerView::OnAskVoteRight(MessageArgs& /*args*/) {
  return m_nVoteRight;
}

LRESULT VoteAnswerView::OnElementDestroyed(MessageArgs& args) {
  if (reinterpret_cast<WPARAM>(m_pHot) == args.WParam) m_pHot = nullptr;
  return 0;
}

bool VoteAnswerView::IsManager() const {
  const VoteData* const data = VoteData::Get();
  return data && m_pTopic && m_pTopic->IsManager(data->GetLocalUser());
}

VoteResultPage* VoteAnswerView::FindPage(u32 itemId) const {
  VoteResultPage* const* const page = m_Pages.Lookup(itemId);
  return page ? *page : nullptr;
}

template <class Visit>
void VoteAnswerView::ForEachInOrder(Visit visit) const {
  const VoteIdArray& order = m_pTopic->m_ItemOrder;
  for (int i = 0; i < order.GetSize(); ++i) {
    if (VoteResultPage* const page = FindPage(order[i])) visit(i, page);
  }
}

void VoteAnswerView::UpdateRoles() {
  const VoteData* const data = VoteData::Get();
  if (!data || !m_pTopic) return;
  m_nViewRight = m_pTopic->ViewerRight(data->GetLocalUser());
  m_nVoteRight = m_pTopic->VoterRight(data->GetLocalUser());
}

void VoteAnswerView::UpdateRights() {
  const bool manager = IsManager();
  for (auto& page : m_Pages) {
    if (page.value->AreButtonsVisible() != manager) m_bLayout = true;
    page.value->SetButtonsVisible(manager);
    if (manager) page.value->RefreshButtons();
  }
  InvalidateIfVisible();
}

void VoteAnswerView::UpdateSubmit() {
  const bool submit = m_pTopic && m_pTopic->IsStarted && m_nVoteRight == VoteTopicRecord::kMayVote;
  m_btnSubmit.SetState(submit ? kButtonNormal : kButtonDisabled);
  InvalidateIfVisible();
}

void VoteAnswerView::ShowResults(bool show) {
  for (auto& page : m_Pages) {
    const VoteItemEntry* const item = m_pTopic->FindItem(page.key);
    const bool closed = m_pTopic->IsStarted && item && !item->IsOpen;
    page.value->SetChartVisible(show && !closed);
  }
  Redraw();
}

void VoteAnswerView::ShowItemResult(u32 itemId, bool show) {
  if (VoteResultPage* const page = FindPage(itemId)) {
    const VoteItemEntry* const item = m_pTopic->FindItem(itemId);
    const bool open = item && item->IsOpen;
    page->SetChartVisible(show && (!m_pTopic->IsStarted || open));
  }
  Redraw();
}

void VoteAnswerView::RenumberPages() {
  const int count = m_pTopic->m_ItemOrder.GetSize();
  ForEachInOrder([count](int i, VoteResultPage* page) {
    page->SetNumber(i + 1);
    page->SetFirst(i == 0);
    page->SetLast(i == count - 1);
  });
}

int VoteAnswerView::LayOut(int width) {
  int y = kTopMargin;
  ForEachInOrder([&y, width](int, VoteResultPage* page) {
    page->SetTop(y);
    page->SetWidth(width);
    page->Recalc();
    y += page->GetHeight();
  });
  m_btnSubmit.SetBounds(y + kSubmitGap, width / 2 - kSubmitWidth / 2, kSubmitWidth, kSubmitHeight);
  return y + kContentBelowPages;
}

bool VoteAnswerView::HasContent() const {
  return m_pTopic && !m_pTopic->m_Items.IsEmpty();
}

void VoteAnswerView::PaintContent(HDC dc, const RECT& clip) {
  RenumberPages();
  ForEachInOrder([&](int, VoteResultPage* page) { page->Paint(dc, clip, m_nScroll); });
  if (!m_Pages.IsEmpty()) m_btnSubmit.Paint(dc, clip, m_nScroll);
}

void VoteAnswerView::OnContentMoved() {
  POINT point;
  if (!GetCursorPos(&point)) return;
  const bool isHere = WindowFromPoint(point) == m_hWnd;
  ScreenToClient(m_hWnd, &point);
  if (isHere) {
    UpdateHot(point.x, point.y);
  } else {
    SetHot(nullptr, point.x, point.y + m_nScroll);
  }
}

void VoteAnswerView::UpdateHot(int x, int y) {
  SetHot(ElementAt(x, y + m_nScroll), x, y + m_nScroll);
}

void VoteAnswerView::SetHot(VoteDrawItem* element, int x, int y) {
  if (element != m_pHot && m_pHot) m_pHot->OnMouse(kMouseLeave, x, y);
  m_pHot = element;
  if (m_pHot) m_pHot->OnMouse(kMouseOver, x, y);
}

VoteDrawItem* VoteAnswerView::ElementAt(int x, int y) {
  for (auto& page : m_Pages) {
    if (page.value->HitTest(x, y)) return page.value->ItemAt(x, y);
  }
  return m_btnSubmit.HitTest(x, y) ? &m_btnSubmit : nullptr;
}

// The element's answer may end this window, so nothing comes after it.
void VoteAnswerView::SendMouse(int event, POINT client) {
  if (m_pHot) m_pHot->OnMouse(event, client.x, client.y + m_nScroll);
}

LRESULT VoteAnswerView::OnButtonDown(MessageArgs& args) {
  if (TakeFocus()) SendMouse(kMouseDown, args.Point());
  return 0;
}

LRESULT VoteAnswerView::OnButtonUp(MessageArgs& args) {
  if (TakeFocus()) SendMouse(kMouseUp, args.Point());
  return 0;
}

LRESULT VoteAnswerView::OnMouseMove(MessageArgs& args) {
  TRACKMOUSEEVENT track = {sizeof(track), TME_LEAVE, m_hWnd, 0};
  _TrackMouseEvent(&track);
  const POINT point = args.Point();
  UpdateHot(point.x, point.y);
  return 0;
}

LRESULT VoteAnswerView::OnMouseLeave(MessageArgs& /*args*/) {
  if (m_pHot) m_pHot->OnMouse(kMouseLeave, 0, 0);
  return 0;
}

void VoteAnswerView::AddPage(VoteItemEntry* item) {
  if (FindPage(item->ItemID)) return;
  VoteResultPage* const page = new VoteResultPage;
  page->SetItem(item);
  page->SetOwner(m_hWnd);
  page->SetButtonsVisible(IsManager());
  if (!m_Pages.AddNew(item->ItemID, page)) {
    delete page;
    return;
  }
  for (const u32 optionId : item->m_OptionOrder) {
    if (VoteOptionEntry* const option = item->FindOption(optionId)) page->AddRow(MakeRow(*page, option));
  }
}

VoteOptionRow* VoteAnswerView::MakeRow(const VoteResultPage& page, VoteOptionEntry* option) const {
  VoteOptionRow* const row = new VoteOptionRow;
  row->SetOption(option);
  row->SetOwner(m_hWnd);
  row->SetItem(page.GetItem());
  return row;
}

void VoteAnswerView::OnVoteChanged(u32 /*reserved*/, VoteTopicEntry* topic) {
  if (!topic || !IsMine(static_cast<int>(topic->TopicID))) return;
  UpdateRoles();
  if (m_nViewRight != VoteTopicRecord::kMayView) ShowResults(false);
  UpdateRights();
  UpdateSubmit();
  Redraw();
}

void VoteAnswerView::OnItemAdded(u32 /*reserved*/, int topicId, VoteItemEntry* item) {
  if (!IsMine(topicId) || !item || FindPage(item->ItemID)) return;
  AddPage(item);
  UpdateRights();
  Redraw();
}

void VoteAnswerView::OnItemRemoving(u32 /*reserved*/, int topicId, int itemId) {
  if (!IsMine(topicId)) return;
  const u32 key = static_cast<u32>(itemId);
  if (VoteResultPage* const page = FindPage(key)) {
    delete page;
    m_Pages.RemoveKey(key);
  }
  Redraw();
}

void VoteAnswerView::OnItemChanged(u32 /*reserved*/, int topicId, VoteItemEntry* item, int flag) {
  if (!IsMine(topicId)) return;
  VoteResultPage* const page = item ? FindPage(item->ItemID) : nullptr;
  if (!page) return;
  if (flag) page->ClearRows();
  page->SetItem(item);
  page->SetOwner(m_hWnd);
  Redraw();
}

void VoteAnswerView::OnOptionAdded(u32 /*reserved*/, int topicId, int itemId, VoteOptionEntry* option) {
  VoteResultPage* const page = IsMine(topicId) ? FindPage(static_cast<u32>(itemId)) : nullptr;
  if (!page) return;
  page->AddRow(MakeRow(*page, option));
  page->SortRows();
  Redraw();
}

void VoteAnswerView::OnOptionRemoving(u32 /*reserved*/, int topicId, int itemId, int optionId) {
  VoteResultPage* const page = IsMine(topicId) ? FindPage(static_cast<u32>(itemId)) : nullptr;
  if (!page) return;
  page->RemoveRow(static_cast<u32>(optionId));
  Redraw();
}

void VoteAnswerView::OnOptionChanged(u32 /*reserved*/, int topicId, int itemId, VoteOptionEntry* option) {
  VoteResultPage* const page = IsMine(topicId) ? FindPage(static_cast<u32>(itemId)) : nullptr;
  if (!page) return;
  page->ReplaceRow(MakeRow(*page, option));
  Redraw();
}

void VoteAnswerView::OnItemOrderChanged(u32 /*reserved*/, int topicId, const VoteIdArray* /*itemIds*/) {
  if (!IsMine(topicId)) return;
  RenumberPages();
  Redraw();
}

void VoteAnswerView::OnVoteStateChanged(u32 /*reserved*/, int topicId, int /*mode*/) {
  if (!IsMine(topicId)) return;
  UpdateRights();
  UpdateSubmit();
}

void VoteAnswerView::OnItemOpenChanged(u32 /*reserved*/, int topicId, int /*itemId*/, int /*open*/) {
  if (IsMine(topicId)) UpdateRights();
}

void VoteAnswerView::OnVoteManagerChanged(u32 /*reserved*/, int topicId, const JW_ID* /*manager*/) {
  if (!IsMine(topicId)) return;
  UpdateRights();
  Redraw();
}

void VoteAnswerView::OnOperateRightChanged(u32 /*reserved*/, u16 /*value*/) {
  if (m_pTopic) UpdateRights();
}

void VoteAnswerView::OnVoteDataChanged(u32 /*reserved*/, int topicId, int /*reason*/) {
  if (IsMine(topicId)) InvalidateIfVisible();
}

void VoteAnswerView::OnResultStateChanged(u32 /*reserved*/, int topicId, int shown) {
  if (!IsMine(topicId)) return;
  m_bResultShown = shown != 0;
  ShowResults(m_bResultShown && m_nViewRight == VoteTopicRecord::kMayView);
}

void VoteAnswerView::OnItemAnswersCleared(u32 /*reserved*/, int topicId, int itemId, int shown) {
  if (IsMine(topicId)) ShowItemResult(static_cast<u32>(itemId), shown != 0);
}
