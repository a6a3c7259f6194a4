// The four records that carry all vote data, between the module and its host and over the conference connection.
//
// A record is a presence mask and its fields. Bit n of the mask says that field n is valid; only such fields travel.
// Numeric fields are assigned directly, with their mask bit set in the same step; texts are UTF-8 and go through
// setters. Copies take everything, the mask included, and share no text with their source.
//
// The layout of all four is fixed for 32-bit hosts, whatever their compiler (docs/embedding.md). There is no virtual
// destructor: records are destroyed through their own type. One thread at a time uses a record.
#pragma once

#include "JW_Base/Include/JW_Array.h"
#include "JW_Base/Include/JW_ByteStream.h"
#include "JW_Base/Include/JW_DateTimeEx.h"
#include "JW_Base/Include/JW_ID.h"
#include "JW_Base/Include/JW_List.h"
#include "JW_Base/Include/JW_String.h"

#if defined(__GNUC__)
#pragma GCC diagnostic push
// The tables cross the boundary between compilers and hold no destructor.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

// The most bytes that a text setter takes.
constexpr int kVoteMaxText = 1024;

class VoteRecord {
 public:
  // Replaces mask and fields from the stream. Fields without their bit get their default, except ids, id arrays and
  // the last field of each record, which keep what they held. Throws kJW_BadLength at an illegal length and lets
  // through what the stream throws; the record then holds what it had been given so far.
  virtual void Load(JW_ByteStream& stream) = 0;

  // Writes the head and each field whose bit is set. Bits that the record's head has no room for aren't sent.
  virtual void Save(JW_ByteStream& stream) const = 0;

  bool Has(u64 mask) const { return (m_nMask & mask) != 0; }

  alignas(8) u64 m_nMask = 0;

 protected:
  VoteRecord() = default;
  VoteRecord(const VoteRecord&) = default;
  VoteRecord& operator=(const VoteRecord&) = default;
  ~VoteRecord() = default;

  // Takes a text of at most kVoteMaxText bytes and sets its bit; a longer one is refused, with nothing changed.
  bool SetText(JW_StringA& field, u64 mask, const JW_StringA& text) {
    if (text.GetLength() > kVoteMaxText) return false;
    field.AssignText(text);
    m_nMask |= mask;
    return true;
  }
};

// A vote as a whole.
class VoteTopicRecord : public VoteRecord {
 public:
  enum : u64 {
    kTopicID = 0x1,
    kTopicName = 0x2,
    kTopicDesc = 0x4,
    kIsSignVote = 0x8,
    kTimeLong = 0x10,
    kTopicFlags = 0x20,
    kEndTime = 0x40,
    kCreatorID = 0x80,
    kIsAllVote = 0x100,
    kVoterList = 0x200,
    kIsAllView = 0x400,
    kViewerList = 0x800,
    kIsStarted = 0x1000,
    kManagerID = 0x2000,
    kTopicExtra = 0x4000,
  };

  VoteTopicRecord() = default;
  VoteTopicRecord(const VoteTopicRecord& other) : VoteRecord(other) { *this = other; }
  VoteTopicRecord& operator=(const VoteTopicRecord& other);

  void Load(JW_ByteStream& stream) override;
  void Save(JW_ByteStream& stream) const override;
  template <class Writer>
  void PutFields(Writer& out) const;

  bool SetTopicName(const JW_StringA& text) { return SetText(TopicName, kTopicName, text); }
  bool SetTopicDesc(const JW_StringA& text) { return SetText(TopicDesc, kTopicDesc, text); }

  // What the vote allows a participant. A role that isn't given is 0.
  enum { kMayVote = 1, kMayView = 2 };
  int VoterRight(const JW_ID& user) const { return IsAllVote || VoterList.Find(user) >= 0 ? kMayVote : 0; }
  int ViewerRight(const JW_ID& user) const { return IsAllView || ViewerList.Find(user) >= 0 ? kMayView : 0; }
  bool IsManager(const JW_ID& user) const { return ManagerID == user; }

  u32 TopicID = 0;
  JW_StringA TopicName;
  JW_StringA TopicDesc;
  bool IsSignVote = false;  // results show by name who chose what
  u32 TimeLong = 0;         // seconds
  u32 TopicFlags = 0;       // seconds left; signed in meaning, an overrun goes below 0
  JW_DateTimeEx EndTime;    // local time
  JW_ID CreatorID;
  bool IsAllVote = false;  // everybody may vote, VoterList is ignored
  JW_Array<JW_ID> VoterList;
  bool IsAllView = false;  // everybody may see the results, ViewerList is ignored
  JW_Array<JW_ID> ViewerList;
  bool IsStarted = false;
  JW_ID ManagerID;
  u32 TopicExtra = 0;  // carried, never read
};

