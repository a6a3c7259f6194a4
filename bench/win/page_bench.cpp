// Layout and repaint of an answer view at the limits of a vote: 200 questions of 16 options.
//
// Run it in the folder of ZQVoteRes.dll. Each line gives the best and the median time of one operation in milliseconds,
// with its goal; the program fails if a median misses its goal.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <vector>

#include "dialogs/VoteAnswerView.h"
#include "tests/dialogs/TestVote.h"

namespace {

constexpr u32 kOptionsOfItem = 16;
constexpr int kRounds = 21;

// Runs `prepare` and `measured` in turn and reports the latter.
template <class Prepare, class Measured>
bool Report(const char* what, double goal, Prepare prepare, Measured measured) {
  using Clock = std::chrono::steady_clock;
  std::vector<double> times;
  for (int round = 0; round < kRounds; ++round) {
    prepare(round);
    const Clock::time_point start = Clock::now();
    measured();
    GdiFlush();
    times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
  }
  std::sort(times.begin(), times.end());
  const double median = times[times.size() / 2];
  std::printf("%-44s best %8.3f  median %8.3f  goal %5.0f  %s\n", what, times.front(), median, goal,
              median < goal ? "met" : "MISSED");
  return median < goal;
}

class BenchView : public VoteAnswerView {
 public:
  void RequestLayout() { m_bLayout = true; }
};

void Fill(const TestVote& vote, u32 items) {
  VoteItemList questions;
  VoteOptionList options;
  for (u32 i = 1; i <= items; ++i) {
    questions.AddTail(
        MakeItem(i, i % 3, "Which of these proposals for the coming year should the committee pursue first?"));
    for (u32 n = 0; n < kOptionsOfItem; ++n) {
      // Every fourth one needs more than a line.
      options.AddTail(MakeOption(i * 100 + n, i,
                                 n % 4 ? "A larger room for the meetings"
                                       : "A longer lunch break on Fridays, made up for by an earlier start on the "
                                         "other days of the week, as long as the trains allow it"));
    }
  }
  vote.data->AddItems(&questions);
  vote.data->AddOptions(&options);
}

// What the view makes of questions that arrive one by one, the vote data's own work included.
bool MeasureArrival(HWND parent) {
  std::unique_ptr<TestVote> vote;
  std::unique_ptr<BenchView> view;
  const bool met = Report(
      "  take up 200 questions", 100,
      [&](int) {
        view.reset();
        vote.reset();
        vote = std::make_unique<TestVote>(parent);
        view = std::make_unique<BenchView>();
        view->m_pTopic = vote->Topic();
        const RECT rect = {0, 0, 700, 560};
        view->Create(parent, &rect, nullptr, 0x50200203);
      },
      [&] { Fill(*vote, kMaxItems); });
  view.reset();
  return met;
}

bool MeasureView(HWND parent, u32 items, bool manager) {
  TestVote vote(parent);
  if (!manager) vote.Change([](VoteTopicRecord& topic) { topic.ManagerID = kOther; });
  Fill(vote, items);
  BenchView view;
  view.m_pTopic = vote.Topic();
  const RECT rect = {0, 0, 700, 560};
  view.Create(parent, &rect, nullptr, 0x50200203);
  const auto nothing = [](int) {};
  const auto paint = [&] { RedrawWindow(view.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); };
  paint();
  std::printf("%u questions, %s\n", items, manager ? "manager" : "participant");
  bool met = Report("  repaint at the top", 16, nothing, paint);
  met &= Report(
      "  repaint further down", 16,
      [&](int round) { SendMessageW(view.m_hWnd, WM_VSCROLL, round ? SB_PAGEDOWN : SB_BOTTOM, 0); }, paint);
  met &= Report("  scroll a line and repaint", 16, nothing, [&] {
    SendMessageW(view.m_hWnd, WM_VSCROLL, SB_LINEUP, 0);
    UpdateWindow(view.m_hWnd);
  });
  met &= Report(
      "  layout at another width, and repaint", 100,
      [&](int round) {
        SetWindowPos(view.m_hWnd, nullptr, 0, 0, round % 2 ? 700 : 650, 560, SWP_NOMOVE | SWP_NOZORDER);
      },
      paint);
  met &= Report(
      "  layout at the same width, and repaint", 100, [&](int) { view.RequestLayout(); }, paint);
  return met;
}

}  // namespace

int main() {
  const TestModule module;
  const HWND parent =
      CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 700, 560, nullptr, nullptr, nullptr, nullptr);
  bool met = MeasureView(parent, 10, true);
  met &= MeasureView(parent, kMaxItems, true);
  met &= MeasureView(parent, kMaxItems, false);
  met &= MeasureArrival(parent);
  DestroyWindow(parent);
  return met ? 0 : 1;
}
