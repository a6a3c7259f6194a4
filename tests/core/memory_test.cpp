// Every operation once for each allocation in it that can fail: nothing crashes, throws or leaks, and what is stored
// stays whole.
#include <cstdlib>
#include <functional>
#include <new>

#include "tests/core/support.h"

namespace {

// Allocations until the one that fails; negative for none.
int g_nUntilFailure = -1;

bool FailsNow() {
  return g_nUntilFailure >= 0 && g_nUntilFailure-- == 0;
}

}  // namespace

extern "C" {
void* __real_malloc(size_t size);
void* __real_calloc(size_t count, size_t size);
void* __wrap_malloc(size_t size);
void* __wrap_calloc(size_t count, size_t size);
}
void* __wrap_malloc(size_t size) {
  return FailsNow() ? nullptr : __real_malloc(size);
}
void* __wrap_calloc(size_t count, size_t size) {
  return FailsNow() ? nullptr : __real_calloc(count, size);
}

void* operator new(size_t size) {
  void* const memory = FailsNow() ? nullptr : __real_malloc(size);
  if (!memory) throw std::bad_alloc();
  return memory;
}
void* operator new(size_t size, const std::nothrow_t&) noexcept {
  return FailsNow() ? nullptr : __real_malloc(size);
}
void operator delete(void* memory) noexcept {
  free(memory);
}
void operator delete(void* memory, size_t) noexcept {
  free(memory);
}

namespace {

struct Lists {
  VoteTopicRecord topic = Topic(1, kMe, "A name of some length");
  VoteTopicList topics = ListOf({Topic(1), Topic(2), Topic(3)});
  VoteItemList items = ListOf({Item(1, 10), Item(1, 11), Item(1, 12)});
  VoteOptionList options = ListOf({Option(10, 1), Option(10, 2), Option(11, 1)});
  VoteAnswerList answers = ListOf({Answer(1, 10, kMe, 1, "Me"), Answer(1, 11, kOther, 1, "Other")});
  VoteIdArray ids = Ids({12, 11, 10});
};

TEST(Memory, AnyAllocationMayFail) {
  Lists lists;
  for (JW_ID id(1, 1); id.dwLow < 40; ++id.dwLow) lists.topic.VoterList.Add(id);
  VoteData* data = nullptr;
  const std::vector<std::function<void()>> operations = {
      [&] { data->AddTopic(&lists.topic); },
      [&] { data->UpdateTopic(&lists.topic); },
      [&] { data->SyncTopics(&lists.topics); },
      [&] { data->RemoveTopic(1); },
      [&] { data->AddItems(&lists.items); },
      [&] { data->AddOptions(&lists.options); },
      [&] { data->UpdateItems(&lists.items, true, true); },
      [&] { data->UpdateOptions(&lists.options, true); },
      [&] { data->SyncContent(&lists.items, &lists.options); },
      [&] { data->SetItemOrder(1, &lists.ids); },
      [&] { data->RemoveItems(&lists.ids); },
      [&] { data->ApplyAnswers(1, &lists.answers, kAnswersPublished); },
      [&] { data->ReloadResults(); },
      [&] { data->SetItemsOpen(&lists.ids, 1); },
      [&] { data->MoveItem(0, 1, 11); },
      [&] {
        VoteAnswerList built;
        const JW_String name(JW_W("Me"));
        if (const VoteTopicEntry* const topic = data->FindTopic(1)) topic->BuildAnswers(kMe, name, &built);
      },
      [&] {
        VoteTopicRecord copy;
        VoteItemList items;
        VoteOptionList options;
        data->CopyTopic(1, &copy, &items, &options);
      },
  };
  for (size_t i = 0; i < operations.size(); ++i) {
    int failures = 0;
    for (bool complete = false; !complete; ++failures) {
      complete = true;
      ASSERT_LT(failures, 1000) << i;
      data = VoteData::Get();
      data->SetLocalUser(kMe);
      // Half of the runs find the vote in place, half of it missing.
      for (const bool stored : {true, false}) {
        if (stored) {
          data->AddTopic(&lists.topic);
          data->AddItems(&lists.items);
          data->AddOptions(&lists.options);
          data->ApplyVoteState(1, 1);
        }
        g_nUntilFailure = failures;
        EXPECT_NO_THROW(operations[i]()) << i;
        complete &= g_nUntilFailure >= 0;
        g_nUntilFailure = -1;
        data->RemoveTopic(1);
      }
      VoteData::Release();
    }
  }
  g_nUntilFailure = 0;
  EXPECT_FALSE(VoteData::Get());
  EXPECT_TRUE(VoteData::Get());
  VoteData::Release();
}

// A map without memory for its index goes on without one.
TEST(Memory, AMapNeedsNoIndex) {
  for (int failure = 0; failure < 12; ++failure) {
    JW_Map<u32, u32> map;
    for (u32 key = 0; key < 95; ++key) map[key] = key;
    g_nUntilFailure = failure;
    for (u32 key = 95; key < 300; ++key) map.AddNew(key, key);
    g_nUntilFailure = -1;
    for (u32 key = 0; key < 300; ++key) {
      const u32* const value = map.Lookup(key);
      EXPECT_TRUE(value ? *value == key : key >= 95);
    }
    EXPECT_GE(map.GetCount(), 290 - 10);
  }
}

#if !defined(JW_ASSERTIONS)
TEST(Memory, LoadGoesOnWithoutWhatItCannotStore) {
  Lists lists;
  for (JW_ID id(1, 1); id.dwLow < 100; ++id.dwLow) lists.topic.VoterList.Add(id);
  lists.topic.m_nMask |= VoteTopicRecord::kVoterList;
  const Bytes bytes = Saved(lists.topic);
  for (int failure = 0; failure < 8; ++failure) {
    MemoryStream stream(bytes);
    VoteTopicRecord record;
    g_nUntilFailure = failure;
    try {
      record.Load(stream);
    } catch (...) {  // the stream's end: what follows a text that isn't stored is out of step
    }
    g_nUntilFailure = -1;
    EXPECT_EQ(lists.topic.m_nMask, record.m_nMask);
  }
}
#endif

}  // namespace
