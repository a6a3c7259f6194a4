// What the tests of the core share: a memory stream, records in short, and mocks of both sides of the boundary.
#pragma once

#include <gmock/gmock.h>

#include <cstring>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

#include "JW_Base/Include/JW_Utf8.h"
#include "module/IZQVoteSink.h"
#include "votedata/VoteData.h"

typedef std::vector<u8> Bytes;

struct EndOfStream {};

// Writes without end, and reads what it was given; a read beyond that throws.
class MemoryStream : public JW_ByteStream {
 public:
  static constexpr u32 kMark = 0x5EA1;

  MemoryStream() { m_nMark = kMark; }
  explicit MemoryStream(const Bytes& content) : bytes(content) {
    m_nMark = kMark;
    m_bLoad = true;
  }
  virtual ~MemoryStream() = default;

  void CheckSize(u32 mark, u32 size) override {
    EXPECT_EQ(kMark, mark);
    checked.push_back(size);
    if (size > bytes.size() - at) throw EndOfStream();
  }
  void Transfer(int displacement, u32 size, void* data) override {
    at += static_cast<size_t>(displacement);
    if (!m_bLoad) {
      const u8* const from = static_cast<const u8*>(data);
      bytes.insert(bytes.end(), from, from + size);
    } else if (at > bytes.size() || size > bytes.size() - at) {
      throw EndOfStream();
    } else if (size != 0) {
      memcpy(data, bytes.data() + at, size);
    }
    at += size;
  }

  Bytes bytes;
  size_t at = 0;
  std::vector<u32> checked;  // sizes that CheckSize was asked for
};

template <class Record>
Bytes Saved(const Record& record) {
  MemoryStream stream;
  record.Save(stream);
  return stream.bytes;
}

inline std::string Utf8(const JW_String& text) {
  return JW_Utf8FromWide(text).GetString();
}
inline JW_String Wide(const std::string& utf8) {
  return JW_WideFromUtf8(utf8.data(), static_cast<int>(utf8.size()));
}

// The same numbers in every run and on every system.
class Dice {
 public:
  explicit Dice(u32 seed) : m_Engine(seed) {}
  u32 operator()() { return static_cast<u32>(m_Engine()); }
  u32 Below(u32 limit) { return operator()() % limit; }

 private:
  std::mt19937 m_Engine;
};

// Makes the texts of test_texts.inc the resource module's.
void UseTestTexts();

const JW_ID kMe(7, 20001);
const JW_ID kOther(0, 20002);

inline VoteTopicRecord Topic(u32 id, const JW_ID& manager = kOther, const char* name = "Vote") {
  VoteTopicRecord topic;
  topic.TopicID = id;
  topic.CreatorID = topic.ManagerID = manager;
  topic.m_nMask = VoteTopicRecord::kTopicID | VoteTopicRecord::kCreatorID | VoteTopicRecord::kManagerID;
  topic.SetTopicName(name);
  return topic;
}
inline VoteItemRecord Item(u32 topic, u32 id, u32 no = 0, u32 type = VoteItemRecord::kSingleChoice, u32 limit = 0) {
  VoteItemRecord item;
  item.TopicID = topic;
  item.ItemID = id;
  item.ItemNo = no;
  item.ItemType = type;
  item.MultiSelLim = limit;
  item.m_nMask = 0x8F;
  return item;
}
inline VoteOptionRecord Option(u32 item, u32 id) {
  VoteOptionRecord option;
  option.ItemID = item;
  option.OptionID = id;
  option.m_nMask = 0x3;
  return option;
}
inline VoteAnswerRecord Answer(u32 topic, u32 item, const JW_ID& voter, u32 option, const char* name = "") {
  VoteAnswerRecord answer;
  answer.TopicID = topic;
  answer.ItemID = item;
  answer.VoterID = voter;
  answer.OptionID = option;
  answer.m_nMask = VoteAnswerRecord::kAll;
  answer.SetSignName(name);
  return answer;
}
template <class Record>
JW_List<Record> ListOf(std::initializer_list<Record> records) {
  JW_List<Record> list;
  for (const Record& record : records) list.AddTail(record);
  return list;
}
inline VoteIdArray Ids(std::initializer_list<u32> values) {
  VoteIdArray ids;
  for (const u32 value : values) ids.Add(value);
  return ids;
}
inline std::vector<u32> Plain(const VoteIdArray& ids) {
  return std::vector<u32>(ids.begin(), ids.end());
}

