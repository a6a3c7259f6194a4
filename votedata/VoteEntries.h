// What VoteData holds: the records with their live state beside them, as a tree of votes, questions and options.
//
// A topic owns its questions, a question its options and its tally. The layout of VoteTopicEntry is fixed for 32-bit
// hosts, which read it in ChooseParticipants.
#pragma once

#include "JW_Base/Include/JW_Map.h"
#include "records/VoteRecords.h"

class VoteDlgSignName;

// One participant's answers to one question. There are as many as voters times questions, made and freed together, so
// they come from blocks, like the nodes of the map that holds them.
class VoteVoterEntry {
 public:
  static void* operator new(size_t size) noexcept;  // null if memory runs out
  static void operator delete(void* memory) noexcept;

  JW_ID VoterID;
  JW_String SignName;       // of the voter's first record
  JW_Array<u32> m_Options;  // OptionIDs in order of arrival, kNoOption among them
};

// The count of a question.
class VoteTally {
 public:
  VoteTally() : m_OptionCount(34), m_Voters(34) {}
  ~VoteTally();

  // Counts one record.
  void Add(const VoteAnswerRecord& answer);
  // Forgets all answers, and closes the window of details if it is told to.
  void Wipe(bool closeWindow);
  void CloseDetailWindow();
  int CountOf(u32 optionId) const {
    const int* const count = m_OptionCount.Lookup(optionId);
    return count ? *count : 0;
  }

  int m_nAnswers = 0;                       // records received, not voters
  JW_Map<u32, int> m_OptionCount;           // records for each OptionID, kNoOption among them
  JW_Map<JW_ID, VoteVoterEntry*> m_Voters;  // owned
  VoteDlgSignName* m_pDetailWnd = nullptr;  // the window of who answered what
};

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"  // as of the records
#endif

class VoteOptionEntry final : public VoteOptionRecord {
 public:
  explicit VoteOptionEntry(const VoteOptionRecord& record) : VoteOptionRecord(record) {}

  bool m_bSelected = false;  // the local user's choice at this moment
};

class VoteItemEntry final : public VoteItemRecord {
 public:
  explicit VoteItemEntry(const VoteItemRecord& record) : VoteItemRecord(record), m_Options(16), m_OwnAnswers(16) {}
  ~VoteItemEntry() { DropOptions(); }

  // False, with nothing stored, if the question has an option of this number already, or memory runs out.
  VoteOptionEntry* AddOption(const VoteOptionRecord& record);
  VoteOptionEntry* FindOption(u32 optionId) const;
  // Destroys all options; the order array stays as it is until the next rebuild.
  void DropOptions();
  // Options are shown by ascending OptionID.
  void RebuildOptionOrder();

  int CountSelected() const;
  void ClearSelection();
  void SelectOwnAnswers();
  // The selection becomes the user's own answers.
  void StoreOwnAnswers();
  void WipeAnswers(bool closeWindow);

  // Moves the local user's selection to `optionId` by the rule of the question's kind. True if anything changed.
  bool PickOption(u32 optionId);

  // The alignment keeps the offset that compilers without reuse of padding come to.
  alignas(8) JW_Map<u32, VoteOptionEntry*> m_Options;
  VoteTally m_Tally;
  VoteIdArray m_OptionOrder;
  JW_Map<u32, u32> m_OwnAnswers;  // a set: the options that the local user has answered with
};

// What results of a vote this participant holds.
enum VoteResultState { kNoResult = 0, kResultFetched = 1, kResultPublished = 2 };

class VoteTopicEntry final : public VoteTopicRecord {
 public:
  explicit VoteTopicEntry(const VoteTopicRecord& record) : VoteTopicRecord(record), m_Items(44) {}
  ~VoteTopicEntry();

  // Null, with nothing stored, if the vote has a question of this number already, or memory runs out.
  VoteItemEntry* AddItem(const VoteItemRecord& record);
  VoteItemEntry* FindItem(u32 itemId) const;
  bool RemoveItem(u32 itemId);
  // Questions are shown by ascending ItemNo; equal numbers stand in the reverse of the map's order.
  void RebuildItemOrder();

  // Questions with a selected option; of a started vote open ones only, unless `all`.
  int CountAnswered(bool all) const;
  void BuildAnswers(const JW_ID& voter, const JW_String& name, VoteAnswerList* out) const;
  // The selection goes back to the own answers, except on closed questions of a started vote.
  void RestoreSelection();
  void ClearSelection();
  void CloseDetailWindows();
  void WipeAnswers(bool closeWindows);
  bool PickOption(u32 itemId, u32 optionId);

  JW_Map<u32, VoteItemEntry*> m_Items;
  VoteIdArray m_ItemOrder;
  int m_nResultState = kNoResult;
};

#if defined(__GNUC__)
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
#endif
JW_ASSERT_OFFSET(VoteTopicEntry, m_Items, 120);
JW_ASSERT_OFFSET(VoteTopicEntry, m_ItemOrder, 144);
JW_ASSERT_OFFSET(VoteTopicEntry, m_nResultState, 160);
JW_ASSERT_OFFSET(VoteItemEntry, m_Options, 56);
JW_ASSERT_OFFSET(VoteItemEntry, m_Tally, 80);
JW_ASSERT_OFFSET(VoteItemEntry, m_OptionOrder, 136);
JW_ASSERT_OFFSET(VoteItemEntry, m_OwnAnswers, 152);
JW_ASSERT_OFFSET(VoteOptionEntry, m_bSelected, 32);
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif
