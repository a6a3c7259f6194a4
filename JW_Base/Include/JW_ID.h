// Participant identifier of two 32-bit words.
#pragma once

#include "JW_Base/Include/JW_ByteStream.h"
#include "JW_Base/Include/JW_Map.h"
#include "JW_Base/Include/JW_String.h"
#include "JW_Base/Include/JW_Types.h"

class JW_ID {
 public:
  JW_ID() : dwLow(0), dwHigh(0) {}
  JW_ID(u32 low, u32 high) : dwLow(low), dwHigh(high) {}
  JW_ID(const JW_ID& other) : dwLow(other.dwLow), dwHigh(other.dwHigh) {}
  JW_ID& operator=(const JW_ID& other) {
    dwLow = other.dwLow;
    dwHigh = other.dwHigh;
    return *this;
  }

  // 8 bytes: the high word, then the low word, each little-endian.
  virtual void Load(JW_ByteStream& stream) {
    u32 words[2] = {};
    stream.Read(words, sizeof(words));
    SetWords(words);
  }
  virtual void Save(JW_ByteStream& stream) const {
    u32 words[2];
    GetWords(words);
    stream.Write(words, sizeof(words));
  }
  virtual ~JW_ID() {}

  // 0 is not a valid id. 1 and 3 are plain ids of the high word, 2 is an extended id of both words.
  int Kind() const {
    const u32 high = dwHigh;
    if (high >= 4000000000u) return 3;
    for (const KindRange& range : kKinds) {
      if (high < range.end) return range.kind == kExtended ? (IsExtended() ? 2 : 0) : range.kind;
    }
    return 1;
  }

  // The digits that people know the participant by, or "Invalid ID".
  JW_String ToString() const {
    JW_WChar text[24];
    JW_WChar* end = text;
    switch (Kind()) {
      case 0:
        return JW_String(JW_W("Invalid ID"));
      case 2:
        end = AppendNumber(AppendNumber(end, dwHigh), dwLow);
        break;
      default:
        end = AppendNumber(end, dwHigh);
    }
    return JW_String(text, static_cast<int>(end - text));
  }

  // The wire order of the two words.
  void GetWords(u32 (&words)[2]) const {
    words[0] = dwHigh;
    words[1] = dwLow;
    JW_ByteStream::SwapBytes(&words[0], 4);
    JW_ByteStream::SwapBytes(&words[1], 4);
  }
  void SetWords(u32 (&words)[2]) {
    JW_ByteStream::SwapBytes(&words[0], 4);
    JW_ByteStream::SwapBytes(&words[1], 4);
    dwHigh = words[0];
    dwLow = words[1];
  }

  friend bool operator==(const JW_ID& a, const JW_ID& b) { return a.dwLow == b.dwLow && a.dwHigh == b.dwHigh; }
  friend bool operator!=(const JW_ID& a, const JW_ID& b) { return !(a == b); }

  u32 dwLow;
  u32 dwHigh;

 private:
  static constexpr int kExtended = -1;
  struct KindRange {
    u32 end;  // the first high word behind the range
    int kind;
  };
  static constexpr KindRange kKinds[] = {
      {10000, 0},
      {90000, 1},
      {100000, kExtended},
      {800000, 1},
      {900000, kExtended},
      {1000000, 0},
      {7000000, 1},
      {8000000, kExtended},
      {10000000, 0},
      {60000000, 1},
      {70000000, kExtended},
      {100000000, 0},
      {500000000, 1},
      {600000000, kExtended},
      {1000000000, 0},
  };

  bool IsExtended() const {
    if (dwHigh == 90755 || (dwHigh >= 92000 && dwHigh <= 92002)) return dwLow >= 10;
    return (dwLow >= 10 && dwLow <= 9999) || (dwLow >= 900000 && dwLow <= 999999) ||
           (dwLow >= 8000000 && dwLow <= 8999999) || (dwLow >= 70000000 && dwLow <= 79999999) ||
           (dwLow >= 600000000 && dwLow <= 699999999);
  }
  static JW_WChar* AppendNumber(JW_WChar* out, u32 number) {
    JW_WChar digits[10];
    int count = 0;
    do {
      digits[count++] = static_cast<JW_WChar>('0' + number % 10);
      number /= 10;
    } while (number != 0);
    while (count > 0) *out++ = digits[--count];
    return out;
  }
};
static_assert(sizeof(void*) != 4 || sizeof(JW_ID) == 12, "table, low word, high word");

template <>
struct JW_MapKey<JW_ID> {
  static u64 Number(const JW_ID& key) { return static_cast<u64>(key.dwHigh) << 32 | key.dwLow; }
  static u32 Bucket(const JW_ID& key, u32 buckets) { return (key.dwLow ^ key.dwHigh) % buckets; }
};
