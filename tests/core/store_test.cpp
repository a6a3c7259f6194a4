#include "tests/core/support.h"

using testing::_;
using testing::InSequence;
using testing::Invoke;
using testing::IsNull;

namespace {

typedef VoteTest StoreTest;

TEST_F(StoreTest, AddTopicChoosesTheCurrentVote) {
  Listen();
  const InSequence order;
  const VoteTopicRecord first = Topic(1), second = Topic(2), own = Topic(3, kMe);
  EXPECT_CALL(heard, OnVoteAdded(0, TopicIs(1)));
  EXPECT_CALL(heard, OnCurrentVoteChanged(0, TopicIs(1)));
  data->AddTopic(&first);
  EXPECT_CALL(heard, OnVoteAdded(0, TopicIs(2)));
  data->AddTopic(&second);
  EXPECT_EQ(1, data->CurrentTopicId());
  EXPECT_CALL(heard, OnVoteAdded(0, TopicIs(3)));
  EXPECT_CALL(heard, OnCurrentVoteChanged(0, TopicIs(3)));
  data->AddTopic(&own);
}

TEST_F(StoreTest, ARepeatedCreateChangesTheVoteAndShowsAnother) {
  MakeVote(kMe);
  VoteTopicEntry* const stored = data->FindTopic(1);
  Listen();
  VoteTopicEntry* told = nullptr;
  const InSequence order;
  EXPECT_CALL(heard, OnVoteChanged(0, TopicIs(1))).WillOnce([&](u32, VoteTopicEntry* entry) { told = entry; });
  EXPECT_CALL(heard, OnCurrentVoteChanged(0, TopicIs(1)));
  const VoteTopicRecord again = Topic(1, kMe, "Renamed");
  data->AddTopic(&again);
  EXPECT_EQ(stored, data->FindTopic(1));
  EXPECT_NE(stored, told);
  EXPECT_EQ(told, data->GetCurrentTopic());
  EXPECT_STREQ("Renamed", stored->TopicName.GetString());
  EXPECT_EQ(3, stored->m_Items.GetCount());
  EXPECT_TRUE(told->m_Items.IsEmpty());
}

TEST_F(StoreTest, UpdateTopicAsksForResultsOrClosesDetails) {
  MakeVote();
  Listen();
  auto* const window = reinterpret_cast<VoteDlgSignName*>(0x40);
  VoteTopicRecord record = Topic(1);
  const InSequence order;
  record.ViewerList.Add(kMe);
  EXPECT_CALL(sink, RequestResult(1));
  EXPECT_CALL(heard, OnVoteChanged(0, &Vote()));
  Question(11).m_Tally.m_pDetailWnd = window;
  data->UpdateTopic(&record);
  record.ViewerList.RemoveAll();
  record.ManagerID = kMe;
  EXPECT_CALL(heard, OnVoteChanged(0, &Vote()));
  data->UpdateTopic(&record);
  record.ManagerID = kOther;
  EXPECT_CALL(ui, CloseSignNames(window));
  EXPECT_CALL(heard, OnVoteChanged(0, &Vote()));
  data->UpdateTopic(&record);
  EXPECT_CALL(heard, OnVoteChanged(0, IsNull()));
  record.TopicID = 5;
  data->UpdateTopic(&record);
  EXPECT_EQ(1, data->Topics().GetCount());
}

TEST_F(StoreTest, SyncTopicsRemovesUpdatesAndAdds) {
  for (u32 id = 1; id <= 3; ++id) {
    const VoteTopicRecord topic = Topic(id);
    data->AddTopic(&topic);
  }
  Listen();
  const InSequence order;
  EXPECT_CALL(heard, OnVoteRemoving(0, TopicIs(1)));
  EXPECT_CALL(heard, OnVoteRemoving(0, TopicIs(2)));
  EXPECT_CALL(heard, OnVoteAdded(0, TopicIs(9)));
  EXPECT_CALL(heard, OnCurrentVoteChanged(0, TopicIs(9)));
  EXPECT_CALL(heard, OnVoteChanged(0, TopicIs(3)));
  const VoteTopicList list = ListOf({Topic(9), Topic(3)});
  data->SyncTopics(&list);
}

TEST_F(StoreTest, RemovingTheLastVoteLeavesNone) {
  MakeVote();
  Listen();
  const InSequence order;
  EXPECT_CALL(heard, OnVoteRemoving(0, &Vote())).WillOnce([](u32, VoteTopicEntry* entry) {
    EXPECT_EQ(3, entry->m_Items.GetCount());
  });
  EXPECT_CALL(heard, OnCurrentVoteChanged(0, IsNull())).Times(2);
  data->RemoveTopic(1);
  data->RemoveTopic(1);
}

TEST_F(StoreTest, AddItemsSkipsWhatItCannotPlace) {
  const VoteTopicRecord topic = Topic(1);
  data->AddTopic(&topic);
  Listen();
  const InSequence order;
  for (const int id : {22, 20, 21}) EXPECT_CALL(heard, OnItemAdded(0, 1, ItemIs(id)));
  const VoteItemList list = ListOf({Item(1, 22, 2), Item(5, 30), Item(1, 20, 0), Item(1, 20, 7), Item(1, 21, 1)});
  data->AddItems(&list);
  EXPECT_EQ(std::vector<u32>({20, 21, 22}), Plain(Vote().m_ItemOrder));
  const VoteItemList none;
  data->AddItems(&none);
}

TEST_F(StoreTest, EqualNumbersStandInReverseMapOrder) {
  const VoteTopicRecord topic = Topic(1);
  data->AddTopic(&topic);
  // The map walks 18, 1 (bucket 1), then 2; the order is that walk turned around.
  const VoteItemList list = ListOf({Item(1, 1, 4), Item(1, 18, 4), Item(1, 2, 4), Item(1, 3, 0)});
  data->AddItems(&list);
  EXPECT_EQ(std::vector<u32>({3, 2, 1, 18}), Plain(Vote().m_ItemOrder));
}

TEST_F(StoreTest, AddOptionsSortsByNumber) {
  MakeVote();
  Listen();
  const InSequence order;
  EXPECT_CALL(heard, OnOptionAdded(0, 1, 10, OptionIs(7)));
  EXPECT_CALL(heard, OnOptionAdded(0, 1, 10, OptionIs(5)));
  const VoteOptionList list = ListOf({Option(10, 7), Option(99, 1), Option(10, 5), Option(10, 7), Option(10, 1)});
  data->AddOptions(&list);
  EXPECT_EQ(std::vector<u32>({1, 2, 3, 5, 7}), Plain(Question(10).m_OptionOrder));
}

TEST_F(StoreTest, UpdateItemsThrowsTheAnswersAway) {
  MakeVote();
  data->ApplyVoteState(1, 1);
  const VoteAnswerList answers = ListOf({Answer(1, 10, kMe, 2)});
  data->ApplyAnswers(1, &answers, kAnswersFetched);
  auto* const window = reinterpret_cast<VoteDlgSignName*>(0x40);
  Question(10).m_Tally.m_pDetailWnd = window;
  Listen();
  const InSequence order;
  EXPECT_CALL(ui, CloseSignNames(window));
  EXPECT_CALL(heard, OnItemAnswersCleared(0, 1, 10, 0));
  EXPECT_CALL(heard, OnItemChanged(0, 1, ItemIs(10), 1)).WillOnce([](u32, int, VoteItemEntry* item, int) {
    EXPECT_EQ(3, item->m_Options.GetCount());
    EXPECT_EQ(0, item->CountSelected());
  });
  VoteItemList list = ListOf({Item(1, 10, 8), Item(1, 50), Item(7, 10)});
  data->UpdateItems(&list, true, false);
  EXPECT_EQ(0, Question(10).m_Tally.m_nAnswers);
  EXPECT_TRUE(Question(10).m_OwnAnswers.IsEmpty());
  EXPECT_TRUE(Question(10).m_Options.IsEmpty());
  EXPECT_EQ(std::vector<u32>({1, 2, 3}), Plain(Question(10).m_OptionOrder));
  EXPECT_EQ(std::vector<u32>({11, 12, 10}), Plain(Vote().m_ItemOrder));

  EXPECT_CALL(heard, OnOptionAdded(0, 1, 10, OptionIs(4)));
  EXPECT_CALL(heard, OnOptionChanged(0, 1, 11, OptionIs(2)));
  const VoteOptionList options = ListOf({Option(10, 4), Option(11, 2), Option(77, 1)});
  data->UpdateOptions(&options, true);
  EXPECT_EQ(std::vector<u32>({4}), Plain(Question(10).m_OptionOrder));
  const VoteOptionList more = ListOf({Option(10, 6)});
  data->UpdateOptions(&more, false);
  EXPECT_CALL(heard, OnItemAdded(0, 1, ItemIs(50)));
  list = ListOf({Item(1, 50)});
  data->UpdateItems(&list, false, true);
}

TEST_F(StoreTest, RemoveItemsWalksBackAndStopsAnEmptyVote) {
  MakeVote();
  data->ApplyVoteState(1, 1);
  Listen();
  const InSequence order;
  for (const int id : {12, 11, 10}) {
    EXPECT_CALL(heard, OnItemRemoving(0, 1, id)).WillOnce([&](u32, int, int itemId) {
      EXPECT_TRUE(data->FindItem(static_cast<u32>(itemId)));
    });
    EXPECT_CALL(heard, OnVoteDataChanged(0, 1, 1)).WillOnce([&] { EXPECT_EQ(3, Vote().m_ItemOrder.GetSize()); });
  }
  EXPECT_CALL(sink, SetVoteState(1, 0));
  const VoteIdArray ids = Ids({10, 99, 11, 12});
  data->RemoveItems(&ids);
  EXPECT_TRUE(Vote().m_ItemOrder.IsEmpty());
}

TEST_F(StoreTest, SyncContentKeepsTalliesAndSelections) {
  MakeVote();
  data->ApplyVoteState(1, 1);
  const VoteAnswerList answers = ListOf({Answer(1, 10, kMe, 2), Answer(1, 11, kOther, 1)});
  data->ApplyAnswers(1, &answers, kAnswersFetched);
  Pick(11, 1);
  Pick(11, 3);
  Listen();
  const InSequence order;
  EXPECT_CALL(heard, OnItemRemoving(0, 1, 12));
  EXPECT_CALL(heard, OnVoteDataChanged(0, 1, 1));
  EXPECT_CALL(heard, OnItemAdded(0, 1, ItemIs(13)));
  EXPECT_CALL(heard, OnOptionAdded(0, 1, 13, OptionIs(2)));
  EXPECT_CALL(heard, OnOptionAdded(0, 1, 13, OptionIs(1)));
  EXPECT_CALL(heard, OnItemChanged(0, 1, ItemIs(11), 1)).WillOnce([](u32, int, VoteItemEntry* item, int) {
    EXPECT_EQ(2, item->CountSelected());
  });
  for (const int id : {3, 4}) EXPECT_CALL(heard, OnOptionAdded(0, 1, 11, OptionIs(id)));
  EXPECT_CALL(heard, OnItemChanged(0, 1, ItemIs(10), 1));
  const VoteItemList items = ListOf({Item(1, 13, 0), Item(1, 11, 1), Item(1, 10, 2), Item(6, 10)});
  const VoteOptionList options = ListOf({Option(13, 2), Option(11, 3), Option(13, 1), Option(11, 4)});
  data->SyncContent(&items, &options);
  EXPECT_EQ(std::vector<u32>({13, 11, 10}), Plain(Vote().m_ItemOrder));
  EXPECT_EQ(std::vector<u32>({3}), Selected(11));
  EXPECT_EQ(std::vector<u32>({1, 2}), Plain(Question(13).m_OptionOrder));
  EXPECT_TRUE(Question(10).m_OptionOrder.IsEmpty());
  EXPECT_EQ(1, Question(10).m_Tally.m_nAnswers);
  EXPECT_EQ(1, Question(10).m_OwnAnswers.GetCount());
}

TEST_F(StoreTest, SetItemOrderNumbersAndSkips) {
  MakeVote();
  Question(11).m_nMask = 0;
  Listen();
  const VoteIdArray ids = Ids({12, 99, 11, 10});
  EXPECT_CALL(heard, OnItemOrderChanged(0, 1, &ids));
  data->SetItemOrder(1, &ids);
  data->SetItemOrder(2, &ids);
  EXPECT_EQ(std::vector<u32>({12, 11, 10}), Plain(Vote().m_ItemOrder));
  EXPECT_EQ(2u, Question(11).ItemNo);
  EXPECT_EQ(1u, Question(11).m_nMask);
}

TEST_F(StoreTest, ManagerHandsOnWithoutFetchedResults) {
  MakeVote(kMe);
  const VoteAnswerList answers = ListOf({Answer(1, 10, kMe, 2)});
  for (const int mode : {kAnswersPublished, kAnswersFetched}) {
    data->SetManager(1, &kMe);
    data->ApplyAnswers(1, &answers, mode);
    Listen();
    {
      const InSequence order;
      EXPECT_CALL(heard, OnVoteManagerChanged(0, 1, testing::Pointee(kOther)));
      if (mode == kAnswersFetched) EXPECT_CALL(heard, OnResultStateChanged(0, 1, 0));
    }
    data->SetManager(1, &kOther);
    data->RemoveListener(&heard);
    EXPECT_EQ(mode == kAnswersFetched ? 0 : 1, Question(10).m_Tally.m_nAnswers);
    EXPECT_EQ(1, Question(10).m_OwnAnswers.GetCount());
  }
  Vote().m_nMask = 0;
  EXPECT_CALL(sink, RequestResult(1));
  data->SetManager(1, &kMe);
  EXPECT_EQ(0x2000u, Vote().m_nMask);
  data->SetManager(2, &kMe);
}

TEST_F(StoreTest, Answers) {
  MakeVote(kMe);
  JW_ID manager(1, 1);
  EXPECT_FALSE(data->GetTopicManager(9, &manager));
  EXPECT_EQ(JW_ID(1, 1), manager);
  EXPECT_TRUE(data->GetTopicManager(1, &manager));
  EXPECT_EQ(kMe, manager);
  EXPECT_TRUE(data->IsCurrentManager());
  data->SetLocalUser(JW_ID(kMe.dwLow + 1, kMe.dwHigh));
  EXPECT_FALSE(data->IsCurrentManager());
  Vote().IsSignVote = true;
  EXPECT_TRUE(data->IsSignVote(1));
  EXPECT_FALSE(data->IsSignVote(9));

  const VoteIdArray ids = Ids({11, 12, 10});
  data->SetItemOrder(1, &ids);
  VoteTopicRecord topic;
  VoteItemList items = ListOf({Item(9, 9)});
  VoteOptionList options = ListOf({Option(9, 9)});
  EXPECT_TRUE(data->CopyTopic(1, &topic, &items, &options));
  EXPECT_EQ(1u, topic.TopicID);
  std::vector<u32> order;
  for (const VoteItemRecord& item : items) order.push_back(item.ItemID);
  EXPECT_EQ(std::vector<u32>({11, 12, 10}), order);
  EXPECT_EQ(9, options.GetCount());
  EXPECT_EQ(11u, options.GetHead()->data.ItemID);
  EXPECT_FALSE(data->CopyTopic(2, &topic, &items, &options));
  EXPECT_TRUE(items.IsEmpty());
}

// A sink or listener that takes away what is being worked on.
TEST_F(StoreTest, SurvivesWhatItsListenersRemove) {
  testing::NiceMock<MockListener> saboteur;
  data->AddListener(&saboteur);
  const auto drop = [&] { data->RemoveTopic(1); };
  ON_CALL(saboteur, OnItemAnswersCleared).WillByDefault(drop);
  ON_CALL(saboteur, OnItemRemoving).WillByDefault(drop);
  ON_CALL(saboteur, OnOptionAdded).WillByDefault([&] {
    const VoteIdArray gone = Ids({13});
    data->RemoveItems(&gone);
  });
  ON_CALL(sink, RequestResult).WillByDefault(drop);
  ON_CALL(saboteur, OnVoteStateChanged).WillByDefault(drop);
  ON_CALL(saboteur, OnVoteManagerChanged).WillByDefault(drop);
  ON_CALL(saboteur, OnResultStateChanged).WillByDefault(drop);
  const auto again = [&] {
    data->RemoveListener(&saboteur);
    data->RemoveTopic(1);
    MakeVote(kMe);
    data->AddListener(&saboteur);
  };
  const VoteItemList items = ListOf({Item(1, 13), Item(1, 10), Item(1, 11)});
  const VoteOptionList options = ListOf({Option(13, 1), Option(13, 2), Option(10, 1)});
  const VoteIdArray ids = Ids({10, 11, 12});
  const VoteAnswerList answers = ListOf({Answer(1, 10, kMe, 1)});
  VoteTopicRecord open = Topic(1);
  open.IsAllView = true;
  again();
  data->UpdateItems(&items, true, true);
  again();
  data->SyncContent(&items, &options);
  again();
  data->RemoveItems(&ids);
  again();
  data->SetItemsOpen(&ids, 1);
  again();
  data->UpdateTopic(&open);
  again();
  data->ResetVote(1);
  again();
  data->SetManager(1, &kOther);
  again();
  data->ReloadResults();
  again();
  data->ApplyAnswers(1, &answers, kAnswersPublished);
  EXPECT_FALSE(data->FindTopic(1));
}

}  // namespace
