// What the vote data needs of windows: to ask a question, to run the question dialog, and to open and close the
// window of signed answers. The windows implement it; where there are none, nobody does.
#pragma once

#include "JW_Base/Include/JW_String.h"
#include "records/VoteRecords.h"

class VoteDlgSignName;
class VoteTally;

// A question under composition, as it goes into the question dialog and comes back.
struct VoteItemDraft {
  VoteItemRecord item;
  VoteOptionList options;
  bool isNew = true;
  bool changed = false;  // set by the dialog
};

// What the window of signed answers shows.
struct VoteSignNamesRequest {
  u32 topicId = 0;
  u32 itemId = 0;
  JW_String topicName;
  JW_String itemName;
  VoteIdArray options;  // in option order
};

class VoteUi {
 public:
  // A message box over `owner` with the texts of two string ids; `flags` are MessageBoxW's. Returns its result.
  virtual int Ask(JW_HWND owner, u32 textId, u32 captionId, u32 flags) = 0;

  // Runs the question dialog over the active window. True for OK, with `draft` as the user left it. Calls of IZQVote
  // can arrive meanwhile.
  virtual bool RunItemDialog(VoteItemDraft* draft) = 0;

  // Whether the control `id` of the main window takes input.
  virtual bool IsControlEnabled(JW_HWND mainWindow, int id) = 0;

  // Opens the window of signed answers on `tally` in place of the one that stands in its m_pDetailWnd.
  virtual void OpenSignNames(VoteTally* tally, const VoteSignNamesRequest& request) = 0;

  // Ends the window and frees the object.
  virtual void CloseSignNames(VoteDlgSignName* window) = 0;

 protected:
  ~VoteUi() = default;
};

// MessageBoxW's numbers, as far as the vote data speaks of them.
namespace vote_ui {
constexpr u32 kYesNo = 0x04;
constexpr u32 kYesNoCancel = 0x03;
constexpr u32 kInformation = 0x40;
constexpr int kCancel = 2;
constexpr int kYes = 6;
constexpr int kNo = 7;
}  // namespace vote_ui
