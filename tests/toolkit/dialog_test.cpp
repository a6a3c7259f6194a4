// Dialogs, modal and modeless, from templates in memory.
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "tests/toolkit/ToolkitEnvironment.h"
#include "toolkit/DialogBase.h"
#include "toolkit/GdiHandles.h"

namespace {

constexpr UINT kAsk = WM_USER + 1;
constexpr UINT kNoSuchDialog = 0x7001;

// A dialog without controls: the template, then no menu, the standard class and no title.
struct EmptyTemplate {
  DLGTEMPLATE Head = {WS_POPUP | WS_CAPTION, 0, 0, 10, 10, 100, 50};
  WORD Tail[3] = {};
};
const EmptyTemplate kTemplate;

class ProbeDialog : public DialogBase {
 public:
  bool ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result, DWORD) override {
    MessageMap map(this, window, message, wParam, lParam, result);
    return map.On(WM_INITDIALOG, &ProbeDialog::OnInitDialog) || map.OnCommand(IDOK, &ProbeDialog::OnOk) ||
           map.On(kAsk, &ProbeDialog::OnAsk) || map.On(WM_CTLCOLORDLG, &ProbeDialog::OnColor) || map.ReflectToChild();
  }
  void OnFinalMessage(HWND window) override { Final = window; }

  std::function<void()> AtInit = [] {};
  HWND Final = nullptr;
  OwnedBrush Brush{CreateSolidBrush(RGB(1, 2, 3))};

 private:
  LRESULT OnInitDialog(MessageArgs&) {
    AtInit();
    return FALSE;
  }
  LRESULT OnOk(MessageArgs&) {
    EndDialog(41);
    return 0;
  }
  LRESULT OnAsk(MessageArgs&) { return 77; }
  LRESULT OnColor(MessageArgs&) { return reinterpret_cast<LRESULT>(Brush.get()); }
};

TEST(Dialog, RunsModallyAndReturnsItsResult) {
  ProbeDialog dialog;
  LRESULT asked = 0, brush = 0;
  dialog.AtInit = [&] {
    asked = SendMessageW(dialog.m_hWnd, kAsk, 0, 0);
    brush = SendMessageW(dialog.m_hWnd, WM_CTLCOLORDLG, 0, reinterpret_cast<LPARAM>(dialog.m_hWnd));
    PostMessageW(dialog.m_hWnd, WM_COMMAND, IDOK, 0);
  };
  for (int run = 0; run < 2; ++run) {
    EXPECT_EQ(41, dialog.DoModal(&kTemplate.Head, nullptr));
    EXPECT_EQ(nullptr, dialog.m_hWnd);
    EXPECT_NE(nullptr, dialog.Final);
  }
  EXPECT_EQ(77, asked);
  EXPECT_EQ(reinterpret_cast<LRESULT>(dialog.Brush.get()), brush);
}

TEST(Dialog, WithoutATemplateDoesntRun) {
  ProbeDialog dialog;
  EXPECT_EQ(-1, dialog.DoModal(kNoSuchDialog, nullptr));
  EXPECT_EQ(nullptr, dialog.CreateModeless(kNoSuchDialog, nullptr));
  EXPECT_NE(nullptr, dialog.CreateModeless(&kTemplate.Head, nullptr)) << "the failed one left nothing behind";
  EXPECT_EQ(-1, dialog.DoModal(&kTemplate.Head, nullptr)) << "one window for one object";
  dialog.DestroyWindow();
}

TEST(Dialog, EndsInTheMiddleOfItsMessages) {
  ProbeDialog stopped;
  stopped.AtInit = [&] { stopped.EndDialog(5); };
  EXPECT_EQ(5, stopped.DoModal(&kTemplate.Head, nullptr));
  ProbeDialog destroyed;
  destroyed.AtInit = [&] { destroyed.DestroyWindow(); };
  destroyed.CreateModeless(&kTemplate.Head, nullptr);
  EXPECT_EQ(nullptr, destroyed.m_hWnd);
  auto* const deleted = new ProbeDialog;
  deleted->AtInit = [deleted] { delete deleted; };
  deleted->CreateModeless(&kTemplate.Head, nullptr);
}

TEST(Dialog, CentresOnItsOwnerAndStaysOnTheScreen) {
  const auto centre = [](int x, int y, bool visible) {
    const HWND owner = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | (visible ? WS_VISIBLE : 0), x, y, 600, 400,
                                       nullptr, nullptr, nullptr, nullptr);
    ProbeDialog dialog;
    dialog.CreateModeless(&kTemplate.Head, owner);
    dialog.CenterWindow();
    RECT own;
    GetWindowRect(dialog.m_hWnd, &own);
    DestroyWindow(owner);
    return own;
  };
  RECT work;
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  const RECT inside = centre(work.left + 100, work.top + 100, true);
  EXPECT_NEAR(work.left + 400, (inside.left + inside.right) / 2, 1);
  EXPECT_NEAR(work.top + 300, (inside.top + inside.bottom) / 2, 1);
  const RECT outside = centre(work.left - 590, work.top - 390, true);
  EXPECT_EQ(work.left, outside.left);
  EXPECT_EQ(work.top, outside.top);
  const RECT unseen = centre(work.left, work.top, false);
  EXPECT_NEAR((work.left + work.right) / 2, (unseen.left + unseen.right) / 2, 1);
}

}  // namespace
