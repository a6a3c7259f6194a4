// The report of a vote's results, to the byte.
#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

#include "JW_Base/Include/JW_DateTimeEx.h"
#include "files/VotePalette.h"
#include "platform/Clock.h"
#include "platform/Resources.h"
#include "platform/TextWidth.h"
#include "tests/files/quiet_sink.h"
#include "tests/files/vote_file_support.h"
#include "votedata/VoteData.h"

#if defined(_WIN32)
#include "platform/windows/Windows.h"
#else
#include "platform/posix/CodePageChoice.h"
#include "platform/posix/TextTable.h"
#endif

namespace vote_files {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

constexpr u32 kVote = 7;

class Host final : public QuietSink {
 public:
  void GetUserName(const JW_ID* user, JW_WChar* buffer, int) override {
    if (onName) onName();
    const JW_String name(user->dwLow == 12 ? JW_W("Cid of the host") : JW_W("Ann of the host"));
    if (*user != JW_ID(0, 20002)) std::copy_n(name.GetString(), name.GetLength(), buffer);
  }
  std::function<void()> onName;
};

class ReportTest : public VoteFileTest {
 protected:
  ReportTest() {
#if defined(_WIN32)
    platform::SetResourceModule(GetModuleHandleW(nullptr));
#else
#define TEXT(id, text) m_Texts.Set(id, text);
#include "tests/files/report_texts.inc"
#undef TEXT
    platform::SetResourceModule(m_Texts.Handle());
#endif
    VoteData::Get()->SetSink(&m_Host);
    m_Topic.TopicID = kVote;
    m_Topic.CreatorID = JW_ID(0, 12345);
    m_Topic.ManagerID = JW_ID(12, 90755);
    m_Topic.IsSignVote = true;
    m_Topic.SetTopicName("Board <2026>");
    m_Topic.SetTopicDesc("for 2 years");
  }
  ~ReportTest() override {
    VoteData::Release();
  }

  // Question `id` comes with its options, which are numbered by tens.
  void Ask(u32 id, const char* name, u32 type, std::initializer_list<const char*> options, u32 limit = 0) {
    m_Content.Item(id, name, type, limit);
    m_Content.items.GetTail()->data.TopicID = kVote;
    m_Content.items.GetTail()->data.ItemNo = id;
    u32 number = 0;
    for (const char* const text : options) m_Content.Option(id, text, number += 10);
  }
  void Answer(u32 item, const JW_ID& voter, u32 option, const char* name = "as signed") {
    VoteAnswerRecord answer;
    answer.TopicID = kVote;
    answer.ItemID = item;
    answer.VoterID = voter;
    answer.OptionID = option;
    answer.SetSignName(name);
    m_Answers.AddTail(answer);
  }
  VoteTopicEntry* Deliver() {
    VoteData* const data = VoteData::Get();
    data->AddTopic(&m_Topic);
    data->AddItems(&m_Content.items);
    data->AddOptions(&m_Content.options);
    data->ApplyAnswers(kVote, &m_Answers, kAnswersFetched);
    return data->FindTopic(kVote);
  }
  std::string Report() {
    EXPECT_TRUE(VoteData::Get()->WriteHtmlReport(Wide(In("report.html")), kVote));
    return Bytes(In("report.html"));
  }

