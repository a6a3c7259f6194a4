// A picture in memory, to paint into, to compare, and to keep as a file.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "toolkit/GdiHandles.h"

class Picture {
 public:
  // White.
  Picture(int width, int height) : m_nWidth(width), m_nHeight(height) {
    const BITMAPINFO info = {{sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
    m_Bitmap.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &m_pBits, nullptr, 0));
    m_hOld = SelectObject(dc(), m_Bitmap.get());
    PatBlt(dc(), 0, 0, width, height, WHITENESS);
  }
  // What the client area of a window shows.
  explicit Picture(HWND window) : Picture(ClientSize(window).cx, ClientSize(window).cy) {
    const WindowContext source(window);
    BitBlt(dc(), 0, 0, m_nWidth, m_nHeight, source.get(), 0, 0, SRCCOPY);
  }
  ~Picture() { SelectObject(dc(), m_hOld); }

  HDC dc() const { return m_Context.get(); }
  COLORREF At(int x, int y) const { return GetPixel(dc(), x, y); }
  // 0x00RRGGBB from the upper left.
  std::vector<unsigned> Pixels() const {
    GdiFlush();
    const auto* const pixels = static_cast<const unsigned*>(m_pBits);
    std::vector<unsigned> result(pixels, pixels + m_nWidth * m_nHeight);
    for (unsigned& pixel : result) pixel &= 0xFFFFFF;
    return result;
  }
  bool SaveBmp(const std::string& path) const {
    const std::vector<unsigned> pixels = Pixels();
    const DWORD size = static_cast<DWORD>(pixels.size() * sizeof(unsigned));
    const BITMAPINFOHEADER info = {sizeof(info), m_nWidth, -m_nHeight, 1, 32, BI_RGB, size, 0, 0, 0, 0};
    BITMAPFILEHEADER head = {0x4D42, 0, 0, 0, sizeof(head) + sizeof(info)};
    head.bfSize = head.bfOffBits + size;
    FILE* const file = std::fopen(path.c_str(), "wb");
    if (!file) return false;
    const bool written = std::fwrite(&head, sizeof(head), 1, file) == 1 &&
                         std::fwrite(&info, sizeof(info), 1, file) == 1 &&
                         std::fwrite(pixels.data(), size, 1, file) == 1;
    return std::fclose(file) == 0 && written;
  }

 private:
  static SIZE ClientSize(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    return {client.right, client.bottom};
  }

  int m_nWidth;
  int m_nHeight;
  MemoryContext m_Context{nullptr};
  OwnedBitmap m_Bitmap;
  void* m_pBits = nullptr;
  HGDIOBJ m_hOld = nullptr;
};
