#include <functional>

#include "tests/core/support.h"

using testing::_;
using testing::InSequence;
using testing::IsNull;
using testing::StrictMock;

namespace {

typedef VoteTest BroadcastTest;

TEST_F(BroadcastTest, NewestHearsFirst) {
  StrictMock<MockListener> older, newer;
  data->AddListener(&older);
  data->AddListener(nullptr);
  data->AddListener(&newer);
  const InSequence order;
  EXPECT_CALL(newer, OnVoteReset(9, 5));
  EXPECT_CALL(older, OnVoteReset(9, 5));
  data->OnVoteReset(9, 5);
}

// Five listeners, of which number 3 removes some while it is called. They are called from 4 down to 0.
class LeavingTest : public VoteTest {
 protected:
  struct Listener final : VoteListener {
    void OnVoteReset(u32, int) override {
      calls.push_back(number);
      if (action) action();
    }
    int number = 0;
    std::function<void()> action;
    static std::vector<int> calls;
  };

  std::vector<int> CallsWhen3Does(const std::function<void()>& action) {
    Listener::calls.clear();
    for (int i = 0; i < 5; ++i) {
      all[i].number = i;
      data->AddListener(&all[i]);
    }
    all[3].action = action;
    data->OnVoteReset(0, 1);
    return Listener::calls;
  }

  Listener all[5];
};
std::vector<int> LeavingTest::Listener::calls;

TEST_F(LeavingTest, RemovesItself) {
  EXPECT_EQ(std::vector<int>({4, 3, 2, 1, 0}), CallsWhen3Does([&] { data->RemoveListener(&all[3]); }));
}
TEST_F(LeavingTest, RemovesAnOlderOneSoThatAnotherHearsTwice) {
  // With 0 gone, 3 itself stands at index 2, where the walk goes on.
  EXPECT_EQ(std::vector<int>({4, 3, 3, 2, 1}), CallsWhen3Does([&] { data->RemoveListener(&all[0]); }));
}
TEST_F(LeavingTest, RemovesSoManyThatTheWalkEnds) {
  EXPECT_EQ(std::vector<int>({4, 3}), CallsWhen3Does([&] {
              for (const int gone : {4, 3, 2}) data->RemoveListener(&all[gone]);
              data->RemoveListener(&all[0]);
            }));
}
TEST_F(LeavingTest, AddedDuringTheWalkIsNotCalled) {
  Listener late;
  EXPECT_EQ(std::vector<int>({4, 3, 2, 1, 0}), CallsWhen3Does([&] { data->AddListener(&late); }));
}
TEST_F(LeavingTest, ReleasedDataEndsTheWalk) {
  const VoteDataHold hold;
  EXPECT_EQ(std::vector<int>({4, 3}), CallsWhen3Does([] { VoteData::Release(); }));
}

TEST_F(BroadcastTest, RemovingSkipsTheEntryBehind) {
  StrictMock<MockListener> twice;
  for (int i = 0; i < 2; ++i) data->AddListener(&twice);
  data->RemoveListener(&heard);
  data->RemoveListener(&twice);
  EXPECT_CALL(twice, OnVoteReset(_, _)).Times(1);
  data->OnVoteReset(0, 1);
  data->RemoveListener(&twice);
  data->OnVoteReset(0, 1);
}

TEST_F(BroadcastTest, RightCountsByItsLowHalf) {
  Listen();
  EXPECT_CALL(heard, OnOperateRightChanged(0, 5));
  data->SetOperateRight(5);
  data->SetOperateRight(5);
  EXPECT_CALL(heard, OnOperateRightChanged(0, 0));
  data->SetOperateRight(0x10000);
  EXPECT_FALSE(data->HasOperateRight());
}

TEST_F(BroadcastTest, CurrentVoteIsTold) {
  MakeVote();
  Listen();
  EXPECT_CALL(heard, OnCurrentVoteChanged(0, IsNull()));
  data->SetCurrentTopic(nullptr);
  EXPECT_CALL(heard, OnCurrentVoteChanged(0, TopicIs(1))).Times(2);
  data->SelectTopic(1);
  data->SelectTopic(1);
  data->SelectTopic(2);
  EXPECT_EQ(1, data->CurrentTopicId());
}

TEST_F(BroadcastTest, ReleaseEndsItAndGetBeginsAnew) {
  MakeVote();
  data->SetOperateRight(1);
  Listen();
  VoteData::Release();
  VoteData::Release();
  data = VoteData::Get();
  EXPECT_EQ(data, VoteData::Get());
  EXPECT_TRUE(data->Topics().IsEmpty());
  EXPECT_EQ(JW_ID(), data->GetLocalUser());
  EXPECT_FALSE(data->HasOperateRight());
  EXPECT_FALSE(data->IsLocalUserOnline());
  EXPECT_FALSE(data->SetSink(nullptr));
  EXPECT_TRUE(data->SetSink(&sink));
  EXPECT_FALSE(data->SetSink(nullptr));
  EXPECT_EQ(&sink, data->GetSink());
  data->OnVoteReset(0, 1);
}

}  // namespace
