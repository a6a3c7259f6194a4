// Reference-counted, copy-on-write strings in two widths: JW_String (UTF-16) and JW_StringA (8 bits).
//
// A string object is one pointer to its first character. A JW_StringHeader stands directly before the characters
// and one terminating 0 behind them. An empty string points at a static buffer that is neither counted nor freed.
// Reference counts are safe across threads; one string object belongs to one thread at a time.
//
// No operation throws. Where memory runs out, GetBuffer and GetBufferSetLength return null and leave the string as
// it was, and the operations that build on them leave out what they could not store.
#pragma once

#include "JW_Base/Include/JW_Memory.h"
#include "JW_Base/Include/JW_Types.h"

struct JW_StringHeader {
  int32_t nRefs;         // owners; kJW_StaticString, or any other negative value for a locked buffer
  int32_t nDataLength;   // in characters, without the terminator
  int32_t nAllocLength;  // in characters, without the terminator
};
static_assert(sizeof(JW_StringHeader) == 12, "the header stands directly before the characters");

constexpr int32_t kJW_StaticString = -10001;
constexpr int kJW_MaxStringLength = 0x3FFFFFF0;

template <class Ch>
class JW_StringT {
 public:
  JW_StringT() : m_pData(StaticEmpty()) {}
  JW_StringT(const JW_StringT& other) : m_pData(StaticEmpty()) { Assign(other); }
  JW_StringT(JW_StringT&& other) noexcept : m_pData(other.m_pData) { other.m_pData = StaticEmpty(); }
  JW_StringT(const Ch* text) : m_pData(StaticEmpty()) { AssignText(text, Length(text)); }
  JW_StringT(const Ch* text, int length) : m_pData(StaticEmpty()) { AssignText(text, length); }
  ~JW_StringT() { Release(m_pData); }

  JW_StringT& operator=(const JW_StringT& other) {
    Assign(other);
    return *this;
  }
  JW_StringT& operator=(JW_StringT&& other) noexcept {
    Ch* const mine = m_pData;
    m_pData = other.m_pData;
    other.m_pData = mine;
    return *this;
  }
  JW_StringT& operator=(const Ch* text) {
    AssignText(text, Length(text));
    return *this;
  }

  // Takes a copy of the characters, never a share of another string's buffer; a unique buffer that is large enough
  // is used again. `text` may lie in this string.
  void AssignText(const Ch* text, int length) {
    if (length <= 0) {
      Empty();
    } else if (IsUnique() && Header()->nAllocLength >= length) {
      memmove(m_pData, text, Bytes(length));
      SetLength(length);
    } else if (Ch* const fresh = Allocate(length)) {
      memcpy(fresh, text, Bytes(length));
      Release(m_pData);
      m_pData = fresh;
    }
  }
  void AssignText(const JW_StringT& other) { AssignText(other.m_pData, other.GetLength()); }

  int GetLength() const { return Header()->nDataLength; }
  bool IsEmpty() const { return GetLength() == 0; }
  const Ch* GetString() const { return m_pData; }
  operator const Ch*() const { return m_pData; }
  const JW_StringHeader* Header() const { return HeaderOf(static_cast<const Ch*>(m_pData)); }

  // The characters for writing: unique and with room for `length` of them, the text kept. Null if memory runs out.
  // ReleaseBuffer or GetBufferSetLength settles the length afterwards.
  Ch* GetBuffer(int length) {
    const int kept = GetLength();
    const int room = length > kept ? length : kept;
    if (IsUnique() && Header()->nAllocLength >= room) return m_pData;
    Ch* const fresh = Allocate(room);
    if (!fresh) return nullptr;
    memcpy(fresh, m_pData, Bytes(kept));
    fresh[kept] = 0;
    HeaderOf(fresh)->nDataLength = kept;
    Release(m_pData);
    m_pData = fresh;
    return fresh;
  }
  Ch* GetBufferSetLength(int length) {
    if (length == 0) Empty();
    if (length <= 0) return length == 0 ? m_pData : nullptr;
    if (!GetBuffer(length)) return nullptr;
    SetLength(length);
    return m_pData;
  }
  // Sets the length and terminates; -1 recounts to the first 0.
  void ReleaseBuffer(int length = -1) {
    if (IsStatic(m_pData) || !GetBuffer(0)) return;
    if (length < 0) {
      m_pData[Header()->nAllocLength] = 0;
      length = Length(m_pData);
    }
    if (length > Header()->nAllocLength) length = Header()->nAllocLength;
    if (length == 0) {
      Empty();
    } else {
      SetLength(length);
    }
  }

  void Empty() {
    Release(m_pData);
    m_pData = StaticEmpty();
  }

  JW_StringT Left(int count) const {
    if (count >= GetLength()) return *this;
    return JW_StringT(m_pData, count);
  }

  // Replaces each `from` by `to` and returns how many there were. Works from each zero-terminated segment to the
  // next, so a 0 within the text ends no search.
  int Replace(const Ch* from, const Ch* to) {
    const int nFrom = Length(from);
    const int nTo = Length(to);
    if (nFrom == 0) return 0;
    const int hits = CountHits(from, nFrom);
    if (hits == 0) return 0;
    const int64_t length = GetLength() + static_cast<int64_t>(nTo - nFrom) * hits;
    JW_StringT result;
    if (length > kJW_MaxStringLength || (length > 0 && !result.GetBufferSetLength(static_cast<int>(length)))) return 0;
    Ch* out = result.m_pData;
    const Ch* const end = m_pData + GetLength();
    for (const Ch* in = m_pData; in < end;) {
      if (Matches(in, end, from, nFrom)) {
        if (nTo > 0) memcpy(out, to, Bytes(nTo));
        out += nTo;
        in += nFrom;
      } else {
        *out++ = *in++;
      }
    }
    *this = static_cast<JW_StringT&&>(result);
    return hits;
  }