// A status text as UTF-8, or "#f343" for the bare number.
inline std::string StatusOf(const VoteStatusText* text) {
  char number[16];
  if (!VoteStatusIsId(text)) return Utf8(VoteStatusWords(text));
  snprintf(number, sizeof(number), "#%x", VoteStatusId(text));
  return number;
}

MATCHER_P(HasIds, ids, "") {
  return Plain(*arg) == std::vector<u32>(ids);
}
MATCHER_P(Says, text, "") {
  return StatusOf(arg) == text;
}
MATCHER_P(TopicIs, id, "") {
  return arg && arg->TopicID == static_cast<u32>(id);
}
MATCHER_P(ItemIs, id, "") {
  return arg && arg->ItemID == static_cast<u32>(id);
}
MATCHER_P(OptionIs, id, "") {
  return arg && arg->OptionID == static_cast<u32>(id);
}

class MockSink : public IZQVoteSink {
 public:
  MockSink() { ON_CALL(*this, IsUserOnline).WillByDefault(testing::Return(true)); }
  virtual ~MockSink() = default;

  MOCK_METHOD(int, CreateVote, (const VoteTopicRecord*), (override));
  MOCK_METHOD(void, ModifyVote, (const VoteTopicRecord*), (override));
  MOCK_METHOD(void, RequestVoteContent, (int), (override));
  MOCK_METHOD(int, AddItems, (int, const VoteItemList*, const VoteOptionList*), (override));
  MOCK_METHOD(void, ModifyItems, (int, const VoteItemList*, const VoteOptionList*), (override));
  MOCK_METHOD(void, RemoveItems, (int, const VoteIdArray*), (override));
  MOCK_METHOD(void, SubmitAnswers, (int, const VoteAnswerList*), (override));
  MOCK_METHOD(void, SetVoteState, (int, int), (override));
  MOCK_METHOD(void, SetItemsOpen, (int, const VoteIdArray*, bool), (override));
  MOCK_METHOD(int, PublishResult, (int), (override));
  MOCK_METHOD(void, DeleteVote, (int), (override));
  MOCK_METHOD(void, RequestResult, (int), (override));
  MOCK_METHOD(void, FetchResult, (int), (override));
  MOCK_METHOD(void, GetUserName, (const JW_ID*, JW_WChar*, int), (override));
  MOCK_METHOD(const VoteUserList*, GetUserList, (), (override));
  MOCK_METHOD(void, ShowStatusText, (const VoteStatusText*), (override));
  MOCK_METHOD(void, SetItemOrder, (int, const VoteIdArray*), (override));
  MOCK_METHOD(void, ChooseParticipants, (int, VoteTopicEntry*), (override));
  MOCK_METHOD(void, ResetVote, (int), (override));
  MOCK_METHOD(bool, IsUserOnline, (const JW_ID*), (override));
  MOCK_METHOD(void, RegisterDialogWindow, (JW_HWND), (override));
};

class MockListener : public VoteListener {
 public:
  virtual ~MockListener() = default;

