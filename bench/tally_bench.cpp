// The results of 20 questions through the interface, beside the same count with the standard library's hash map.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

#include "JW_Base/Include/JW_Utf8.h"
#include "bench/vote_samples.h"

namespace {

constexpr u32 kTopicId = 1;
constexpr u32 kQuestions = 20;
constexpr u32 kOptions = 5;

VoteAnswerList Answers(u32 voters, bool shuffled) {
  std::vector<u32> order(voters);
  std::iota(order.begin(), order.end(), 0u);
  std::mt19937 random(7);
  VoteAnswerList answers;
  for (u32 question = 0; question < kQuestions; ++question) {
    if (shuffled) std::shuffle(order.begin(), order.end(), random);
    for (const u32 voter : order) {
      answers.AddTail(vote_samples::Answer(kTopicId, kTopicId * 1000 + question + 1, voter, voter % kOptions));
    }
  }
  return answers;
}

void CountByModule(benchmark::State& state) {
  const VoteAnswerList answers = Answers(static_cast<u32>(state.range(0)), state.range(1) != 0);
  HeadlessVote vote;
  const VoteTopicRecord topic = vote_samples::Topic(kTopicId, true);
  VoteTopicList topics;
  topics.AddTail(topic);
  vote.OnVoteList(&topics);
  VoteItemList items;
  VoteOptionList options;
  vote_samples::Questions(kTopicId, kQuestions, kOptions, items, options);
  vote.OnItemsAdded(&items, &options);
  IZQVote& module = vote;
  for (auto _ : state) module.OnResultReceived(static_cast<int>(kTopicId), &answers);
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * answers.GetCount());
}

struct PeerVoter {
  std::u16string name;
  std::vector<u32> options;
};
struct PeerTally {
  std::unordered_map<u64, PeerVoter> voters;
  std::unordered_map<u32, int> counts;
  int answers = 0;
};

void CountByUnorderedMap(benchmark::State& state) {
  const VoteAnswerList answers = Answers(static_cast<u32>(state.range(0)), state.range(1) != 0);
  std::unordered_map<u32, PeerTally> questions;
  for (u32 question = 0; question < kQuestions; ++question) questions[kTopicId * 1000 + question + 1];
  for (auto _ : state) {
    for (auto& [id, tally] : questions) tally = PeerTally();
    for (const VoteAnswerRecord& answer : answers) {
      const auto question = questions.find(answer.ItemID);
      if (question == questions.end()) continue;
      PeerTally& tally = question->second;
      const u64 key = static_cast<u64>(answer.VoterID.dwHigh) << 32 | answer.VoterID.dwLow;
      const auto [voter, isNew] = tally.voters.try_emplace(key);
      if (isNew) {
        const JW_String name = JW_WideFromUtf8(answer.SignName);
        voter->second.name.assign(name.GetString(), static_cast<size_t>(name.GetLength()));
      }
      voter->second.options.push_back(answer.OptionID);
      ++tally.counts[answer.OptionID];
      ++tally.answers;
    }
    benchmark::DoNotOptimize(questions);
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * answers.GetCount());
}

void Cases(benchmark::internal::Benchmark* bench) {
  for (const int voters : {100, 300, 1000, 3000, 10000}) {
    for (const int shuffled : {0, 1}) bench->Args({voters, shuffled});
  }
  bench->Unit(benchmark::kMicrosecond);
}
BENCHMARK(CountByModule)->Name("tally/zqvote")->Apply(Cases);
BENCHMARK(CountByUnorderedMap)->Name("tally/unordered_map")->Apply(Cases);

}  // namespace
