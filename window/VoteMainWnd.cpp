#include "window/VoteMainWnd.h"

#include <new>

#include "platform/windows/Windows.h"

IZQVote* VoteMainWnd::Create() {
  return new (std::nothrow) VoteMainWnd;
}

JW_HWND VoteMainWnd::OpenWindow(JW_HWND /*parent*/) {
  return nullptr;
}

void VoteMainWnd::CloseWindow(JW_HWND window) {
  if (IsWindow(window)) DestroyWindow(window);
}

void VoteMainWnd::RefreshButtons() {}
void VoteMainWnd::LayOutPanel() {}
