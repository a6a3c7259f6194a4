// The module's interface: 30 operations by which the host drives it. zqCreateInstance makes one.
//
// All on the thread that calls CreateVoteWindow. Everything passed by pointer stays the caller's and is copied during
// the call, as texts and elements: the module never touches the reference count, the size or the memory of what it
// was handed. A reference to an unknown vote, question or option is dropped silently.
#pragma once

#include "module/IZQVoteSink.h"
#include "records/VoteRecords.h"

class IZQVote {
 public:
  // The main window as a child of `parent`; null if it can't be created.
  virtual JW_HWND CreateVoteWindow(JW_HWND parent) = 0;
  // Ends the window, all votes and everything that the module holds.
  virtual void DestroyVoteWindow() = 0;
  virtual JW_HWND GetVoteWindow() = 0;
  // Null is ignored and the old sink stays. The sink must outlive the instance.
  virtual void SetVoteSink(IZQVoteSink* sink) = 0;
  virtual IZQVoteSink* GetVoteSink() = 0;
  virtual void SetLocalUser(const JW_ID* user) = 0;
  // False, with both outputs untouched, if there is no current vote.
  virtual bool GetCurrentVote(int* topicId, JW_ID* manager) = 0;
  // The module from which strings, dialogs, menus and bitmaps are loaded. Before CreateVoteWindow.
  virtual void SetResourceModule(JW_HMODULE module) = 0;
  // All votes that exist now.
  virtual void OnVoteList(const VoteTopicList* topics) = 0;
  virtual void OnVoteCreated(const VoteTopicRecord* topic) = 0;
  virtual void OnVoteModified(const VoteTopicRecord* topic) = 0;
  virtual void OnItemsAdded(const VoteItemList* items, const VoteOptionList* options) = 0;
  virtual void OnItemsModified(const VoteItemList* items, const VoteOptionList* options) = 0;
  virtual void OnItemsRemoved(const VoteIdArray* itemIds) = 0;
  // Acknowledges SubmitAnswers, one call for each call of it.
  virtual void OnItemsRemaining(int topicId, const VoteIdArray* itemIds) = 0;
  // Mode 0 stopped, 1 started and answers kept, 2 started anew.
  virtual void OnVoteStateChanged(int topicId, int mode) = 0;
  virtual void OnItemsOpened(const VoteIdArray* itemIds, int open) = 0;
  // Questions and options of all votes. The first argument isn't read.
  virtual void OnVoteContent(u32 unused, const VoteItemList* items, const VoteOptionList* options) = 0;
  virtual void OnVoteReset(int topicId) = 0;
  virtual void OnResultPublished(int topicId, const VoteAnswerList* answers) = 0;
  virtual void OnVoteRemoved(int topicId) = 0;
  // The reply to RequestResult after ReloadResults.
  virtual void OnPendingAnswers(int topicId, const VoteAnswerList* answers) = 0;
  virtual void OnResultReceived(int topicId, const VoteAnswerList* answers) = 0;
  virtual void OnItemOrderChanged(int topicId, const VoteIdArray* itemIds) = 0;
  virtual void OnVoteManagerChanged(int topicId, const JW_ID* manager) = 0;
  // The low 16 bits, not 0, let the local user compose and manage votes.
  virtual void SetOperateRight(unsigned value) = 0;
  // Always false. The second argument is passed on and never read.
  virtual bool OnUserChanged(const JW_ID* user, u32 more) = 0;
  // Throws away all counts and asks for the results anew. The argument isn't read.
  virtual void ReloadResults(u32 unused) = 0;
  // Both compute the layout of the information panel anew. The argument isn't read.
  virtual void RefreshVotePanel(u32 unused) = 0;
  virtual void RefreshVotePanel2(u32 unused) = 0;

 protected:
  ~IZQVote() = default;
};

// The module's five exports, with the C calling convention and these names.
extern "C" {
// The IZQVote of a new instance for the name "IZQVote", else null. (ordinal 1)
typedef void* (*zqCreateInstance_t)(const char* name);
// Ends the registration of an instance. Its window and data end with DestroyVoteWindow, before this. (ordinal 2)
typedef void (*zqDestroyInstance_t)(void* instance);
// Writes the name of interface `index`, at most 8 bytes with its terminator; false if there is none. (ordinal 3)
typedef bool (*zqGetInterfaceName_t)(int index, char* buffer);
typedef bool (*zqInitialize_t)(void);    // always true (ordinal 4)
typedef void (*zqUninitialize_t)(void);  // does nothing (ordinal 5)
}
