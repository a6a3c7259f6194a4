// The interface without a window, for servers, tests and whoever keeps a vote's data without showing it.
#pragma once

#include "module/VoteInterface.h"

class HeadlessVote : public VoteInterface {
 public:
  virtual ~HeadlessVote() = default;

 protected:
  JW_HWND OpenWindow(JW_HWND /*parent*/) override { return nullptr; }
  void CloseWindow(JW_HWND /*window*/) override {}
  void RefreshButtons() override {}
  void LayOutPanel() override {}
};
