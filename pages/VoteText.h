// Measuring, wrapping and drawing of text, the same for all page elements.
//
// Lines break by character count and not at word boundaries: a Latin word is split wherever the width runs out, so
// that a text takes the same room whatever its script. Sizes are in pixels. A text's own line ends show when it is
// drawn but aren't counted when it is measured.
#pragma once

#include "JW_Base/Include/JW_String.h"
#include "platform/windows/Windows.h"

// The font of elements that aren't given another: Tahoma, owned by VoteResources. Null without them.
HFONT PageFont();

// Width of `text` on one line of the screen, an ampersand taken as a prefix; 0 for an empty text.
int MeasureTextWidth(const JW_String& text, HFONT font);

// Height that DrawWrappedText needs for `text` in a rectangle of `width`; 1 for an empty text. `dc` is left as it was.
int MeasureWrappedText(HDC dc, const JW_String& text, HFONT font, int width);

// Draws `text` from the upper left of `rect`, wrapped to its width and clipped to it. `dc` is left as it was.
void DrawWrappedText(HDC dc, const RECT& rect, HFONT font, COLORREF color, const JW_String& text);
