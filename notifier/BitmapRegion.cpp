#include "notifier/BitmapRegion.h"

#include <stdlib.h>

#include <memory>

namespace {

constexpr DWORD kGrowBy = 40;  // rectangles

struct FreeMemory {
  void operator()(void* memory) const { free(memory); }
};

// Rectangles gathered in the layout of RGNDATA.
class RectangleBlock {
 public:
  // False if memory runs out.
  bool Add(const RECT& rect) {
    if (m_nCount == m_nRoom && !Grow()) return false;
    Rectangles()[m_nCount++] = rect;
    m_pData->rdh.nCount = m_nCount;
    m_pData->rdh.nRgnSize = m_nCount * DWORD{sizeof(RECT)};
    return true;
  }

  OwnedRegion Combined() const {
    OwnedRegion region(CreateRectRgn(0, 0, 0, 0));
    for (DWORD i = 0; i < m_nCount; ++i) {
      const OwnedRegion part(CreateRectRgnIndirect(&Rectangles()[i]));
      if (!region || !part || CombineRgn(region.get(), region.get(), part.get(), RGN_OR) == ERROR) return {};
    }
    return region;
  }

 private:
  RECT* Rectangles() const { return reinterpret_cast<RECT*>(m_pData->Buffer); }

  bool Grow() {
    const size_t bytes = sizeof(RGNDATAHEADER) + (m_nRoom + kGrowBy) * sizeof(RECT);
    auto* const grown = static_cast<RGNDATA*>(realloc(m_pData.get(), bytes));
    if (!grown) return false;
    (void)m_pData.release();
    m_pData.reset(grown);
    m_nRoom += kGrowBy;
    if (m_nCount == 0) m_pData->rdh = {sizeof(RGNDATAHEADER), RDH_RECTANGLES, 0, 0, {}};
    return true;
  }

  std::unique_ptr<RGNDATA, FreeMemory> m_pData;
  DWORD m_nCount = 0;
  DWORD m_nRoom = 0;
};
static_assert(sizeof(RGNDATAHEADER) == 32, "the rectangles follow the head directly");

}  // namespace

OwnedRegion CreateRegionFromBitmap(HBITMAP bitmap, COLORREF key) {
  BITMAP size = {};
  if (GetObjectW(bitmap, sizeof size, &size) == 0) return {};
  const WindowContext screen(nullptr);
  const MemoryContext context(screen.get());
  const Selection selection(context.get(), bitmap);

  RectangleBlock rectangles;
  bool inRun = false;
  int runStart = 0;
  const int last = size.bmWidth - 1;
  for (int y = size.bmHeight - 1; y >= 0; --y) {
    for (int x = 0; x <= last; ++x) {
      const bool opaque = GetPixel(context.get(), x, y) != key;
      if (!inRun) {
        inRun = opaque;
        runStart = x;
      } else if (!opaque || x == last) {
        inRun = false;
        if (!rectangles.Add({runStart, y, x == last ? x + 1 : x, y + 1})) return {};
      }
    }
  }
  return rectangles.Combined();
}
