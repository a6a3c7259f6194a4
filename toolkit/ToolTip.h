// The tooltip of a control that is one tool as a whole and passes its mouse messages on.
#pragma once

#include "toolkit/WindowBase.h"

// A tooltip window for `control`, without a tool; null if that fails. The caller destroys it: its owner is the
// control's top-level window, so it would outlive the control.
HWND CreateToolTip(HWND control);

// Makes `control` the tool with this text, in place of the tool before. Without a text there is none.
void SetToolTipTool(HWND toolTip, HWND control, const wchar_t* text);

// Passes a mouse message on. Nothing happens if `toolTip` is no window.
void RelayToToolTip(HWND toolTip, const WindowMessage& message);