  JW_StringT& operator+=(const JW_StringT& other) { return Append(other.m_pData, other.GetLength()); }
  JW_StringT& operator+=(const Ch* text) { return Append(text, Length(text)); }
  JW_StringT& operator+=(Ch ch) { return Append(&ch, 1); }
  JW_StringT& Append(const Ch* text, int count) {
    if (count <= 0) return *this;
    const int old = GetLength();
    if (count > kJW_MaxStringLength - old) return *this;
    if (IsUnique() && Header()->nAllocLength >= old + count) {
      memmove(m_pData + old, text, Bytes(count));
      SetLength(old + count);
    } else if (Ch* const fresh = Allocate(old + count)) {
      memcpy(fresh, m_pData, Bytes(old));
      memcpy(fresh + old, text, Bytes(count));
      Release(m_pData);
      m_pData = fresh;
    }
    return *this;
  }

  // printf semantics, of whatever length. `%s` is a text of the string's own width and `%S` one of the other, with
  // the active code page between the two; `I64` is a size prefix.
  void Format(const Ch* format, ...);

  // The text of a string id from the resource module, of whatever length; empty and false if there is none. Wide
  // strings only.
  bool LoadString(u32 id);

  friend bool operator==(const JW_StringT& a, const JW_StringT& b) {
    return a.GetLength() == b.GetLength() && memcmp(a.m_pData, b.m_pData, Bytes(a.GetLength())) == 0;
  }
  friend bool operator==(const JW_StringT& a, const Ch* b) {
    const int length = Length(b);
    return a.GetLength() == length && (length == 0 || memcmp(a.m_pData, b, Bytes(length)) == 0);
  }
  friend bool operator!=(const JW_StringT& a, const JW_StringT& b) { return !(a == b); }
  friend bool operator!=(const JW_StringT& a, const Ch* b) { return !(a == b); }

  // Characters before the first 0; 0 for a null pointer.
  static int Length(const Ch* text) {
    int count = 0;
    if (text) {
      while (text[count] != 0) ++count;
    }
    return count;
  }

 private:
  struct StaticBuffer {
    JW_StringHeader header;
    Ch terminator;
  };
  inline static StaticBuffer s_Empty = {{kJW_StaticString, 0, 0}, 0};

  static Ch* StaticEmpty() { return &s_Empty.terminator; }
  static size_t Bytes(int count) { return static_cast<size_t>(count) * sizeof(Ch); }
  static JW_StringHeader* HeaderOf(Ch* data) {
    return reinterpret_cast<JW_StringHeader*>(reinterpret_cast<char*>(data) - sizeof(JW_StringHeader));
  }
  static const JW_StringHeader* HeaderOf(const Ch* data) {
    return reinterpret_cast<const JW_StringHeader*>(reinterpret_cast<const char*>(data) - sizeof(JW_StringHeader));
  }

  // A buffer of one owner with both lengths `length`, terminated; null if memory runs out.
  static Ch* Allocate(int length) {
    if (length < 0 || length > kJW_MaxStringLength) return nullptr;
    void* const memory = malloc(sizeof(JW_StringHeader) + Bytes(length + 1));
    if (!memory) return nullptr;
    *static_cast<JW_StringHeader*>(memory) = {1, length, length};
    Ch* const data = reinterpret_cast<Ch*>(static_cast<char*>(memory) + sizeof(JW_StringHeader));
    data[length] = 0;
    return data;
  }
  static void Release(Ch* data) {
    JW_StringHeader* const header = HeaderOf(data);
    if (IsStatic(data)) return;
    if (header->nRefs < 0 || JW_AtomicAdd(&header->nRefs, -1) <= 0) free(header);
  }

  // By its mark, as the empty string of another module is static too; by its address, so that the compiler sees that
  // its own is never written.
  static bool IsStatic(const Ch* data) { return data == StaticEmpty() || HeaderOf(data)->nRefs == kJW_StaticString; }
  bool IsUnique() const { return !IsStatic(m_pData) && (Header()->nRefs == 1 || Header()->nRefs < 0); }
  bool IsLocked() const { return !IsStatic(m_pData) && Header()->nRefs < 0; }
  void SetLength(int length) {
    HeaderOf(m_pData)->nDataLength = length;
    m_pData[length] = 0;
  }

  void Assign(const JW_StringT& other) {
    if (m_pData == other.m_pData) return;
    if (IsLocked() || other.IsLocked()) {
      AssignText(other);
      return;
    }
    JW_StringHeader* const header = HeaderOf(other.m_pData);
    if (!IsStatic(other.m_pData)) JW_AtomicAdd(&header->nRefs, 1);
    Release(m_pData);
    m_pData = other.m_pData;
  }

  static bool Matches(const Ch* in, const Ch* end, const Ch* what, int length) {
    return end - in >= length && memcmp(in, what, Bytes(length)) == 0;
  }
  int CountHits(const Ch* what, int length) const {
    int hits = 0;
    const Ch* const end = m_pData + GetLength();
    for (const Ch* in = m_pData; in < end;) {
      const bool hit = Matches(in, end, what, length);
      hits += hit;
      in += hit ? length : 1;
    }
    return hits;
  }

  Ch* m_pData;
};

typedef JW_StringT<JW_WChar> JW_String;
typedef JW_StringT<char> JW_StringA;
static_assert(sizeof(JW_String) == sizeof(void*), "a string object is one pointer");

template <>
void JW_StringT<JW_WChar>::Format(const JW_WChar* format, ...);
template <>
void JW_StringT<char>::Format(const char* format, ...);
template <>
bool JW_StringT<JW_WChar>::LoadString(u32 id);
