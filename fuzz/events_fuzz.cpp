// Random events of a host and commands of a user against the vote data, with a host, listeners and windows that call
// back from wherever they are called.
#include <set>

#include "fuzz/fuzz_input.h"
#include "module/HeadlessVote.h"
#include "tests/files/quiet_sink.h"
#include "votedata/VoteData.h"

namespace {

class Player;
Player* g_pPlayer = nullptr;

// The numbers that events speak of are few, so that they meet.
class Player {
 public:
  explicit Player(FuzzInput& input) : m_Input(input) { g_pPlayer = this; }
  ~Player() { g_pPlayer = nullptr; }

  void Play(HeadlessVote& vote, IZQVoteSink& sink) {
    m_pVote = &vote;
    m_pSink = &sink;
    vote.SetVoteSink(&sink);
    const JW_ID self = User();
    vote.SetLocalUser(&self);
    vote.SetOperateRight(1);
    while (!m_Input.IsEmpty()) {
      Event();
      CheckTallies();
    }
  }

  // What the sink, a listener or a window does when it is called: mostly nothing, at times another event.
  void CallBack() {
    if (m_nDepth >= 4 || m_Input.IsEmpty() || m_Input.Below(4) != 0) return;
    Event();
  }
  FuzzInput& Input() { return m_Input; }

 private:
  int Topic() { return static_cast<int>(m_Input.Below(4)); }
  u32 Item() { return m_Input.Below(8); }
  JW_ID User() { return JW_ID(m_Input.Below(2), 20000 + m_Input.Below(3)); }
  VoteIdArray Ids() {
    VoteIdArray ids;
    for (u32 i = m_Input.Below(5); i > 0; --i) ids.Add(Item());
    return ids;
  }
  VoteTopicRecord TopicRecord() {
    VoteTopicRecord topic;
    topic.TopicID = static_cast<u32>(Topic());
    const u8 flags = m_Input.Byte();
    topic.IsAllVote = flags & 1;
    topic.IsAllView = flags & 2;
    topic.IsStarted = flags & 4;
    topic.IsSignVote = flags & 8;
    topic.CreatorID = User();
    topic.ManagerID = User();
    topic.VoterList.Add(User());
    topic.SetTopicName(m_Input.Text(30).c_str());
    topic.m_nMask |= 0x3FFF;
    return topic;
  }
  VoteTopicList Topics() {
    VoteTopicList topics;
    for (u32 i = m_Input.Below(4); i > 0; --i) topics.AddTail(TopicRecord());
    return topics;
  }
  VoteItemList Items() {
    VoteItemList items;
    for (u32 i = m_Input.Below(5); i > 0; --i) {
      VoteItemRecord item;
      item.ItemID = Item();
      item.ItemNo = m_Input.Below(4);
      item.TopicID = static_cast<u32>(Topic());
      item.ItemType = m_Input.Below(4);
      item.IsOpen = m_Input.Below(2) != 0;
      item.MultiSelLim = m_Input.Below(4);
      item.m_nMask = 0x1FF;
      items.AddTail(item);
    }
    return items;
  }
  VoteOptionList Options() {
    VoteOptionList options;
    for (u32 i = m_Input.Below(9); i > 0; --i) {
      VoteOptionRecord option;
      option.OptionID = m_Input.Below(4);
      option.ItemID = Item();
      option.m_nMask = 0xF;
      options.AddTail(option);
    }
    return options;
  }
  VoteAnswerList Answers() {
    VoteAnswerList answers;
    for (u32 i = m_Input.Below(9); i > 0; --i) {
      VoteAnswerRecord answer;
      answer.ItemID = Item();
      answer.VoterID = User();
      answer.OptionID = m_Input.Below(5) - 1;
      answer.m_nMask = VoteAnswerRecord::kAll;
      answers.AddTail(answer);
    }
    return answers;
  }
  void Command() {
    const VoteUiCommand command = {0, m_Input.Below(16), static_cast<u32>(Topic()), Item(), m_Input.Below(4), 0};
    const VoteDataHold data;
    data->OnUiCommand(command);
  }

  void Event() {
    ++m_nDepth;
    HostEvent(m_Input.Below(34));
    --m_nDepth;
  }
  void HostEvent(u32 event);
  void RareEvent(u32 event);

  static void CheckTallies() {
    for (const auto& topic : VoteData::Get()->Topics()) {
      for (const auto& item : topic.value->m_Items) {
        const VoteTally& tally = item.value->m_Tally;
        int perOption = 0;
        int perVoter = 0;
        for (const auto& count : tally.m_OptionCount) perOption += count.value;
        for (const auto& voter : tally.m_Voters) perVoter += voter.value->m_Options.GetSize();
        Require(perOption == tally.m_nAnswers && perVoter == tally.m_nAnswers);
      }
    }
    const VoteTopicEntry* const current = VoteData::Get()->GetCurrentTopic();
    Require(!current || current->m_Items.GetCount() >= 0);
  }

