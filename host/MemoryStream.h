// A serialising stream on bytes in memory, as the buffer of a connection is one. It is bounded both ways: a reader
// never leaves its bytes and a writer never grows beyond kMaxSize.
#pragma once

#include <cstring>
#include <utility>
#include <vector>

#include "JW_Base/Include/JW_ByteStream.h"

namespace conference {

class MemoryStream final : public JW_ByteStream {
 public:
  // Thrown where a transfer would leave the bytes. A record under Load then holds what it had been given so far.
  struct EndOfStream {};

  static constexpr size_t kMaxSize = size_t{16} << 20;

  // For writing.
  MemoryStream() { m_bLoad = false; }
  // For reading.
  explicit MemoryStream(std::vector<u8> bytes) : m_Bytes(std::move(bytes)) { m_bLoad = true; }

  void CheckSize(u32 /*mark*/, u32 size) override {
    if (size > Remaining()) throw EndOfStream();
  }

  void Transfer(int displacement, u32 size, void* data) override {
    const i64 at = static_cast<i64>(m_nPosition) + displacement;
    if (at < 0 || at > static_cast<i64>(m_Bytes.size())) throw EndOfStream();
    m_nPosition = static_cast<size_t>(at);
    if (m_bLoad) {
      CheckSize(0, size);
      if (size != 0) memcpy(data, m_Bytes.data() + m_nPosition, size);
    } else {
      if (size > kMaxSize - m_nPosition) throw EndOfStream();
      if (m_nPosition + size > m_Bytes.size()) m_Bytes.resize(m_nPosition + size);
      if (size != 0) memcpy(m_Bytes.data() + m_nPosition, data, size);
    }
    m_nPosition += size;
  }

  size_t Remaining() const { return m_Bytes.size() - m_nPosition; }
  const std::vector<u8>& Bytes() const { return m_Bytes; }

 private:
  using i64 = int64_t;

  std::vector<u8> m_Bytes;
  size_t m_nPosition = 0;
};

}  // namespace conference
