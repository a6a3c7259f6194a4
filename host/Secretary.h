// The participant who keeps the minutes. Her module is the linked core, so she can do what elsewhere takes the
// module's window: the commands of its buttons, saving the vote, writing the report.
#pragma once

#include "host/Participant.h"
#include "votedata/VoteData.h"

namespace conference {

class Secretary {
 public:
  explicit Secretary(Participant& seat) : m_Seat(seat) {}

  Participant& Seat() { return m_Seat; }

  // As if the button had been clicked. False if the command was refused.
  bool Click(VoteCommand command, int topicId, u32 itemId = 0, u32 optionId = 0);
  void Select(int topicId, u32 itemId, const std::vector<u32>& options);

  // As her module counts; empty if it doesn't know the vote.
  VoteCount Count(int topicId) const;

  bool SaveVote(int topicId, const JW_String& path) const;
  bool WriteReport(int topicId, const JW_String& path) const;

 private:
  Participant& m_Seat;
};

}  // namespace conference
