// Load and Save of the records: a head with the presence mask, then the fields in ascending bit order.
//
// Adjacent fields of fixed size are moved by one Transfer, and a record whose texts are short is written by one: the
// calls of the stream's table are what the encoding costs.
#pragma once

#include "records/VoteRecords.h"

namespace vote_codec {

// The head's two lowest bits.
enum HeadForm : u32 { kOneByte = 0, kTwoBytes = 1, kFourBytes = 2, kEightBytes = 3 };

// A host's byte may hold more than 0 and 1, which no bool may.
inline bool Truth(const bool& field) {
  u8 byte = 0;
  memcpy(&byte, &field, 1);
  return byte != 0;
}

// Room for the longest run of fields of fixed size, with an owed head.
constexpr u32 kRunRoom = 32;

// The buffers of Reader and Writer stand outside of them: the stream is handed the buffer's address alone, so that the
// place within it can stay in a register.
class Reader {
 public:
  // Reads a head of any form and replaces `mask` by it. A head of one byte is known from the first look at it; its
  // proper reading then goes together with the first run of fields.
  Reader(JW_ByteStream& stream, u64& mask, u8 (&run)[kRunRoom]) : m_Stream(stream), m_pRun(run) {
    u8 first = 0;
    stream.Read(&first, 1);
    stream.Transfer(-1, 0, nullptr);
    if ((first & 3) == kOneByte) {
      m_nOwed = 1;
      m_nMask = first >> 2;
    } else {
      u64 head = 0;
      stream.Read(&head, 1u << (first & 3));
      JW_ByteStream::SwapBytes(&head, 8);
      m_nMask = head >> 2;
    }
    mask = m_nMask;
  }

  bool Has(u64 mask) const { return (m_nMask & mask) != 0; }

  // Fetches those fields of a run that are present; kSizes are the sizes in bytes of all fields of the run, whose first
  // has the mask `first`. The operations below take the fields one after the other.
  template <u32... kSizes>
  void Fetch(u64 first) {
    static_assert((kSizes + ...) < kRunRoom, "the run fits");
    u64 bit = first;
    u32 size = m_nOwed;
    ((size += Has(bit) ? kSizes : 0, bit <<= 1), ...);
    memset(m_pRun, 0, kRunRoom);
    if (size != 0) m_Stream.Read(m_pRun, size);
    m_pNext = m_pRun + m_nOwed;
    m_nOwed = 0;
  }
  void Take(u64 mask, u32& field) { field = Has(mask) ? TakeU32() : 0; }
  void Take(u64 mask, bool& field) { field = Has(mask) && *m_pNext++ != 0; }
  // An absent id keeps what it held.
  void Take(u64 mask, JW_ID& field) {
    if (!Has(mask)) return;
    u32 words[2] = {};
    memcpy(words, m_pNext, sizeof(words));
    m_pNext += sizeof(words);
    field.SetWords(words);
  }
  // A date out of range is dropped as the value's setter drops it.
  void Take(u64 mask, JW_DateTimeEx& field) {
    if (Has(mask)) {
      const int day = static_cast<int>(TakeU32());
      field.Set(day, static_cast<int>(TakeU32()));
    } else {
      field = JW_DateTimeEx();
    }
  }
  // For the last field of a record, which keeps what it held when it is absent.
  void TakeLast(u64 mask, u32& field) {
    if (Has(mask)) field = TakeU32();
  }

  void ReadText(u64 mask, JW_StringA& field) {
    if (Has(mask)) {
      m_Stream.ReadString(field, false);
    } else {
      field.Empty();
    }
  }
  // The array grows as the elements arrive, so that a false count allocates nothing for bytes that aren't there.
  void ReadIds(u64 mask, JW_Array<JW_ID>& field) {
    if (!Has(mask)) return;
    const u32 count = m_Stream.ReadLength();
    if (count < static_cast<u32>(field.GetSize()) || count == 0) field.SetSize(static_cast<int>(count));
    constexpr u32 kAtOnce = 32;
    u32 words[kAtOnce][2];
    bool fits = true;  // ids that memory has no room for are read and dropped, so that the stream stays in step
    for (u32 done = 0; done < count;) {
      const u32 now = count - done < kAtOnce ? count - done : kAtOnce;
      memset(words, 0, sizeof(words));
      m_Stream.Read(words, now * 8);
      const u32 reached = done + now;
      if (reached > static_cast<u32>(field.GetSize())) {
        fits = fits && reached <= 0x7FFFFFFF && field.SetSize(static_cast<int>(reached));
      }
      for (u32 i = 0; fits && i < now; ++i) field[static_cast<int>(done + i)].SetWords(words[i]);
      done = reached;
    }
  }

