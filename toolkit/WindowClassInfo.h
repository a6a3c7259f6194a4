// One window class: its description, and its registration at the first use.
#pragma once

#include "platform/windows/Windows.h"

// The procedure that every class of the toolkit starts with: it binds the window to its object at the first message.
LRESULT CALLBACK StartWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

struct WindowClassInfo {
  WNDCLASSEXW Class;              // hInstance, the cursor and, for an extension, the base's fields come later
  const wchar_t* SuperclassName;  // the class to extend, or null
  WNDPROC SuperclassProc;         // that class's procedure, from the registration on
  const wchar_t* CursorName;      // a name or MAKEINTRESOURCEW
  bool IsSystemCursor;            // from the system, or else from the module
  ATOM Atom;                      // 0 until registered
  wchar_t AutoName[14];           // the generated name
};

// The description of a class with the arrow cursor. A null name makes a generated one. `background` is a COLOR_
// number plus 1, or 0 for none.
WindowClassInfo DescribeWindowClass(const wchar_t* name, UINT style, int background,
                                    const wchar_t* superclass = nullptr);

// Registers the class at the first call, from any thread, and returns its atom, 0 if that fails. `superProc` receives
// the procedure of an extended class and is left alone otherwise. The class goes with the module (TermToolkit).
ATOM RegisterWindowClass(WindowClassInfo& info, WNDPROC* superProc);
