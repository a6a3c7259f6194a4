// What crosses between a participant's client and the conference, and how it stands on the connection.
//
// A message is a kind, a few numbers and the records that belong to it. The records travel in the encoding of their
// own Save and Load; the rest is the business of this client alone and could be anything.
#pragma once

#include <vector>

#include "records/VoteRecords.h"

namespace conference {

enum class MessageKind : u8 {
  // A participant asks: one kind for each operation of the sink that reaches the conference.
  kCreateVote = 1,
  kModifyVote,
  kRequestVoteContent,
  kAddItems,
  kModifyItems,
  kRemoveItems,
  kSubmitAnswers,
  kSetVoteState,
  kSetItemsOpen,
  kPublishResult,
  kDeleteVote,
  kRequestResult,
  kFetchResult,
  kSetItemOrder,
  kResetVote,
  kHandOver,  // of the client itself: the module has no such operation
  // The conference tells: one kind for each event of the interface.
  kVoteList = 64,
  kVoteCreated,
  kVoteModified,
  kItemsAdded,
  kItemsModified,
  kItemsRemoved,
  kItemsRemaining,
  kVoteStateChanged,
  kItemsOpened,
  kVoteContent,
  kVoteReset,
  kResultPublished,
  kVoteRemoved,
  kPendingAnswers,
  kResultReceived,
  kItemOrderChanged,
  kVoteManagerChanged,
  kOperateRight,
  kUserChanged,    // who is there, with the name as text
  kReloadResults,  // the connection was lost for a while: what was delivered may be stale
  kRefused,        // of the client itself: why a request was not carried out, as text
};

struct Message {
  MessageKind kind = MessageKind::kRefused;
  int topicId = 0;
  int value = 0;  // a mode, whether something is open or granted
  JW_ID user;
  JW_StringA text;  // UTF-8
  VoteIdArray ids;
  VoteTopicList topics;
  VoteItemList items;
  VoteOptionList options;
  VoteAnswerList answers;
};

// Empty if the message is larger than a stream may be.
std::vector<u8> Encode(const Message& message);

// False if `bytes` are no whole message; `message` then holds what had been read so far.
bool Decode(const std::vector<u8>& bytes, Message& message);

}  // namespace conference