 private:
  u32 TakeU32() {
    u32 value = 0;
    memcpy(&value, m_pNext, 4);
    m_pNext += 4;
    JW_ByteStream::SwapBytes(&value, 4);
    return value;
  }

  JW_ByteStream& m_Stream;
  u64 m_nMask = 0;
  u32 m_nOwed = 0;
  u8* m_pRun;
  const u8* m_pNext = nullptr;
};

// Collects a record's bytes and hands them to the stream. Where all of a record fits into the buffer, kFits saves the
// question before each field whether there is room.
constexpr u32 kWriterRoom = 240;

template <bool kFits>
class Writer {
 public:
  Writer(JW_ByteStream& stream, HeadForm form, u64 mask, u8 (&buffer)[kWriterRoom])
      : m_Stream(stream), m_nMask(mask), m_pBuffer(buffer), m_pNext(buffer + (1u << form)) {
    u64 head = mask << 2 | form;
    JW_ByteStream::SwapBytes(&head, 8);
    memcpy(buffer, &head, 8);
  }

  void Put(u64 mask, u32 field) {
    if (Has(mask)) PutU32(field);
  }
  void Put(u64 mask, const bool& field) {
    if (!Has(mask)) return;
    Reserve(1);
    *m_pNext++ = Truth(field);
  }
  void Put(u64 mask, const JW_ID& field) {
    if (Has(mask)) PutId(field);
  }
  void Put(u64 mask, const JW_DateTimeEx& field) {
    if (!Has(mask)) return;
    PutU32(static_cast<u32>(field.m_Date));
    PutU32(static_cast<u32>(field.m_Time));
  }
  void Put(u64 mask, const JW_StringA& field) {
    if (!Has(mask)) return;
    const u32 length = static_cast<u32>(field.GetLength());
    PutLength(length);
    if (kFits || length <= Left()) {
      JW_CopyShort(m_pNext, field.GetString(), length);
      m_pNext += length;
    } else {
      Flush();
      m_Stream.Write(field.GetString(), length);
    }
  }
  void Put(u64 mask, const JW_Array<JW_ID>& field) {
    if (!Has(mask)) return;
    PutLength(static_cast<u32>(field.GetSize()));
    for (const JW_ID& id : field) PutId(id);
  }

  // The last step of every Save.
  void Flush() {
    if (m_pNext != m_pBuffer) m_Stream.Write(m_pBuffer, static_cast<u32>(m_pNext - m_pBuffer));
    m_pNext = m_pBuffer;
  }

 private:
  bool Has(u64 mask) const { return (m_nMask & mask) != 0; }
  u32 Left() const { return kWriterRoom - static_cast<u32>(m_pNext - m_pBuffer); }
  void Reserve(u32 size) {
    if (!kFits && size > Left()) Flush();
  }
  void PutU32(u32 value) {
    Reserve(4);
    JW_ByteStream::SwapBytes(&value, 4);
    memcpy(m_pNext, &value, 4);
    m_pNext += 4;
  }
  void PutId(const JW_ID& id) {
    Reserve(8);
    u32 words[2];
    id.GetWords(words);
    memcpy(m_pNext, words, 8);
    m_pNext += 8;
  }
  void PutLength(u32 length) {
    Reserve(5);
    if (length < 0x80) {
      *m_pNext++ = static_cast<u8>(length);
    } else {
      m_pNext += JW_ByteStream::EncodeLength(length, m_pNext);
    }
  }

  JW_ByteStream& m_Stream;
  u64 m_nMask;
  u8* const m_pBuffer;
  u8* m_pNext;
};

inline u64 MostBytesOf(const JW_StringA& text) {
  return 5 + static_cast<u64>(text.GetLength());
}
inline u64 MostBytesOf(const JW_Array<JW_ID>& ids) {
  return 5 + 8 * static_cast<u64>(ids.GetSize());
}

// The most that a record's head and fields take: its fixed part, then each text or array with its length.
template <class... Fields>
u64 MostBytes(u64 fixed, const Fields&... fields) {
  return fixed + (MostBytesOf(fields) + ...);
}

template <class Record>
void SaveRecord(JW_ByteStream& stream, const Record& record, HeadForm form, u64 most) {
  u8 buffer[kWriterRoom];
  if (most <= kWriterRoom) {
    Writer<true> out(stream, form, record.m_nMask, buffer);
    record.PutFields(out);
    out.Flush();
  } else {
    Writer<false> out(stream, form, record.m_nMask, buffer);
    record.PutFields(out);
    out.Flush();
  }
}

}  // namespace vote_codec

