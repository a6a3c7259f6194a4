// The memory of 20 votes at their limits.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include "bench/vote_samples.h"

namespace {

void HoldVotes(benchmark::State& state) {
  double used = 0;
  for (auto _ : state) {
    malloc_trim(0);
    const struct mallinfo2 before = mallinfo2();
    HeadlessVote vote;
    VoteTopicList topics;
    for (u32 id = 1; id <= 20; ++id) topics.AddTail(vote_samples::Topic(id, false));
    vote.OnVoteList(&topics);
    for (u32 id = 1; id <= 20; ++id) {
      VoteItemList items;
      VoteOptionList options;
      vote_samples::Questions(id, 200, 16, items, options);
      vote.OnItemsAdded(&items, &options);
    }
    const struct mallinfo2 after = mallinfo2();
    used = static_cast<double>(after.uordblks - before.uordblks) / (1 << 20);
  }
  state.counters["MiB"] = used;
}
BENCHMARK(HoldVotes)->Name("memory/zqvote")->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
