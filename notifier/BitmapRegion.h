// The shape of a bitmap with one transparent colour.
#pragma once

#include "toolkit/GdiHandles.h"

// The region of the bitmap's pixels that differ from `key`, in pixels of the bitmap from its upper left corner. Null if
// memory runs out. The bitmap must not be selected into a context.
//
// The rows are walked from the bottom up. A run of opaque pixels that begins in the last column isn't closed there but
// goes on in the row above: it ends at that row's first transparent pixel, and what lies between that pixel and the
// last column becomes part of the region in place of what lies left of it. After the top row it is dropped. Skins
// drawn for it look right only if this stays.
OwnedRegion CreateRegionFromBitmap(HBITMAP bitmap, COLORREF key);
