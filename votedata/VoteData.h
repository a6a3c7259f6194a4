// The state of all votes of the conference: one object for the whole process.
//
// Windows never change shared data on their own: they call the sink, the host answers through IZQVote, VoteData
// changes and tells its listeners. Everything here runs on the thread of the main window; there is no lock.
//
// The sink and the listeners may call back, and what they call may remove the very entry at hand. So an entry that is
// needed after such a call is looked up again.
#pragma once

#include "JW_Base/Include/JW_Array.h"
#include "JW_Base/Include/JW_Map.h"
#include "module/IZQVoteSink.h"
#include "votedata/VoteEntries.h"
#include "votedata/VoteListener.h"
#include "votedata/VoteUi.h"

// A command of a button, posted to the main window. Fields that a sender has no use for are left unset.
struct VoteUiCommand {
  u32 Kind;  // 0 for everything that the module sends
  u32 Command;
  u32 TopicID;
  u32 ItemID;
  u32 OptionID;
  u32 Object;
};
static_assert(sizeof(VoteUiCommand) == 24, "six 32-bit fields");

enum VoteCommand : u32 {
  kCmdMoveUp = 0,
  kCmdMoveDown = 1,
  kCmdToggleOpen = 2,
  kCmdEditItem = 3,
  kCmdRemoveItem = 4,
  kCmdSubmit = 5,
  kCmdToggleVote = 6,
  kCmdAddItem = 7,
  kCmdFetch = 8,
  kCmdPublish = 9,
  kCmdReset = 10,
  kCmdChooseVoters = 11,
  kCmdChooseViewers = 12,
  kCmdShowSignNames = 13,
  kCmdPickOption = 14,
};

constexpr int kMaxVotes = 20;           // in a conference
constexpr int kMaxItems = 200;          // in a vote
constexpr int kUserNameCapacity = 260;  // units, terminator included

// Modes of a result's arrival.
enum VoteAnswerMode { kAnswersFetched = 1, kAnswersPublished = 2, kAnswersPending = 3 };

class VoteData {
 public:
  // The object, made at the first call. Null only if memory runs out; the next call tries again.
  static VoteData* Get();
  // Ends the object, if there is one, without an event. While a VoteDataHold is held the object lives on, out of reach
  // of Get, until the hold ends.
  static void Release();

  // Who opens windows for the vote data; null for nobody, which declines every question. Not owned.
  static void SetUi(VoteUi* ui);
  static VoteUi* Ui();

  // Null is ignored; any other value is appended, also one that is registered already.
  virtual void AddListener(VoteListener* listener);
  // The entry behind a removed one is skipped: of two adjacent duplicates one stays.
  virtual void RemoveListener(VoteListener* listener);

  // The broadcast. The newest listener hears first. If listeners go away so that the walk's place lies behind the
  // last one, the walk ends at once and older listeners don't hear the event. It also ends when a listener has made the
  // entry that it speaks of leave the store: the older ones have then heard the removing event already.
  virtual void OnVoteAdded(u32 reserved, VoteTopicEntry* topic);
  virtual void OnVoteRemoving(u32 reserved, VoteTopicEntry* topic);
  virtual void OnVoteChanged(u32 reserved, VoteTopicEntry* topic);
  virtual void OnItemChanged(u32 reserved, int topicId, VoteItemEntry* item, int flag);
  virtual void OnOptionChanged(u32 reserved, int topicId, int itemId, VoteOptionEntry* option);
  virtual void OnCurrentVoteChanged(u32 reserved, VoteTopicEntry* topic);
  virtual void OnItemAdded(u32 reserved, int topicId, VoteItemEntry* item);
  virtual void OnItemRemoving(u32 reserved, int topicId, int itemId);
  virtual void OnOptionAdded(u32 reserved, int topicId, int itemId, VoteOptionEntry* option);
  virtual void OnOptionRemoving(u32 reserved, int topicId, int itemId, int optionId);
  virtual void OnOperateRightChanged(u32 reserved, u16 value);
  virtual void OnVoteManagerChanged(u32 reserved, int topicId, const JW_ID* manager);
  virtual void OnVoteDataChanged(u32 reserved, int topicId, int reason);
  virtual void OnVoteStateChanged(u32 reserved, int topicId, int mode);
  virtual void OnResultStateChanged(u32 reserved, int topicId, int shown);
  virtual void OnItemAnswersCleared(u32 reserved, int topicId, int itemId, int zero);
  virtual void OnItemOpenChanged(u32 reserved, int topicId, int itemId, int open);
  virtual void OnVoteReset(u32 reserved, int topicId);
  virtual void OnItemOrderChanged(u32 reserved, int topicId, const VoteIdArray* itemIds);
  virtual void OnUserChanged(u32 reserved, const JW_ID* user, u32 more);

 protected:
  virtual ~VoteData();

 public:
  VoteData(const VoteData&) = delete;
  VoteData& operator=(const VoteData&) = delete;

  u16 GetOperateRight() const { return m_nRight; }
  bool HasOperateRight() const { return m_nRight != 0; }
  // Compares the whole value with the stored one, and stores its low 16 bits.
  void SetOperateRight(unsigned value);

  VoteTopicEntry* GetCurrentTopic() const { return m_pCurrent; }
  int CurrentTopicId() const { return m_pCurrent ? static_cast<int>(m_pCurrent->TopicID) : -1; }
  // Stores it, null included, and raises the event without a test for a change.
  void SetCurrentTopic(VoteTopicEntry* topic);
  void SelectTopic(int topicId);

