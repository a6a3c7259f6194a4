#include "toolkit/ToolTip.h"

#include "platform/Resources.h"
#include "toolkit/GdiHandles.h"
#include "toolkit/Toolkit.h"

namespace {

TOOLINFOW DescribeTool(HWND control) {
  TOOLINFOW tool = {};
  // Without the last field: version 5 of the common controls, which a client without a manifest gets, refuses a
  // structure of the full size.
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.uFlags = TTF_IDISHWND;
  tool.hwnd = GetParent(control);
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.hinst = platform::ResourceModule();
  return tool;
}

}  // namespace

HWND CreateToolTip(HWND control) {
  const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_BAR_CLASSES};
  InitCommonControlsEx(&classes);
  return CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                         CW_USEDEFAULT, control, nullptr, ToolkitInstance(), nullptr);
}

void SetToolTipTool(HWND toolTip, HWND control, const wchar_t* text) {
  if (!IsWindow(toolTip) || !IsWindow(control)) return;
  TOOLINFOW tool = DescribeTool(control);
  SendMessageW(toolTip, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  if (!text || !*text) return;
  // The structure isn't const, but adding a tool only reads the text.
  tool.lpszText = const_cast<wchar_t*>(text);
  SendMessageW(toolTip, TTM_ACTIVATE, TRUE, 0);
  SendMessageW(toolTip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void RelayToToolTip(HWND toolTip, const WindowMessage& message) {
  if (!IsWindow(toolTip)) return;
  const DWORD place = GetMessagePos();
  MSG relayed = {};
  relayed.hwnd = message.Window;
  relayed.message = message.Message;
  relayed.wParam = message.WParam;
  relayed.lParam = message.LParam;
  relayed.time = static_cast<DWORD>(GetMessageTime());
  relayed.pt = {static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
  SendMessageW(toolTip, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}
