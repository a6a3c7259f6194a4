#include "toolkit/DialogBase.h"

#include <algorithm>

#include "platform/Resources.h"
#include "toolkit/Toolkit.h"

namespace {

// These take their result from the dialog procedure itself and not from the window.
bool AnswersDirectly(UINT message) {
  switch (message) {
    case WM_INITDIALOG:
    case WM_COMPAREITEM:
    case WM_VKEYTOITEM:
    case WM_CHARTOITEM:
    case WM_QUERYDRAGICON:
      return true;
    default:
      return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
  }
}

RECT WorkArea(HWND window) {
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof(monitor);
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork;
}

LONG Clamped(LONG start, LONG size, LONG low, LONG high) {
  return std::max(low, std::min(start, high - size));
}

}  // namespace

INT_PTR DialogBase::DoModal(UINT resourceId, HWND parent) {
  const HMODULE module = platform::ResourceModule();
  if (!module || !BeginCreation()) return -1;
  const INT_PTR result = DialogBoxParamW(module, MAKEINTRESOURCEW(resourceId), parent, &StartDialogProc, 0);
  EndCreation();
  return result;
}

INT_PTR DialogBase::DoModal(const DLGTEMPLATE* dialogTemplate, HWND parent) {
  if (!BeginCreation()) return -1;
  const INT_PTR result = DialogBoxIndirectParamW(ToolkitInstance(), dialogTemplate, parent, &StartDialogProc, 0);
  EndCreation();
  return result;
}

void DialogBase::EndDialog(INT_PTR result) {
  if (m_hWnd) ::EndDialog(m_hWnd, result);
}

HWND DialogBase::CreateModeless(UINT resourceId, HWND parent) {
  const HMODULE module = platform::ResourceModule();
  if (!module || !BeginCreation()) return nullptr;
  const DispatchFrame frame(this);
  const HWND window = CreateDialogParamW(module, MAKEINTRESOURCEW(resourceId), parent, &StartDialogProc, 0);
  return frame.ObjectGone() ? nullptr : Created(window);
}

HWND DialogBase::CreateModeless(const DLGTEMPLATE* dialogTemplate, HWND parent) {
  if (!BeginCreation()) return nullptr;
  const DispatchFrame frame(this);
  const HWND window = CreateDialogIndirectParamW(ToolkitInstance(), dialogTemplate, parent, &StartDialogProc, 0);
  return frame.ObjectGone() ? nullptr : Created(window);
}

void DialogBase::CenterWindow() {
  RECT own = {};
  if (!GetWindowRect(m_hWnd, &own)) return;
  const HWND owner = GetWindow(m_hWnd, GW_OWNER);
  const bool onOwner = owner && IsWindowVisible(owner) && !IsIconic(owner);
  const RECT work = WorkArea(onOwner ? owner : m_hWnd);
  RECT around = work;
  if (onOwner) GetWindowRect(owner, &around);
  const LONG width = own.right - own.left;
  const LONG height = own.bottom - own.top;
  const LONG left = Clamped((around.left + around.right - width) / 2, width, work.left, work.right);
  const LONG top = Clamped((around.top + around.bottom - height) / 2, height, work.top, work.bottom);
  SetWindowPos(m_hWnd, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

WNDPROC DialogBase::GetWindowProc() {
  return reinterpret_cast<WNDPROC>(&DialogProc);
}

INT_PTR CALLBACK DialogBase::StartDialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  WindowBase* const object = TakeCreated();
  if (!object) return FALSE;
  const WNDPROC procedure = static_cast<DialogBase*>(object)->Bind(window, DWLP_DLGPROC);
  if (procedure) return reinterpret_cast<DLGPROC>(procedure)(window, message, wParam, lParam);
  // A modal dialog that nobody answers would never end.
  ::EndDialog(window, -1);
  return FALSE;
}

INT_PTR CALLBACK DialogBase::DialogProc(HWND object, UINT message, WPARAM wParam, LPARAM lParam) {
  return reinterpret_cast<DialogBase*>(object)->DispatchDialogMessage(message, wParam, lParam);
}

INT_PTR DialogBase::DispatchDialogMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const WindowMessage current = {m_hWnd, message, wParam, lParam};
  const DispatchFrame frame(this);
  LRESULT result = 0;
  if (RunMessageMap(current, result, frame)) {
    if (AnswersDirectly(message)) return result;
    SetWindowLongPtrW(current.Window, DWLP_MSGRESULT, result);
    return TRUE;
  }
  if (message == WM_NCDESTROY && !frame.ObjectGone()) FinishWindow(current.Window);
  return FALSE;
}
