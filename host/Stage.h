// Everybody who takes part in a demonstration, and the conference they are in.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "host/Conference.h"
#include "host/Participant.h"

namespace conference {

struct CastMember {
  JW_ID user;
  const JW_WChar* name;
};

class Stage {
 public:
  static constexpr size_t kVoters = 25;

  // Makes a module for a participant; the linked core if `linked`.
  typedef std::function<std::unique_ptr<VoteInstance>(bool linked)> InstanceFactory;

  // The operator and the voters enter. The operator has the right to manage votes.
  Stage(InstanceFactory factory, JW_HMODULE resources, ParticipantObserver& observer);

  Conference& Room() { return m_Conference; }
  Participant& Operator() { return *m_People.front(); }
  // One of the voters, whose module is the linked core.
  Participant& Secretary() { return *m_Voters.front(); }
  const std::vector<Participant*>& Voters() const { return m_Voters; }
  const std::vector<std::unique_ptr<Participant>>& People() const { return m_People; }
  // One more, who came too late to vote.
  Participant& LetLatecomerIn();

  // Lets conference and participants work until no message waits.
  void Settle();

 private:
  Participant& Enter(const CastMember& member, bool linked);

  InstanceFactory m_Factory;
  JW_HMODULE m_hResources;
  ParticipantObserver& m_Observer;
  Conference m_Conference;
  std::vector<std::unique_ptr<Participant>> m_People;
  std::vector<Participant*> m_Voters;
};

}  // namespace conference
