#include "module/HeadlessVote.h"
#include "module/InstanceRegistry.h"
#include "tests/core/support.h"

namespace {

IZQVote* Make() {
  return new HeadlessVote;
}
IZQVote* Fail() {
  return nullptr;
}

class RegistryTest : public testing::Test {
 protected:
  ~RegistryTest() override { VoteData::Release(); }
  static void Free(void* instance) { delete static_cast<HeadlessVote*>(static_cast<IZQVote*>(instance)); }
};

TEST_F(RegistryTest, NamesTheOneInterface) {
  char buffer[9] = "????????";
  EXPECT_FALSE(GetVoteInterfaceName(1, buffer));
  EXPECT_FALSE(GetVoteInterfaceName(-1, buffer));
  EXPECT_STREQ("????????", buffer);
  EXPECT_TRUE(GetVoteInterfaceName(0, buffer));
  EXPECT_STREQ("IZQVote", buffer);
}

TEST_F(RegistryTest, DestroyingGivesTheSinkOne) {
  InstanceRegistry registry(&Make);
  for (const char* wrong : {"izqvote", "IZQVote ", "", static_cast<const char*>(nullptr)}) {
    EXPECT_EQ(nullptr, registry.Create(wrong));
  }
  EXPECT_FALSE(registry.HasTable());
  void* const instance = registry.Create("IZQVote");
  ASSERT_TRUE(instance);
  EXPECT_EQ(1, registry.Count());
  static_cast<IZQVote*>(instance)->DestroyVoteWindow();
  registry.Destroy(instance);
  EXPECT_EQ(0, registry.Count());
  EXPECT_FALSE(registry.HasTable());
  EXPECT_EQ(reinterpret_cast<IZQVoteSink*>(1), VoteData::Get()->GetSink());
  Free(instance);
}

TEST_F(RegistryTest, AWrongPointerLeavesItsTrace) {
  InstanceRegistry registry(&Make);
  void* const instance = registry.Create("IZQVote");
  int wrong = 0;
  registry.Destroy(&wrong);
  registry.Destroy(&wrong);
  EXPECT_EQ(2, registry.Count());
  EXPECT_EQ(nullptr, VoteData::Get()->GetSink());
  registry.Destroy(instance);
  registry.Destroy(instance);  // is a wrong pointer now, and isn't called
  EXPECT_EQ(2, registry.Count());
  Free(instance);
}

TEST_F(RegistryTest, AFailedAllocationLeavesTheNullKey) {
  InstanceRegistry registry(&Fail);
  EXPECT_EQ(nullptr, registry.Create("IZQVote"));
  EXPECT_EQ(nullptr, registry.Create("IZQVote"));
  EXPECT_EQ(1, registry.Count());
  registry.Destroy(nullptr);
  EXPECT_EQ(0, registry.Count());
}

}  // namespace
