#include <map>
#include <set>

#include "tests/core/support.h"

using testing::_;
using testing::InSequence;

namespace {

typedef VoteTest RunningTest;
typedef std::vector<u32> List;

TEST_F(RunningTest, StateChangesKeepOrDropAnswers) {
  auto* const window = reinterpret_cast<VoteDlgSignName*>(0x40);
  const struct {
    int mode;
    bool started;
    List selected;  // of question 10, with the answer 2 and the unsent choice 3
    int answers;
  } cases[] = {{0, false, {2}, 1}, {1, true, {3}, 1}, {2, true, {}, 0}, {7, true, {3}, 1}, {-1, false, {3}, 1}};
  for (const auto& c : cases) {
    data->RemoveTopic(1);
    MakeVote();
    data->ApplyVoteState(1, 2);
    const VoteAnswerList answers = ListOf({Answer(1, 10, kMe, 2)});
    data->ApplyAnswers(1, &answers, kAnswersFetched);
    Pick(10, 3);
    Question(11).m_Tally.m_pDetailWnd = window;
    Vote().m_nMask = Question(12).m_nMask = 0;
    Listen();
    {
      const InSequence order;
      EXPECT_CALL(ui, CloseSignNames(window));
      EXPECT_CALL(heard, OnResultStateChanged(0, 1, 0));
      EXPECT_CALL(heard, OnVoteStateChanged(0, 1, c.mode));
    }
    data->ApplyVoteState(1, c.mode);
    data->RemoveListener(&heard);
    EXPECT_EQ(c.started, Vote().IsStarted) << c.mode;
    EXPECT_EQ(c.started, Question(12).IsOpen) << c.mode;
    EXPECT_EQ(0x1000u, Vote().m_nMask);
    EXPECT_EQ(0x10u, Question(12).m_nMask);
    EXPECT_EQ(kNoResult, Vote().m_nResultState);
    EXPECT_EQ(c.selected, Selected(10)) << c.mode;
    EXPECT_EQ(c.answers, Question(10).m_Tally.m_nAnswers) << c.mode;
    EXPECT_EQ(c.answers, Question(10).m_OwnAnswers.GetCount()) << c.mode;
  }
  data->ApplyVoteState(5, 1);
}

TEST_F(RunningTest, ResetStopsAndKeepsTheTally) {
  MakeVote();
  data->ApplyVoteState(1, 2);
  const VoteAnswerList answers = ListOf({Answer(1, 10, kMe, 2)});
  data->ApplyAnswers(1, &answers, kAnswersFetched);
  Pick(10, 3);
  Listen();
  const InSequence order;
  EXPECT_CALL(heard, OnResultStateChanged(0, 1, 0));
  EXPECT_CALL(heard, OnVoteStateChanged(0, 1, 0));
  EXPECT_CALL(heard, OnVoteReset(0, 1));
  data->ResetVote(1);
  data->ResetVote(2);
  EXPECT_FALSE(Vote().IsStarted);
  EXPECT_EQ(List({2}), Selected(10));
  EXPECT_EQ(1, Question(10).m_Tally.m_nAnswers);
}

TEST_F(RunningTest, OpeningAQuestionStartsItsCountAnew) {
  MakeVote();
  data->ApplyVoteState(1, 2);
  const VoteAnswerList answers = ListOf({Answer(1, 10, kMe, 2), Answer(1, 11, kMe, 2)});
  data->ApplyAnswers(1, &answers, kAnswersFetched);
  Listen();
  const InSequence order;
  for (const int id : {11, 10}) {
    EXPECT_CALL(heard, OnItemAnswersCleared(0, 1, id, 0));
    EXPECT_CALL(heard, OnItemOpenChanged(0, 1, id, 2));
  }
  const VoteIdArray ids = Ids({11, 99, 10});
  data->SetItemsOpen(&ids, 2);
  EXPECT_TRUE(Question(10).IsOpen);
  EXPECT_EQ(0, Question(10).m_Tally.m_nAnswers);
  EXPECT_EQ(List({}), Selected(11));
  EXPECT_CALL(heard, OnItemAnswersCleared(0, 1, 10, 0));
  EXPECT_CALL(heard, OnItemOpenChanged(0, 1, 10, -1));
  const VoteIdArray one = Ids({10});
  data->SetItemsOpen(&one, -1);
  EXPECT_FALSE(Question(10).IsOpen);
}

TEST_F(RunningTest, PicksByTheKindOfQuestion) {
  const struct {
    u32 type, limit;
    std::vector<std::pair<u32, bool>> picks;
    List selected;
  } cases[] = {
      {0, 0, {{1, true}, {2, true}, {2, false}, {9, false}}, {2}},
      {2, 0, {{1, true}, {2, true}}, {2}},
      {1, 2, {{1, true}, {2, true}, {3, false}, {1, true}, {3, true}}, {2, 3}},
      {1, 0, {{1, false}}, {}},
      {1, 0xFFFFFFFF, {{1, true}}, {1}},
      {3, 5, {{1, false}}, {}},
  };
  for (const auto& c : cases) {
    data->RemoveTopic(1);
    MakeVote();
    Question(10).ItemType = c.type;
    Question(10).MultiSelLim = c.limit;
    EXPECT_FALSE(Vote().PickOption(10, 1));
    Question(10).IsOpen = true;
    EXPECT_FALSE(Vote().PickOption(10, 1));
    data->ApplyVoteState(1, 1);
    for (const auto& [option, changes] : c.picks) EXPECT_EQ(changes, Vote().PickOption(10, option)) << c.type << option;
    EXPECT_EQ(c.selected, Selected(10)) << c.type;
    Question(10).IsOpen = false;
    EXPECT_FALSE(Vote().PickOption(10, 3));
    EXPECT_FALSE(Vote().PickOption(77, 1));
  }
}

TEST_F(RunningTest, CountsAnsweredQuestionsAndBuildsTheAnswers) {
  MakeVote();
  data->ApplyVoteState(1, 1);
  Pick(10, 2);
  Pick(11, 1);
  Pick(11, 3);
  const VoteIdArray closed = Ids({12});
  data->SetItemsOpen(&closed, 0);
  Question(11).IsOpen = false;
  EXPECT_EQ(1, Vote().CountAnswered(false));
  EXPECT_EQ(2, Vote().CountAnswered(true));
  Vote().IsStarted = false;
  EXPECT_EQ(2, Vote().CountAnswered(false));
  Question(11).IsOpen = Question(12).IsOpen = true;

  VoteAnswerList out = ListOf({Answer(9, 9, kOther, 9)});
  Vote().BuildAnswers(kMe, Wide("Zo\xC3\xAB"), &out);
  std::multiset<std::pair<u32, u32>> built;
  for (const VoteAnswerRecord& answer : out) {
    built.emplace(answer.ItemID, answer.OptionID);
    EXPECT_EQ(0x3Fu, answer.m_nMask);
    EXPECT_EQ(1u, answer.TopicID);
    EXPECT_EQ(kMe, answer.VoterID);
    EXPECT_STREQ("Zo\xC3\xAB", answer.SignName.GetString());
  }
  EXPECT_EQ((std::multiset<std::pair<u32, u32>>{{10, 2}, {11, 1}, {11, 3}, {12, 0xFFFFFFFF}}), built);
  Vote().BuildAnswers(kMe, Wide(std::string(1025, 'n')), &out);
  EXPECT_EQ(0x2Fu, out.GetHead()->data.m_nMask);
}

TEST_F(RunningTest, ResultsReplaceWhatWasThere) {
  MakeVote();
  data->ApplyVoteState(1, 1);
  Pick(10, 3);
  Listen();
  const VoteAnswerList answers =
      ListOf({Answer(1, 11, kMe, 1, "Me"), Answer(1, 99, kOther, 1), Answer(1, 11, kMe, 2, "Other name"),
              Answer(1, 11, JW_ID(8, 20001), 2), Answer(1, 12, kOther, VoteAnswerRecord::kNoOption)});
  for (int round = 0; round < 2; ++round) {
    const InSequence order;
    EXPECT_CALL(heard, OnResultStateChanged(0, 1, 1));
    EXPECT_CALL(heard, OnVoteDataChanged(0, 1, 0));
    data->ApplyAnswers(1, &answers, kAnswersPublished);
    VoteTally& tally = Question(11).m_Tally;
    EXPECT_EQ(3, tally.m_nAnswers);
    EXPECT_EQ(2, tally.m_Voters.GetCount());
    EXPECT_EQ(1, tally.CountOf(1));
    EXPECT_EQ(2, tally.CountOf(2));
    EXPECT_EQ("Me", Utf8(tally.m_Voters[kMe]->SignName));
    EXPECT_EQ(List({1, 2}), Plain(tally.m_Voters[kMe]->m_Options));
    EXPECT_EQ(1, Question(12).m_Tally.CountOf(VoteAnswerRecord::kNoOption));
    EXPECT_EQ(kResultPublished, Vote().m_nResultState);
    EXPECT_EQ(List({}), Selected(10));
    EXPECT_EQ(List({1, 2}), Selected(11));
  }
  EXPECT_CALL(heard, OnResultStateChanged(0, 1, 1));
  EXPECT_CALL(heard, OnVoteDataChanged(0, 1, 0)).Times(2);
  const VoteAnswerList none;
  data->ApplyAnswers(1, &none, kAnswersFetched);
  EXPECT_EQ(kResultFetched, Vote().m_nResultState);
  EXPECT_TRUE(Question(11).m_Tally.m_Voters.IsEmpty());
  data->ApplyAnswers(1, &answers, 4);
  EXPECT_EQ(0, Question(11).m_Tally.m_nAnswers);
  data->ApplyAnswers(2, &answers, kAnswersFetched);
}

TEST_F(RunningTest, ReloadAsksForResultsAndWaitsForThem) {
  const VoteAnswerList answers = ListOf({Answer(1, 10, kMe, 2)});
  const VoteAnswerList none;
  MakeVote(kMe);
  const VoteAnswerList others = ListOf({Answer(1, 10, kOther, 1)});
  data->ApplyAnswers(1, &others, kAnswersFetched);
  const VoteTopicRecord other = Topic(2, kMe);
  data->AddTopic(&other);
  Listen();
  {
    const InSequence order;
    EXPECT_CALL(heard, OnResultStateChanged(0, 1, 0));
    EXPECT_CALL(sink, FetchResult(1));
    EXPECT_CALL(heard, OnResultStateChanged(0, 2, 0));
    EXPECT_CALL(sink, RequestResult(2));
  }
  data->ReloadResults();
  EXPECT_EQ(kResultFetched, Vote().m_nResultState);
  EXPECT_EQ(0, Question(10).m_Tally.m_nAnswers);
  data->ApplyPendingAnswers(1, &answers);  // was fetched, not requested
  EXPECT_EQ(0, Question(10).m_Tally.m_nAnswers);

  EXPECT_CALL(heard, OnResultStateChanged(0, _, 0)).Times(2);
  EXPECT_CALL(sink, RequestResult(_)).Times(2);
  Vote().ManagerID = kOther;
  data->ReloadResults();
  data->ApplyPendingAnswers(1, &none);
  Vote().IsStarted = true;
  data->ApplyPendingAnswers(1, &answers);
  Vote().IsStarted = false;
  Question(11).FindOption(1)->m_bSelected = true;
  data->ApplyPendingAnswers(1, &answers);
  EXPECT_EQ(0, Question(10).m_Tally.m_nAnswers);
  Question(11).FindOption(1)->m_bSelected = false;
  EXPECT_CALL(heard, OnVoteDataChanged(0, 1, 0));
  data->ApplyPendingAnswers(1, &answers);
  data->ApplyPendingAnswers(1, &answers);
  EXPECT_EQ(1, Question(10).m_Tally.m_nAnswers);
  EXPECT_EQ(List({2}), Selected(10));
  EXPECT_EQ(kResultFetched, Vote().m_nResultState);
}

TEST_F(RunningTest, TicksCountDownBelowZero) {
  MakeVote();
  Listen();
  Vote().TimeLong = 1;
  Vote().m_nMask = 0;
  data->TickVotes();
  EXPECT_EQ(1u, Vote().TopicFlags);
  EXPECT_EQ(0x20u, Vote().m_nMask);
  Vote().IsStarted = true;
  for (int tick = 0; tick < 2; ++tick) data->TickVotes();
  EXPECT_EQ(-1, static_cast<int>(Vote().TopicFlags));
  EXPECT_TRUE(Vote().IsStarted);
}

// Random answers of many voters, counted by hand. Ids are small and large, so that chains and index both take part.
TEST_F(RunningTest, TheTallyEqualsANaiveRecount) {
  Dice dice(2026);
  for (const u32 voters : {5u, 200u, 1500u}) {
    data->RemoveTopic(1);
    MakeVote();
    VoteAnswerList answers;
    std::map<u32, std::map<u32, int>> counts;
    std::map<u32, std::map<u64, List>> choices;
    const auto vote = [&](u32 item, const JW_ID& voter, u32 option) {
      answers.AddTail(Answer(1, item, voter, option));
      ++counts[item][option];
      choices[item][static_cast<u64>(voter.dwHigh) << 32 | voter.dwLow].push_back(option);
    };
    for (u32 i = 0; i < voters; ++i) {
      const JW_ID voter(i, dice.Below(2) ? 20001 : dice());
      vote(10, voter, dice.Below(4) ? 1 + dice.Below(3) : VoteAnswerRecord::kNoOption);
      for (u32 option = 1; option <= 3; ++option) {
        if (dice.Below(2)) vote(11, voter, option);
      }
      vote(99, voter, 1);
    }
    testing::internal::CaptureStdout();  // the warnings of the voters' long chains
    for (const int mode : {kAnswersFetched, kAnswersPublished, kAnswersPublished}) {
      data->ApplyAnswers(1, &answers, mode);
      int ofOneChoice = 0;
      for (const u32 item : {10u, 11u, 12u}) {
        VoteTally& tally = Question(item).m_Tally;
        int all = 0;
        for (const auto& [option, count] : counts[item]) {
          EXPECT_EQ(count, tally.CountOf(option)) << item << option;
          all += count;
          if (item == 10) ofOneChoice += count;
        }
        EXPECT_EQ(all, tally.m_nAnswers);
        EXPECT_EQ(static_cast<int>(counts[item].size()), tally.m_OptionCount.GetCount());
        EXPECT_EQ(static_cast<int>(choices[item].size()), tally.m_Voters.GetCount());
        for (const auto& [voter, options] : choices[item]) {
          EXPECT_EQ(options,
                    Plain(tally.m_Voters[JW_ID(static_cast<u32>(voter), static_cast<u32>(voter >> 32))]->m_Options));
        }
      }
      EXPECT_EQ(ofOneChoice, Question(10).m_Tally.m_Voters.GetCount());
    }
    fflush(stdout);
    const std::string output = testing::internal::GetCapturedStdout();
    ASSERT_FALSE(HasFailure()) << output.substr(0, 2000);
  }
}

}  // namespace