  FuzzInput& m_Input;
  HeadlessVote* m_pVote = nullptr;
  IZQVoteSink* m_pSink = nullptr;
  int m_nDepth = 0;
};

void Player::HostEvent(u32 event) {
  HeadlessVote& vote = *m_pVote;
  switch (event) {
    case 0:
      return vote.OnVoteList(&static_cast<const VoteTopicList&>(Topics()));
    case 1:
    case 2: {
      const VoteTopicRecord topic = TopicRecord();
      return event == 1 ? vote.OnVoteCreated(&topic) : vote.OnVoteModified(&topic);
    }
    case 3:
    case 4:
    case 5: {
      const VoteItemList items = Items();
      const VoteOptionList options = Options();
      if (event == 3) return vote.OnItemsAdded(&items, &options);
      if (event == 4) return vote.OnItemsModified(&items, &options);
      return vote.OnVoteContent(0, &items, &options);
    }
    case 6:
    case 7:
    case 8:
    case 9: {
      const int topic = Topic();
      const VoteIdArray ids = Ids();
      if (event == 6) return vote.OnItemsRemoved(&ids);
      if (event == 7) return vote.OnItemsRemaining(topic, &ids);
      if (event == 8) return vote.OnItemsOpened(&ids, topic);
      return vote.VoteInterface::OnItemOrderChanged(topic, &ids);
    }
    case 10:
    case 11:
    case 12: {
      const int topic = Topic();
      const VoteAnswerList answers = Answers();
      if (event == 10) return vote.OnResultPublished(topic, &answers);
      if (event == 11) return vote.OnPendingAnswers(topic, &answers);
      return vote.OnResultReceived(topic, &answers);
    }
    case 13: {
      const int topic = Topic();
      return vote.VoteInterface::OnVoteStateChanged(topic, static_cast<int>(m_Input.Below(3)));
    }
    case 14:
      return vote.VoteInterface::OnVoteReset(Topic());
    case 15:
      return vote.OnVoteRemoved(Topic());
    case 16: {
      const JW_ID user = User();
      return vote.VoteInterface::OnVoteManagerChanged(Topic(), &user);
    }
    default:
      return event < 28 ? Command() : RareEvent(event);
  }
}

}  // namespace

namespace {

// Reads what it is told of, so that a stale pointer is noticed, and comes and goes.
class Listener final : public VoteListener {
 public:
  void OnCurrentVoteChanged(u32, VoteTopicEntry* topic) override { See(topic); }
  void OnVoteAdded(u32, VoteTopicEntry* topic) override { See(topic); }
  void OnVoteChanged(u32, VoteTopicEntry* topic) override { See(topic); }
  void OnVoteRemoving(u32, VoteTopicEntry* topic) override { See(topic); }
  void OnItemAdded(u32, int, VoteItemEntry* item) override { See(item); }
  void OnItemChanged(u32, int, VoteItemEntry* item, int) override { See(item); }
  void OnItemRemoving(u32, int, int) override { Leave(); }
  void OnOptionAdded(u32, int, int, VoteOptionEntry* option) override { See(option); }
  void OnOptionChanged(u32, int, int, VoteOptionEntry* option) override { See(option); }
  void OnItemOrderChanged(u32, int, const VoteIdArray* ids) override {
    for (const u32 id : *ids) Require(id < 8);
    Leave();
  }
  void OnVoteStateChanged(u32, int, int) override { Leave(); }
  void OnVoteManagerChanged(u32, int, const JW_ID* manager) override {
    Require(manager->dwHigh >= 20000);
    Leave();
  }
  void OnVoteDataChanged(u32, int, int) override { Leave(); }
  void OnResultStateChanged(u32, int, int) override { Leave(); }
  void OnItemAnswersCleared(u32, int, int, int) override { Leave(); }
  void OnItemOpenChanged(u32, int, int, int) override { Leave(); }
  void OnVoteReset(u32, int) override { Leave(); }