  Host m_Host;
  VoteTopicRecord m_Topic;
  Vote m_Content;
  VoteAnswerList m_Answers;
#if !defined(_WIN32)
  platform::TextTable m_Texts;
#endif
};

void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
  for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

std::string Golden(bool isSigned) {
  std::string text = Bytes(REPORT_GOLDEN);
  JW_DateTimeEx today;
  today.SetFromTime(platform::SecondsSince1970());
  int y = 0;
  int m = 0;
  int d = 0;
  today.GetDate(y, m, d);
  char date[16];
  snprintf(date, sizeof(date), "%04d-%02d-%02d", y, m, d);
  ReplaceAll(text, "{DATE}", date);
  const platform::TextMeasure measure;
  for (int i = 1; i < 10; ++i) {
    JW_String label;
    label.Format(JW_W("[F213]%d:  "), i);
    ReplaceAll(text, std::string("{WIDTH ") + std::to_string(i) + "}", std::to_string(measure.Width(label) * 3 / 2));
  }
  for (size_t at; !isSigned && (at = text.find("{SIGNED}")) != std::string::npos;) {
    text.erase(at, text.find("{/SIGNED}", at) + 11 - at);
  }
  ReplaceAll(text, "{SIGNED}\r\n", "");
  ReplaceAll(text, "{/SIGNED}\r\n", "");
  return text;
}

TEST_F(ReportTest, IsAsItAlwaysWas) {
  const JW_ID ann(0, 20001);
  const JW_ID bob(0, 20002);
  const JW_ID cid(12, 90755);
  Ask(1, "Who leads?", 0, {"Ann & Co", "Bob"});
  Ask(2, "Which <b>two</b>?", 1, {"x", "y", "z"}, 2);
  Ask(3, "Yes?", 2, {"yes", "no"});
  Ask(4, "All?", 1, {"only"}, 1);
  Ask(5, "Odd kind", 9, {});
  m_Content.items.GetHead()->pNext->data.IsOpen = true;
  Answer(1, ann, 10, "not asked for");
  Answer(1, bob, 20, "Bob himself");
  Answer(1, cid, 20);
  Answer(2, ann, 10);
  Answer(2, bob, 10, "Bob himself");
  Answer(2, ann, 20);
  Answer(4, cid, 10);
  VoteTopicEntry* const topic = Deliver();
  // Numbers that the orders hold and the maps don't leave gaps.
  topic->m_ItemOrder.InsertAt(1, 99);
  topic->FindItem(1)->m_OptionOrder.InsertAt(1, 99);
  EXPECT_EQ(Report(), Golden(true));
  topic->IsSignVote = false;
  EXPECT_EQ(Report(), Golden(false));
}

TEST_F(ReportTest, ReportsOnlyAnUnknownVote) {
  EXPECT_FALSE(VoteData::Get()->WriteHtmlReport(Wide(In("report.html")), kVote));
  EXPECT_FALSE(fs::exists(In("report.html")));
  Deliver();
  EXPECT_TRUE(VoteData::Get()->WriteHtmlReport(Wide(In("no/folder.html")), kVote));
  EXPECT_THAT(Report(), EndsWith("</table>\r\n</body>\r\n"));
}

TEST_F(ReportTest, GoesOnBehindTheLetterZ) {
  Ask(1, "Many", 0, {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l", "m",     "n",
                     "o", "p", "q", "r", "s", "t", "u", "v", "w", "x", "y", "z", "behind"});
  Answer(1, JW_ID(0, 20001), 270);
  Deliver();
  const std::string report = Report();
  EXPECT_THAT(report, HasSubstr(">(Z) z</font>"));
  EXPECT_THAT(report, HasSubstr(">([) behind</font>"));
  EXPECT_THAT(report, HasSubstr("[F227][</td>"));
  EXPECT_THAT(report,
              HasSubstr(std::string("<td width=\"250\"bgcolor=\"") + std::to_string(kVotePalette[26 % 16]) + "\">"));
  const std::string first = std::string("bgcolor=\"") + std::to_string(kVotePalette[0]) + "\"";
  EXPECT_NE(report.find(first), report.rfind(first)) << "the 17th option has the first one's colour";
  EXPECT_THAT(report, HasSubstr("<td>0 [F1F5](0.00% )</td>"));
  EXPECT_THAT(report, HasSubstr("<td>1 [F1F5](100.00% )</td>"));
}

// The bytes of the fragment that holds the topic's name.
std::string NameFragment(const std::string& report) {
  const size_t from = report.find("<table>\r\n<tr>\r\n<td>[F1DD]");
  return report.substr(from, report.find("</tr>\r\n<tr>\r\n<td>[F22F]") - from);
}

TEST_F(ReportTest, CutsAFragmentThatIsTooLong) {
  const std::string head = "<table>\r\n<tr>\r\n<td>[F1DD]";
  VoteTopicEntry* const topic = Deliver();
  const size_t room = 1021 - head.size() - 5;
  for (const size_t length : {room - 1, room, room + 1, room + 5, room + 6, size_t{5000}, size_t{100000}}) {
    topic->TopicName = std::string(length, 'n').c_str();
    const std::string whole = head + std::string(length, 'n') + "</td>";
    EXPECT_EQ(NameFragment(Report()), whole.substr(0, 1021) + "\r\n") << length;
  }
  // A 0 ends the text, not the fragment.
  topic->TopicName = JW_StringA("ab\0cd", 5);
  EXPECT_EQ(NameFragment(Report()), head + "ab</td>\r\n");
}

TEST_F(ReportTest, SurvivesAHostThatTakesTheVoteAway) {
  Ask(1, "Who?", 0, {"a"});
  Answer(1, JW_ID(0, 20001), 10);
  Answer(1, JW_ID(0, 20002), 10);
  Deliver();
  m_Host.onName = [] { VoteData::Release(); };
  Report();
  m_Host.onName = nullptr;
  VoteData::Get()->SetSink(&m_Host);
  Deliver();
  fs::remove(In("report.html"));
  m_Host.onName = [] { VoteData::Get()->RemoveTopic(kVote); };
  EXPECT_FALSE(VoteData::Get()->WriteHtmlReport(Wide(In("gone.html")), kVote));
  EXPECT_FALSE(fs::exists(In("gone.html")));
}

#if !defined(_WIN32)
TEST_F(ReportTest, NeverSplitsACharacter) {
  ASSERT_TRUE(platform::ChooseCodePage("CP936"));
  VoteTopicEntry* const topic = Deliver();
  for (size_t odd = 0; odd < 2; ++odd) {
    std::string name(odd, 'o');
    for (int i = 0; i < 700; ++i) name += "票";
    topic->TopicName = name.c_str();
    const std::string fragment = NameFragment(Report());
    const size_t head = fragment.find(']') + 1;
    EXPECT_EQ((fragment.size() - 2 - head - odd) % 2, 0u);
    EXPECT_GE(fragment.size(), 1022u);
    EXPECT_LE(fragment.size(), 1023u);
    EXPECT_THAT(fragment, EndsWith("\xC6\xB1\r\n"));
  }
  platform::ChooseCodePage("CP1252");
  topic->TopicName = "é 票";
  EXPECT_THAT(Report(), HasSubstr("[F1DD]\xE9 ?</td>"));
}
#endif

}  // namespace
}  // namespace vote_files
