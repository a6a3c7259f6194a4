// The conference around the module: its messages, its rules, and a whole vote from file to report.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "host/Play.h"
#include "platform/Resources.h"
#include "platform/posix/TextTable.h"
#include "tests/host/RecordKeeper.h"

namespace conference {
namespace {

using ::testing::HasSubstr;

struct TextLine {
  u32 id;
  const char* utf8;
};
constexpr TextLine kTexts[] = {
#include "resources/texts.en.inc"
};

platform::TextTable& Texts() {
  static platform::TextTable* const table = [] {
    auto* const filled = new platform::TextTable;
    for (const TextLine& text : kTexts) filled->Set(text.id, text.utf8);
    platform::SetResourceModule(filled->Handle());
    return filled;
  }();
  return *table;
}

Message FullMessage() {
  Message message;
  message.kind = MessageKind::kVoteContent;
  message.topicId = 7;
  message.value = -1;
  message.user = JW_ID(3, 1200344);
  message.text = "Zo\xC3\xAB";
  message.ids.Add(5);
  VoteTopicRecord topic;
  topic.SetTopicName("Budget");
  message.topics.AddTail(topic);
  VoteItemRecord item;
  item.SetItemName("Yes or no?");
  message.items.AddTail(item);
  VoteOptionRecord option;
  option.SetOptionDesc("Yes");
  message.options.AddTail(option);
  VoteAnswerRecord answer;
  answer.OptionID = VoteAnswerRecord::kNoOption;
  answer.m_nMask = VoteAnswerRecord::kOptionID;
  message.answers.AddTail(answer);
  return message;
}

TEST(MessageTest, ArrivesWholeOrNotAtAll) {
  const std::vector<u8> bytes = Encode(FullMessage());
  Message arrived;
  ASSERT_TRUE(Decode(bytes, arrived));
  EXPECT_EQ(Encode(arrived), bytes);
  for (size_t size = 0; size < bytes.size(); ++size) {
    EXPECT_FALSE(Decode(std::vector<u8>(bytes.begin(), bytes.begin() + static_cast<long>(size)), arrived)) << size;
  }
  std::vector<u8> longer = bytes;
  longer.push_back(0);
  EXPECT_FALSE(Decode(longer, arrived));
  // Every byte turned over in turn: whatever comes of it, nothing outside the bytes is read.
  for (size_t at = 0; at < bytes.size(); ++at) {
    std::vector<u8> changed = bytes;
    changed[at] ^= 0xFF;
    Decode(changed, arrived);
  }
}

const JW_ID kVoter(0, 1200344);
const JW_ID kStranger(0, 1200345);

ConferenceVote RunningVote(u32 type, u32 limit) {
  ConferenceVote vote;
  vote.topic.VoterList.Add(kVoter);
  vote.topic.IsStarted = true;
  Question question;
  question.item.ItemID = 1;
  question.item.ItemType = type;
  question.item.MultiSelLim = limit;
  question.item.IsOpen = true;
  for (u32 id = 0; id < 3; ++id) {
    VoteOptionRecord option;
    option.OptionID = id;
    question.options.AddTail(option);
  }
  vote.questions.push_back(question);
  return vote;
}

VoteAnswerList Answers(const JW_ID& voter, const std::vector<u32>& options) {
  VoteAnswerList answers;
  for (const u32 id : options) {
    VoteAnswerRecord answer;
    answer.ItemID = 1;
    answer.VoterID = voter;
    answer.OptionID = id;
    answers.AddTail(answer);
  }
  return answers;
}

TEST(ConferenceVoteTest, TakesLegalBallotsOnly) {
  constexpr u32 kNone = VoteAnswerRecord::kNoOption;
  const struct {
    u32 type;
    u32 limit;
    std::vector<u32> options;
    const char* refusal;
  } cases[] = {
      {VoteItemRecord::kSingleChoice, 0, {1}, nullptr},
      {VoteItemRecord::kSingleChoice, 0, {kNone}, nullptr},
      {VoteItemRecord::kSingleChoice, 9, {0, 1}, "too many"},
      {VoteItemRecord::kYesOrNo, 0, {0, 1}, "too many"},
      {VoteItemRecord::kMultipleChoice, 2, {0, 2}, nullptr},
      {VoteItemRecord::kMultipleChoice, 2, {0, 1, 2}, "too many"},
      {VoteItemRecord::kMultipleChoice, 0, {0}, "too many"},
      {VoteItemRecord::kMultipleChoice, 3, {1, 1}, "twice"},
      {VoteItemRecord::kMultipleChoice, 3, {1, kNone}, "no option and an option"},
      {VoteItemRecord::kSingleChoice, 0, {3}, "no such option"},
      {VoteItemRecord::kSingleChoice, 0, {}, "no answer"},
  };
  for (const auto& test : cases) {
    const ConferenceVote vote = RunningVote(test.type, test.limit);
    const Refusal reason = vote.CheckBallot(kVoter, Answers(kVoter, test.options));
    EXPECT_THAT(reason ? reason : "accepted", HasSubstr(test.refusal ? test.refusal : "accepted"));
  }

  ConferenceVote vote = RunningVote(VoteItemRecord::kSingleChoice, 0);
  EXPECT_THAT(vote.CheckBallot(kStranger, Answers(kStranger, {1})), HasSubstr("chosen voters"));
  EXPECT_THAT(vote.CheckBallot(kVoter, Answers(kStranger, {1})), HasSubstr("somebody else"));
  vote.SetOpen(vote.questions[0], false);
  EXPECT_THAT(vote.CheckBallot(kVoter, Answers(kVoter, {1})), HasSubstr("closed"));
  vote.SetState(0);
  EXPECT_THAT(vote.CheckBallot(kVoter, Answers(kVoter, {1})), HasSubstr("not running"));
}

TEST(ConferenceVoteTest, KeepsOneBallotForEachVoterUntilTheQuestionIsOpenedAgain) {
  ConferenceVote vote = RunningVote(VoteItemRecord::kMultipleChoice, 3);
  vote.TakeBallot(kVoter, "A", Answers(kVoter, {0}));
  vote.TakeBallot(kVoter, "A", Answers(kVoter, {1, 2}));
  EXPECT_EQ(vote.Recount(), (VoteCount{{1, {2, 1, {{1, 1}, {2, 1}}}}}));
  VoteAnswerList sent;
  vote.AppendAnswers(sent);
  EXPECT_EQ(CountOf(sent), vote.Recount());
  vote.SetOpen(vote.questions[0], false);
  vote.SetState(0);
  vote.SetState(1);
  EXPECT_FALSE(vote.Recount().empty());
  vote.SetOpen(vote.questions[0], true);
  EXPECT_TRUE(vote.Recount().empty());
}

class SilentObserver final : public ParticipantObserver {
 public:
  void OnAsked(const Participant&, MessageKind, const std::string&) override {}
  void OnTold(const Participant&, const Message&) override {}
  void OnStatusText(const Participant&, const JW_String&) override {}
  void OnRefused(const Participant&, const std::string&) override {}
};

template <class Other>
Stage::InstanceFactory Modules() {
  return [](bool linked) -> std::unique_ptr<VoteInstance> {
    if (linked) return std::make_unique<LinkedVote>();
    return std::make_unique<Other>();
  };
}

// A request of somebody who may not make it changes nothing and is answered with the reason.
TEST(ConferenceTest, RefusesWhatOnlyTheManagerMayDo) {
  SilentObserver observer;
  Stage stage(Modules<RecordKeeper>(), Texts().Handle(), observer);
  VoteTopicRecord topic;
  topic.IsAllVote = topic.IsAllView = true;
  topic.m_nMask = VoteTopicRecord::kIsAllVote | VoteTopicRecord::kIsAllView;
  Participant& voter = *stage.Voters()[1];
  voter.CreateVote(&topic);
  stage.Settle();
  EXPECT_THAT(voter.TakeRefusal(), HasSubstr("right"));
  stage.Operator().CreateVote(&topic);
  stage.Settle();
  const int id = stage.Operator().LastCreated();
  ASSERT_NE(stage.Room().Find(id), nullptr);

  const auto refused = [&](auto request) {
    request();
    stage.Settle();
    return !voter.TakeRefusal().empty();
  };
  const Message content = FullMessage();
  const VoteIdArray& ids = content.ids;
  for (const bool hasRight : {false, true}) {
    stage.Room().GrantRight(voter.User(), hasRight);
    EXPECT_TRUE(refused([&] { voter.AddItems(id, &content.items, &content.options); }));
    EXPECT_TRUE(refused([&] { voter.ModifyVote(&topic); }));
    EXPECT_TRUE(refused([&] { voter.RemoveItems(id, &ids); }));
    EXPECT_TRUE(refused([&] { voter.SetVoteState(id, 1); }));
    EXPECT_TRUE(refused([&] { voter.SetItemsOpen(id, &ids, true); }));
    EXPECT_TRUE(refused([&] { voter.PublishResult(id); }));
    EXPECT_TRUE(refused([&] { voter.FetchResult(id); }));
    EXPECT_TRUE(refused([&] { voter.SetItemOrder(id, &ids); }));
    EXPECT_TRUE(refused([&] { voter.ResetVote(id); }));
    EXPECT_TRUE(refused([&] { voter.HandOver(id, voter.User()); }));
    EXPECT_TRUE(refused([&] { voter.DeleteVote(id); }));
  }
  EXPECT_NE(stage.Room().Find(id), nullptr);
  stage.Operator().HandOver(id, stage.Voters()[2]->User());  // who has no right
  stage.Operator().SetVoteState(id, 1);                      // of a vote without questions
  stage.Settle();
  EXPECT_TRUE(stage.Room().Find(id)->topic.IsManager(stage.Operator().User()));
  EXPECT_FALSE(stage.Room().Find(id)->topic.IsStarted);
}

TEST(VoteDraftTest, TellsWhyAFileIsNoVote) {
  Texts();
  const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "zq draft";
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "empty.vot");
  std::ofstream(folder / "words.vot") << "This is not a database.";
  std::ofstream(folder / "head.vot") << std::string("SQLite format 3\0and nothing behind it", 38);
  const struct {
    const char* name;
    const char* sentence;
  } cases[] = {
      {"missing.vot", "no such file"},    {"", "cannot be opened"},          {"empty.vot", "could not be read"},
      {"words.vot", "could not be read"}, {"head.vot", "could not be read"},
  };
  for (const auto& test : cases) {
    VoteDraft draft;
    EXPECT_THAT(LoadDraft(folder / test.name, draft), HasSubstr(test.sentence)) << test.name;
    EXPECT_TRUE(draft.items.IsEmpty());
  }
  std::filesystem::remove_all(folder);
}

// Plays one sample. `told` takes what was printed.
bool PlaySample(const std::string& name, Stage::InstanceFactory modules, std::string* told) {
  VoteDraft draft;
  EXPECT_EQ(LoadDraft(std::filesystem::path(ZQVOTE_SAMPLES) / (name + ".vot"), draft), "");
  const std::filesystem::path base = std::filesystem::path(testing::TempDir()) / ("zq-" + name);
  FILE* const out = tmpfile();
  Narrator narrator(out, {});
  bool good = false;
  {
    Stage stage(modules, Texts().Handle(), narrator);
    good = Play(stage, narrator, draft, 20).Run({base.string() + ".vot", base.string() + ".html"});
  }
  rewind(out);
  char part[4096];
  while (const size_t size = fread(part, 1, sizeof(part), out)) told->append(part, size);
  fclose(out);
  return good;
}

TEST(PlayTest, CountsEverySampleRight) {
  for (const char* const name : {"board-election", "team-survey", "budget-ballot"}) {
    std::string told;
    EXPECT_TRUE(PlaySample(name, Modules<RecordKeeper>(), &told)) << told;
    EXPECT_THAT(told, HasSubstr("\"You do not have the right to manage votes.\""));
    EXPECT_THAT(told, HasSubstr("\"Only the manager of this vote can do this.\""));
    EXPECT_THAT(told, HasSubstr("Refused to Jonas Weber: the question is closed."));
    EXPECT_THAT(
        told, HasSubstr("The result after the reset agrees with the conference's own recount, for all 27 who see it."));
  }
}

class ForgetfulKeeper : public RecordKeeper {
 public:
  void OnVoteManagerChanged(int, const JW_ID*) override {}
};

TEST(PlayTest, NoticesAModuleThatMissedAnEvent) {
  std::string told;
  EXPECT_FALSE(PlaySample("budget-ballot", Modules<ForgetfulKeeper>(), &told));
  EXPECT_THAT(told, HasSubstr("shows another vote or manager"));
}

}  // namespace
}  // namespace conference
