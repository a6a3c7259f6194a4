#include <functional>

#include "module/HeadlessVote.h"
#include "tests/core/support.h"

using testing::_;
using testing::InSequence;
using testing::NiceMock;
using testing::Return;

namespace {

class Instance : public HeadlessVote {
 public:
  MOCK_METHOD(void, RefreshButtons, (), (override));
  MOCK_METHOD(void, LayOutPanel, (), (override));
  MOCK_METHOD(JW_HWND, OpenWindow, (JW_HWND), (override));
  MOCK_METHOD(void, CloseWindow, (JW_HWND), (override));

  using VoteInterface::m_nLastCommand;
  using VoteInterface::m_nLastCreated;
  using VoteInterface::m_PendingItems;
  using VoteInterface::m_PendingOptions;
};

class InterfaceTest : public VoteTest {
 protected:
  InterfaceTest() {
    vote->SetLocalUser(&kMe);
    EXPECT_CALL(instance, RefreshButtons()).Times(testing::AnyNumber());
  }

  NiceMock<Instance> instance;
  IZQVote* const vote = &instance;
};

TEST_F(InterfaceTest, WindowAndDataEndTogether) {
  const auto window = reinterpret_cast<JW_HWND>(0x50), parent = reinterpret_cast<JW_HWND>(0x60);
  const InSequence order;
  EXPECT_CALL(instance, OpenWindow(parent)).WillOnce(Return(window));
  EXPECT_CALL(instance, RefreshButtons()).RetiresOnSaturation();
  EXPECT_EQ(window, vote->CreateVoteWindow(parent));
  EXPECT_EQ(window, vote->GetVoteWindow());
  vote->SetVoteSink(nullptr);
  EXPECT_EQ(&sink, vote->GetVoteSink());
  MakeVote();
  EXPECT_CALL(instance, CloseWindow(window)).WillOnce([&] { EXPECT_TRUE(data->FindTopic(1)); });
  vote->DestroyVoteWindow();
  EXPECT_EQ(nullptr, vote->GetVoteWindow());
  EXPECT_EQ(nullptr, vote->GetVoteSink());
  EXPECT_CALL(instance, LayOutPanel()).Times(2);
  vote->RefreshVotePanel(1);
  vote->RefreshVotePanel2(2);
}

TEST_F(InterfaceTest, TellsTheCurrentVote) {
  int id = 55;
  JW_ID manager(1, 2);
  EXPECT_FALSE(vote->GetCurrentVote(&id, &manager));
  EXPECT_EQ(55, id);
  EXPECT_EQ(JW_ID(1, 2), manager);
  MakeVote();
  EXPECT_TRUE(vote->GetCurrentVote(&id, &manager));
  EXPECT_EQ(1, id);
  EXPECT_EQ(kOther, manager);
}

TEST_F(InterfaceTest, ListAsksForEachContentInItsOrder) {
  MakeVote();
  Listen();
  {
    const InSequence order;
    EXPECT_CALL(heard, OnVoteChanged(0, TopicIs(1)));
    EXPECT_CALL(heard, OnVoteAdded(0, TopicIs(9)));
    EXPECT_CALL(heard, OnVoteAdded(0, TopicIs(4)));
    for (const int id : {1, 9, 4}) EXPECT_CALL(sink, RequestVoteContent(id));
  }
  const VoteTopicList list = ListOf({Topic(1), Topic(9), Topic(4)});
  vote->OnVoteList(&list);
  data->RemoveListener(&heard);
  const VoteTopicList none;
  EXPECT_CALL(sink, RequestVoteContent(_)).Times(0);
  EXPECT_CALL(instance, RefreshButtons()).Times(testing::AtLeast(1));
  vote->OnVoteList(&none);
  EXPECT_TRUE(data->Topics().IsEmpty());
}

TEST_F(InterfaceTest, ACreatedVoteGetsItsComposedQuestions) {
  const VoteTopicRecord own = Topic(3, kMe), other = Topic(4);
  const InSequence order;
  EXPECT_CALL(sink, RequestVoteContent(3));
  vote->OnVoteCreated(&own);
  EXPECT_EQ(3, instance.m_nLastCreated);
  instance.m_PendingItems.AddTail(Item(0, 1));
  EXPECT_CALL(sink, RequestVoteContent(3));
  vote->OnVoteCreated(&own);
  instance.m_PendingOptions.AddTail(Option(1, 1));
  EXPECT_CALL(sink, RequestVoteContent(4));
  vote->OnVoteCreated(&other);
  EXPECT_CALL(sink, AddItems(3, &instance.m_PendingItems, &instance.m_PendingOptions)).WillOnce(Return(0));
  vote->OnVoteCreated(&own);
  EXPECT_CALL(sink, AddItems(3, _, _)).WillOnce(Return(-1));
  EXPECT_CALL(sink, ShowStatusText(Says("refused")));
  EXPECT_CALL(sink, DeleteVote(3));
  vote->OnVoteCreated(&own);
  EXPECT_TRUE(data->FindTopic(3));

  // The composed lists outlive the arrival of the questions, except where neither vote nor user is known.
  const VoteItemList items = ListOf({Item(3, 1)}), lost = ListOf({Item(77, 1)}), none;
  const VoteOptionList options;
  vote->OnItemsAdded(&items, &options);
  vote->OnItemsAdded(&lost, &options);
  vote->OnItemsAdded(&none, &options);
  EXPECT_FALSE(instance.m_PendingItems.IsEmpty());
  const JW_ID nobody;
  vote->SetLocalUser(&nobody);
  vote->OnItemsAdded(&items, &options);
  EXPECT_FALSE(instance.m_PendingItems.IsEmpty());
  vote->OnItemsAdded(&lost, &options);
  EXPECT_TRUE(instance.m_PendingItems.IsEmpty());
  EXPECT_TRUE(instance.m_PendingOptions.IsEmpty());
}

TEST_F(InterfaceTest, WithoutASinkOnlySomeHappens) {
  MakeVote();
  VoteData::Release();
  data = VoteData::Get();
  data->SetLocalUser(kMe);
  const VoteTopicRecord topic = Topic(1);
  vote->OnVoteCreated(&topic);
  EXPECT_FALSE(data->FindTopic(1));
  MakeVote();
  const VoteTopicRecord renamed = Topic(1, kOther, "Renamed");
  instance.m_nLastCommand = kCmdChooseVoters;
  vote->OnVoteModified(&renamed);
  EXPECT_STREQ("Renamed", Vote().TopicName.GetString());
  EXPECT_EQ(kCmdChooseVoters, static_cast<u32>(instance.m_nLastCommand));
  data->ApplyVoteState(1, 1);
  Pick(10, 2);
  const VoteIdArray ids = Ids({10, 11, 12});
  vote->OnItemsRemaining(1, &ids);
  EXPECT_TRUE(Question(10).m_OwnAnswers.IsEmpty());
  vote->OnItemsRemoved(&ids);
  vote->ReloadResults(0);
  const VoteItemList none;
  const VoteOptionList noOptions;
  vote->OnVoteContent(0, &none, &noOptions);
}

TEST_F(InterfaceTest, ConfirmsTheChoiceOfParticipants) {
  const struct {
    int command;
    bool all;
    const char* text;
  } cases[] = {{11, true, "all vote"}, {11, false, "some vote"}, {12, true, "all view"}, {12, false, "some view"}};
  MakeVote();
  for (const auto& c : cases) {
    VoteTopicRecord topic = Topic(1);
    (c.command == 11 ? topic.IsAllVote : topic.IsAllView) = c.all;
    instance.m_nLastCommand = c.command;
    EXPECT_CALL(sink, ShowStatusText(Says(c.text)));
    vote->OnVoteModified(&topic);
    EXPECT_EQ(-1, instance.m_nLastCommand);
  }
  instance.m_nLastCommand = 10;
  const VoteTopicRecord topic = Topic(1);
  vote->OnVoteModified(&topic);
  EXPECT_EQ(-1, instance.m_nLastCommand);
  const VoteAnswerList none;
  vote->OnResultPublished(1, &none);
  instance.m_nLastCommand = 9;
  EXPECT_CALL(sink, ShowStatusText(Says("published")));
  vote->OnResultPublished(1, &none);
  EXPECT_EQ(-1, instance.m_nLastCommand);
}

TEST_F(InterfaceTest, OnlyTheFirstOpenQuestionSpeaks) {
  MakeVote();
  const VoteIdArray first = Ids({10}), second = Ids({11, 10}), third = Ids({12}), none;
  vote->OnItemsRemaining(1, &first);
  EXPECT_TRUE(Question(10).m_OwnAnswers.IsEmpty());
  data->ApplyVoteState(1, 1);
  Question(10).IsOpen = false;
  Pick(11, 2);
  Pick(12, 1);
  Question(11).m_OwnAnswers[3] = 3;
  for (const VoteIdArray* silent : {&first, &third, &none}) vote->OnItemsRemaining(1, silent);
  EXPECT_EQ(1, Question(11).m_OwnAnswers.GetCount());
  EXPECT_TRUE(Question(11).m_OwnAnswers.Contains(2));
  EXPECT_CALL(sink, ShowStatusText(Says("1 left")));
  vote->OnItemsRemaining(1, &second);
  Question(10).IsOpen = true;
  Pick(10, 1);
  EXPECT_CALL(sink, ShowStatusText(Says("all answered")));
  vote->OnItemsRemaining(1, &first);
  vote->OnItemsRemaining(9, &first);
}

TEST_F(InterfaceTest, StateMessageCutsLongNames) {
  const struct {
    std::string name, shown;
    int mode;
    const char* text;
  } cases[] = {
      {"123456789012345678", "123456789012345678", 0, "stopped"},
      {"1234567890123456789", "1234567890123456...", 1, "started"},
      {"", "", 2, "started"},
  };
  for (const auto& c : cases) {
    data->RemoveTopic(1);
    const VoteTopicRecord topic = Topic(1, kOther, c.name.c_str());
    data->AddTopic(&topic);
    instance.m_nLastCommand = 6;
    const InSequence order;
    EXPECT_CALL(sink, ShowStatusText(Says("\xE3\x80\x8A" + c.shown + "\xE3\x80\x8B\n" + c.text)));
    EXPECT_CALL(instance, RefreshButtons()).RetiresOnSaturation();
    vote->OnVoteStateChanged(1, c.mode);
    EXPECT_EQ(-1, instance.m_nLastCommand);
  }
  vote->OnVoteStateChanged(7, 1);
}

TEST_F(InterfaceTest, ContentDeletesTheManagersEmptyVotes) {
  for (const auto& topic : {Topic(1, kMe), Topic(2), Topic(3, kMe)}) data->AddTopic(&topic);
  const VoteItemList items = ListOf({Item(3, 1)});
  const VoteOptionList options;
  EXPECT_CALL(sink, DeleteVote(1));
  EXPECT_CALL(instance, RefreshButtons()).Times(testing::AtLeast(1));
  vote->OnVoteContent(0, &items, &options);
}

TEST_F(InterfaceTest, PassesOnWhatItDoesNotKeep) {
  Listen();
  EXPECT_CALL(heard, OnUserChanged(0, &kOther, 7));
  EXPECT_FALSE(vote->OnUserChanged(&kOther, 7));
  EXPECT_CALL(heard, OnOperateRightChanged(0, 1));
  vote->SetOperateRight(0x30001);
  EXPECT_CALL(heard, OnOperateRightChanged(0, 0));
  vote->SetOperateRight(0x10000);
  EXPECT_CALL(instance, RefreshButtons());
  vote->SetOperateRight(0);
}

TEST_F(InterfaceTest, NullArgumentsDoNothing) {
  MakeVote();
  vote->SetLocalUser(nullptr);
  vote->OnVoteList(nullptr);
  vote->OnVoteCreated(nullptr);
  vote->OnVoteModified(nullptr);
  vote->OnItemsAdded(nullptr, nullptr);
  vote->OnItemsModified(nullptr, nullptr);
  vote->OnItemsRemoved(nullptr);
  vote->OnItemsRemaining(1, nullptr);
  vote->OnItemsOpened(nullptr, 1);
  vote->OnVoteContent(0, nullptr, nullptr);
  vote->OnResultPublished(1, nullptr);
  vote->OnPendingAnswers(1, nullptr);
  vote->OnResultReceived(1, nullptr);
  vote->OnItemOrderChanged(1, nullptr);
  vote->OnVoteManagerChanged(1, nullptr);
  EXPECT_FALSE(vote->OnUserChanged(nullptr, 0));
  EXPECT_TRUE(vote->GetCurrentVote(nullptr, nullptr));
  EXPECT_EQ(3, Vote().m_Items.GetCount());
}

// The memory of a host that was built by another compiler: records, texts, arrays and lists made by hand in one block,
// which is compared byte by byte after each call.
class HostHeap {
 public:
  template <class T>
  T* Take(size_t count = 1) {
    void* const place = m_Block + m_nUsed;
    m_nUsed += (sizeof(T) * count + 15) / 16 * 16;
    EXPECT_LE(m_nUsed, sizeof(m_Block));
    return static_cast<T*>(place);
  }
  template <class Record>
  Record* Copy(const Record& record) {
    return ::new (Take<Record>()) Record(record);
  }
  void SetText(JW_StringA* field, const char* text) {
    const int length = JW_StringA::Length(text);
    char* const memory = Take<char>(sizeof(JW_StringHeader) + static_cast<size_t>(length) + 1);
    const JW_StringHeader header = {1, length, length};
    memcpy(memory, &header, sizeof(header));
    char* const characters = memory + sizeof(header);
    memcpy(characters, text, static_cast<size_t>(length) + 1);
    memcpy(static_cast<void*>(field), &characters, sizeof(characters));
  }
  template <class T>
  void SetArray(JW_Array<T>* field, std::initializer_list<T> elements) {
    T* const data = Take<T>(elements.size());
    int i = 0;
    for (const T& element : elements) ::new (data + i++) T(element);
    const struct {
      T* pData;
      int nSize, nMaxSize, nGrowBy;
    } array = {data, i, i, 0};
    memcpy(static_cast<void*>(field), &array, sizeof(*field));
  }
  VoteIdArray* Array(std::initializer_list<u32> ids) {
    VoteIdArray* const array = Take<VoteIdArray>();
    SetArray(array, ids);
    return array;
  }
  // Each record is made by `fill` from a copy of the given one.
  template <class Record, class Fill>
  JW_List<Record>* List(std::initializer_list<Record> records, Fill fill) {
    typedef typename JW_List<Record>::Node Node;
    Node* head = nullptr;
    Node* tail = nullptr;
    int count = 0;
    for (const Record& record : records) {
      Node* const node = Take<Node>();
      ::new (&node->data) Record(record);
      fill(&node->data);
      node->pNext = nullptr;
      node->pPrev = tail;
      (tail ? tail->pNext : head) = node;
      tail = node;
      ++count;
    }
    const struct {
      Node *pHead, *pTail;
      int nCount;
      Node* pFreeList;
      void* pBlocks;
      int nBlockSize;
    } list = {head, tail, count, nullptr, nullptr, 10};
    JW_List<Record>* const place = Take<JW_List<Record>>();
    memcpy(static_cast<void*>(place), &list, sizeof(list));
    return place;
  }

