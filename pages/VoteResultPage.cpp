#include "pages/VoteResultPage.h"

#include <algorithm>

#include "JW_Base/Include/JW_Utf8.h"
#include "platform/Resources.h"
#include "resources/ResourceIds.h"
#include "toolkit/GdiHandles.h"
#include "votedata/VoteData.h"
#include "window/VoteResources.h"

namespace {

constexpr COLORREF kTitleColor = 0xFF3D00;
constexpr int kLabelLeft = 5;
constexpr int kNumberWidth = 90;
constexpr int kTitleLeft = 95;
constexpr int kRowLeft = 77;
constexpr int kRowGap = 8;
constexpr int kLabelsGap = 10;
constexpr int kChartLeft = 15;
constexpr int kChartSize = 210;
constexpr int kChartGap = 10;

JW_String Formatted(const JW_String& format, int value) {
  JW_String text;
  text.Format(format.GetString(), value);
  return text;
}

int LimitOf(const VoteItemEntry& item) {
  return static_cast<int>(item.MultiSelLim);
}

void Place(VoteDrawItem* item, int top, int width) {
  item->SetTop(top);
  item->SetWidth(width);
  item->Recalc();
}

}  // namespace

JW_String VoteResultPage::TextOf(u32 id) {
  JW_String text;
  text.LoadString(id);
  return text;
}

VoteResultPage::VoteResultPage() {
  NumberLabel.SetLeft(kLabelLeft);
  NumberLabel.SetWidth(kNumberWidth);
  TitleLabel.SetLeft(kTitleLeft);
  TitleLabel.Color = kTitleColor;
  for (VoteTextItem* const label : {&TypeLabel, &StateLabel, &OptionsLabel}) label->SetLeft(kLabelLeft);
  DetailButton.SetText(TextOf(IDS_BUTTON_SIGN_NAMES));
  DetailButton.SetCommand(kCmdShowSignNames);
  if (const VoteResources* const resources = VoteResources::Instance()) {
    DetailButton.SetImageList(&resources->m_hSignNames);
  }
}

VoteResultPage::~VoteResultPage() {
  DestroyButtons();
  VoteResultPage::ClearRows();
}

bool VoteResultPage::Recalc() {
  if (!VoteData::Get()) return false;
  int y = PlaceLabels(TopMargin);
  y = PlaceRows(y);
  y = PlaceChart(y);
  y = PlaceButtons(y);
  PlaceDetailButton(y);
  Height = y;
  return true;
}

int VoteResultPage::PlaceLabels(int y) {
  Place(&NumberLabel, Top + y, kNumberWidth);
  Place(&TitleLabel, Top + y, Width - kNumberWidth);
  y += std::max(NumberLabel.GetHeight(), TitleLabel.GetHeight());
  for (VoteTextItem* const label : {&TypeLabel, &StateLabel, &OptionsLabel}) {
    Place(label, Top + y, Width);
    y += label->GetHeight();
  }
  return y + kLabelsGap;
}

int VoteResultPage::PlaceRows(int y) {
  if (Rows.IsEmpty()) return y;
  const WindowContext context(Owner);
  for (VoteOptionRow* const row : Rows) {
    row->SetWidth(Width - kRowLeft);
    row->Measure(context.get());
    Place(row, Top + y, Width - kRowLeft);
    y += row->GetHeight() + kRowGap;
  }
  return y;
}

int VoteResultPage::PlaceChart(int y) {
  if (!ChartVisible) return y;
  Chart.SetLeft(kChartLeft);
  Chart.SetHeight(kChartSize);
  Place(&Chart, Top + y + kChartGap, kChartSize);
  return y + kChartGap + kChartSize;
}

bool VoteResultPage::Paint(HDC dc, RECT clip, int scrollY) {
  if (!dc || !Item || !IsInView(clip, scrollY) || !VoteData::Get()) return false;
  UpdateStateLabel();  // the question may have been opened or closed since
  for (VoteTextItem* const label : {&NumberLabel, &TitleLabel, &TypeLabel, &StateLabel, &OptionsLabel}) {
    label->Paint(dc, clip, scrollY);
  }
  for (int i = 0; i < Rows.GetSize(); ++i) {
    Rows[i]->SetIndex(i);
    Rows[i]->Paint(dc, clip, scrollY);
  }
  if (ChartVisible) Chart.Paint(dc, clip, scrollY);
  if (ButtonsVisible) {
    for (VotePageButton* const button : Buttons) button->Paint(dc, clip, scrollY);
  }
  if (OffersDetails()) DetailButton.Paint(dc, clip, scrollY);
  return true;
}

void VoteResultPage::SetWidth(int width) {
  if (width == Width) return;
  Width = width;
  MoveButtons();
}

void VoteResultPage::SetOwner(HWND window) {
  Owner = window;
  VoteDrawItem* const parts[] = {&NumberLabel,  &TitleLabel,   &TypeLabel, &StateLabel,
                                 &OptionsLabel, &DetailButton, &Chart};
  for (VoteDrawItem* const part : parts) part->SetOwner(window);
  for (VoteOptionRow* const row : Rows) row->SetOwner(window);
  for (VotePageButton* const button : Buttons) button->SetOwner(window);
}

