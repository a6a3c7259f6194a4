#include "dialogs/VoteItemPreview.h"

namespace {

constexpr int kScrollPage = 50;
constexpr int kContentBelowPage = 60;

}  // namespace

int VoteItemPreview::s_nLastRange = 0;

VoteItemPreview::VoteItemPreview() : VotePageList(kScrollPage, &s_nLastRange), m_Item(VoteItemRecord()) {}

VoteItemPreview::~VoteItemPreview() {
  DestroyWindow();
  m_Page.ClearRows();
  for (VoteOptionEntry* const option : m_Options) delete option;
}

void VoteItemPreview::ClearItem() {
  m_Page.ClearRows();
  m_Page.SetOwner(nullptr);
  // The index moves on although the gap is closed, so every second option stays until the window goes. That some stay
  // is what lets ShowItem show the next question before its options have come.
  for (int i = 0; i < m_Options.GetSize(); ++i) {
    VoteOptionEntry* const option = m_Options[i];
    m_Options.RemoveAt(i);
    delete option;
  }
  m_bHasItem = false;
  Redraw();
}

void VoteItemPreview::ShowItem(const VoteItemRecord& item, int number) {
  *static_cast<VoteItemRecord*>(&m_Item) = item;
  m_Page.SetItem(&m_Item);
  m_Page.SetOwner(m_hWnd);
  m_Page.SetButtonsVisible(false);
  m_nNumber = number;
  if (!m_Options.IsEmpty()) Present();
}

void VoteItemPreview::ShowOptions(const VoteOptionList& options) {
  for (const VoteOptionRecord& record : options) {
    VoteOptionEntry* const option = new VoteOptionEntry(record);
    if (!m_Options.Add(option)) {
      delete option;
      break;
    }
    VoteOptionRow* const row = new VoteOptionRow;
    row->SetOption(option);
    m_Page.AddRow(row);
  }
  if (m_Options.IsEmpty()) {
    Redraw();
  } else {
    Present();
  }
}

void VoteItemPreview::Present() {
  m_Page.SetNumber(m_nNumber);
  m_bHasItem = true;
  Redraw();
}

int VoteItemPreview::LayOut(int width) {
  if (!m_bHasItem) return 0;
  m_Page.SetTop(kTopMargin);
  m_Page.SetWidth(width);
  m_Page.Recalc();
  return m_Page.GetHeight() + kContentBelowPage;
}

void VoteItemPreview::PaintContent(HDC dc, const RECT& clip) {
  if (m_bHasItem) m_Page.Paint(dc, clip, m_nScroll);
}
