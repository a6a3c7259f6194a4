// An IZQVote with its owner, whatever it comes from.
#pragma once

#include "module/HeadlessVote.h"

namespace conference {

class VoteInstance {
 public:
  virtual ~VoteInstance() = default;
  virtual IZQVote& Vote() = 0;
};

// The linked core. As its data is one for the whole process, there may be one such instance at a time.
class LinkedVote final : public VoteInstance {
 public:
  ~LinkedVote() override { m_Vote.DestroyVoteWindow(); }
  IZQVote& Vote() override { return m_Vote; }

 private:
  class Headless final : public HeadlessVote {};
  Headless m_Vote;
};

}  // namespace conference