// One question of a vote.
class VoteItemRecord : public VoteRecord {
 public:
  enum : u64 {
    kItemNo = 0x1,
    kItemID = 0x2,
    kTopicID = 0x4,
    kItemType = 0x8,
    kIsOpen = 0x10,
    kItemName = 0x20,
    kItemDesc = 0x40,
    kMultiSelLim = 0x80,
    kItemExtra = 0x100,
  };
  enum Type : u32 {
    kSingleChoice = 0,
    kMultipleChoice = 1,  // up to MultiSelLim options
    kYesOrNo = 2,         // two fixed options, chosen as in kSingleChoice
  };

  VoteItemRecord() = default;
  VoteItemRecord(const VoteItemRecord& other) : VoteRecord(other) { *this = other; }
  VoteItemRecord& operator=(const VoteItemRecord& other);

  void Load(JW_ByteStream& stream) override;
  void Save(JW_ByteStream& stream) const override;
  template <class Writer>
  void PutFields(Writer& out) const;

  bool SetItemName(const JW_StringA& text) { return SetText(ItemName, kItemName, text); }
  bool SetItemDesc(const JW_StringA& text) { return SetText(ItemDesc, kItemDesc, text); }

  u32 ItemNo = 0;  // place within the vote
  u32 ItemID = 0;
  u32 TopicID = 0;
  u32 ItemType = 0;  // a Type; other values come from the wire and allow no choice
  bool IsOpen = false;
  JW_StringA ItemName;
  JW_StringA ItemDesc;
  u32 MultiSelLim = 0;
  u32 ItemExtra = 0;  // carried, never read
};

// One choice of a question.
class VoteOptionRecord : public VoteRecord {
 public:
  enum : u64 {
    kOptionID = 0x1,
    kItemID = 0x2,
    kOptionDesc = 0x4,
    kOptionExtra = 0x8,
  };

  VoteOptionRecord() = default;
  VoteOptionRecord(const VoteOptionRecord& other) : VoteRecord(other) { *this = other; }
  VoteOptionRecord& operator=(const VoteOptionRecord& other);

  void Load(JW_ByteStream& stream) override;
  void Save(JW_ByteStream& stream) const override;
  template <class Writer>
  void PutFields(Writer& out) const;

  bool SetOptionDesc(const JW_StringA& text) { return SetText(OptionDesc, kOptionDesc, text); }

  u32 OptionID = 0;
  u32 ItemID = 0;
  JW_StringA OptionDesc;
  u32 OptionExtra = 0;  // carried, never read
};

// One participant's answer to one question. Several selected options travel as several records.
class VoteAnswerRecord : public VoteRecord {
 public:
  enum : u64 {
    kTopicID = 0x1,
    kItemID = 0x2,
    kVoterID = 0x4,
    kOptionID = 0x8,
    kSignName = 0x10,
    kAnswerExtra = 0x20,
    kAll = 0x3F,
  };
  // Stands for the option where the voter answered without choosing one.
  static constexpr u32 kNoOption = 0xFFFFFFFF;

  VoteAnswerRecord() = default;
  VoteAnswerRecord(const VoteAnswerRecord& other) : VoteRecord(other) { *this = other; }
  VoteAnswerRecord& operator=(const VoteAnswerRecord& other);

  void Load(JW_ByteStream& stream) override;
  void Save(JW_ByteStream& stream) const override;
  template <class Writer>
  void PutFields(Writer& out) const;

  bool SetSignName(const JW_StringA& text) { return SetText(SignName, kSignName, text); }

  u32 TopicID = 0;
  u32 ItemID = 0;
  JW_ID VoterID;
  u32 OptionID = 0;
  JW_StringA SignName;  // the voter's name at the moment of answering
  u32 AnswerExtra = 0;  // always sent as 0, never read
};

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

// The containers in which ids and records cross the boundary. They stay the caller's.
typedef JW_Array<u32> VoteIdArray;
typedef JW_List<VoteTopicRecord> VoteTopicList;
typedef JW_List<VoteItemRecord> VoteItemList;
typedef JW_List<VoteOptionRecord> VoteOptionList;
typedef JW_List<VoteAnswerRecord> VoteAnswerList;

#include "records/VoteRecordCodec.h"
#include "records/VoteRecordLayout.h"
