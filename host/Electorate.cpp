#include "host/Electorate.h"

#include <algorithm>
#include <numeric>

namespace conference {

std::vector<u32> Electorate::Choose(const Question& question) {
  constexpr u32 kUndecided = 30;  // one answer of so many names no option
  std::vector<u32> ids;
  for (const VoteOptionRecord& option : question.options) ids.push_back(option.OptionID);
  const u32 count = static_cast<u32>(ids.size());
  u32 wanted = count == 0 ? 0 : 1;
  if (question.item.ItemType == VoteItemRecord::kMultipleChoice) {
    const u32 limit = std::min(question.item.MultiSelLim, count);
    wanted = limit == 0 ? 0 : 1 + std::max(Below(limit), Below(limit));
  } else if (question.item.ItemType > VoteItemRecord::kYesOrNo) {
    wanted = 0;  // the module lets nobody choose here
  }
  if (Below(kUndecided) == 0) wanted = 0;

  std::vector<u32> weights = Liking(question);
  std::vector<u32> chosen;
  while (chosen.size() < wanted) {
    const size_t index = Draw(weights);
    weights[index] = 0;
    chosen.push_back(ids[index]);
  }
  std::sort(chosen.begin(), chosen.end());
  return chosen;
}

std::vector<u32> Electorate::Liking(const Question& question) const {
  std::vector<u32> weights(static_cast<size_t>(question.options.GetCount()));
  for (size_t i = 0; i < weights.size(); ++i) weights[i] = 24 / static_cast<u32>(i + 1) + 2;
  // A ballot of two fixed options is put where a yes is hoped for.
  if (question.item.ItemType == VoteItemRecord::kYesOrNo) return weights;
  std::minstd_rand order(m_nSeed + question.item.ItemNo * 7919 + 1);
  order.discard(4);
  for (size_t i = weights.size(); i > 1; --i) std::swap(weights[i - 1], weights[static_cast<size_t>(order()) % i]);
  return weights;
}

size_t Electorate::Draw(const std::vector<u32>& weights) {
  u32 left = Below(std::accumulate(weights.begin(), weights.end(), 0u));
  size_t index = 0;
  while (left >= weights[index]) left -= weights[index++];
  return index;
}

}  // namespace conference
