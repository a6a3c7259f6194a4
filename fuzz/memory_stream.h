// The stream of a host: bytes in memory.
#pragma once

#include <cstring>
#include <vector>

#include "JW_Base/Include/JW_ByteStream.h"

class MemoryStream final : public JW_ByteStream {
 public:
  struct EndOfData {};

  MemoryStream() = default;
  MemoryStream(const u8* data, size_t size) : bytes(data, data + size) { m_bLoad = true; }

  void CheckSize(u32 /*mark*/, u32 size) override {
    if (size > bytes.size() - at) throw EndOfData();
  }
  void Transfer(int displacement, u32 size, void* data) override {
    at = static_cast<size_t>(static_cast<int64_t>(at) + displacement);
    if (size == 0) return;
    if (m_bLoad) {
      CheckSize(0, size);
      memcpy(data, bytes.data() + at, size);
    } else {
      bytes.resize(at + size);
      memcpy(bytes.data() + at, data, size);
    }
    at += size;
  }

  std::vector<u8> bytes;
  size_t at = 0;
};
