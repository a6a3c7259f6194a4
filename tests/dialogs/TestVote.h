// A vote in VoteData, with the local user as its manager, a quiet host and the default resource module, for tests and
// benchmarks of the windows that show it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "module/IZQVoteSink.h"
#include "platform/Resources.h"
#include "platform/windows/Windows.h"
#include "toolkit/Toolkit.h"
#include "votedata/VoteData.h"
#include "window/VoteResources.h"

inline const JW_ID kSelf(7, 1);
inline const JW_ID kOther(8, 1);
constexpr u32 kTopic = 5;

// A host that accepts everything and does nothing, unless `onAsk` does: it is called before each command.
class QuietSink : public IZQVoteSink {
 public:
  virtual ~QuietSink() = default;

  std::function<void()> onAsk;

  int CreateVote(const VoteTopicRecord*) override { return 0; }
  void ModifyVote(const VoteTopicRecord*) override {}
  void RequestVoteContent(int) override {}
  int AddItems(int, const VoteItemList*, const VoteOptionList*) override { return 0; }
  void ModifyItems(int, const VoteItemList*, const VoteOptionList*) override {}
  void RemoveItems(int, const VoteIdArray*) override {}
  void SubmitAnswers(int, const VoteAnswerList*) override {}
  void SetVoteState(int, int) override {}
  void SetItemsOpen(int, const VoteIdArray*, bool) override {}
  int PublishResult(int) override { return 0; }
  void DeleteVote(int) override {}
  void RequestResult(int) override {}
  void FetchResult(int) override {}
  void GetUserName(const JW_ID*, JW_WChar*, int) override {}
  const VoteUserList* GetUserList() override { return nullptr; }
  void ShowStatusText(const VoteStatusText*) override {}
  void SetItemOrder(int, const VoteIdArray*) override {}
  void ChooseParticipants(int, VoteTopicEntry*) override {}
  void ResetVote(int) override {}
  bool IsUserOnline(const JW_ID*) override {
    if (onAsk) onAsk();
    return true;
  }
  void RegisterDialogWindow(JW_HWND) override {}
};

// The toolkit and the resource module, once for the process.
class TestModule {
 public:
  TestModule() : m_hModule(LoadLibraryExW(L"ZQVoteRes.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE)) {
    InitToolkit(GetModuleHandleW(nullptr));
    platform::SetResourceModule(m_hModule);
    UseLanguage(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US));
  }
  ~TestModule() {
    VoteResources::Destroy();
    TermToolkit();
    FreeLibrary(m_hModule);
  }
  TestModule(const TestModule&) = delete;
  TestModule& operator=(const TestModule&) = delete;

  HMODULE Get() const { return m_hModule; }
  // The fonts of the windows to come are that language's too.
  static void UseLanguage(LANGID language) {
    SetThreadLocale(MAKELCID(language, SORT_DEFAULT));
    VoteResources::Destroy();
  }

 private:
  HMODULE m_hModule;
};

inline VoteItemRecord MakeItem(u32 id, u32 type, const char* name, u32 limit = 0) {
  VoteItemRecord item;
  item.ItemID = item.ItemNo = id;
  item.TopicID = kTopic;
  item.ItemType = type;
  item.MultiSelLim = limit;
  item.SetItemName(name);
  return item;
}

inline VoteOptionRecord MakeOption(u32 id, u32 itemId, const char* text) {
  VoteOptionRecord option;
  option.OptionID = id;
  option.ItemID = itemId;
  option.SetOptionDesc(text);
  return option;
}

class TestVote {
 public:
  // `mainWindow` gets the posted commands.
  explicit TestVote(HWND mainWindow) {
    data = VoteData::Get();
    data->SetSink(&sink);
    data->SetLocalUser(kSelf);
    data->SetMainWindow(mainWindow);
    data->SetOperateRight(1);
    VoteTopicRecord record;
    record.TopicID = kTopic;
    record.ManagerID = kSelf;
    record.IsAllVote = record.IsAllView = record.IsSignVote = true;
    record.SetTopicName("Canteen");
    data->AddTopic(&record);
  }
  ~TestVote() { VoteData::Release(); }
  TestVote(const TestVote&) = delete;
  TestVote& operator=(const TestVote&) = delete;

  VoteTopicEntry* Topic() const { return data->FindTopic(kTopic); }
  VoteItemEntry* Item(u32 id) const { return data->FindItem(id); }

  // Options are numbered from 10 times the question's number.
  void Add(const VoteItemRecord& item, const std::vector<const char*>& options) const {
    VoteItemList items;
    items.AddTail(item);
    data->AddItems(&items);
    VoteOptionList list;
    for (const char* const text : options) {
      list.AddTail(MakeOption(item.ItemID * 10 + static_cast<u32>(list.GetCount()), item.ItemID, text));
    }
    data->AddOptions(&list);
  }
  void Change(const std::function<void(VoteTopicRecord&)>& change) const {
    VoteTopicRecord record = *Topic();
    change(record);
    data->UpdateTopic(&record);
  }
  void Start() const { data->ApplyVoteState(kTopic, 2); }
  void SetOpen(u32 itemId, bool open) const {
    VoteIdArray ids;
    ids.Add(itemId);
    data->SetItemsOpen(&ids, open);
  }
  // Publishes one answer of another participant for each option number.
  void Publish(const std::vector<u32>& optionIds) const {
    VoteAnswerList answers;
    for (const u32 id : optionIds) {
      VoteAnswerRecord answer;
      answer.TopicID = kTopic;
      answer.ItemID = id / 10;
      answer.OptionID = id;
      answer.VoterID = JW_ID(100 + static_cast<u32>(answers.GetCount()), 1);
      answers.AddTail(answer);
    }
    data->ApplyAnswers(kTopic, &answers, kAnswersPublished);
  }

  QuietSink sink;
  VoteData* data;
};