inline VoteTopicRecord& VoteTopicRecord::operator=(const VoteTopicRecord& other) {
  m_nMask = other.m_nMask;
  TopicID = other.TopicID;
  TopicName.AssignText(other.TopicName);
  TopicDesc.AssignText(other.TopicDesc);
  IsSignVote = vote_codec::Truth(other.IsSignVote);
  TimeLong = other.TimeLong;
  TopicFlags = other.TopicFlags;
  EndTime = other.EndTime;
  CreatorID = other.CreatorID;
  IsAllVote = vote_codec::Truth(other.IsAllVote);
  VoterList.CopyFrom(other.VoterList);
  IsAllView = vote_codec::Truth(other.IsAllView);
  ViewerList.CopyFrom(other.ViewerList);
  IsStarted = vote_codec::Truth(other.IsStarted);
  ManagerID = other.ManagerID;
  TopicExtra = other.TopicExtra;
  return *this;
}

inline void VoteTopicRecord::Load(JW_ByteStream& stream) {
  u8 run[vote_codec::kRunRoom];
  vote_codec::Reader in(stream, m_nMask, run);
  in.Fetch<4>(kTopicID);
  in.Take(kTopicID, TopicID);
  in.ReadText(kTopicName, TopicName);
  in.ReadText(kTopicDesc, TopicDesc);
  in.Fetch<1, 4, 4, 8, 8, 1>(kIsSignVote);
  in.Take(kIsSignVote, IsSignVote);
  in.Take(kTimeLong, TimeLong);
  in.Take(kTopicFlags, TopicFlags);
  in.Take(kEndTime, EndTime);
  in.Take(kCreatorID, CreatorID);
  in.Take(kIsAllVote, IsAllVote);
  in.ReadIds(kVoterList, VoterList);
  in.Fetch<1>(kIsAllView);
  in.Take(kIsAllView, IsAllView);
  in.ReadIds(kViewerList, ViewerList);
  in.Fetch<1, 8, 4>(kIsStarted);
  in.Take(kIsStarted, IsStarted);
  in.Take(kManagerID, ManagerID);
  in.TakeLast(kTopicExtra, TopicExtra);
}

inline void VoteTopicRecord::Save(JW_ByteStream& stream) const {
  vote_codec::SaveRecord(stream, *this, vote_codec::kFourBytes,
                         vote_codec::MostBytes(64, TopicName, TopicDesc, VoterList, ViewerList));
}

template <class Writer>
void VoteTopicRecord::PutFields(Writer& out) const {
  out.Put(kTopicID, TopicID);
  out.Put(kTopicName, TopicName);
  out.Put(kTopicDesc, TopicDesc);
  out.Put(kIsSignVote, IsSignVote);
  out.Put(kTimeLong, TimeLong);
  out.Put(kTopicFlags, TopicFlags);
  out.Put(kEndTime, EndTime);
  out.Put(kCreatorID, CreatorID);
  out.Put(kIsAllVote, IsAllVote);
  out.Put(kVoterList, VoterList);
  out.Put(kIsAllView, IsAllView);
  out.Put(kViewerList, ViewerList);
  out.Put(kIsStarted, IsStarted);
  out.Put(kManagerID, ManagerID);
  out.Put(kTopicExtra, TopicExtra);
}

inline VoteItemRecord& VoteItemRecord::operator=(const VoteItemRecord& other) {
  m_nMask = other.m_nMask;
  ItemNo = other.ItemNo;
  ItemID = other.ItemID;
  TopicID = other.TopicID;
  ItemType = other.ItemType;
  IsOpen = vote_codec::Truth(other.IsOpen);
  ItemName.AssignText(other.ItemName);
  ItemDesc.AssignText(other.ItemDesc);
  MultiSelLim = other.MultiSelLim;
  ItemExtra = other.ItemExtra;
  return *this;
}