  MOCK_METHOD(void, OnCurrentVoteChanged, (u32, VoteTopicEntry*), (override));
  MOCK_METHOD(void, OnVoteAdded, (u32, VoteTopicEntry*), (override));
  MOCK_METHOD(void, OnVoteChanged, (u32, VoteTopicEntry*), (override));
  MOCK_METHOD(void, OnVoteRemoving, (u32, VoteTopicEntry*), (override));
  MOCK_METHOD(void, OnItemAdded, (u32, int, VoteItemEntry*), (override));
  MOCK_METHOD(void, OnItemRemoving, (u32, int, int), (override));
  MOCK_METHOD(void, OnItemChanged, (u32, int, VoteItemEntry*, int), (override));
  MOCK_METHOD(void, OnOptionAdded, (u32, int, int, VoteOptionEntry*), (override));
  MOCK_METHOD(void, OnOptionRemoving, (u32, int, int, int), (override));
  MOCK_METHOD(void, OnOptionChanged, (u32, int, int, VoteOptionEntry*), (override));
  MOCK_METHOD(void, OnItemOrderChanged, (u32, int, const VoteIdArray*), (override));
  MOCK_METHOD(void, OnVoteStateChanged, (u32, int, int), (override));
  MOCK_METHOD(void, OnItemOpenChanged, (u32, int, int, int), (override));
  MOCK_METHOD(void, OnVoteManagerChanged, (u32, int, const JW_ID*), (override));
  MOCK_METHOD(void, OnVoteReset, (u32, int), (override));
  MOCK_METHOD(void, OnOperateRightChanged, (u32, u16), (override));
  MOCK_METHOD(void, OnVoteDataChanged, (u32, int, int), (override));
  MOCK_METHOD(void, OnResultStateChanged, (u32, int, int), (override));
  MOCK_METHOD(void, OnItemAnswersCleared, (u32, int, int, int), (override));
  MOCK_METHOD(void, OnUserChanged, (u32, const JW_ID*, u32), (override));
};

class MockUi : public VoteUi {
 public:
  virtual ~MockUi() = default;

  MOCK_METHOD(int, Ask, (JW_HWND, u32, u32, u32), (override));
  MOCK_METHOD(bool, RunItemDialog, (VoteItemDraft*), (override));
  MOCK_METHOD(bool, IsControlEnabled, (JW_HWND, int), (override));
  MOCK_METHOD(void, OpenSignNames, (VoteTally*, const VoteSignNamesRequest&), (override));
  MOCK_METHOD(void, CloseSignNames, (VoteDlgSignName*), (override));
};

// A VoteData of its own for each test, with a sink that accepts everything and kMe as the local user. After Listen,
// every event that a test doesn't expect is a failure.
class VoteTest : public testing::Test {
 protected:
  VoteTest() : data(VoteData::Get()) {
    UseTestTexts();
    VoteData::SetUi(&ui);
    data->SetSink(&sink);
    data->SetLocalUser(kMe);
  }
  ~VoteTest() override {
    VoteData::Release();
    VoteData::SetUi(nullptr);
  }

  void Listen() { data->AddListener(&heard); }

  // Vote 1 with the questions 10 (one choice), 11 (up to two) and 12 (yes or no), each with the options 1 to 3.
  void MakeVote(const JW_ID& manager = kOther) {
    const VoteTopicRecord topic = Topic(1, manager);
    data->AddTopic(&topic);
    const VoteItemList items = ListOf(
        {Item(1, 10, 0), Item(1, 11, 1, VoteItemRecord::kMultipleChoice, 2), Item(1, 12, 2, VoteItemRecord::kYesOrNo)});
    data->AddItems(&items);
    for (u32 item = 10; item <= 12; ++item) {
      const VoteOptionList options = ListOf({Option(item, 1), Option(item, 2), Option(item, 3)});
      data->AddOptions(&options);
    }
  }
  VoteTopicEntry& Vote() { return *data->FindTopic(1); }
  VoteItemEntry& Question(u32 id) { return *data->FindItem(id); }
  void Pick(u32 item, u32 option) { EXPECT_TRUE(Vote().PickOption(item, option)); }
  std::vector<u32> Selected(u32 item) {
    std::vector<u32> ids;
    for (const u32 id : Question(item).m_OptionOrder) {
      if (const VoteOptionEntry* option = Question(item).FindOption(id); option && option->m_bSelected)
        ids.push_back(id);
    }
    return ids;
  }

  testing::NiceMock<MockSink> sink;
  testing::NiceMock<MockUi> ui;
  testing::StrictMock<MockListener> heard;
  VoteData* data;
};
