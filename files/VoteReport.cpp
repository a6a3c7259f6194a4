// The HTML report of one vote's results: a fixed sequence of fragments with values between them. Their oddities (a
// closing tag without an opening one, no blank between two attributes, no closing tag of the document) shape the
// report's look in a browser and stay as they are.
#include <cstdio>
#include <cstring>
#include <unordered_map>

#include "JW_Base/Include/JW_DateTimeEx.h"
#include "JW_Base/Include/JW_Utf8.h"
#include "files/VotePalette.h"
#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/TextWidth.h"
#include "resources/ResourceIds.h"
#include "votedata/VoteData.h"

namespace {

// Units of a composed fragment and bytes of a converted one, a terminator included.
constexpr int kFragmentRoom = 1024;
// Room that the line end takes.
constexpr int kLineEnd = 2;

JW_String Text(u32 id) {
  JW_String text;
  text.LoadString(id);
  return text;
}

JW_String Decoded(const JW_StringA& utf8) {
  return JW_WideFromUtf8(utf8);
}

// Copies the ASCII units at the front of a text, which every code page agrees on, and returns how many there were. Goes
// by whole blocks, which the compiler makes one instruction each, and leaves a block with anything else to the caller.
int CopyAscii(const JW_WChar* text, int length, char* bytes) {
  constexpr int kBlock = 16;
  int done = 0;
  for (; done + kBlock <= length; done += kBlock) {
    unsigned all = 0;
    for (int i = 0; i < kBlock; ++i) all |= text[done + i];
    if (all >= 0x80) break;
    for (int i = 0; i < kBlock; ++i) bytes[done + i] = static_cast<char>(text[done + i]);
  }
  return done;
}

// Writes `text`, which holds no 0, and a line end in the active code page, in one go. What doesn't fit into the
// fragment's room is cut, between characters.
void WriteFragment(FILE* file, const JW_WChar* text, int length) {
  char bytes[kFragmentRoom];
  constexpr int kRoom = kFragmentRoom - 1 - kLineEnd;
  int size = CopyAscii(text, length < kRoom ? length : kRoom, bytes);
  if (size < length && size < kRoom) {
    size += platform::WideToCodePage(text + size, length - size, bytes + size, kRoom - size);
  }
  bytes[size++] = '\r';
  bytes[size++] = '\n';
  if (file) fwrite(bytes, 1, static_cast<size_t>(size), file);
}

// A fragment under composition.
class Fragment {
 public:
  explicit Fragment(FILE* file) : m_pFile(file) {}

  template <size_t kSize>
  Fragment& operator<<(const JW_WChar (&literal)[kSize]) {
    return Append(literal, static_cast<int>(kSize) - 1);
  }
  Fragment& operator<<(const JW_String& text) { return Append(text.GetString(), JW_String::Length(text)); }
  Fragment& operator<<(int number) {
    JW_String text;
    text.Format(JW_W("%d"), number);
    return *this << text;
  }
  Fragment& Letter(int index) {
    const JW_WChar letter = static_cast<JW_WChar>('A' + index);
    return Append(&letter, 1);
  }

  void Write() {
    WriteFragment(m_pFile, m_Text, m_nLength);
    m_nLength = 0;
  }

 private:
  Fragment& Append(const JW_WChar* text, int length) {
    const int room = kFragmentRoom - 1 - kLineEnd - m_nLength;
    if (length > room) length = room;
    memcpy(m_Text + m_nLength, text, static_cast<size_t>(length) * sizeof(JW_WChar));
    m_nLength += length;
    return *this;
  }

  FILE* m_pFile;
  int m_nLength = 0;
  JW_WChar m_Text[kFragmentRoom];
};

// The names of a signed vote's voters, as the host has them. The host may call back while it is asked, so they are
// collected before anything of the vote is held on to.
class VoterNames {
 public:
  VoterNames(VoteData& data, const VoteTopicEntry& topic) {
    JW_Array<JW_ID> voters;
    for (const auto& item : topic.m_Items) {
      for (const auto& voter : item.value->m_Tally.m_Voters) {
        if (topic.IsSignVote && m_Names.try_emplace(NumberOf(voter.key)).second) voters.Add(voter.key);
      }
    }
    for (const JW_ID& voter : voters) m_Names[NumberOf(voter)] = data.UserName(voter);
  }

  // Empty if the host knows no name.
  JW_String Of(const JW_ID& voter) const {
    const auto at = m_Names.find(NumberOf(voter));
    return at == m_Names.end() ? JW_String() : at->second;
  }

 private:
  static u64 NumberOf(const JW_ID& id) { return JW_MapKey<JW_ID>::Number(id); }

  std::unordered_map<u64, JW_String> m_Names;
};

class Report {
 public:
  Report(const VoterNames& names, FILE* file) : m_Names(names), m_Out(file) {}

  void Write(const VoteTopicEntry& topic) {
    WriteHead(topic);
    for (int i = 0; i < topic.m_ItemOrder.GetSize(); ++i) {
      const VoteItemEntry* const item = topic.FindItem(topic.m_ItemOrder[i]);
      if (item) WriteItem(topic, *item, i);
    }
    m_Out << JW_W("</body>");
    m_Out.Write();
  }

