#include <deque>

#include "tests/core/support.h"

namespace {

// Counts the living.
struct Counted {
  Counted() { ++s_nAlive; }
  Counted(const Counted& other) : value(other.value) { ++s_nAlive; }
  Counted& operator=(const Counted& other) = default;
  ~Counted() { --s_nAlive; }

  int value;
  static int s_nAlive;
};
int Counted::s_nAlive = 0;

TEST(Array, GrowsByItsStep) {
  const struct {
    int start, growBy, size, capacity;
  } cases[] = {{8, 0, 9, 12}, {80, 0, 81, 90}, {20000, 0, 20001, 21024}, {8, 5, 9, 13}, {8, 0, 100, 100}, {0, 0, 3, 3}};
  for (const auto& c : cases) {
    JW_Array<u32> array;
    ASSERT_TRUE(array.SetSize(c.start, c.growBy));
    EXPECT_EQ(c.start, array.GetCapacity());
    ASSERT_TRUE(array.SetSize(c.size));
    EXPECT_EQ(c.capacity, array.GetCapacity()) << c.start;
    EXPECT_EQ(0u, array[c.size - 1]);
    array.SetSize(0);
    EXPECT_EQ(0, array.GetCapacity());
    array.SetSize(0);
  }
  JW_Array<JW_ID> ids;
  EXPECT_FALSE(ids.SetSize(0x7FFFFFFF));
  EXPECT_EQ(0, ids.GetSize());
}

TEST(Array, ConstructsWhatComesAndDestroysWhatGoes) {
  {
    JW_Array<Counted> array;
    array.SetSize(3);
    EXPECT_EQ(3, Counted::s_nAlive);
    for (int i = 0; i < 3; ++i) array[i].value = i;
    array.InsertAt(1, array[2]);
    array.Add(array[0]);
    const int expected[] = {0, 2, 1, 2, 0};
    ASSERT_EQ(5, array.GetSize());
    for (int i = 0; i < 5; ++i) EXPECT_EQ(expected[i], array[i].value) << i;
    array.RemoveAt(1);
    array.SetSize(2);
    EXPECT_EQ(1, array[1].value);
    EXPECT_EQ(2, Counted::s_nAlive);
    JW_Array<Counted> copy(array);
    EXPECT_EQ(4, Counted::s_nAlive);
  }
  EXPECT_EQ(0, Counted::s_nAlive);
}

TEST(List, LinksNodesFromBlocks) {
  {
    JW_List<Counted> list(3);
    Counted value;
    const auto values = [&] {
      std::vector<int> all;
      for (const Counted& each : list) all.push_back(each.value);
      return all;
    };
    const auto add = [&](int number) {
      value.value = number;
      return list.AddTail(value);
    };
    auto* const first = add(1);
    auto* const second = add(2);
    EXPECT_EQ(first + 1, second);
    value.value = 0;
    list.AddHead(value);
    value.value = 9;
    auto* const inserted = list.InsertBefore(second, value);
    EXPECT_EQ(std::vector<int>({0, 1, 9, 2}), values());
    list.RemoveAt(inserted);
    EXPECT_EQ(inserted, add(3));
    EXPECT_EQ(std::vector<int>({0, 1, 2, 3}), values());
    EXPECT_EQ(list.GetTail(), inserted);
    EXPECT_EQ(5, Counted::s_nAlive);
    while (!list.IsEmpty()) list.RemoveAt(list.GetHead());
    EXPECT_EQ(nullptr, list.GetTail());
    add(4);
    list = JW_List<Counted>(list);
    EXPECT_EQ(std::vector<int>({4}), values());
  }
  EXPECT_EQ(0, Counted::s_nAlive);
}

int Warnings(const std::string& output) {
  int count = 0;
  const std::string line = "warning: unreasonable hash key!\r";
  for (size_t at = output.find(line); at != std::string::npos; at = output.find(line, at + 1)) ++count;
  return count;
}

TEST(Map, KeysFindTheirBucket) {
  JW_Map<u32, int> numbers;
  EXPECT_FALSE(numbers.HasTable());
  EXPECT_FALSE(numbers.Contains(1));
  EXPECT_FALSE(numbers.HasTable());
  for (const u32 key : {2u, 1u, 18u, 0xFFFFFFFFu, 35u}) numbers[key] = 0;  // 4294967295 % 17 is 0
  std::vector<u32> order;
  for (const auto& node : numbers) order.push_back(node.key);
  EXPECT_EQ(std::vector<u32>({0xFFFFFFFF, 35, 18, 1, 2}), order);
  for (const u32 key : order) EXPECT_TRUE(numbers.RemoveKey(key));
  EXPECT_FALSE(numbers.RemoveKey(1));
  EXPECT_FALSE(numbers.HasTable());

  EXPECT_EQ((5u ^ 0x80000000u) % 17, JW_MapKey<JW_ID>::Bucket(JW_ID(5, 0x80000000u), 17));
  EXPECT_EQ(0x1234u % 17, JW_MapKey<void*>::Bucket(reinterpret_cast<void*>(0x12345), 17));
}

// The map against chains as they are described: the same entries in the same order, and a warning for each step of a
// lookup from the 31st on, on both sides of the size where the index takes over and across it both ways.
TEST(Map, BehavesAsPlainChains) {
  typedef std::deque<std::pair<u32, int>> Chain;
  for (const u32 spread : {1u, 17u, 3u}) {
    JW_Map<u32, int> map;
    std::vector<Chain> chains(17);
    Dice dice(spread);
    int expected = 0;
    bool same = true;
    const auto walk = [&](u32 key) -> Chain::iterator {
      Chain& chain = chains[key % 17];
      int steps = 0;
      for (auto at = chain.begin(); at != chain.end(); ++at) {
        expected += ++steps > 30;
        if (at->first == key) return at;
      }
      return chain.end();
    };
    testing::internal::CaptureStdout();
    for (int round = 0; round < 8000; ++round) {
      // Grows to some 250 entries, then shrinks to a few, and so on.
      const bool growing = round / 1000 % 2 == 0;
      const u32 key = dice.Below(300) * spread;
      const u32 action = dice.Below(10);
      const auto at = walk(key);
      if (action < (growing ? 6u : 2u)) {
        if (at == chains[key % 17].end()) {
          chains[key % 17].emplace_front(key, round);
        } else {
          at->second = round;
        }
        map[key] = round;
      } else if (action < 8) {
        // Removal walks without a warning, so its lookup stands for the model's.
        same &= map.Contains(key) == (at != chains[key % 17].end());
        same &= map.RemoveKey(key) == (at != chains[key % 17].end());
        if (at != chains[key % 17].end()) chains[key % 17].erase(at);
      } else {
        const int* const value = map.Lookup(key);
        same &= at == chains[key % 17].end() ? !value : value && *value == at->second;
      }
    }
    fflush(stdout);
    const std::string output = testing::internal::GetCapturedStdout();
    EXPECT_TRUE(same);
    EXPECT_EQ(expected, Warnings(output));
    EXPECT_EQ(spread == 17, expected > 0);
    Chain flat;
    for (const Chain& chain : chains) flat.insert(flat.end(), chain.begin(), chain.end());
    Chain walked;
    for (auto at = map.GetStartPosition(); at;) {
      if (const auto* const node = map.GetNext(at)) walked.emplace_back(node->key, node->value);
    }
    EXPECT_EQ(flat, walked);
  }
}

TEST(Map, FailsToAddAKeyThatItHolds) {
  JW_Map<u32, JW_String> map(1);
  EXPECT_TRUE(map.AddNew(5, JW_String(JW_W("five"))));
  EXPECT_FALSE(map.AddNew(5, JW_String(JW_W("other"))));
  EXPECT_EQ("five", Utf8(map[5]));
  for (auto at = map.GetStartPosition(); at;) {
    if (const auto* const node = map.GetNext(at)) map.RemoveKey(node->key);
  }
  EXPECT_TRUE(map.IsEmpty());
}

#if defined(JW_ASSERTIONS)
TEST(ContainersDeathTest, Assert) {
  JW_Plex* chain = nullptr;
  EXPECT_DEATH(JW_Plex::Create(chain, 0, 4), "nMax > 0 && cbElement > 0");
  EXPECT_DEATH(JW_Plex::Create(chain, 4, 0), "nMax > 0 && cbElement > 0");
}
#endif

}  // namespace
