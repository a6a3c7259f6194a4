// The preview pane of the topic dialog: one question as it will look, with nothing to click.
#pragma once

#include "JW_Base/Include/JW_Array.h"
#include "dialogs/VotePageList.h"
#include "pages/VoteResultPage.h"
#include "votedata/VoteEntries.h"

class VoteItemPreview : public VotePageList {
 public:
  VoteItemPreview();
  ~VoteItemPreview() override;

  void ClearItem();
  // Takes a copy. The question shows at once if options are held from before, else with ShowOptions.
  void ShowItem(const VoteItemRecord& item, int number);
  // Takes copies and adds them to the question's options.
  void ShowOptions(const VoteOptionList& options);

 protected:
  int LayOut(int width) override;
  bool HasContent() const override { return m_bHasItem; }
  void PaintContent(HDC dc, const RECT& clip) override;
  bool OnScrollStart() override { return TakeFocus(); }

  void Present();

  VoteItemEntry m_Item;
  JW_Array<VoteOptionEntry*> m_Options;  // owned
  VoteResultPage m_Page;                 // goes before what it shows
  bool m_bHasItem = false;
  int m_nNumber = 0;

 private:
  static int s_nLastRange;
};