  void Remember() { m_Kept.assign(m_Block, m_Block + m_nUsed); }
  bool IsUntouched() const { return memcmp(m_Kept.data(), m_Block, m_nUsed) == 0; }
  void Scribble() { memset(m_Block, 0xDD, m_nUsed); }

 private:
  alignas(16) char m_Block[16384] = {};
  size_t m_nUsed = 0;
  std::vector<char> m_Kept;
};

TEST_F(InterfaceTest, TheHostsMemoryStaysTheHosts) {
  HostHeap host;
  const auto fillTopic = [&](VoteTopicRecord* topic) {
    host.SetText(&topic->TopicName, "Board");
    host.SetText(&topic->TopicDesc, "of this year");
    host.SetArray(&topic->VoterList, {kMe, kOther});
    host.SetArray(&topic->ViewerList, {kMe});
  };
  const auto fillItem = [&](VoteItemRecord* item) { host.SetText(&item->ItemName, "Who?"); };
  const auto fillOption = [&](VoteOptionRecord* option) { host.SetText(&option->OptionDesc, "Ann"); };
  const auto fillAnswer = [&](VoteAnswerRecord* answer) { host.SetText(&answer->SignName, "Zoe"); };
  VoteTopicRecord plain;
  plain.TopicID = 1;
  plain.CreatorID = plain.ManagerID = kMe;
  VoteTopicRecord* const topic = host.Copy(plain);
  fillTopic(topic);
  const VoteTopicList* const topics = host.List({plain}, fillTopic);
  const VoteItemList* const items = host.List({Item(1, 10), Item(1, 11)}, fillItem);
  const VoteOptionList* const options = host.List({Option(10, 1), Option(10, 2), Option(11, 1)}, fillOption);
  const VoteAnswerList* const answers = host.List({Answer(1, 10, kMe, 1), Answer(1, 11, kOther, 1)}, fillAnswer);
  const VoteIdArray* const ids = host.Array({11, 10});
  JW_ID* const user = host.Copy(kMe);
  host.Remember();

  const std::function<void()> calls[] = {
      [&] { vote->SetLocalUser(user); },
      [&] { vote->OnVoteCreated(topic); },
      [&] { vote->OnVoteCreated(topic); },
      [&] { vote->OnVoteList(topics); },
      [&] { vote->OnVoteModified(topic); },
      [&] { vote->OnItemsAdded(items, options); },
      [&] { vote->OnItemsModified(items, options); },
      [&] { vote->OnVoteContent(0, items, options); },
      [&] { vote->OnItemOrderChanged(1, ids); },
      [&] { vote->OnVoteStateChanged(1, 1); },
      [&] { vote->OnItemsOpened(ids, 1); },
      [&] { vote->OnItemsRemaining(1, ids); },
      [&] { vote->OnResultReceived(1, answers); },
      [&] { vote->OnResultPublished(1, answers); },
      [&] { vote->OnVoteManagerChanged(1, user); },
      [&] { vote->OnUserChanged(user, 0); },
      [&] { vote->ReloadResults(0); },
      [&] { vote->OnPendingAnswers(1, answers); },
  };
  for (const auto& call : calls) {
    call();
    ASSERT_TRUE(host.IsUntouched()) << "call " << &call - calls;
  }
  host.Scribble();
  EXPECT_STREQ("Board", Vote().TopicName.GetString());
  EXPECT_EQ(kMe, Vote().ViewerList[0]);
  EXPECT_STREQ("Who?", Question(11).ItemName.GetString());
  EXPECT_STREQ("Ann", Question(10).FindOption(2)->OptionDesc.GetString());
}

}  // namespace
