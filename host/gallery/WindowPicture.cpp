#include "host/gallery/WindowPicture.h"

#include <filesystem>
#include <fstream>

#include "toolkit/GdiHandles.h"

namespace {

bool WriteBitmapFile(const wchar_t* path, const BITMAPINFOHEADER& info, const void* bits) {
  BITMAPFILEHEADER head = {};
  head.bfType = 0x4D42;  // "BM"
  head.bfOffBits = sizeof(head) + sizeof(info);
  head.bfSize = head.bfOffBits + info.biSizeImage;
  std::ofstream file(std::filesystem::path(path), std::ios::binary);
  file.write(reinterpret_cast<const char*>(&head), sizeof(head));
  file.write(reinterpret_cast<const char*>(&info), sizeof(info));
  file.write(static_cast<const char*>(bits), static_cast<std::streamsize>(info.biSizeImage));
  file.close();
  return file.good();
}

}  // namespace

bool SaveWindowPicture(HWND window, const wchar_t* path) {
  RECT client;
  if (!GetClientRect(window, &client) || IsRectEmpty(&client)) return false;
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = client.right;
  info.bmiHeader.biHeight = client.bottom;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 24;
  info.bmiHeader.biSizeImage = static_cast<DWORD>((client.right * 3 + 3) / 4 * 4 * client.bottom);
  void* bits = nullptr;
  const OwnedBitmap bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (!bitmap) return false;

  // Children included, which the window's own style would leave out.
  const HDC source = GetDCEx(window, nullptr, DCX_CACHE);
  bool copied = false;
  {
    const MemoryContext context(source);
    const Selection selection(context.get(), bitmap.get());
    copied = BitBlt(context.get(), 0, 0, client.right, client.bottom, source, 0, 0, SRCCOPY) != 0;
  }
  ReleaseDC(window, source);
  GdiFlush();
  return copied && WriteBitmapFile(path, info.bmiHeader, bits);
}