 private:
  template <class Record>
  void See(Record* record) {
    Require(!record || record->m_nMask != 0);
    Leave();
  }
  void Leave() {
    if (g_pPlayer->Input().Below(64) == 63) {
      VoteData::Get()->RemoveListener(this);
      VoteData::Get()->AddListener(this);
    }
    g_pPlayer->CallBack();
  }
};

class Host final : public QuietSink {
 public:
  int CreateVote(const VoteTopicRecord* topic) override { return Answer(topic->m_nMask); }
  void ModifyVote(const VoteTopicRecord* topic) override { Answer(topic->m_nMask); }
  void RequestVoteContent(int) override { g_pPlayer->CallBack(); }
  int AddItems(int, const VoteItemList* items, const VoteOptionList* options) override {
    return Count(*items) + Count(*options);
  }
  void ModifyItems(int, const VoteItemList* items, const VoteOptionList* options) override {
    Count(*items);
    Count(*options);
  }
  void RemoveItems(int, const VoteIdArray*) override { g_pPlayer->CallBack(); }
  void SubmitAnswers(int, const VoteAnswerList* answers) override { Count(*answers); }
  void SetVoteState(int, int) override { g_pPlayer->CallBack(); }
  void SetItemsOpen(int, const VoteIdArray*, bool) override { g_pPlayer->CallBack(); }
  int PublishResult(int) override { return Answer(1); }
  void DeleteVote(int) override { g_pPlayer->CallBack(); }
  void RequestResult(int) override { g_pPlayer->CallBack(); }
  void FetchResult(int) override { g_pPlayer->CallBack(); }
  void GetUserName(const JW_ID*, JW_WChar* buffer, int capacity) override {
    buffer[0] = 'n';
    buffer[capacity - 1] = 'n';
    g_pPlayer->CallBack();
  }
  void ShowStatusText(const VoteStatusText*) override { g_pPlayer->CallBack(); }
  void SetItemOrder(int, const VoteIdArray*) override { g_pPlayer->CallBack(); }
  void ChooseParticipants(int, VoteTopicEntry* topic) override { Answer(topic ? topic->m_nMask : 1); }
  void ResetVote(int) override { g_pPlayer->CallBack(); }
  bool IsUserOnline(const JW_ID*) override {
    g_pPlayer->CallBack();
    return g_pPlayer->Input().Below(16) != 15;
  }

 private:
  // The arguments stay valid while the host calls back.
  template <class List>
  static int Count(const List& list) {
    g_pPlayer->CallBack();
    int count = 0;
    for (const auto& record : list) count += record.m_nMask != 0;
    Require(count == list.GetCount());
    return 0;
  }
  static int Answer(u64 mask) {
    Require(mask != 0);
    g_pPlayer->CallBack();
    return static_cast<int>(g_pPlayer->Input().Below(2));
  }
};

class Windows final : public VoteUi {
 public:
  int Ask(JW_HWND, u32, u32, u32) override {
    g_pPlayer->CallBack();
    return 5 + static_cast<int>(g_pPlayer->Input().Below(3));
  }
  bool RunItemDialog(VoteItemDraft* draft) override {
    draft->item.SetItemName("edited");
    draft->changed = true;
    g_pPlayer->CallBack();
    return g_pPlayer->Input().Below(4) != 3;
  }
  bool IsControlEnabled(JW_HWND, int) override { return true; }
  void OpenSignNames(VoteTally* tally, const VoteSignNamesRequest&) override {
    if (tally->m_pDetailWnd) CloseSignNames(tally->m_pDetailWnd);
    tally->m_pDetailWnd = reinterpret_cast<VoteDlgSignName*>(new int);
    open.insert(tally->m_pDetailWnd);
  }
  void CloseSignNames(VoteDlgSignName* window) override {
    Require(open.erase(window) == 1);
    delete reinterpret_cast<int*>(window);
  }

  std::set<VoteDlgSignName*> open;
};

void Player::RareEvent(u32 event) {
  const VoteDataHold data;
  switch (event) {
    case 28:
      m_pVote->ReloadResults(0);
      break;
    case 29:
      data->TickVotes();
      break;
    case 30:
      m_pVote->SetOperateRight(m_Input.Below(2));
      break;
    case 31: {
      const JW_ID user = User();
      m_pVote->SetLocalUser(&user);
      m_pVote->VoteInterface::OnUserChanged(&user, 0);
      break;
    }
    case 32:
      data->SelectTopic(Topic());
      break;
    default:
      // The end of the window and its data, and a new beginning; seldom, as it makes everything before idle.
      if (m_Input.Below(32) != 0) break;
      m_pVote->DestroyVoteWindow();
      m_pVote->SetVoteSink(m_pSink);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const u8* data, size_t size) {
  FuzzInput input(data, size);
  Player player(input);
  Host host;
  Windows windows;
  Listener first;
  Listener second;
  VoteData::SetUi(&windows);
  {
    HeadlessVote vote;
    VoteData::Get()->AddListener(&first);
    VoteData::Get()->AddListener(&second);
    player.Play(vote, host);
  }
  VoteData::SetUi(nullptr);
  Require(windows.open.empty());
  return 0;
}
