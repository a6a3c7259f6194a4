#include "pages/VoteDrawItem.h"

VoteDrawItem::~VoteDrawItem() {
  if (Owner && IsWindow(Owner)) SendMessageW(Owner, kMsgElementDestroyed, reinterpret_cast<WPARAM>(this), 0);
}

void VoteDrawItem::SetBounds(int top, int left, int width, int height) {
  Top = top;
  Left = left;
  Width = width;
  Height = height;
}

void VoteDrawItem::GetBounds(RECT* rect) const {
  *rect = ClientBounds(0);
}

bool VoteDrawItem::HitTest(int x, int y) const {
  return x >= Left && x <= Left + Width && y >= Top && y <= Top + Height;
}

void VoteDrawItem::OnMouse(int /*event*/, int /*x*/, int /*y*/) {}

void VoteDrawItem::Invalidate() {
  if (HasOwner()) InvalidateRect(Owner, nullptr, FALSE);
}

RECT VoteDrawItem::ClientBounds(int scrollY) const {
  return {Left, Top - scrollY, Left + Width, Top - scrollY + Height};
}

bool VoteDrawItem::IsInView(const RECT& clip, int scrollY) const {
  const RECT bounds = ClientBounds(scrollY);
  RECT common;
  return HasOwner() && IntersectRect(&common, &bounds, &clip);
}
