#include "host/Narrator.h"

#include <algorithm>

#include "files/VotePalette.h"
#include "host/Text.h"
#include "resources/ResourceIds.h"

namespace conference {
namespace {

constexpr size_t kWidth = 96;
constexpr size_t kLabelColumns = 44;
constexpr int kBarColumns = 30;

const char* NameOf(MessageKind kind) {
  switch (kind) {
    case MessageKind::kVoteList:
      return "OnVoteList";
    case MessageKind::kVoteCreated:
      return "OnVoteCreated";
    case MessageKind::kVoteModified:
      return "OnVoteModified";
    case MessageKind::kItemsAdded:
      return "OnItemsAdded";
    case MessageKind::kItemsModified:
      return "OnItemsModified";
    case MessageKind::kItemsRemoved:
      return "OnItemsRemoved";
    case MessageKind::kItemsRemaining:
      return "OnItemsRemaining";
    case MessageKind::kVoteStateChanged:
      return "OnVoteStateChanged";
    case MessageKind::kItemsOpened:
      return "OnItemsOpened";
    case MessageKind::kVoteContent:
      return "OnVoteContent";
    case MessageKind::kVoteReset:
      return "OnVoteReset";
    case MessageKind::kResultPublished:
      return "OnResultPublished";
    case MessageKind::kVoteRemoved:
      return "OnVoteRemoved";
    case MessageKind::kPendingAnswers:
      return "OnPendingAnswers";
    case MessageKind::kResultReceived:
      return "OnResultReceived";
    case MessageKind::kItemOrderChanged:
      return "OnItemOrderChanged";
    case MessageKind::kVoteManagerChanged:
      return "OnVoteManagerChanged";
    case MessageKind::kOperateRight:
      return "SetOperateRight";
    case MessageKind::kUserChanged:
      return "OnUserChanged";
    case MessageKind::kReloadResults:
      return "ReloadResults";
    default:
      return "a refusal";
  }
}

// What modules ask for by themselves, all of them at the same time.
bool IsAskedByModules(MessageKind kind) {
  return kind == MessageKind::kRequestVoteContent || kind == MessageKind::kRequestResult;
}

// "asks for ..." of many.
std::string Plural(const std::string& words) {
  const size_t end = words.find(' ');
  if (end == std::string::npos || words[end - 1] != 's') return words;
  return words.substr(0, end - 1) + words.substr(end);
}

// The subject of a sentence about modules, with a blank behind it.
std::string Singers(const std::set<const Participant*>& who) {
  return who.size() == 1 ? Printable((*who.begin())->Name()) + "'s module " : std::to_string(who.size()) + " modules ";
}

std::string KindText(const Question& question) {
  const VoteItemRecord& item = question.item;
  if (item.ItemType == VoteItemRecord::kYesOrNo) return Printable(ResourceText(IDS_TYPE_FIXED));
  if (item.ItemType != VoteItemRecord::kMultipleChoice) return Printable(ResourceText(IDS_TYPE_SINGLE));
  JW_String limit = ResourceText(IDS_LIMIT_NONE);
  if (item.MultiSelLim < static_cast<u32>(question.options.GetCount())) {
    limit.Format(ResourceText(IDS_LIMIT_MOST), static_cast<int>(item.MultiSelLim));
  }
  return Printable(ResourceText(IDS_TYPE_MULTIPLE)) + " " + Printable(limit);
}

}  // namespace

void Narrator::Line(const char* indent, const std::string& text) {
  if (m_bInProgress) EndProgress("");
  fprintf(m_pOut, "%s%s\n", indent, text.c_str());
  fflush(m_pOut);
}

std::string Narrator::Bold(const std::string& text) const {
  return m_Style.color ? "\x1b[1m" + text + "\x1b[0m" : text;
}

std::string Narrator::Colored(const std::string& text, u32 color) const {
  if (!m_Style.color) return text;
  char start[32];
  snprintf(start, sizeof(start), "\x1b[38;2;%u;%u;%um", color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF);
  std::string colored = start;
  colored += text;
  colored += "\x1b[0m";
  return colored;
}

void Narrator::Title(const std::string& text) {
  m_nScene = 0;
  Line("", "");
  Line("", Bold(Shortened(text, kWidth)));
  Line("", std::string(std::min(Columns(text), kWidth), '='));
}

void Narrator::Scene(const std::string& name) {
  Flush();
  Line("", "");
  Line("", Bold(std::to_string(++m_nScene) + "  " + name));
}

void Narrator::Flush() {
  for (const Chorus& chorus : m_Asked) {
    const bool isOne = chorus.who.size() == 1;
    Say(Singers(chorus.who) + (isOne ? chorus.words : Plural(chorus.words)) + ".");
  }
  for (const Chorus& chorus : m_Shown) {
    Say(Singers(chorus.who) + (chorus.who.size() == 1 ? "shows" : "show") +
        (chorus.isRepeated ? " each time: " : ": ") + chorus.words);
  }
  m_Asked.clear();
  m_Shown.clear();
}

void Narrator::Say(const std::string& sentence) {
  Line(sentence.empty() ? "" : "   ", sentence);
}
void Narrator::Complain(const std::string& sentence) {
  Line("!! ", Bold(sentence));
}

void Narrator::BeginProgress(const std::string& label) {
  if (m_Style.verbose) return Say(label);
  fprintf(m_pOut, "   %s ", Padded(Shortened(label, 48), 48).c_str());
  fflush(m_pOut);
  m_bInProgress = true;
  m_pLastVoter = nullptr;
}

void Narrator::EndProgress(const std::string& remark) {
  if (m_Style.verbose) return Say(remark);
  m_bInProgress = false;
  fprintf(m_pOut, " %s\n", remark.c_str());
  fflush(m_pOut);
}

void Narrator::Join(std::vector<Chorus>& choruses, const Participant& who, const std::string& words) {
  const auto found =
      std::find_if(choruses.begin(), choruses.end(), [&words](const Chorus& chorus) { return chorus.words == words; });
  if (found == choruses.end()) {
    choruses.push_back({words, {&who}});
  } else if (!found->who.insert(&who).second) {
    found->isRepeated = true;
  }
}

void Narrator::OnAsked(const Participant& who, MessageKind kind, const std::string& words) {
  if (m_Style.verbose) return Say(Printable(who.Name()) + " " + words + ".");
  if (IsAskedByModules(kind)) {
    Join(m_Asked, who, words);
  } else if (kind == MessageKind::kSubmitAnswers && m_bInProgress) {
    if (m_pLastVoter != &who) fputc('.', m_pOut);
    m_pLastVoter = &who;
    fflush(m_pOut);
  } else if (!m_pHeard) {
    Say(Printable(who.Name()) + " " + words + ".");
  }
}

void Narrator::OnTold(const Participant& who, const Message& event) {
  // Everybody is told of everybody at the beginning, which would fill pages.
  if (m_Style.verbose && event.kind != MessageKind::kUserChanged) {
    Line("      ", Printable(who.Name()) + " is told: " + NameOf(event.kind));
  }
}

void Narrator::OnStatusText(const Participant& who, const JW_String& text) {
  std::string words = "\"";
  words += Printable(text);
  words += '"';
  if (m_Style.verbose) return Say(Printable(who.Name()) + "'s module shows: " + words);
  if (!m_pHeard || m_pHeard == &who) Join(m_Shown, who, words);
}

void Narrator::OnRefused(const Participant& who, const std::string& reason) {
  if (m_Style.verbose || !m_pHeard) Say("Refused to " + Printable(who.Name()) + ": " + reason + ".");
}

void Narrator::Bar(size_t index, const std::string& label, int count, int of) {
  const double share = of == 0 ? 0 : static_cast<double>(count) / of;
  const int length = static_cast<int>(share * kBarColumns + 0.5);
  std::string bar;
  for (int i = 0; i < length; ++i) bar += "\u2588";
  char numbers[32];
  snprintf(numbers, sizeof(numbers), "%4d  %5.1f %%", count, share * 100);
  Line("      ", Padded(Shortened(label, kLabelColumns), kLabelColumns) + " " +
                     Colored(Padded(bar, kBarColumns), VoteColorOf(static_cast<int>(index))) + numbers);
}

void Narrator::Table(int number, const Question& question, const QuestionCount& count) {
  Line("   ", Bold(Shortened(std::to_string(number) + ". " + Printable(question.item.ItemName), kWidth - 6)));
  Line("      ", KindText(question) + ", " + std::to_string(count.voters) + " voters");
  const auto of = [&count](u32 optionId) {
    const auto found = count.options.find(optionId);
    return found == count.options.end() ? 0 : found->second;
  };
  size_t index = 0;
  for (const VoteOptionRecord& option : question.options) {
    std::string label = {'(', index < 26 ? static_cast<char>('A' + index) : '-', ')', ' '};
    label += Printable(option.OptionDesc);
    Bar(index++, label, of(option.OptionID), count.answers);
  }
  if (const int none = of(VoteAnswerRecord::kNoOption)) Bar(index, "    no option chosen", none, count.answers);
}

}  // namespace conference