  IZQVoteSink* GetSink() const { return pVoteSink; }
  // False, with no change, for null.
  bool SetSink(IZQVoteSink* sink);
  // Both do nothing without a sink.
  void ShowText(const JW_WChar* text);
  void ShowTextId(u32 id);
  bool IsLocalUserOnline();
  // The participant's display name from the host; empty without a sink.
  JW_String UserName(const JW_ID& user);

  const JW_ID& GetLocalUser() const { return m_idSelf; }
  void SetLocalUser(const JW_ID& user) { m_idSelf = user; }
  JW_HWND GetMainWindow() const { return m_hMainWnd; }
  void SetMainWindow(JW_HWND window) { m_hMainWnd = window; }

  // The store (VoteStore.cpp). Lists that are empty do nothing, where no result is given.
  VoteTopicEntry* FindTopic(int topicId) const;
  // The first question of that number in any vote: numbers are expected to be unique in a conference.
  VoteItemEntry* FindItem(u32 itemId) const;
  const JW_Map<u32, VoteTopicEntry*>& Topics() const { return m_Topics; }
  void AddTopic(const VoteTopicRecord* record);
  void UpdateTopic(const VoteTopicRecord* record);
  void SyncTopics(const VoteTopicList* list);
  void RemoveTopic(int topicId);
  void AddItems(const VoteItemList* list);
  void AddOptions(const VoteOptionList* list);
  void UpdateItems(const VoteItemList* list, bool dropOptions, bool addMissing);
  void UpdateOptions(const VoteOptionList* list, bool addMissing);
  void RemoveItems(const VoteIdArray* ids);
  void SyncContent(const VoteItemList* items, const VoteOptionList* options);
  // Asks the host to delete the local manager's votes that have no questions.
  void DeleteEmptyVotes();
  void SetItemOrder(int topicId, const VoteIdArray* ids);
  void SetManager(int topicId, const JW_ID* manager);
  // False, with `manager` untouched, if the vote is unknown.
  bool GetTopicManager(int topicId, JW_ID* manager) const;
  bool IsCurrentManager() const;
  bool IsSignVote(int topicId) const;
  // A deep copy of the vote with questions and options in their order. Empties the two lists first; false if unknown.
  bool CopyTopic(int topicId, VoteTopicRecord* topic, VoteItemList* items, VoteOptionList* options) const;

  // The running vote (VoteRunning.cpp).
  void ApplyVoteState(int topicId, int mode);
  void ResetVote(int topicId);
  void SetItemsOpen(const VoteIdArray* ids, int open);
  void ApplyAnswers(int topicId, const VoteAnswerList* answers, int mode);
  // Answers that were asked for by ReloadResults; dropped where they could overwrite an answer under way.
  void ApplyPendingAnswers(int topicId, const VoteAnswerList* answers);
  void ReloadResults();
  // Once a second: the time left of each vote.
  void TickVotes();

  // The commands of the buttons (VoteCommands.cpp). False if the command was refused.
  bool OnUiCommand(const VoteUiCommand& cmd);
  // The gate of every changing command; tells the user why it is closed.
  bool CheckManager(int topicId);
  bool ToggleVoteState(int topicId);
  bool RemoveItem(int topicId, u32 itemId);
  bool MoveItem(int direction, int topicId, u32 itemId);
  bool SubmitMyAnswers(int topicId);
  // Those that open a window (VoteQuestionCommands.cpp).
  bool AddItem(int topicId);
  bool EditItem(int topicId, u32 itemId);
  bool ShowSignNames(u32 itemId);

  // The HTML report of one vote (files/VoteReport.cpp). False, with no file touched, if the vote is unknown.
  bool WriteHtmlReport(const JW_WChar* path, u32 topicID);

 private:
  friend class VoteDataHold;

  VoteData();

  // Goes on while `goesOn` is true.
  template <class GoesOn, class... Params, class... Args>
  void Broadcast(GoesOn goesOn, void (VoteListener::*event)(u32, Params...), u32 reserved, Args... args);

  VoteIdArray TopicIds() const;
  bool IsLocalManager(const VoteTopicEntry& topic) const { return topic.IsManager(m_idSelf); }
  void ClearItemAnswers(VoteItemEntry* item, int topicId);
  void RebuildItemOrders(const VoteIdArray& topicIds);

  JW_Array<VoteListener*> m_Listeners;
  VoteTopicEntry* m_pCurrent;
  JW_Map<u32, VoteTopicEntry*> m_Topics;
  u16 m_nRight;
  JW_ID m_idSelf;
  IZQVoteSink* pVoteSink;
  JW_HWND m_hMainWnd;
  JW_Map<u32, u32> m_PendingResults;  // a set
  // Entries of repeated creates. They are in no map, but listeners and m_pCurrent may know them.
  JW_Array<VoteTopicEntry*> m_Strays;
  int m_nHolds;
  bool m_bReleased;
};

// Fetches the VoteData and keeps it alive while the host or a listener is being called.
class VoteDataHold {
 public:
  VoteDataHold() : m_pData(VoteData::Get()) {
    if (m_pData) ++m_pData->m_nHolds;
  }
  ~VoteDataHold() {
    if (m_pData && --m_pData->m_nHolds == 0 && m_pData->m_bReleased) delete m_pData;
  }
  VoteDataHold(const VoteDataHold&) = delete;
  VoteDataHold& operator=(const VoteDataHold&) = delete;

  explicit operator bool() const { return m_pData != nullptr; }
  VoteData* operator->() const { return m_pData; }
  VoteData* Pointer() const { return m_pData; }

 private:
  VoteData* m_pData;
};
