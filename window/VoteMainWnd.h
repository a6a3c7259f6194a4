// The instance that a host receives.
#pragma once

#include "module/VoteInterface.h"

class VoteMainWnd : public VoteInterface {
 public:
  // The IZQVote part of a new object; null if memory runs out. Nobody frees the object: it lives as long as the
  // process, and DestroyVoteWindow ends what it holds.
  static IZQVote* Create();

  virtual ~VoteMainWnd() = default;

 protected:
  VoteMainWnd() = default;

  JW_HWND OpenWindow(JW_HWND parent) override;
  void CloseWindow(JW_HWND window) override;
  void RefreshButtons() override;
  void LayOutPanel() override;
};
