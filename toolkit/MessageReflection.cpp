// Notifications on their way back to the child that they concern.
#include "toolkit/WindowBase.h"

namespace {

HWND WindowOf(LPARAM lParam) {
  return reinterpret_cast<HWND>(lParam);
}

template <class T>
HWND ControlOf(const WindowMessage& message) {
  if (message.WParam == 0) return nullptr;
  return GetDlgItem(message.Window, static_cast<int>(reinterpret_cast<const T*>(message.LParam)->CtlID));
}

HWND ParentNotifyChild(const WindowMessage& message) {
  const UINT event = LOWORD(message.WParam);
  if (event == WM_CREATE || event == WM_DESTROY) return WindowOf(message.LParam);
  return GetDlgItem(message.Window, HIWORD(message.WParam));
}

bool IsNotification(UINT message) {
  switch (message) {
    case WM_COMMAND:
    case WM_NOTIFY:
    case WM_PARENTNOTIFY:
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
    case WM_DELETEITEM:
    case WM_COMPAREITEM:
    case WM_VKEYTOITEM:
    case WM_CHARTOITEM:
    case WM_HSCROLL:
    case WM_VSCROLL:
      return true;
    default:
      return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
  }
}

HWND ChildOf(const WindowMessage& message) {
  switch (message.Message) {
    case WM_NOTIFY:
      return reinterpret_cast<const NMHDR*>(message.LParam)->hwndFrom;
    case WM_PARENTNOTIFY:
      return ParentNotifyChild(message);
    case WM_DRAWITEM:
      return message.WParam ? reinterpret_cast<const DRAWITEMSTRUCT*>(message.LParam)->hwndItem : nullptr;
    case WM_MEASUREITEM:
      return ControlOf<MEASUREITEMSTRUCT>(message);
    case WM_DELETEITEM:
      return ControlOf<DELETEITEMSTRUCT>(message);
    case WM_COMPAREITEM:
      return ControlOf<COMPAREITEMSTRUCT>(message);
    default:
      return IsNotification(message.Message) ? WindowOf(message.LParam) : nullptr;
  }
}

}  // namespace

bool MessageMapBase::ReflectToChild() {
  const HWND child = ChildOf(m_Args);
  if (!child) return false;
  m_Result = SendMessageW(child, m_Args.Message + kReflected, m_Args.WParam, m_Args.LParam);
  return true;
}

bool MessageMapBase::DefaultReflected() {
  if (m_Args.Message < kReflected || !IsNotification(m_Args.Message - kReflected)) return false;
  m_Result = m_pObject->DefWindowProc(m_Args.Message - kReflected, m_Args.WParam, m_Args.LParam);
  return true;
}
