// The report of a vote at its limits with 200 voters, signed, which is the longest report there can be.
#include <benchmark/benchmark.h>

#include "bench/vote_samples.h"
#include "platform/posix/TextTable.h"

namespace {

struct Line {
  u32 id;
  const char* text;
};
constexpr Line kTexts[] = {
#include "resources/texts.en.inc"
};

void WriteReport(benchmark::State& state) {
  platform::TextTable texts;
  for (const Line& line : kTexts) texts.Set(line.id, line.text);
  HeadlessVote vote;
  vote.SetResourceModule(texts.Handle());
  const VoteTopicRecord topic = vote_samples::Topic(1, state.range(0) != 0);
  VoteTopicList topics;
  topics.AddTail(topic);
  vote.OnVoteList(&topics);
  VoteItemList items;
  VoteOptionList options;
  vote_samples::Questions(1, 200, 16, items, options);
  vote.OnItemsAdded(&items, &options);
  VoteAnswerList answers;
  for (const VoteItemRecord& item : items) {
    for (u32 voter = 0; voter < 200; ++voter) {
      answers.AddTail(vote_samples::Answer(1, item.ItemID, voter, (voter * 7 + item.ItemID) % 16));
    }
  }
  vote.OnResultReceived(1, &answers);
  for (auto _ : state) benchmark::DoNotOptimize(VoteData::Get()->WriteHtmlReport(u"/tmp/zqvote-bench.html", 1));
  vote.SetResourceModule(nullptr);
}
BENCHMARK(WriteReport)->Name("report/zqvote")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
