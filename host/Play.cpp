#include "host/Play.h"

#include <fstream>
#include <sstream>

#include "host/Text.h"
#include "platform/Clock.h"

namespace conference {
namespace {

VoteIdArray OneId(u32 id) {
  VoteIdArray ids;
  ids.Add(id);
  return ids;
}

JW_String Wide(const std::filesystem::path& path) {
#if defined(_WIN32)
  return JW_String(path.c_str());
#else
  return JW_String(path.u16string().c_str());
#endif
}

bool IsWholeReport(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str().starts_with("<html>") && text.str().ends_with("</body>\r\n");
}

}  // namespace

Play::Play(Stage& stage, Narrator& narrator, const VoteDraft& draft, u32 seed)
    : m_Stage(stage), m_Narrator(narrator), m_Secretary(stage.Secretary()), m_Draft(draft), m_Electorate(seed) {}

bool Play::Run(const Outputs& outputs) {
  Introduce();
  if (!Create()) return false;
  TryWithoutRight();
  Start();
  if (Vote().questions.size() < kOneSheetFrom) {
    CallOneByOne();
  } else {
    AnswerOnOneSheet();
  }
  RefuseLateAnswer();
  CountAndPublish();
  HandOver();
  LetLatecomerIn();
  ReloadAndStop();
  Reset();
  Save(outputs);
  m_Narrator.Flush();
  return m_nFaults == 0;
}

void Play::Introduce() {
  const VoteTopicRecord& topic = m_Draft.topic;
  m_Narrator.Title(Printable(topic.TopicName));
  m_Narrator.Say(std::to_string(m_Draft.items.GetCount()) + " questions, " +
                 (topic.IsSignVote ? "signed, " : "not signed, ") + std::to_string(topic.TimeLong / 60) + " minutes. " +
                 Printable(m_Stage.Operator().Name()) + " runs the conference, " +
                 std::to_string(m_Stage.Voters().size()) + " voters take part,");
  m_Narrator.Say("among them " + Printable(m_Secretary.Seat().Name()) +
                 ", the secretary. Each of them has a vote module of their own.");
}

bool Play::Create() {
  m_Narrator.Scene("The vote is created");
  Participant& chair = m_Stage.Operator();
  VoteTopicRecord topic = m_Draft.topic;
  topic.EndTime.SetFromTime(platform::SecondsSince1970());
  topic.m_nMask |= VoteTopicRecord::kEndTime;
  chair.CreateVote(&topic);
  Settle();
  m_nTopicId = chair.LastCreated();
  if (m_nTopicId != 0) {
    chair.AddItems(m_nTopicId, &m_Draft.items, &m_Draft.options);
    Settle();
  }
  if (m_nTopicId == 0 || Vote().questions.empty()) {
    m_Narrator.Complain("The conference did not take the vote: " + chair.TakeRefusal() + ".");
    return false;
  }
  // The voters are named: the latecomer is none of them.
  topic = Vote().topic;
  topic.IsAllVote = false;
  topic.VoterList.RemoveAll();
  for (const Participant* const voter : m_Stage.Voters()) topic.VoterList.Add(voter->User());
  topic.m_nMask |= VoteTopicRecord::kIsAllVote | VoteTopicRecord::kVoterList;
  chair.ModifyVote(&topic);
  Settle();
  return true;
}

// The module's own gate, with the two texts that it hands over as bare numbers.
void Play::TryWithoutRight() {
  m_Narrator.Scene("Who may manage it");
  const std::string name = Printable(m_Secretary.Seat().Name());
  m_Narrator.Say(name + " clicks \"Reset Vote\", without the right to manage votes.");
  Check(!m_Secretary.Click(kCmdReset, m_nTopicId), "The module let somebody without the right reset the vote.");
  m_Narrator.Flush();
  m_Stage.Room().GrantRight(m_Secretary.Seat().User(), true);
  Settle();
  m_Narrator.Say(name + " is given the right and clicks again, but the vote is not hers.");
  Check(!m_Secretary.Click(kCmdReset, m_nTopicId), "The module let somebody else than the manager reset the vote.");
  Settle();
}

void Play::Start() {
  m_Narrator.Scene("The vote starts");
  m_Stage.Operator().SetVoteState(m_nTopicId, 2);
  Settle();
}

void Play::CallOneByOne() {
  m_Narrator.Scene("The questions are called one by one");
  VoteIdArray all;
  for (const Question& question : Vote().questions) all.Add(question.item.ItemID);
  m_Stage.Operator().SetItemsOpen(m_nTopicId, &all, false);
  Settle();
  m_Narrator.Hush(&m_Secretary.Seat());
  for (const Question& question : Vote().questions) {
    SetOpen(question, true);
    AskEverybody(question);
    SetOpen(question, false);
  }
  m_Narrator.Hush(nullptr);
  m_Narrator.Flush();
}

void Play::AnswerOnOneSheet() {
  m_Narrator.Scene("All questions are open, everybody hands in one sheet");
  m_Narrator.Hush(&m_Secretary.Seat());
  m_Narrator.BeginProgress("The sheets come in");
  for (Participant* const voter : m_Stage.Voters()) {
    const bool isSecretary = voter == &m_Secretary.Seat();
    for (const Question& question : Vote().questions) {
      const std::vector<u32> options = m_Electorate.Choose(question);
      if (isSecretary) {
        m_Secretary.Select(m_nTopicId, question.item.ItemID, options);
      } else {
        Submit(*voter, question, options);
      }
    }
    if (isSecretary) m_Secretary.Click(kCmdSubmit, m_nTopicId);
    Settle();
  }
  m_Narrator.EndProgress(VotersDone(Vote().questions.back()));
  // The last question was misread: it is called again on its own, and its count starts anew.
  m_Narrator.Say("The questions are closed one by one, and the last one is called again:");
  for (const Question& question : Vote().questions) SetOpen(question, false);
  const Question& last = Vote().questions.back();
  SetOpen(last, true);
  AskEverybody(last);
  SetOpen(last, false);
  m_Narrator.Hush(nullptr);
  m_Narrator.Flush();
}

void Play::AskEverybody(const Question& question) {
  m_Narrator.BeginProgress(std::to_string(question.item.ItemNo + 1) + ". " + Printable(question.item.ItemName));
  for (Participant* const voter : m_Stage.Voters()) {
    const std::vector<u32> options = m_Electorate.Choose(question);
    if (voter == &m_Secretary.Seat()) {
      m_Secretary.Select(m_nTopicId, question.item.ItemID, options);
      m_Secretary.Click(kCmdSubmit, m_nTopicId);
    } else {
      Submit(*voter, question, options);
    }
    Settle();
  }
  m_Narrator.EndProgress(VotersDone(question));
}

std::string Play::VotersDone(const Question& question) const {
  return std::to_string(question.ballots.size()) + " of " + std::to_string(m_Stage.Voters().size());
}

void Play::Submit(Participant& voter, const Question& question, const std::vector<u32>& options) {
  VoteAnswerRecord answer;
  answer.TopicID = static_cast<u32>(m_nTopicId);
  answer.ItemID = question.item.ItemID;
  answer.VoterID = voter.User();
  answer.OptionID = VoteAnswerRecord::kNoOption;
  answer.m_nMask = VoteAnswerRecord::kAll & ~static_cast<u64>(VoteAnswerRecord::kSignName);
  VoteAnswerList answers;
  for (const u32 optionId : options) {
    answer.OptionID = optionId;
    answers.AddTail(answer);
  }
  if (answers.IsEmpty()) answers.AddTail(answer);
  voter.SubmitAnswers(m_nTopicId, &answers);
}

void Play::SetOpen(const Question& question, bool open) {
  const VoteIdArray ids = OneId(question.item.ItemID);
  m_Stage.Operator().SetItemsOpen(m_nTopicId, &ids, open);
  Settle();
}

void Play::RefuseLateAnswer() {
  m_Narrator.Scene("An answer that comes too late");
  Participant& voter = *m_Stage.Voters()[1];
  const Question& question = Vote().questions.front();
  Submit(voter, question, m_Electorate.Choose(question));
  Settle();
  Check(!voter.TakeRefusal().empty(), "The conference took an answer to a closed question.");
}

void Play::CountAndPublish() {
  m_Narrator.Scene("The result");
  m_Stage.Operator().FetchResult(m_nTopicId);
  Settle();
  m_Stage.Operator().PublishResult(m_nTopicId);
  Settle();
  const VoteCount count = m_Secretary.Count(m_nTopicId);
  int number = 0;
  for (const Question& question : Vote().questions) {
    const auto found = count.find(question.item.ItemID);
    m_Narrator.Say("");
    m_Narrator.Table(++number, question, found == count.end() ? QuestionCount() : found->second);
    Check(question.ballots.size() == m_Stage.Voters().size(), "Not every voter's answer arrived.");
  }
  m_Narrator.Say("");
  CheckCounts("The published result");
}

void Play::HandOver() {
  m_Narrator.Scene("Another manager");
  m_Stage.Operator().HandOver(m_nTopicId, m_Secretary.Seat().User());
  Settle();
  m_Secretary.Click(kCmdFetch, m_nTopicId);
  Settle();
  CheckCounts("What the new manager fetched");
}

void Play::LetLatecomerIn() {
  m_Narrator.Scene("A latecomer");
  Participant& latecomer = m_Stage.LetLatecomerIn();
  m_Narrator.Say(Printable(latecomer.Name()) + " comes in and is told of the vote, its questions and its result.");
  Settle();
  const VoteCount* const delivered = latecomer.DeliveredCount(m_nTopicId);
  Check(delivered != nullptr, "The latecomer got no result.");
  CheckCounts("What the latecomer sees");
}

// A module takes answers that it has asked for once the vote has stopped, so the conference holds them back till then.
void Play::ReloadAndStop() {
  m_Narrator.Scene("The connection was lost for a moment: everybody reloads");
  m_Stage.Room().AskForReload();
  Settle();
  m_Secretary.Click(kCmdToggleVote, m_nTopicId);
  Settle();
  CheckCounts("The reloaded result");
}

void Play::Reset() {
  m_Narrator.Scene("The vote is reset");
  Check(m_Secretary.Click(kCmdReset, m_nTopicId), "The module refused to reset the manager's vote.");
  Settle();
  CheckCounts("The result after the reset");
}

void Play::Save(const Outputs& outputs) {
  m_Narrator.Scene("The minutes");
  const std::string name = Printable(m_Secretary.Seat().Name());
  VoteDraft saved;
  const bool isSaved = m_Secretary.SaveVote(m_nTopicId, Wide(outputs.vote));
  Check(isSaved && LoadDraft(outputs.vote, saved).empty(), "The vote could not be saved.");
  Check(saved.items.GetCount() == m_Draft.items.GetCount() && saved.options.GetCount() == m_Draft.options.GetCount(),
        "The saved vote has lost questions or options.");
  m_Narrator.Say(name + " saves the vote, which reads back with " + std::to_string(saved.items.GetCount()) +
                 " questions and " + std::to_string(saved.options.GetCount()) + " options.");
  const bool isWritten = m_Secretary.WriteReport(m_nTopicId, Wide(outputs.report)) && IsWholeReport(outputs.report);
  Check(isWritten, "The report could not be written.");
  if (isWritten) m_Narrator.Say(name + " writes the report.");
}

void Play::Settle() {
  m_Stage.Settle();
  if (!m_Narrator.IsHushed()) m_Narrator.Flush();
}

void Play::CheckCounts(const char* when) {
  const VoteCount truth = Vote().Recount();
  const int before = m_nFaults;
  Check(m_Secretary.Count(m_nTopicId) == truth,
        std::string(when) + ": the module counts otherwise than the conference.");
  int viewers = 0;
  for (const auto& person : m_Stage.People()) {
    const std::string name = Printable(person->Name());
    const VoteCount* const delivered = person->DeliveredCount(m_nTopicId);
    Check(delivered && *delivered == truth, std::string(when) + ": " + name + " sees something else.");
    viewers += delivered != nullptr;
    int topicId = 0;
    JW_ID manager;
    Check(person->Vote().GetCurrentVote(&topicId, &manager) && topicId == m_nTopicId && Vote().topic.IsManager(manager),
          std::string(when) + ": the module of " + name + " shows another vote or manager.");
  }
  if (m_nFaults == before) {
    m_Narrator.Say(std::string(when) + " agrees with the conference's own recount, for all " + std::to_string(viewers) +
                   " who see it.");
  }
}

void Play::Check(bool holds, const std::string& complaint) {
  if (holds) return;
  ++m_nFaults;
  m_Narrator.Complain(complaint);
}

}  // namespace conference
