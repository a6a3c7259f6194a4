// The window in which a participant answers a vote, and everybody allowed sees its results: a page for each question
// in the vote's order, and a submit button under them. It follows the vote data as a listener.
#pragma once

#include "JW_Base/Include/JW_Map.h"
#include "dialogs/VotePageList.h"
#include "pages/VoteImageButton.h"
#include "pages/VoteResultPage.h"
#include "votedata/VoteData.h"

// The window's answer is the local user's right to see the results: 2, or 0 for none.
constexpr UINT kMsgViewRight = 0x48C;

class VoteAnswerView : public VotePageList, public VoteListener {
 public:
  VoteAnswerView();
  ~VoteAnswerView() override;

  bool ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                            DWORD mapId) override;

  void OnVoteChanged(u32 reserved, VoteTopicEntry* topic) override;
  void OnItemAdded(u32 reserved, int topicId, VoteItemEntry* item) override;
  void OnItemRemoving(u32 reserved, int topicId, int itemId) override;
  void OnItemChanged(u32 reserved, int topicId, VoteItemEntry* item, int flag) override;
  void OnOptionAdded(u32 reserved, int topicId, int itemId, VoteOptionEntry* option) override;
  void OnOptionRemoving(u32 reserved, int topicId, int itemId, int optionId) override;
  void OnOptionChanged(u32 reserved, int topicId, int itemId, VoteOptionEntry* option) override;
  void OnItemOrderChanged(u32 reserved, int topicId, const VoteIdArray* itemIds) override;
  void OnVoteStateChanged(u32 reserved, int topicId, int mode) override;
  void OnItemOpenChanged(u32 reserved, int topicId, int itemId, int open) override;
  void OnVoteManagerChanged(u32 reserved, int topicId, const JW_ID* manager) override;
  void OnOperateRightChanged(u32 reserved, u16 value) override;
  void OnVoteDataChanged(u32 reserved, int topicId, int reason) override;
  void OnResultStateChanged(u32 reserved, int topicId, int shown) override;
  void OnItemAnswersCleared(u32 reserved, int topicId, int itemId, int shown) override;

  // Set before the window is created; not owned.
  VoteTopicEntry* m_pTopic = nullptr;
  bool m_bResultShown = false;  // results are in

 protected:
  int LayOut(int width) override;
  bool HasContent() const override;
  bool CanPaint() const override { return m_pTopic != nullptr; }
  void PaintContent(HDC dc, const RECT& clip) override;
  void OnContentMoved() override;

  LRESULT OnCreate(MessageArgs& args);
  LRESULT OnButtonDown(MessageArgs& args);
  LRESULT OnButtonUp(MessageArgs& args);
  LRESULT OnMouseMove(MessageArgs& args);
  LRESULT OnMouseLeave(MessageArgs& args);
  LRESULT OnAskViewRight(MessageArgs& args);
  LRESULT OnAskVoteRight(MessageArgs& args);
  LRESULT OnElementDestroyed(MessageArgs& args);

  void UpdateRights();
  void UpdateSubmit();
  void UpdateRoles();
  void ShowResults(bool show);
  void ShowItemResult(u32 itemId, bool show);
  void RenumberPages();
  // Client coordinates.
  void UpdateHot(int x, int y);
  // Content coordinates, as are those of ElementAt.
  void SetHot(VoteDrawItem* element, int x, int y);

  bool IsMine(int topicId) const { return m_pTopic && static_cast<int>(m_pTopic->TopicID) == topicId; }
  bool IsManager() const;
  VoteResultPage* FindPage(u32 itemId) const;
  // Each page that has a place in the vote's order, with that place from 0.
  template <class Visit>
  void ForEachInOrder(Visit visit) const;
  void AddPage(VoteItemEntry* item);
  VoteOptionRow* MakeRow(const VoteResultPage& page, VoteOptionEntry* option) const;
  VoteDrawItem* ElementAt(int x, int y);
  void SendMouse(int event, POINT client);

  JW_Map<u32, VoteResultPage*> m_Pages;  // by ItemID; owned
  VoteDrawItem* m_pHot = nullptr;        // the element under the pointer, not owned
  VoteImageButton m_btnSubmit;
  int m_nViewRight = 0;
  int m_nVoteRight = 0;

 private:
  static int s_nLastRange;
};