 private:
  void WriteHead(const VoteTopicEntry& topic) {
    m_Out << JW_W("<html><head><title>") << Text(IDS_REPORT_TITLE)
          << JW_W("</title>\r\n<style   type=text/css>\r\nbody{font-size:4pt;}\r\ntd{font-size:15px;}\r\n")
          << JW_W("strong{font-size:17px;}\r\n</style>\r\n</head>\r\n<body>\r\n<table align=\"center\">");
    m_Out.Write();
    m_Out << JW_W("<tr>\r\n<td><font size=\"5\">") << Text(IDS_REPORT_HEADING)
          << JW_W("</font></td>\r\n<tr>\r\n</table>\r\n<br>\r\n<br>");
    m_Out.Write();
    m_Out << JW_W("<table>\r\n<tr>\r\n<td>") << Text(IDS_LABEL_TOPIC) << Decoded(topic.TopicName) << JW_W("</td>");
    m_Out.Write();

    JW_DateTimeEx today;
    today.SetFromTime(platform::SecondsSince1970());
    int answered = 0;
    for (const auto& item : topic.m_Items) answered += item.value->m_Tally.m_nAnswers > 0;
    m_Out << JW_W("</tr>\r\n<tr>\r\n<td>") << Text(IDS_LABEL_REPORT_DATE) << today.DateText(JW_W("-"))
          << JW_W("</td>\r\n</tr>\r\n<tr>\r\n<td> ") << Text(IDS_LABEL_ACTIVE_ITEM_COUNT) << answered << JW_W("</td>");
    m_Out.Write();
    m_Out << JW_W("</tr>\r\n<tr>\r\n<td>") << Text(IDS_LABEL_CREATOR) << topic.CreatorID.ToString() << JW_W("</td>");
    m_Out.Write();
    m_Out << JW_W("</tr>\r\n<tr>\r\n<td>") << Text(IDS_LABEL_MANAGER) << topic.ManagerID.ToString() << JW_W("</td>");
    m_Out.Write();
    m_Out << JW_W("</tr>\r\n<tr>\r\n<td>") << Text(IDS_LABEL_DESCRIPTION) << Decoded(topic.TopicDesc)
          << JW_W("</td>\r\n </tr>\r\n</table>");
    m_Out.Write();
  }

  void WriteItem(const VoteTopicEntry& topic, const VoteItemEntry& item, int index) {
    JW_String number;
    number.Format(JW_W("%d:  "), index + 1);
    JW_String label = Text(IDS_LABEL_ITEM_NUMBER);
    label += number;
    m_Out << JW_W("<br>\r\n<br>\r\n<table cellspacing='1' cellpadding='1'style=\"border-collapse:collapse;\">\r\n")
          << JW_W("<tr>\r\n<td style=\"width:") << static_cast<int>(m_Measure.Width(label) * 1.5)
          << JW_W(";\"><strong>") << label << JW_W("</strong></td>\r\n<td width=\"900\"><font color=\"blue\">")
          << Decoded(item.ItemName) << JW_W("</font><font color=\"green\"> ") << TypeText(item)
          << JW_W("</font></td>\r\n </tr>\r\n<tr>\r\n<td></td>");
    m_Out.Write();
    m_Out << JW_W("<td>") << Text(IDS_LABEL_STATE) << Text(item.IsOpen ? IDS_VOTE_STARTED : IDS_VOTE_STOPPED)
          << JW_W("</td>\r\n</td>\r\n</table>\r\n<br>\r\n<br>");
    m_Out.Write();

    if (item.m_Tally.m_nAnswers == 0) {
      WriteNoAnswers();
      return;
    }
    for (int k = 0; k < item.m_OptionOrder.GetSize(); ++k) {
      const VoteOptionEntry* const option = item.FindOption(item.m_OptionOrder[k]);
      if (option) WriteOption(item.m_Tally, *option, k);
    }
    m_Out << JW_W("<br>\r\n<br>");
    m_Out.Write();
    if (topic.IsSignVote) WriteSignTable(item);
  }

  static JW_String TypeText(const VoteItemEntry& item) {
    if (item.ItemType == VoteItemRecord::kYesOrNo) return Text(IDS_TYPE_FIXED);
    if (item.ItemType != VoteItemRecord::kMultipleChoice) return Text(IDS_TYPE_SINGLE);
    JW_String text = Text(IDS_TYPE_MULTIPLE);
    text += JW_W(" ");
    if (item.MultiSelLim > 0 && item.MultiSelLim < static_cast<u32>(item.m_Options.GetCount())) {
      JW_String limit;
      limit.Format(Text(IDS_LIMIT_MOST), static_cast<int>(item.MultiSelLim));
      text += limit;
    } else {
      text += Text(IDS_LIMIT_NONE);
    }
    return text;
  }

