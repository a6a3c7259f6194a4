// How buttons hand their commands to the main window: posted, so that a command runs after the mouse handler has left
// the stack.
#pragma once

#include "platform/windows/Windows.h"
#include "votedata/VoteData.h"

// wParam is a VoteUiCommand made by `new`, which the receiver owns and deletes; lParam is 0.
constexpr UINT kMsgUiCommand = 0x4AA;

// Posts a copy of `command` to the window that VoteData holds. False, with nothing left behind, if there is no
// VoteData, no such window, or no memory.
bool PostVoteCommand(const VoteUiCommand& command);
