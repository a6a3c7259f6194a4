// Raw memory, as the strings and containers use it. No operation throws; a failed allocation is null.
#pragma once

#include "JW_Base/Include/JW_Types.h"

#if __has_include(<stdlib.h>)
#include <stdlib.h>
#include <string.h>
#else  // a front end without a C library, as in syntax checks for another target
extern "C" {
void* malloc(size_t size);
void* calloc(size_t count, size_t size);
void free(void* memory);
void* memcpy(void* to, const void* from, size_t size);
void* memmove(void* to, const void* from, size_t size);
void* memset(void* to, int value, size_t size);
int memcmp(const void* a, const void* b, size_t size);
}
#endif

#if defined(_MSC_VER)
extern "C" long _InterlockedExchangeAdd(long volatile* target, long amount);
#endif

// Tags the placement forms below, so that they never meet the standard ones.
struct JW_Place {};
inline void* operator new(size_t, void* where, JW_Place) noexcept {
  return where;
}
inline void operator delete(void*, void*, JW_Place) noexcept {}

// memcpy for sizes that are mostly small and known only at run time, where a call costs more than the copying.
inline void JW_CopyShort(void* to, const void* from, size_t size) {
  u8* const out = static_cast<u8*>(to);
  const u8* const in = static_cast<const u8*>(from);
  if (size > 32) {
    memcpy(out, in, size);
  } else if (size >= 16) {
    memcpy(out, in, 16);
    memcpy(out + size - 16, in + size - 16, 16);
  } else if (size >= 8) {
    memcpy(out, in, 8);
    memcpy(out + size - 8, in + size - 8, 8);
  } else if (size >= 4) {
    memcpy(out, in, 4);
    memcpy(out + size - 4, in + size - 4, 4);
  } else {
    for (size_t i = 0; i < size; ++i) out[i] = in[i];
  }
}

// Adds `amount` atomically and returns the new value.
inline int32_t JW_AtomicAdd(int32_t* target, int32_t amount) {
#if defined(_MSC_VER)
  return _InterlockedExchangeAdd(reinterpret_cast<long volatile*>(target), amount) + amount;
#else
  return __atomic_add_fetch(target, amount, __ATOMIC_ACQ_REL);
#endif
}

// Runs an object's destructor, that of its own type, without touching its memory.
template <class T>
inline void JW_Destroy(T* object) {
  object->T::~T();
}
