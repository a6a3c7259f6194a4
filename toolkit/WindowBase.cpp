#include "toolkit/WindowBase.h"

#include <utility>

#include "toolkit/ThunkMemory.h"
#include "toolkit/ToolkitState.h"

namespace {

CreateData* g_pCreateList = nullptr;

constexpr RECT kEmptyRect = {};

void RemoveFromCreateList(const CreateData* data) {
  CreateData** link = &g_pCreateList;
  while (*link && *link != data) link = &(*link)->Next;
  if (*link) *link = data->Next;
}

WNDPROC ProcedureAt(HWND window, int index) {
  return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, index));
}
WNDPROC SetProcedureAt(HWND window, int index, WNDPROC procedure) {
  return reinterpret_cast<WNDPROC>(SetWindowLongPtrW(window, index, reinterpret_cast<LONG_PTR>(procedure)));
}

}  // namespace

DispatchFrame::DispatchFrame(WindowBase* object) : m_pObject(object), m_pOuter(object->m_pFrames) {
  object->m_pFrames = this;
}

DispatchFrame::~DispatchFrame() {
  if (m_pObject) m_pObject->m_pFrames = m_pOuter;
}

WindowBase::~WindowBase() {
  for (DispatchFrame* frame = m_pFrames; frame; frame = frame->m_pOuter) frame->m_pObject = nullptr;
  unsigned char* const thunk = m_thunk;
  LetWindowGo();
  ForgetWindow();
  FreeThunk(thunk);
}

WNDPROC WindowBase::GetWindowProc() {
  return &WindowProc;
}

void WindowBase::OnFinalMessage(HWND /*window*/) {}

LRESULT WindowBase::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  return CallWindowProcW(m_pfnSuperWindowProc, m_hWnd, message, wParam, lParam);
}

LRESULT WindowBase::DefWindowProc() {
  return m_pCurrentMsg ? DefWindowProc(m_pCurrentMsg->Message, m_pCurrentMsg->WParam, m_pCurrentMsg->LParam) : 0;
}

bool WindowBase::SubclassWindow(HWND window) {
  if (m_hWnd || !IsWindow(window)) return false;
  if (!m_thunk) m_thunk = AllocateThunk(this);
  if (!m_thunk) return false;
  m_pfnSuperWindowProc = ProcedureAt(window, GWLP_WNDPROC);
  if (Bind(window, GWLP_WNDPROC)) return true;
  m_pfnSuperWindowProc = &DefWindowProcW;
  return false;
}

HWND WindowBase::UnsubclassWindow() {
  if (!m_hWnd || ProcedureAt(m_hWnd, GWLP_WNDPROC) != reinterpret_cast<WNDPROC>(m_thunk)) return nullptr;
  SetProcedureAt(m_hWnd, GWLP_WNDPROC, std::exchange(m_pfnSuperWindowProc, &DefWindowProcW));
  return std::exchange(m_hWnd, nullptr);
}

void WindowBase::DestroyWindow() {
  if (m_hWnd) ::DestroyWindow(m_hWnd);
}

HWND WindowBase::CreateOfClass(WindowClassInfo& info, HWND parent, const RECT* rect, const wchar_t* title, DWORD style,
                               DWORD exStyle, UINT_PTR menuOrId) {
  const ATOM atom = RegisterWindowClass(info, &m_pfnSuperWindowProc);
  if (atom == 0 || !BeginCreation()) return nullptr;
  if (menuOrId == 0 && (style & WS_CHILD)) menuOrId = reinterpret_cast<UINT_PTR>(this);
  const RECT& place = rect ? *rect : kEmptyRect;
  const DispatchFrame frame(this);
  const HWND window = CreateWindowExW(exStyle, MAKEINTATOM(atom), title, style, place.left, place.top,
                                      place.right - place.left, place.bottom - place.top, parent,
                                      reinterpret_cast<HMENU>(menuOrId), info.Class.hInstance, nullptr);
  return frame.ObjectGone() ? nullptr : Created(window);
}

bool WindowBase::BeginCreation() {
  if (m_hWnd) return false;
  if (!m_thunk) m_thunk = AllocateThunk(this);
  if (!m_thunk) return false;
  const ToolkitLock lock(ToolkitLocks().CreateList);
  m_Create = {this, GetCurrentThreadId(), g_pCreateList};
  g_pCreateList = &m_Create;
  return true;
}

WindowBase* WindowBase::TakeCreated() {
  const DWORD thread = GetCurrentThreadId();
  const ToolkitLock lock(ToolkitLocks().CreateList);
  const CreateData* data = g_pCreateList;
  while (data && data->ThreadId != thread) data = data->Next;
  if (!data) return nullptr;
  RemoveFromCreateList(data);
  return data->Object;
}

HWND WindowBase::Created(HWND window) {
  EndCreation();
  if (window && window == m_hWnd) return window;
  // Nobody would ever end a window without its object.
  m_hWnd = nullptr;
  if (window) ::DestroyWindow(window);
  return nullptr;
}

void WindowBase::EndCreation() {
  const ToolkitLock lock(ToolkitLocks().CreateList);
  RemoveFromCreateList(&m_Create);
}

WNDPROC WindowBase::Bind(HWND window, int procedureIndex) {
  const WNDPROC procedure = reinterpret_cast<WNDPROC>(m_thunk);
  if (!WriteThunk(m_thunk, this, reinterpret_cast<const void*>(GetWindowProc()))) return nullptr;
  m_hWnd = window;
  SetProcedureAt(window, procedureIndex, procedure);
  if (ProcedureAt(window, procedureIndex) == procedure) return procedure;
  m_hWnd = nullptr;
  return nullptr;
}

LRESULT CALLBACK StartWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  WindowBase* const object = WindowBase::TakeCreated();
  // A window of one of our classes that somebody else made has no object.
  const WNDPROC procedure = object ? object->Bind(window, GWLP_WNDPROC) : nullptr;
  return procedure ? procedure(window, message, wParam, lParam) : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CALLBACK WindowBase::WindowProc(HWND object, UINT message, WPARAM wParam, LPARAM lParam) {
  return reinterpret_cast<WindowBase*>(object)->Dispatch(message, wParam, lParam);
}

LRESULT WindowBase::Dispatch(UINT message, WPARAM wParam, LPARAM lParam) {
  const WindowMessage current = {m_hWnd, message, wParam, lParam};
  const DispatchFrame frame(this);
  LRESULT result = 0;
  const bool handled = RunMessageMap(current, result, frame);
  if (frame.ObjectGone()) return result;
  if (handled) {
    if (message == WM_NCDESTROY) m_hWnd = nullptr;
    return result;
  }
  // A window that ended within its own handler has no default procedure to go to.
  if (m_hWnd != current.Window) return result;
  return message == WM_NCDESTROY ? EndWindow(current, frame) : DefWindowProc(message, wParam, lParam);
}

bool WindowBase::RunMessageMap(const WindowMessage& message, LRESULT& result, const DispatchFrame& frame) {
  const WindowMessage* const outer = std::exchange(m_pCurrentMsg, &message);
  const bool handled = ProcessWindowMessage(message.Window, message.Message, message.WParam, message.LParam, result, 0);
  if (!frame.ObjectGone()) m_pCurrentMsg = outer;
  return handled;
}

LRESULT WindowBase::EndWindow(const WindowMessage& message, const DispatchFrame& frame) {
  const WNDPROC before = ProcedureAt(message.Window, GWLP_WNDPROC);
  const LRESULT result = DefWindowProc(message.Message, message.WParam, message.LParam);
  if (frame.ObjectGone()) return result;
  if (m_pfnSuperWindowProc != &DefWindowProcW && ProcedureAt(message.Window, GWLP_WNDPROC) == before) {
    SetProcedureAt(message.Window, GWLP_WNDPROC, m_pfnSuperWindowProc);
  }
  FinishWindow(message.Window);
  return result;
}

void WindowBase::FinishWindow(HWND window) {
  m_hWnd = nullptr;
  m_pfnSuperWindowProc = &DefWindowProcW;
  OnFinalMessage(window);
}

void WindowBase::LetWindowGo() {
  if (!m_hWnd || !IsWindow(m_hWnd)) return;
  const WNDPROC thunk = reinterpret_cast<WNDPROC>(m_thunk);
  if (ProcedureAt(m_hWnd, GWLP_WNDPROC) == thunk) {
    SetProcedureAt(m_hWnd, GWLP_WNDPROC, m_pfnSuperWindowProc);
  } else if (ProcedureAt(m_hWnd, DWLP_DLGPROC) == thunk) {
    SetProcedureAt(m_hWnd, DWLP_DLGPROC, nullptr);
  } else {
    // Somebody's procedure stands before the thunk and goes on calling it.
    WriteJump(m_thunk, reinterpret_cast<const void*>(&DefWindowProcW));
  }
}

void WindowBase::ForgetWindow() {
  m_thunk = nullptr;
  if (const HWND window = std::exchange(m_hWnd, nullptr)) ::DestroyWindow(window);
}
