// The serialising stream on which records read or write bytes.
//
// The host makes streams on the bytes of its connection and hands them to Load and Save of the records; the module
// opens none. A stream belongs to one thread at a time.
#pragma once

#include "JW_Base/Include/JW_String.h"
#include "JW_Base/Include/JW_Types.h"

// What ReadLength and ReadString throw, as a long, at the illegal first byte of a compact length. It is the only
// exception of the module.
constexpr long kJW_BadLength = static_cast<long>(0x81000001);

class JW_ByteStream {
 public:
  // Three operations that records don't use. A host leaves them as they are.
  virtual void Reserved0() {}
  virtual void Reserved1() {}
  virtual void Reserved2() {}

  // Called right after a text's length has been decoded and before a buffer is sized for it, with m_nMark. A stream
  // that can't supply `size` more bytes raises its failure here, in a way of its own, such as an exception that the
  // caller of Load catches.
  virtual void CheckSize(u32 mark, u32 size) = 0;

  // Moves the position by `displacement` bytes, then moves `size` bytes between the stream and `data`, in the
  // direction of m_bLoad. The position advances by `size`. With a size of 0 `data` may be null.
  virtual void Transfer(int displacement, u32 size, void* data) = 0;

  void Read(void* pData, u32 size) {
    JW_ASSERT(m_bLoad && pData, "m_bLoad && pData");
    if (size != 0 && pData) Transfer(0, size, pData);
  }
  void Write(const void* pData, u32 size) {
    JW_ASSERT(!m_bLoad && pData, "!m_bLoad && pData");
    if (size != 0 && pData) Transfer(0, size, const_cast<void*>(pData));
  }

  // A compact length has 1 to 5 bytes, most significant first; its first byte tells how many.
  u32 ReadLength() {
    u8 bytes[5] = {};
    Read(bytes, 1);
    const u8 first = bytes[0];
    if (first < 0x80) return first;
    const u32 more = first < 0xC0 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (first > 0xF0) throw kJW_BadLength;
    Read(bytes + 1, more);
    u32 value = more == 4 ? 0 : first & (0x7Fu >> more);
    for (u32 i = 1; i <= more; ++i) value = value << 8 | bytes[i];
    return value;
  }
  // Returns the number of bytes used.
  u32 WriteLength(u32 n) {
    u8 bytes[5];
    const u32 count = EncodeLength(n, bytes);
    Write(bytes, count);
    return count;
  }
  static u32 EncodeLength(u32 n, u8* bytes) {
    const u32 more = n < 0x80 ? 0 : n < 0x4000 ? 1 : n < 0x200000 ? 2 : n < 0x10000000 ? 3 : 4;
    bytes[0] = static_cast<u8>((0xFF00u >> more & 0xFF) | (more == 4 ? 0 : n >> (8 * more)));
    for (u32 i = 1; i <= more; ++i) bytes[i] = static_cast<u8>(n >> (8 * (more - i)));
    return more + 1;
  }

  // Reads a length (4 bytes if `fixedLength`, else compact), then that many bytes. Returns the length plus 1.
  u32 ReadString(JW_StringA& s, bool fixedLength) {
    u32 length = 0;
    if (fixedLength) {
      Read(&length, 4);
      SwapBytes(&length, 4);
    } else {
      length = ReadLength();
    }
    CheckSize(m_nMark, length);
    if (length == 0) {
      s.Empty();
    } else {
      Read(length <= static_cast<u32>(kJW_MaxStringLength) ? s.GetBufferSetLength(static_cast<int>(length)) : nullptr,
           length);
    }
    return length + 1;
  }
  void WriteString(const JW_StringA& s, bool fixedLength) {
    u32 length = static_cast<u32>(s.GetLength());
    if (fixedLength) {
      SwapBytes(&length, 4);
      Write(&length, 4);
    } else {
      WriteLength(length);
    }
    Write(s.GetString(), static_cast<u32>(s.GetLength()));
  }

  // Reverses a value in place where the machine isn't little-endian.
  static void SwapBytes(void* data, int size) {
    JW_ASSERT(size > 0, "size > 0");
    if (kLittleEndian) return;
    u8* const bytes = static_cast<u8*>(data);
    for (int i = 0; i < size / 2; ++i) {
      const u8 kept = bytes[i];
      bytes[i] = bytes[size - 1 - i];
      bytes[size - 1 - i] = kept;
    }
  }

 protected:
  static constexpr bool kLittleEndian = true;

  // A concrete stream is destroyed through its own type: the table holds no destructor.
  ~JW_ByteStream() = default;

 public:
  u32 m_nReserved = 0;   // keeps m_nMark at offset 8 of the object; nobody reads it
  u32 m_nMark = 0;       // handed back to CheckSize, of whatever meaning the stream gives it
  bool m_bLoad = false;  // true when the stream reads, false when it writes
};
static_assert(sizeof(void*) != 4 || sizeof(JW_ByteStream) == 16, "table, reserved, mark, direction");
