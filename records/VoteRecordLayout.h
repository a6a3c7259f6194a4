// The records' layout in a 32-bit process, which every compiler on either side of the boundary must come to.
#pragma once

#include "records/VoteRecords.h"

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
#endif

#define JW_ASSERT_OFFSET(type, field, offset) \
  static_assert(sizeof(void*) != 4 || offsetof(type, field) == (offset), #type "::" #field)
#define JW_ASSERT_SIZE(type, size) static_assert(sizeof(void*) != 4 || sizeof(type) == (size), #type)

JW_ASSERT_OFFSET(JW_ByteStream, m_nMark, 8);
JW_ASSERT_OFFSET(JW_ByteStream, m_bLoad, 12);
JW_ASSERT_OFFSET(JW_ID, dwLow, 4);
JW_ASSERT_OFFSET(JW_ID, dwHigh, 8);
JW_ASSERT_OFFSET(JW_DateTimeEx, m_Date, 0);
JW_ASSERT_OFFSET(JW_DateTimeEx, m_Time, 4);

JW_ASSERT_OFFSET(VoteTopicRecord, m_nMask, 8);
JW_ASSERT_OFFSET(VoteTopicRecord, TopicID, 16);
JW_ASSERT_OFFSET(VoteTopicRecord, TopicName, 20);
JW_ASSERT_OFFSET(VoteTopicRecord, TopicDesc, 24);
JW_ASSERT_OFFSET(VoteTopicRecord, IsSignVote, 28);
JW_ASSERT_OFFSET(VoteTopicRecord, TimeLong, 32);
JW_ASSERT_OFFSET(VoteTopicRecord, TopicFlags, 36);
JW_ASSERT_OFFSET(VoteTopicRecord, EndTime, 40);
JW_ASSERT_OFFSET(VoteTopicRecord, CreatorID, 48);
JW_ASSERT_OFFSET(VoteTopicRecord, IsAllVote, 60);
JW_ASSERT_OFFSET(VoteTopicRecord, VoterList, 64);
JW_ASSERT_OFFSET(VoteTopicRecord, IsAllView, 80);
JW_ASSERT_OFFSET(VoteTopicRecord, ViewerList, 84);
JW_ASSERT_OFFSET(VoteTopicRecord, IsStarted, 100);
JW_ASSERT_OFFSET(VoteTopicRecord, ManagerID, 104);
JW_ASSERT_OFFSET(VoteTopicRecord, TopicExtra, 116);
JW_ASSERT_SIZE(VoteTopicRecord, 120);

JW_ASSERT_OFFSET(VoteItemRecord, m_nMask, 8);
JW_ASSERT_OFFSET(VoteItemRecord, ItemNo, 16);
JW_ASSERT_OFFSET(VoteItemRecord, ItemID, 20);
JW_ASSERT_OFFSET(VoteItemRecord, TopicID, 24);
JW_ASSERT_OFFSET(VoteItemRecord, ItemType, 28);
JW_ASSERT_OFFSET(VoteItemRecord, IsOpen, 32);
JW_ASSERT_OFFSET(VoteItemRecord, ItemName, 36);
JW_ASSERT_OFFSET(VoteItemRecord, ItemDesc, 40);
JW_ASSERT_OFFSET(VoteItemRecord, MultiSelLim, 44);
JW_ASSERT_OFFSET(VoteItemRecord, ItemExtra, 48);
JW_ASSERT_SIZE(VoteItemRecord, 56);

JW_ASSERT_OFFSET(VoteOptionRecord, m_nMask, 8);
JW_ASSERT_OFFSET(VoteOptionRecord, OptionID, 16);
JW_ASSERT_OFFSET(VoteOptionRecord, ItemID, 20);
JW_ASSERT_OFFSET(VoteOptionRecord, OptionDesc, 24);
JW_ASSERT_OFFSET(VoteOptionRecord, OptionExtra, 28);
JW_ASSERT_SIZE(VoteOptionRecord, 32);

JW_ASSERT_OFFSET(VoteAnswerRecord, m_nMask, 8);
JW_ASSERT_OFFSET(VoteAnswerRecord, TopicID, 16);
JW_ASSERT_OFFSET(VoteAnswerRecord, ItemID, 20);
JW_ASSERT_OFFSET(VoteAnswerRecord, VoterID, 24);
JW_ASSERT_OFFSET(VoteAnswerRecord, OptionID, 36);
JW_ASSERT_OFFSET(VoteAnswerRecord, SignName, 40);
JW_ASSERT_OFFSET(VoteAnswerRecord, AnswerExtra, 44);
JW_ASSERT_SIZE(VoteAnswerRecord, 48);

// A list node is two links and the record.
JW_ASSERT_OFFSET(VoteItemList::Node, pNext, 0);
JW_ASSERT_OFFSET(VoteItemList::Node, pPrev, 4);
JW_ASSERT_OFFSET(VoteItemList::Node, data, 8);

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif
