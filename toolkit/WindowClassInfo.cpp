#include "toolkit/WindowClassInfo.h"

#include <stdint.h>

#include <atomic>

#include "toolkit/Toolkit.h"
#include "toolkit/ToolkitState.h"

static_assert(sizeof(WNDCLASSEXW) == 48, "32-bit classes");

namespace {

bool TakeFromSuperclass(WindowClassInfo& info) {
  WNDCLASSEXW base = {};
  base.cbSize = sizeof(base);
  if (!GetClassInfoExW(nullptr, info.SuperclassName, &base) &&
      !GetClassInfoExW(ToolkitInstance(), info.SuperclassName, &base)) {
    return false;
  }
  info.SuperclassProc = base.lpfnWndProc;
  base.cbSize = sizeof(base);
  base.lpfnWndProc = &StartWindowProc;
  base.lpszClassName = info.Class.lpszClassName;
  info.Class = base;
  return true;
}

// A module that is loaded again in the same process finds no class with a procedure of its former self.
void Unregister(void* argument) {
  WindowClassInfo& info = *static_cast<WindowClassInfo*>(argument);
  UnregisterClassW(MAKEINTATOM(info.Atom), info.Class.hInstance);
  info.Atom = 0;
}

ATOM RegisterOnce(WindowClassInfo& info) {
  WNDCLASSEXW& description = info.Class;
  if (!info.SuperclassName) {
    description.hCursor = LoadCursorW(info.IsSystemCursor ? nullptr : ToolkitInstance(), info.CursorName);
  } else if (!TakeFromSuperclass(info)) {
    return 0;
  }
  description.hInstance = ToolkitInstance();
  description.style &= ~static_cast<UINT>(CS_GLOBALCLASS);
  if (!description.lpszClassName) {
    wsprintfW(info.AutoName, L"ATL:%8.8X", static_cast<unsigned>(reinterpret_cast<uintptr_t>(&info)));
    description.lpszClassName = info.AutoName;
  }
  WNDCLASSEXW found = {};
  found.cbSize = sizeof(found);
  if (const int atom = GetClassInfoExW(description.hInstance, description.lpszClassName, &found)) {
    return static_cast<ATOM>(atom);
  }
  const ATOM atom = RegisterClassExW(&description);
  if (atom != 0 && !AddTermination(&Unregister, &info)) {
    UnregisterClassW(MAKEINTATOM(atom), description.hInstance);
    return 0;
  }
  return atom;
}

}  // namespace

WindowClassInfo DescribeWindowClass(const wchar_t* name, UINT style, int background, const wchar_t* superclass) {
  WindowClassInfo info = {};
  info.Class.cbSize = sizeof(info.Class);
  info.Class.style = style;
  info.Class.lpfnWndProc = &StartWindowProc;
  info.Class.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(background));
  info.Class.lpszClassName = name;
  info.SuperclassName = superclass;
  info.CursorName = MAKEINTRESOURCEW(32512);  // the arrow
  info.IsSystemCursor = true;
  return info;
}

ATOM RegisterWindowClass(WindowClassInfo& info, WNDPROC* superProc) {
  std::atomic_ref<ATOM> registered(info.Atom);
  ATOM atom = registered.load(std::memory_order_acquire);
  if (atom == 0) {
    const ToolkitLock lock(ToolkitLocks().Classes);
    atom = registered.load(std::memory_order_relaxed);
    if (atom == 0) {
      atom = RegisterOnce(info);
      registered.store(atom, std::memory_order_release);
    }
  }
  if (atom != 0 && info.SuperclassName) *superProc = info.SuperclassProc;
  return atom;
}
