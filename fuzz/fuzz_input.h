// A fuzzer's bytes, taken from the front; 0 once they have run out.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <string>

#include "JW_Base/Include/JW_Types.h"

class FuzzInput {
 public:
  FuzzInput(const u8* data, size_t size) : m_pData(data), m_nSize(size) {}

  bool IsEmpty() const { return m_nSize == 0; }
  u8 Byte() {
    if (m_nSize == 0) return 0;
    --m_nSize;
    return *m_pData++;
  }
  // Below `limit`, which is 256 at most.
  u32 Below(u32 limit) { return Byte() % limit; }
  std::string Text(size_t most) {
    std::string text;
    for (size_t left = most == 0 ? 0 : Byte() % (most + 1); left > 0 && !IsEmpty(); --left) {
      text += static_cast<char>(Byte());
    }
    return text;
  }
  const u8* Rest() const { return m_pData; }
  size_t RestSize() const { return m_nSize; }

 private:
  const u8* m_pData;
  size_t m_nSize;
};

// A finding.
inline void Require(bool condition) {
  if (!condition) abort();
}
