// A block of raw memory, linked to the block that was made before it. Lists and maps take their nodes from such
// blocks, put released nodes on a free list, and give the blocks back only when they are emptied.
#pragma once

#include "JW_Base/Include/JW_Memory.h"
#include "JW_Base/Include/JW_Types.h"

struct alignas(8) JW_Plex {
  JW_Plex* next;

  void* Data() { return this + 1; }

  // Allocates one block of nMax * cbElement bytes and puts it at the head of the chain. Null, with the chain as it
  // was, if memory runs out or the size doesn't fit.
  static JW_Plex* Create(JW_Plex*& head, u32 nMax, u32 cbElement) {
    JW_ASSERT(nMax > 0 && cbElement > 0, "nMax > 0 && cbElement > 0");
    const u64 size = sizeof(JW_Plex) + static_cast<u64>(nMax) * cbElement;
    if (size > 0x7FFFFFFF) return nullptr;
    JW_Plex* const block = static_cast<JW_Plex*>(malloc(static_cast<size_t>(size)));
    if (!block) return nullptr;
    block->next = head;
    head = block;
    return block;
  }

  // Frees this block and all behind it.
  static void FreeChain(JW_Plex* head) {
    while (head) {
      JW_Plex* const next = head->next;
      free(head);
      head = next;
    }
  }
};
