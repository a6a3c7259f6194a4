#include <new>

#include "JW_Base/Include/JW_Utf8.h"
#include "votedata/VoteData.h"
#include "votedata/VoteEntries.h"

VoteTally::~VoteTally() { Wipe(true); }

void VoteTally::Add(const VoteAnswerRecord& answer) {
  VoteVoterEntry*& voter = m_Voters[answer.VoterID];
  if (!voter) {
    voter = new (std::nothrow) VoteVoterEntry;
    if (!voter) {
      m_Voters.RemoveKey(answer.VoterID);
      return;
    }
    voter->VoterID = answer.VoterID;
    voter->SignName = JW_WideFromUtf8(answer.SignName);
  }
  voter->m_Options.Add(answer.OptionID);
  ++m_OptionCount[answer.OptionID];
  ++m_nAnswers;
}

void VoteTally::Wipe(bool closeWindow) {
  for (auto& voter : m_Voters) delete voter.value;
  m_Voters.RemoveAll();
  m_OptionCount.RemoveAll();
  m_nAnswers = 0;
  if (closeWindow) CloseDetailWindow();
}

void VoteTally::CloseDetailWindow() {
  VoteDlgSignName* const window = m_pDetailWnd;
  m_pDetailWnd = nullptr;
  if (window && VoteData::Ui()) VoteData::Ui()->CloseSignNames(window);
}
