#include <set>

#include "resources/ResourceIds.h"
#include "tests/core/support.h"

using testing::_;
using testing::DoAll;
using testing::InSequence;
using testing::Invoke;
using testing::Return;

namespace {

class CommandsTest : public VoteTest {
 protected:
  CommandsTest() {
    MakeVote(kMe);
    data->SetOperateRight(1);
    data->SetMainWindow(window);
  }
  bool Run(u32 command, u32 topic = 1, u32 item = 0, u32 option = 0) {
    return data->OnUiCommand({0, command, topic, item, option, 0});
  }
  void ExpectQuestion(u32 text, u32 flags, int answer) {
    EXPECT_CALL(ui, Ask(window, text, IDS_CAPTION_VOTE, flags)).WillOnce(Return(answer));
  }

  const JW_HWND window = reinterpret_cast<JW_HWND>(0x77);
};

TEST_F(CommandsTest, NothingRunsForAUserWhoIsOffline) {
  EXPECT_CALL(sink, IsUserOnline(testing::Pointee(kMe))).Times(16).WillRepeatedly(Return(false));
  EXPECT_CALL(sink, FetchResult(_)).Times(0);
  for (u32 command = 0; command <= 15; ++command) EXPECT_FALSE(Run(command, 1, 10, 1));
}

TEST_F(CommandsTest, UnknownCommandsAreAccepted) {
  Listen();
  EXPECT_TRUE(Run(15));
  EXPECT_TRUE(data->OnUiCommand({1, kCmdFetch, 1, 0, 0, 0}));
}

TEST_F(CommandsTest, MovesWithinTheOrder) {
  EXPECT_FALSE(Run(kCmdMoveUp, 1, 10));
  EXPECT_FALSE(Run(kCmdMoveDown, 1, 12));
  EXPECT_FALSE(Run(kCmdMoveDown, 1, 99));
  EXPECT_FALSE(Run(kCmdMoveUp, 2, 11));
  EXPECT_CALL(sink, SetItemOrder(1, HasIds(std::vector<u32>{11, 10, 12})));
  EXPECT_TRUE(Run(kCmdMoveUp, 1, 11));
  EXPECT_CALL(sink, SetItemOrder(1, HasIds(std::vector<u32>{10, 12, 11})));
  EXPECT_TRUE(Run(kCmdMoveDown, 1, 11));
}

TEST_F(CommandsTest, PlainCallsOfTheSink) {
  Question(11).IsOpen = true;
  EXPECT_CALL(sink, SetItemsOpen(1, HasIds(std::vector<u32>{10}), true));
  EXPECT_CALL(sink, SetItemsOpen(1, HasIds(std::vector<u32>{11}), false));
  EXPECT_TRUE(Run(kCmdToggleOpen, 1, 10));
  EXPECT_TRUE(Run(kCmdToggleOpen, 1, 11));
  EXPECT_FALSE(Run(kCmdToggleOpen, 1, 99));
  EXPECT_CALL(sink, FetchResult(9));
  EXPECT_TRUE(Run(kCmdFetch, 9));
  EXPECT_CALL(sink, ChooseParticipants(1, &Vote()));
  EXPECT_TRUE(Run(kCmdChooseVoters));
  EXPECT_CALL(sink, ChooseParticipants(0, testing::IsNull()));
  EXPECT_TRUE(Run(kCmdChooseViewers, 9));
  EXPECT_CALL(sink, PublishResult(1)).WillOnce(Return(5)).WillOnce(Return(0)).WillOnce(Return(0));
  EXPECT_TRUE(Run(kCmdPublish));
  EXPECT_TRUE(Run(kCmdPublish));
  EXPECT_CALL(sink, IsUserOnline(_)).WillOnce(Return(true)).WillOnce(Return(false));
  EXPECT_FALSE(Run(kCmdPublish));
}

TEST_F(CommandsTest, CheckManagerSaysWhyNot) {
  EXPECT_CALL(sink, ResetVote(1)).Times(1);
  EXPECT_TRUE(Run(kCmdReset));
  EXPECT_FALSE(Run(kCmdReset, 9));
  EXPECT_CALL(sink, ShowStatusText(Says("#effd")));
  Vote().ManagerID = JW_ID(kMe.dwLow + 1, kMe.dwHigh);
  EXPECT_FALSE(Run(kCmdReset));
  data->SetOperateRight(0);
  EXPECT_CALL(sink, ShowStatusText(Says("#f343"))).Times(2);
  EXPECT_FALSE(Run(kCmdReset));
  EXPECT_FALSE(Run(kCmdReset, 9));
}

TEST_F(CommandsTest, StartingAsksAndStoppingDoesNot) {
  const struct { int answer, mode; } cases[] = {{vote_ui::kYes, 2}, {vote_ui::kNo, 1}, {vote_ui::kCancel, -1}, {0, -1}};
  Listen();
  for (const auto& c : cases) {
    const InSequence order;
    ExpectQuestion(0xF21B, 0x43, c.answer);
    if (c.mode > 0) {
      EXPECT_CALL(sink, SetVoteState(1, c.mode));
    } else {
      EXPECT_CALL(heard, OnVoteDataChanged(0, 1, 2));
    }
    EXPECT_TRUE(Run(kCmdToggleVote));
  }
  // The rights are looked at after the question.
  ExpectQuestion(0xF21B, 0x43, vote_ui::kYes);
  EXPECT_CALL(heard, OnVoteDataChanged(0, 9, 2));
  EXPECT_TRUE(Run(kCmdToggleVote, 9));
  data->RemoveListener(&heard);
  data->SetOperateRight(0);
  Vote().IsStarted = true;
  EXPECT_CALL(sink, SetVoteState(9, 0));
  EXPECT_TRUE(Run(kCmdToggleVote, 9));
}

TEST_F(CommandsTest, RemovesAQuestionAfterAYes) {
  const InSequence order;
  ExpectQuestion(0xF1F8, 0x44, vote_ui::kNo);
  EXPECT_TRUE(Run(kCmdRemoveItem, 1, 10));
  ExpectQuestion(0xF1F8, 0x44, vote_ui::kYes);
  EXPECT_CALL(sink, RemoveItems(1, HasIds(std::vector<u32>{10})));
  EXPECT_TRUE(Run(kCmdRemoveItem, 1, 10));
  ExpectQuestion(0xF1F8, 0x44, vote_ui::kYes);
  EXPECT_FALSE(Run(kCmdRemoveItem, 9, 10));
}

TEST_F(CommandsTest, SubmitsQuestionByQuestion) {
  EXPECT_FALSE(Run(kCmdSubmit));
  EXPECT_FALSE(Run(kCmdSubmit, 9));
  data->ApplyVoteState(1, 1);
  const VoteIdArray order = Ids({12, 10, 11});
  data->SetItemOrder(1, &order);
  Pick(11, 1);
  Pick(11, 2);
  Question(10).IsOpen = false;
  const auto expect = [](u32 item, std::set<u32> options) {
    return [item, options](int, const VoteAnswerList* answers) {
      std::set<u32> sent;
      for (const VoteAnswerRecord& answer : *answers) {
        EXPECT_EQ(item, answer.ItemID);
        EXPECT_STREQ("Zoe", answer.SignName.GetString());
        sent.insert(answer.OptionID);
      }
      EXPECT_EQ(options, sent);
    };
  };
  const InSequence sequence;
  EXPECT_CALL(sink, GetUserName(testing::Pointee(kMe), _, 260)).WillOnce([](const JW_ID*, JW_WChar* name, int) {
    for (int i = 0; i < 260; ++i) EXPECT_EQ(0, name[i]);
    for (int i = 0; i < 3; ++i) name[i] = static_cast<JW_WChar>("Zoe"[i]);
  });
  EXPECT_CALL(sink, SubmitAnswers(1, _)).WillOnce(expect(12, {0xFFFFFFFF}));
  EXPECT_CALL(sink, SubmitAnswers(1, _)).WillOnce(expect(11, {1, 2}));
  EXPECT_TRUE(Run(kCmdSubmit));
}

TEST_F(CommandsTest, PickingTellsOnlyOfChanges) {
  data->ApplyVoteState(1, 1);
  Listen();
  EXPECT_FALSE(Run(kCmdPickOption, 9, 10, 1));
  EXPECT_TRUE(Run(kCmdPickOption, 1, 10, 9));
  EXPECT_CALL(heard, OnVoteDataChanged(0, 1, 0));
  EXPECT_TRUE(Run(kCmdPickOption, 1, 10, 1));
}

TEST_F(CommandsTest, AddsAQuestionWithinTheLimit) {
  Listen();
  EXPECT_CALL(heard, OnVoteDataChanged(0, 1, 3)).Times(4);
  EXPECT_CALL(heard, OnVoteDataChanged(0, 9, 3));
  EXPECT_CALL(heard, OnItemAdded).Times(197);
  EXPECT_TRUE(Run(kCmdAddItem, 9));
  EXPECT_CALL(ui, RunItemDialog(_)).Times(testing::AnyNumber());
  EXPECT_CALL(ui, RunItemDialog(_)).WillOnce(Return(false)).RetiresOnSaturation();
  EXPECT_TRUE(Run(kCmdAddItem));

  ON_CALL(ui, RunItemDialog).WillByDefault([](VoteItemDraft* draft) {
    EXPECT_TRUE(draft->isNew);
    draft->item.SetItemName("Why?");
    draft->options.AddTail(Option(0, 1));
    return true;
  });
  EXPECT_CALL(ui, IsControlEnabled(window, 0x1F43)).WillOnce(Return(false)).WillRepeatedly(Return(true));
  EXPECT_TRUE(Run(kCmdAddItem));
  EXPECT_CALL(sink, AddItems(1, _, _)).WillOnce([](int, const VoteItemList* items, const VoteOptionList* options) {
    EXPECT_EQ(3u, items->GetHead()->data.ItemNo);
    EXPECT_EQ(0x21u, items->GetHead()->data.m_nMask);
    EXPECT_EQ(1, options->GetCount());
    return 0;
  });
  EXPECT_TRUE(Run(kCmdAddItem));

  // Not the manager any more when the dialog closes; the 200th question arrives meanwhile; 200 are there.
  EXPECT_CALL(sink, ShowStatusText(Says("#effd")));
  EXPECT_CALL(ui, RunItemDialog(_)).WillOnce([&](VoteItemDraft*) {
    Vote().ManagerID = kOther;
    return true;
  });
  EXPECT_TRUE(Run(kCmdAddItem));
  Vote().ManagerID = kMe;
  EXPECT_CALL(sink, ShowStatusText(Says("limit 200"))).Times(2);
  EXPECT_CALL(ui, RunItemDialog(_)).WillOnce([&](VoteItemDraft*) {
    VoteItemList items;
    for (u32 id = 1000; id < 1197; ++id) items.AddTail(Item(1, id));
    data->AddItems(&items);
    return true;
  });
  EXPECT_TRUE(Run(kCmdAddItem));
  EXPECT_TRUE(Run(kCmdAddItem));
}

TEST_F(CommandsTest, EditsACopyOfTheQuestion) {
  Question(11).SetItemName("Old");
  EXPECT_FALSE(Run(kCmdEditItem, 1, 99));
  EXPECT_CALL(ui, RunItemDialog(_)).WillOnce(Return(false)).WillOnce(Return(true)).WillOnce([&](VoteItemDraft* draft) {
    EXPECT_FALSE(draft->isNew);
    EXPECT_STREQ("Old", draft->item.ItemName.GetString());
    EXPECT_EQ(3, draft->options.GetCount());
    draft->item.SetItemName("New");
    draft->item.m_nMask = VoteItemRecord::kItemName;
    draft->changed = true;
    Question(11).ItemNo = 8;  // moved meanwhile
    return true;
  });
  EXPECT_TRUE(Run(kCmdEditItem, 1, 11));
  EXPECT_TRUE(Run(kCmdEditItem, 1, 11));
  EXPECT_CALL(sink, ModifyItems(1, _, _)).WillOnce([](int, const VoteItemList* items, const VoteOptionList*) {
    EXPECT_EQ(8u, items->GetHead()->data.ItemNo);
    EXPECT_EQ(11u, items->GetHead()->data.ItemID);
    EXPECT_EQ(0x137u, items->GetHead()->data.m_nMask);
  });
  EXPECT_TRUE(Run(kCmdEditItem, 1, 11));
}

TEST_F(CommandsTest, ShowsWhoAnswered) {
  EXPECT_FALSE(Run(kCmdShowSignNames, 1, 99));
  EXPECT_TRUE(Run(kCmdShowSignNames, 1, 10));
  const VoteAnswerList answers = ListOf({Answer(1, 10, kOther, 2)});
  data->ApplyAnswers(1, &answers, kAnswersPublished);
  EXPECT_CALL(ui, OpenSignNames(&Question(10).m_Tally, _)).WillOnce([](VoteTally*, const VoteSignNamesRequest& asked) {
    EXPECT_EQ(1u, asked.topicId);
    EXPECT_EQ("Vote", Utf8(asked.topicName));
    EXPECT_EQ(std::vector<u32>({1, 2, 3}), Plain(asked.options));
  });
  EXPECT_TRUE(Run(kCmdShowSignNames, 1, 10));
}

TEST_F(CommandsTest, WithoutWindowsEveryQuestionIsDeclined) {
  VoteData::SetUi(nullptr);
  EXPECT_CALL(sink, SetVoteState(_, _)).Times(0);
  EXPECT_CALL(sink, RemoveItems(_, _)).Times(0);
  EXPECT_CALL(sink, AddItems(_, _, _)).Times(0);
  for (const u32 command : {kCmdToggleVote, kCmdRemoveItem, kCmdAddItem, kCmdEditItem, kCmdShowSignNames}) {
    EXPECT_TRUE(Run(command, 1, 10));
  }
}

}  // namespace
