// Growing array. Elements are constructed on zeroed memory and moved bytewise when the array grows, so they must be
// bitwise movable. SetSize and what builds on it return false, with the array unchanged, if memory runs out.
#pragma once

#include "JW_Base/Include/JW_Memory.h"
#include "JW_Base/Include/JW_Types.h"

template <class T>
class JW_Array {
 public:
  JW_Array() : pData(nullptr), nSize(0), nMaxSize(0), nGrowBy(0) {}
  JW_Array(const JW_Array& other) : JW_Array() { CopyFrom(other); }
  JW_Array(JW_Array&& other) noexcept : JW_Array() { Swap(other); }
  ~JW_Array() { SetSize(0); }
  JW_Array& operator=(const JW_Array& other) {
    CopyFrom(other);
    return *this;
  }
  JW_Array& operator=(JW_Array&& other) noexcept {
    Swap(other);
    return *this;
  }

  int GetSize() const { return nSize; }
  int GetCapacity() const { return nMaxSize; }
  bool IsEmpty() const { return nSize == 0; }
  T& operator[](int index) { return pData[index]; }
  const T& operator[](int index) const { return pData[index]; }
  T* begin() { return pData; }
  T* end() { return pData + nSize; }
  const T* begin() const { return pData; }
  const T* end() const { return pData + nSize; }

  // Constructs what is missing and destroys what is too many; 0 frees the storage. `growBy` other than -1 becomes the
  // step by which the capacity grows; with a step of 0 it grows by an eighth, at least 4 and at most 1024.
  bool SetSize(int size, int growBy = -1) {
    if (growBy != -1) nGrowBy = growBy;
    if (size <= 0) {
      DestroyRange(0, nSize);
      free(Raw(0));
      pData = nullptr;
      nSize = nMaxSize = 0;
      return true;
    }
    if (size > nMaxSize && !Grow(size)) return false;
    if (size > nSize) {
      ConstructRange(nSize, size);
    } else {
      DestroyRange(size, nSize);
    }
    nSize = size;
    return true;
  }
  void RemoveAll() { SetSize(0); }

  bool Add(const T& element) { return InsertAt(nSize, element); }
  bool InsertAt(int index, const T& element) {
    const T copy(element);  // NOLINT: `element` may lie in this array
    if (!SetSize(nSize + 1)) return false;
    if (index < nSize - 1) {
      // The element that SetSize constructed last is swapped, byte by byte, to where the new one goes.
      alignas(T) unsigned char fresh[sizeof(T)];
      memcpy(fresh, Raw(nSize - 1), sizeof(T));
      memmove(Raw(index + 1), Raw(index), static_cast<size_t>(nSize - 1 - index) * sizeof(T));
      memcpy(Raw(index), fresh, sizeof(T));
    }
    pData[index] = copy;
    return true;
  }
  void RemoveAt(int index) {
    DestroyRange(index, index + 1);
    memmove(Raw(index), Raw(index + 1), static_cast<size_t>(nSize - 1 - index) * sizeof(T));
    --nSize;
  }
  // Position of the first equal element, -1 if there is none.
  int Find(const T& element) const {
    for (int i = 0; i < nSize; ++i) {
      if (pData[i] == element) return i;
    }
    return -1;
  }
  // Copies the elements; the growth step stays this array's own.
  bool CopyFrom(const JW_Array& other) {
    if (this == &other) return true;
    if (!SetSize(other.nSize)) return false;
    for (int i = 0; i < nSize; ++i) pData[i] = other.pData[i];
    return true;
  }

 private:
  void* Raw(int index) { return static_cast<void*>(pData + index); }
  bool Grow(int size) {
    int64_t capacity = size;
    if (pData) {
      int step = nGrowBy;
      if (step == 0) {
        step = nSize / 8;
        step = step < 4 ? 4 : (step > 1024 ? 1024 : step);
      }
      const int64_t stepped = static_cast<int64_t>(nMaxSize) + step;
      if (stepped > capacity) capacity = stepped;
    }
    const u64 bytes = static_cast<u64>(capacity) * sizeof(T);
    if (bytes > 0x7FFFFFFF) return false;
    T* const fresh = static_cast<T*>(malloc(static_cast<size_t>(bytes)));
    if (!fresh) return false;
    if (nSize > 0) memcpy(static_cast<void*>(fresh), Raw(0), static_cast<size_t>(nSize) * sizeof(T));
    free(Raw(0));
    pData = fresh;
    nMaxSize = static_cast<int>(capacity);
    return true;
  }
  void ConstructRange(int from, int to) {
    memset(Raw(from), 0, static_cast<size_t>(to - from) * sizeof(T));
    for (int i = from; i < to; ++i) ::new (Raw(i), JW_Place()) T;
  }
  void DestroyRange(int from, int to) {
    for (int i = from; i < to; ++i) JW_Destroy(pData + i);
  }
  void Swap(JW_Array& other) {
    JW_SwapBytes(&pData, &other.pData);
    JW_SwapBytes(&nSize, &other.nSize);
    JW_SwapBytes(&nMaxSize, &other.nMaxSize);
    JW_SwapBytes(&nGrowBy, &other.nGrowBy);
  }
  template <class V>
  static void JW_SwapBytes(V* a, V* b) {
    const V kept = *a;
    *a = *b;
    *b = kept;
  }

  T* pData;
  int nSize;
  int nMaxSize;
  int nGrowBy;
};
static_assert(sizeof(void*) != 4 || sizeof(JW_Array<u32>) == 16, "pData, nSize, nMaxSize, nGrowBy");
