// What voters choose: made up, plausible, and the same for the same seed on every machine.
#pragma once

#include <random>
#include <vector>

#include "host/ConferenceVote.h"

namespace conference {

class Electorate {
 public:
  explicit Electorate(u32 seed) : m_nSeed(seed), m_Random(seed) {}

  // The options that the next voter chooses; empty for a voter who chooses none.
  std::vector<u32> Choose(const Question& question);

 private:
  // How much each option of a question is liked.
  std::vector<u32> Liking(const Question& question) const;
  size_t Draw(const std::vector<u32>& weights);
  u32 Below(u32 limit) { return static_cast<u32>(m_Random()) % limit; }

  u32 m_nSeed;
  std::minstd_rand m_Random;
};

}  // namespace conference