inline void VoteItemRecord::Load(JW_ByteStream& stream) {
  u8 run[vote_codec::kRunRoom];
  vote_codec::Reader in(stream, m_nMask, run);
  in.Fetch<4, 4, 4, 4, 1>(kItemNo);
  in.Take(kItemNo, ItemNo);
  in.Take(kItemID, ItemID);
  in.Take(kTopicID, TopicID);
  in.Take(kItemType, ItemType);
  in.Take(kIsOpen, IsOpen);
  in.ReadText(kItemName, ItemName);
  in.ReadText(kItemDesc, ItemDesc);
  in.Fetch<4, 4>(kMultiSelLim);
  in.Take(kMultiSelLim, MultiSelLim);
  in.TakeLast(kItemExtra, ItemExtra);
}

inline void VoteItemRecord::Save(JW_ByteStream& stream) const {
  vote_codec::SaveRecord(stream, *this, vote_codec::kTwoBytes, vote_codec::MostBytes(40, ItemName, ItemDesc));
}

template <class Writer>
void VoteItemRecord::PutFields(Writer& out) const {
  out.Put(kItemNo, ItemNo);
  out.Put(kItemID, ItemID);
  out.Put(kTopicID, TopicID);
  out.Put(kItemType, ItemType);
  out.Put(kIsOpen, IsOpen);
  out.Put(kItemName, ItemName);
  out.Put(kItemDesc, ItemDesc);
  out.Put(kMultiSelLim, MultiSelLim);
  out.Put(kItemExtra, ItemExtra);
}

inline VoteOptionRecord& VoteOptionRecord::operator=(const VoteOptionRecord& other) {
  m_nMask = other.m_nMask;
  OptionID = other.OptionID;
  ItemID = other.ItemID;
  OptionDesc.AssignText(other.OptionDesc);
  OptionExtra = other.OptionExtra;
  return *this;
}

inline void VoteOptionRecord::Load(JW_ByteStream& stream) {
  u8 run[vote_codec::kRunRoom];
  vote_codec::Reader in(stream, m_nMask, run);
  in.Fetch<4, 4>(kOptionID);
  in.Take(kOptionID, OptionID);
  in.Take(kItemID, ItemID);
  in.ReadText(kOptionDesc, OptionDesc);
  in.Fetch<4>(kOptionExtra);
  in.TakeLast(kOptionExtra, OptionExtra);
}

inline void VoteOptionRecord::Save(JW_ByteStream& stream) const {
  vote_codec::SaveRecord(stream, *this, vote_codec::kOneByte, vote_codec::MostBytes(24, OptionDesc));
}

template <class Writer>
void VoteOptionRecord::PutFields(Writer& out) const {
  out.Put(kOptionID, OptionID);
  out.Put(kItemID, ItemID);
  out.Put(kOptionDesc, OptionDesc);
  out.Put(kOptionExtra, OptionExtra);
}

inline VoteAnswerRecord& VoteAnswerRecord::operator=(const VoteAnswerRecord& other) {
  m_nMask = other.m_nMask;
  TopicID = other.TopicID;
  ItemID = other.ItemID;
  VoterID = other.VoterID;
  OptionID = other.OptionID;
  SignName.AssignText(other.SignName);
  AnswerExtra = other.AnswerExtra;
  return *this;
}

inline void VoteAnswerRecord::Load(JW_ByteStream& stream) {
  u8 run[vote_codec::kRunRoom];
  vote_codec::Reader in(stream, m_nMask, run);
  in.Fetch<4, 4, 8, 4>(kTopicID);
  in.Take(kTopicID, TopicID);
  in.Take(kItemID, ItemID);
  in.Take(kVoterID, VoterID);
  in.Take(kOptionID, OptionID);
  in.ReadText(kSignName, SignName);
  in.Fetch<4>(kAnswerExtra);
  in.TakeLast(kAnswerExtra, AnswerExtra);
}

inline void VoteAnswerRecord::Save(JW_ByteStream& stream) const {
  vote_codec::SaveRecord(stream, *this, vote_codec::kOneByte, vote_codec::MostBytes(40, SignName));
}

template <class Writer>
void VoteAnswerRecord::PutFields(Writer& out) const {
  out.Put(kTopicID, TopicID);
  out.Put(kItemID, ItemID);
  out.Put(kVoterID, VoterID);
  out.Put(kOptionID, OptionID);
  out.Put(kSignName, SignName);
  out.Put(kAnswerExtra, AnswerExtra);
}
