#include <map>
#include <sstream>

#include "tests/core/support.h"

namespace {

// The hex blocks of docs/wire-format.md by their names.
const std::map<std::string, Bytes>& Examples() {
  static const std::map<std::string, Bytes> examples = [] {
    const std::string document =
#include "wire_document.inc"
        ;
    std::map<std::string, Bytes> all;
    Bytes* block = nullptr;
    std::istringstream lines(document);
    for (std::string line; std::getline(lines, line);) {
      if (line.rfind("```wire ", 0) == 0) {
        block = &all[line.substr(8)];
      } else if (line.rfind("```", 0) == 0) {
        block = nullptr;
      } else if (block) {
        std::istringstream words(line.substr(0, line.find(';')));
        for (std::string word; words >> word;) block->push_back(static_cast<u8>(std::stoul(word, nullptr, 16)));
      }
    }
    return all;
  }();
  return examples;
}

template <class Record>
Record Loaded(const Bytes& bytes) {
  MemoryStream stream(bytes);
  Record record;
  record.Load(stream);
  EXPECT_EQ(bytes.size(), stream.at);
  return record;
}

VoteTopicRecord FullTopic() {
  VoteTopicRecord topic = Topic(7, kOther, "Board");
  topic.IsSignVote = topic.IsAllView = topic.IsStarted = true;
  topic.TimeLong = 600;
  topic.TopicFlags = static_cast<u32>(-5);
  topic.EndTime.Set(740041, 522000000);
  topic.CreatorID = kMe;
  topic.VoterList.Add(kMe);
  topic.VoterList.Add(kOther);
  topic.m_nMask = 0x7FFF;
  return topic;
}
VoteItemRecord FullItem() {
  VoteItemRecord item = Item(7, 10, 0, VoteItemRecord::kMultipleChoice, 2);
  item.IsOpen = true;
  item.SetItemName("Caf\xC3\xA9?");
  item.SetItemDesc("\xED\xA0\xBD\xED\xB8\x80");
  item.m_nMask = 0x1FF;
  return item;
}
VoteOptionRecord FullOption() {
  VoteOptionRecord option = Option(10, 1);
  option.SetOptionDesc("Tea");
  option.m_nMask = 0xF;
  return option;
}

template <class Record>
void ExpectExample(const std::string& name, const Record& record) {
  ASSERT_TRUE(Examples().contains(name)) << name;
  EXPECT_EQ(Examples().at(name), Saved(record)) << name;
  EXPECT_EQ(Examples().at(name), Saved(Loaded<Record>(Examples().at(name)))) << name;
}

TEST(Wire, EncodesAsDocumented) {
  ExpectExample("topic-full", FullTopic());
  VoteTopicRecord stopped = Topic(7);
  stopped.m_nMask = VoteTopicRecord::kTopicID | VoteTopicRecord::kIsStarted;
  ExpectExample("topic-partial", stopped);
  ExpectExample("item-full", FullItem());
  ExpectExample("option-full", FullOption());
  ExpectExample("answer-full", Answer(7, 10, kMe, VoteAnswerRecord::kNoOption, "Ann"));
  EXPECT_EQ(Bytes({0}), Saved(VoteOptionRecord()));
  EXPECT_EQ(Bytes({0}), Saved(VoteAnswerRecord()));
  EXPECT_EQ(Bytes({1, 0}), Saved(VoteItemRecord()));
  EXPECT_EQ(Bytes({2, 0, 0, 0}), Saved(VoteTopicRecord()));
}

TEST(Wire, LoadsEveryFormAndSavesItsOwn) {
  for (const char* name : {"head-1", "head-2", "head-4", "head-8"}) {
    const VoteOptionRecord option = Loaded<VoteOptionRecord>(Examples().at(name));
    EXPECT_EQ(5u, option.m_nMask) << name;
    EXPECT_EQ(3u, option.OptionID);
    EXPECT_STREQ("No", option.OptionDesc.GetString());
    EXPECT_EQ(Examples().at("head-1"), Saved(option));
  }
  const Bytes high = {3, 0, 0, 0, 0, 0, 0, 0x80};
  EXPECT_EQ(0x2000000000000000u, Loaded<VoteItemRecord>(high).m_nMask);
  // What the form has no room for falls off the top.
  VoteOptionRecord option;
  VoteItemRecord item;
  VoteTopicRecord topic;
  option.m_nMask = 0x40;
  item.m_nMask = 0x4000;
  topic.m_nMask = 0x40000000;
  EXPECT_EQ(Bytes({0}), Saved(option));
  EXPECT_EQ(Bytes({1, 0}), Saved(item));
  EXPECT_EQ(Bytes({2, 0, 0, 0}), Saved(topic));
}

TEST(Wire, CompactLengths) {
  const struct {
    u32 value;
    Bytes bytes;
  } cases[] = {
      {0, {0}},
      {0x7F, {0x7F}},
      {0x80, {0x80, 0x80}},
      {0x3FFF, {0xBF, 0xFF}},
      {0x4000, {0xC0, 0x40, 0}},
      {0x1FFFFF, {0xDF, 0xFF, 0xFF}},
      {0x200000, {0xE0, 0x20, 0, 0}},
      {0xFFFFFFF, {0xEF, 0xFF, 0xFF, 0xFF}},
      {0x10000000, {0xF0, 0x10, 0, 0, 0}},
      {0xFFFFFFFF, {0xF0, 0xFF, 0xFF, 0xFF, 0xFF}},
  };
  for (const auto& c : cases) {
    MemoryStream out;
    EXPECT_EQ(c.bytes.size(), out.WriteLength(c.value));
    EXPECT_EQ(c.bytes, out.bytes) << c.value;
    MemoryStream in(c.bytes);
    EXPECT_EQ(c.value, in.ReadLength());
    EXPECT_EQ(c.bytes.size(), in.at);
  }
  for (const Bytes& longer : {Bytes{0x80, 1}, {0xC0, 0, 1}, {0xE0, 0, 0, 1}, {0xF0, 0, 0, 0, 1}}) {
    MemoryStream in(longer);
    EXPECT_EQ(1u, in.ReadLength());
  }
  for (u32 first = 0xF1; first <= 0xFF; ++first) {
    MemoryStream in(Bytes{static_cast<u8>(first), 0, 0, 0, 0});
    try {
      in.ReadLength();
      ADD_FAILURE() << first;
    } catch (long code) {
      EXPECT_EQ(0x81000001u, static_cast<u32>(code));
    }
    EXPECT_EQ(1u, in.at);
  }
}

TEST(Wire, StringsOfFixedLength) {
  MemoryStream out;
  out.WriteString("abc", true);
  out.WriteString("", true);
  EXPECT_EQ(Bytes({3, 0, 0, 0, 'a', 'b', 'c', 0, 0, 0, 0}), out.bytes);
  MemoryStream in(out.bytes);
  JW_StringA text;
  EXPECT_EQ(4u, in.ReadString(text, true));
  EXPECT_STREQ("abc", text.GetString());
  EXPECT_EQ(1u, in.ReadString(text, true));
  EXPECT_TRUE(text.IsEmpty());
  EXPECT_EQ(std::vector<u32>({3, 0}), in.checked);
}

// Loads an empty record over `used`, which must then hold what `kept` does.
template <class Record>
void ExpectKept(Record* used, Record kept, const Bytes& emptyRecord) {
  MemoryStream stream(emptyRecord);
  used->Load(stream);
  EXPECT_EQ(0u, used->m_nMask);
  used->m_nMask = kept.m_nMask = 0x7FFF;
  EXPECT_EQ(Saved(kept), Saved(*used));
}

TEST(Wire, AReusedRecordKeepsIdsAndItsLastField) {
  VoteTopicRecord topic = FullTopic(), keptTopic;
  keptTopic.CreatorID = kMe;
  keptTopic.ManagerID = kOther;
  keptTopic.VoterList = topic.VoterList;
  keptTopic.TopicExtra = topic.TopicExtra = 9;
  ExpectKept(&topic, keptTopic, {2, 0, 0, 0});
  VoteItemRecord item = FullItem(), keptItem;
  keptItem.ItemExtra = item.ItemExtra = 9;
  ExpectKept(&item, keptItem, {1, 0});
  VoteOptionRecord option = FullOption(), keptOption;
  keptOption.OptionExtra = option.OptionExtra = 9;
  ExpectKept(&option, keptOption, {0});
  VoteAnswerRecord answer = Answer(1, 2, kMe, 3, "Ann"), keptAnswer;
  keptAnswer.VoterID = kMe;
  keptAnswer.AnswerExtra = answer.AnswerExtra = 9;
  ExpectKept(&answer, keptAnswer, {0});

  // A shorter list takes the place of a longer one.
  MemoryStream shorter(Bytes{0x02, 0x08, 0, 0, 1, 1, 0, 0, 0, 2, 0, 0, 0});
  topic.Load(shorter);
  ASSERT_EQ(1, topic.VoterList.GetSize());
  EXPECT_EQ(JW_ID(2, 1), topic.VoterList[0]);
}

TEST(Wire, BoolsAndDatesFromStrangers) {
  VoteTopicRecord topic;
  const u8 two = 2;
  memcpy(&topic.IsSignVote, &two, 1);
  topic.m_nMask = VoteTopicRecord::kIsSignVote;
  EXPECT_EQ(1, Saved(topic)[4]);
  EXPECT_EQ(1, Saved(VoteTopicRecord(topic))[4]);
  EXPECT_TRUE(Loaded<VoteTopicRecord>({0x22, 0, 0, 0, 0x80}).IsSignVote);

  const struct {
    Bytes date;
    int day, time;
  } cases[] = {
      {{0x49, 0xBB, 0x37, 0, 1, 0, 0, 0}, 500, 600},
      {{0xFF, 0xFF, 0xFF, 0xFF, 1, 0, 0, 0}, 500, 600},
      {{1, 0, 0, 0, 0x00, 0x98, 0x7F, 0x33}, 1, 600},
      {{1, 0, 0, 0, 0xFF, 0x97, 0x7F, 0x33}, 1, 863999999},
  };
  for (const auto& c : cases) {
    Bytes bytes = {0x02, 1, 0, 0};
    bytes.insert(bytes.end(), c.date.begin(), c.date.end());
    MemoryStream stream(bytes);
    topic.EndTime.Set(500, 600);
    topic.Load(stream);
    EXPECT_EQ(c.day, topic.EndTime.m_Date);
    EXPECT_EQ(c.time, topic.EndTime.m_Time);
  }
}

template <class Record>
void ExpectEveryCutThrows(const std::string& name) {
  const Bytes& whole = Examples().at(name);
  for (size_t length = 0; length < whole.size(); ++length) {
    MemoryStream stream(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
    Record record;
    EXPECT_THROW(record.Load(stream), EndOfStream) << name << length;
  }
}

TEST(Wire, ShortBuffersEndTheLoad) {
  ExpectEveryCutThrows<VoteTopicRecord>("topic-full");
  ExpectEveryCutThrows<VoteItemRecord>("item-full");
  ExpectEveryCutThrows<VoteOptionRecord>("option-full");
  ExpectEveryCutThrows<VoteAnswerRecord>("answer-full");
}

TEST(Wire, HostileLengthsMakeNoRoom) {
  // A text of 4 GiB, of which three bytes are there.
  VoteOptionRecord option;
  option.SetOptionDesc("old");
  MemoryStream text(Bytes{0x14, 7, 0, 0, 0, 0xF0, 0xFF, 0xFF, 0xFF, 0xFF, 'a', 'b', 'c'});
  EXPECT_THROW(option.Load(text), EndOfStream);
  EXPECT_EQ(std::vector<u32>({0xFFFFFFFF}), text.checked);
  EXPECT_EQ(7u, option.OptionID);
  EXPECT_EQ(5u, option.m_nMask);
  EXPECT_EQ(3, option.OptionDesc.Header()->nAllocLength);
  // Ids whose sizes wrap in 32 bits; the count itself isn't checked.
  for (const u8 top : {u8(0x20), u8(0x80), u8(0xFF)}) {
    VoteTopicRecord topic;
    topic.VoterList.Add(kMe);
    Bytes bytes = {0x02, 8, 0, 0, 0xF0, top, 0, 0, 1};
    bytes.resize(bytes.size() + 40 * 8 + 3);
    MemoryStream ids(bytes);
    EXPECT_THROW(topic.Load(ids), EndOfStream);
    EXPECT_TRUE(ids.checked.empty());
    EXPECT_LT(topic.VoterList.GetCapacity(), 64);
  }
  // A bad length stops at once, and what came before it stays.
  VoteTopicRecord topic = FullTopic();
  MemoryStream bad(Bytes{0x0E, 0, 0, 0, 8, 0, 0, 0, 0xF7, 1, 2, 3});
  EXPECT_THROW(topic.Load(bad), long);
  EXPECT_EQ(8u, topic.TopicID);
  EXPECT_EQ(3u, topic.m_nMask);
  EXPECT_STREQ("Board", topic.TopicName.GetString());
}

TEST(Wire, RandomRecordsComeBack) {
  Dice dice(7);
  for (int round = 0; round < 2000; ++round) {
    VoteTopicRecord topic = FullTopic();
    topic.m_nMask = dice() & 0x7FFF;
    topic.TopicID = dice();
    const std::string name(dice.Below(700), 'n');
    topic.SetTopicName(name.c_str());
    topic.SetTopicDesc(name.substr(name.size() / 2).c_str());
    topic.VoterList.SetSize(static_cast<int>(dice.Below(200)));
    for (JW_ID& id : topic.VoterList) id = JW_ID(dice(), dice());
    const Bytes bytes = Saved(topic);
    const VoteTopicRecord again = Loaded<VoteTopicRecord>(bytes);
    ASSERT_EQ(topic.m_nMask, again.m_nMask);
    ASSERT_EQ(bytes, Saved(again));
  }
}

TEST(Records, SettersTake1024Bytes) {
  VoteItemRecord item;
  EXPECT_TRUE(item.SetItemName(std::string(1024, 'a').c_str()));
  EXPECT_EQ(u64(VoteItemRecord::kItemName), item.m_nMask);
  item.m_nMask = 0;
  EXPECT_FALSE(item.SetItemName(std::string(1025, 'b').c_str()));
  EXPECT_EQ(0u, item.m_nMask);
  EXPECT_EQ(1024, item.ItemName.GetLength());
  EXPECT_EQ('a', item.ItemName.GetString()[0]);
  Bytes wire = {0x81, 0, 0x84, 0x01};
  wire.resize(4 + 1025, 'w');
  EXPECT_EQ(1025, Loaded<VoteItemRecord>(wire).ItemName.GetLength());
}

TEST(Records, CopiesShareNothing) {
  const VoteTopicRecord topic = FullTopic();
  const VoteTopicRecord copy(topic);
  EXPECT_EQ(Saved(topic), Saved(copy));
  EXPECT_NE(topic.TopicName.GetString(), copy.TopicName.GetString());
  EXPECT_EQ(1, topic.TopicName.Header()->nRefs);
  EXPECT_NE(topic.VoterList.begin(), copy.VoterList.begin());
}

TEST(Records, RightsGoByBothWords) {
  VoteTopicRecord topic = FullTopic();
  topic.IsAllView = false;
  EXPECT_EQ(1, topic.VoterRight(kMe));
  EXPECT_EQ(0, topic.VoterRight(JW_ID(8, 20001)));
  EXPECT_EQ(0, topic.ViewerRight(kMe));
  EXPECT_FALSE(topic.IsManager(JW_ID(1, 20002)));
  EXPECT_TRUE(topic.IsManager(kOther));
  topic.IsAllVote = topic.IsAllView = true;
  EXPECT_EQ(1, topic.VoterRight(JW_ID()));
  EXPECT_EQ(2, topic.ViewerRight(JW_ID()));
}

#if defined(JW_ASSERTIONS)
TEST(StreamDeathTest, AssertsItsDirection) {
  MemoryStream out;
  MemoryStream in(Bytes{0});
  u8 byte = 0;
  EXPECT_DEATH(out.Read(&byte, 1), "m_bLoad && pData");
  EXPECT_DEATH(in.Write(&byte, 1), "!m_bLoad && pData");
  EXPECT_DEATH(in.Read(nullptr, 1), "m_bLoad && pData");
  EXPECT_DEATH(JW_ByteStream::SwapBytes(&byte, 0), "size > 0");
}
#endif

}  // namespace