void VoteResultPage::SetItem(const VoteItemEntry* item) {
  if (!item) {
    ClearRows();
    DestroyButtons();
    return;
  }
  Item = item;
  for (VoteOptionRow* const row : Rows) row->SetItem(item);
  Chart.SetItem(item);
  DetailButton.Item = item;
  for (VotePageButton* const button : Buttons) button->Item = item;

  ResetNumber();
  TitleLabel.SetText(JW_WideFromUtf8(item->ItemName));
  JW_String type = TypeText();
  // The blank at the end is missing in what SetNumber writes, and the layout before the first paint reckons with it.
  if (item->ItemType == VoteItemRecord::kMultipleChoice && LimitOf(*item) > 0) {
    type += Formatted(TextOf(IDS_LIMIT_MOST), LimitOf(*item));
    type += L' ';
  }
  TypeLabel.SetText(type);
  UpdateStateLabel();
  OptionsLabel.SetText(TextOf(IDS_LABEL_OPTIONS));
}

void VoteResultPage::ResetNumber() {
  NumberLabel.SetText(TextOf(IDS_LABEL_ITEM_NUMBER));
  m_Numbered.reset();
}

void VoteResultPage::SetNumber(int number) {
  const u32 type = Item ? Item->ItemType : 0;
  const u32 limit = Item ? Item->MultiSelLim : 0;
  const NumberSource source = {number, type, limit, Rows.GetSize(), platform::ResourceModule()};
  if (m_Numbered == source) return;
  m_Numbered = source;

  JW_String label;
  label.Format(L"%s%d:", TextOf(IDS_LABEL_ITEM_NUMBER).GetString(), number);
  NumberLabel.SetText(label);
  JW_String text = TypeText();
  if (type == VoteItemRecord::kMultipleChoice) {
    const int most = static_cast<int>(limit);
    text += most < 1 || most >= Rows.GetSize() ? TextOf(IDS_LIMIT_NONE) : Formatted(TextOf(IDS_LIMIT_MOST), most);
  }
  TypeLabel.SetText(text);
}

JW_String VoteResultPage::TypeText() const {
  JW_String text = TextOf(IDS_LABEL_TYPE);
  switch (Item ? Item->ItemType : 0) {
    case VoteItemRecord::kSingleChoice:
      return text += TextOf(IDS_TYPE_SINGLE);
    case VoteItemRecord::kMultipleChoice:
      return text += TextOf(IDS_TYPE_MULTIPLE);
    default:
      return text += TextOf(IDS_TYPE_FIXED);
  }
}

void VoteResultPage::UpdateStateLabel() {
  StateLabel.SetText(TextOf(IDS_LABEL_STATE) += TextOf(Item->IsOpen ? IDS_VOTE_STARTED : IDS_VOTE_STOPPED));
}

void VoteResultPage::AddRow(VoteOptionRow* row) {
  if (!row) return;
  row->SetOwner(Owner);
  row->SetItem(Item);
  if (!Rows.Add(row)) delete row;
  RowsChanged();
}

void VoteResultPage::RemoveRow(u32 optionId) {
  const int index = FindRow(optionId);
  if (index < 0) return;
  VoteOptionRow* const row = Rows[index];
  Rows.RemoveAt(index);
  delete row;
  RowsChanged();
}

bool VoteResultPage::UpdateRow(VoteOptionEntry* option) {
  const int index = option ? FindRow(option->OptionID) : -1;
  if (index >= 0) Rows[index]->SetOption(option);
  return index >= 0;
}

void VoteResultPage::ReplaceRow(VoteOptionRow* row) {
  const int index = row ? FindRow(row->GetOptionID()) : -1;
  if (index >= 0) std::swap(row, Rows[index]);
  delete row;
}

void VoteResultPage::ClearRows() {
  for (int last = Rows.GetSize() - 1; last >= 0; --last) {
    VoteOptionRow* const row = Rows[last];
    Rows.SetSize(last);
    delete row;
  }
}

void VoteResultPage::SortRows() {
  std::stable_sort(Rows.begin(), Rows.end(),
                   [](const VoteOptionRow* a, const VoteOptionRow* b) { return a->GetOptionID() < b->GetOptionID(); });
}

int VoteResultPage::FindRow(u32 optionId) const {
  for (int i = 0; i < Rows.GetSize(); ++i) {
    if (Rows[i]->GetOptionID() == optionId) return i;
  }
  return -1;
}

VoteDrawItem* VoteResultPage::ItemAt(int x, int y) const {
  for (VoteOptionRow* const row : Rows) {
    if (row->HitTest(x, y)) return row;
  }
  for (VotePageButton* const button : Buttons) {
    if (button->HitTest(x, y)) return button;
  }
  // The chart is asked also while it isn't visible: its keys stay where the last layout with it put them.
  if (Chart.HitTest(x, y)) return const_cast<VotePieChart*>(&Chart);
  if (ChartVisible && DetailButton.HitTest(x, y)) return const_cast<VotePageButton*>(&DetailButton);
  return nullptr;
}
