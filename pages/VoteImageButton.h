// Buttons drawn from an image strip, with a centred caption. A click posts a command to the main window.
#pragma once

#include "JW_Base/Include/JW_String.h"
#include "pages/VoteDrawItem.h"
#include "toolkit/GdiHandles.h"
#include "votedata/VoteData.h"

// Also the numbers of the frames in the strip.
enum VoteButtonState { kButtonNormal = 0, kButtonHot = 1, kButtonPressed = 2, kButtonDisabled = 3 };

class VoteImageButton : public VoteDrawItem {
 public:
  VoteImageButton();

  // Does nothing: a button's height is set from outside. Always true.
  bool Recalc() override { return true; }
  bool Paint(HDC dc, RECT clip, int scrollY) override;
  void SetWidth(int width) override { Width = width; }
  void SetTop(int top) override { Top = top; }
  void SetLeft(int left) override { Left = left; }
  // A press counts where the button is let go: also one that began elsewhere, once the pointer has moved over the
  // button. A disabled button ignores everything.
  void OnMouse(int event, int x, int y) override;

  virtual void SetHeight(int height) { Height = height; }
  // Where the handle of the list stands; read at each paint, neither owned nor copied. Null for no image.
  virtual void SetImageList(const HIMAGELIST* list) { ImageList = list; }
  // Returns the old one.
  virtual int SetCommand(int command);
  virtual void SetText(const JW_String& text) { Text = text; }
  // Posts the command for the current vote. Nothing without VoteData.
  virtual void OnClick();
  // Without a repaint.
  virtual void SetState(int state) { State = state; }
  virtual int GetState() const { return State; }

  int GetCommand() const { return Command; }
  const JW_String& GetText() const { return Text; }

 protected:
  VoteUiCommand CommandFor(const VoteData& data) const;

  const HIMAGELIST* ImageList = nullptr;
  COLORREF TextColor = 0xF0FBFF;
  JW_String Text;
  int State = kButtonNormal;
  int Command = -1;
  HFONT Font;
};

// The same, bound to one question: its click carries the question's id.
class VotePageButton : public VoteImageButton {
 public:
  // Nothing without a question.
  void OnClick() override;

  const VoteItemEntry* Item = nullptr;  // not owned
};