  void WriteNoAnswers() {
    m_Out << JW_W("<table>\r\n <tr>\r\n<td width=\"80\"></td>\r\n<td>\r\n")
          << JW_W("<table border=\"1\" cellpadding=\"0\" cellspacing=\"0\">");
    m_Out.Write();
    m_Out << JW_W("<tr>\r\n<td align=\"center\"><font size=\"4\">") << Text(IDS_NO_ANSWERS)
          << JW_W("</font></td></tr></table>\r\n</td>\r\n</tr>\r\n</table>");
    m_Out.Write();
  }

  void WriteOption(const VoteTally& tally, const VoteOptionEntry& option, int index) {
    m_Out << JW_W("<table border=\"0\" cellpadding=\"0\" cellspacing=\"0\" height=\"18\">\r\n<tr>\r\n")
          << JW_W("<td width=\"90\"></td>\r\n<td width=\"600\" style=\"word-break:break-all\">") << JW_W("(");
    m_Out.Letter(index) << JW_W(")") << JW_W(" ") << Decoded(option.OptionDesc) << JW_W("</font></td>\r\n");
    m_Out.Write();

    // Each share is a part of all answers, not of all voters.
    const int count = tally.CountOf(option.OptionID);
    const double share = count == 0 ? 0 : static_cast<double>(count) / tally.m_nAnswers;
    JW_String percent;
    percent.Format(JW_W("%.2f"), share * 100);
    m_Out << JW_W("<td width=\"200\">\r\n<table border=\"0\" cellpadding=\"0\" cellspacing=\"0\" height=\"18\">\r\n")
          << JW_W("<tr>\r\n<td width=") << JW_W("\"") << static_cast<int>(share * 250) << JW_W("\"") << JW_W("bgcolor=")
          << JW_W("\"") << static_cast<int>(VoteColorOf(index)) << JW_W("\"") << JW_W(">&nbsp;</td>\r\n")
          << JW_W("</tr>\r\n </table>\r\n</td>\r\n<td>") << count << JW_W(" ") << Text(IDS_ANSWER_UNIT) << JW_W("(")
          << percent << JW_W("% )") << JW_W("</td>\r\n</tr>\r\n</table>\r\n")
          << JW_W("<hr style=\"border:1px dashed #000000; height:1px\">");
    m_Out.Write();
  }

  void WriteSignTable(const VoteItemEntry& item) {
    const int options = item.m_OptionOrder.GetSize();
    m_Out << JW_W("<table>\r\n <tr>\r\n<td width=\"80\"></td>\r\n<td>\r\n")
          << JW_W("<table border=\"1\" cellpadding=\"0\" cellspacing=\"0\">");
    m_Out.Write();

    m_Out << JW_W("<tr>\r\n<td align=\"center\">") << Text(IDS_HEADER_VOTER_ID) << JW_W("</td>\r\n")
          << JW_W("<td align=\"center\">") << Text(IDS_HEADER_VOTER_NAME) << JW_W("</td>\r\n");
    const JW_String header = Text(IDS_HEADER_OPTION);
    for (int k = 0; k < options; ++k) {
      m_Out << JW_W("<td align=\"center\">") << header;
      m_Out.Letter(k) << JW_W("</td>\r\n");
    }
    m_Out << JW_W("</tr>\r\n");
    m_Out.Write();

    for (const auto& voter : item.m_Tally.m_Voters) WriteVoter(*voter.value, item.m_OptionOrder);
    m_Out << JW_W("</table>\r\n </td>\r\n</tr>\r\n</table>\r\n");
    m_Out.Write();
  }

  void WriteVoter(const VoteVoterEntry& voter, const VoteIdArray& options) {
    const JW_String name = m_Names.Of(voter.VoterID);
    m_Out << JW_W("<tr>\r\n") << JW_W("<td align=\"center\">") << voter.VoterID.ToString() << JW_W("</td>\r\n")
          << JW_W("<td align=\"center\">") << (name.IsEmpty() ? voter.SignName : name) << JW_W("</td>\r\n");
    for (const u32 optionId : options) {
      if (voter.m_Options.Find(optionId) >= 0) {
        m_Out << JW_W("<td align=\"center\">*</td>\r\n");
      } else {
        m_Out << JW_W("<td align=\"center\">&nbsp;</td>\r\n");
      }
    }
    m_Out << JW_W("</tr>");
    m_Out.Write();
  }

  const VoterNames& m_Names;
  Fragment m_Out;
  platform::TextMeasure m_Measure;
};

}  // namespace

bool VoteData::WriteHtmlReport(const JW_WChar* path, u32 topicID) {
  const VoteTopicEntry* topic = FindTopic(static_cast<int>(topicID));
  if (!topic) return false;
  // The host may end everything while it is asked for names.
  const VoteDataHold hold;
  const VoterNames names(*this, *topic);
  topic = FindTopic(static_cast<int>(topicID));
  if (!topic) return false;
  // Nobody is told of a file that can't be made or written: only an unknown vote is reported.
  FILE* const file = platform::OpenEmpty(path);
  // A signed vote's report has a line for each voter and question.
  if (file) setvbuf(file, nullptr, _IOFBF, 1 << 18);
  Report(names, file).Write(*topic);
  if (file) fclose(file);
  return true;
}
