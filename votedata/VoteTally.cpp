#include "JW_Base/Include/JW_Utf8.h"
#include "votedata/VoteData.h"
#include "votedata/VoteEntries.h"

namespace {

// Freed entries and the blocks that they are in; the blocks go with the last entry.
union FreeVoter {
  FreeVoter* pNext;
  alignas(VoteVoterEntry) unsigned char entry[sizeof(VoteVoterEntry)];
};
FreeVoter* g_pFreeVoters = nullptr;
JW_Plex* g_pVoterBlocks = nullptr;
u32 g_nVoters = 0;

}  // namespace

void* VoteVoterEntry::operator new(size_t /*size*/) noexcept {
  constexpr u32 kBlock = 34;
  if (!g_pFreeVoters) {
    JW_Plex* const block = JW_Plex::Create(g_pVoterBlocks, kBlock, sizeof(FreeVoter));
    if (!block) return nullptr;
    FreeVoter* const voters = static_cast<FreeVoter*>(block->Data());
    for (u32 i = kBlock; i-- > 0;) {
      voters[i].pNext = g_pFreeVoters;
      g_pFreeVoters = &voters[i];
    }
  }
  FreeVoter* const voter = g_pFreeVoters;
  g_pFreeVoters = voter->pNext;
  ++g_nVoters;
  return voter;
}

void VoteVoterEntry::operator delete(void* memory) noexcept {
  if (!memory) return;
  FreeVoter* const voter = static_cast<FreeVoter*>(memory);
  voter->pNext = g_pFreeVoters;
  g_pFreeVoters = voter;
  if (--g_nVoters == 0) {
    JW_Plex::FreeChain(g_pVoterBlocks);
    g_pVoterBlocks = nullptr;
    g_pFreeVoters = nullptr;
  }
}

VoteTally::~VoteTally() {
  Wipe(true);
}

void VoteTally::Add(const VoteAnswerRecord& answer) {
  const int before = m_Voters.GetCount();
  VoteVoterEntry*& voter = m_Voters[answer.VoterID];
  if (!voter) {
    if (m_Voters.GetCount() == before) return;  // no memory for the voter
    voter = new VoteVoterEntry;
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
  m_Voters.ForEachInMemory([](auto& voter) { delete voter.value; });
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
