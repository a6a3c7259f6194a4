// The base of dialogs, modal and modeless. Templates come from the resource module.
//
// A dialog's message map is that of any window; a handled message's result reaches the system as it wants it from a
// dialog. WM_INITDIALOG's result is whether the system sets the focus.
#pragma once

#include "toolkit/WindowBase.h"

class DialogBase : public WindowBase {
 public:
  // Runs the dialog in a message loop of its own and returns what EndDialog was given, or -1 if it can't be shown.
  // The object must have no window, and belongs to the caller, who reads the results from it.
  INT_PTR DoModal(UINT resourceId, HWND parent);
  INT_PTR DoModal(const DLGTEMPLATE* dialogTemplate, HWND parent);
  void EndDialog(INT_PTR result);

  // Creates the dialog without a loop; null if that fails. The window ends with DestroyWindow.
  HWND CreateModeless(UINT resourceId, HWND parent);
  HWND CreateModeless(const DLGTEMPLATE* dialogTemplate, HWND parent);

  // Centres the window on its owner if that is visible and not minimised, else on the work area, and keeps it on the
  // work area.
  void CenterWindow();

  HWND Item(int id) const { return GetDlgItem(m_hWnd, id); }

  WNDPROC GetWindowProc() override;

 private:
  static INT_PTR CALLBACK StartDialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  static INT_PTR CALLBACK DialogProc(HWND object, UINT message, WPARAM wParam, LPARAM lParam);
  INT_PTR DispatchDialogMessage(UINT message, WPARAM wParam, LPARAM lParam);
};
