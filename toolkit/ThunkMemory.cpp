#include "toolkit/ThunkMemory.h"

#include <stdint.h>
#include <string.h>

#include <new>

#include "platform/windows/Windows.h"
#include "toolkit/ToolkitState.h"

static_assert(sizeof(void*) == 4, "the thunk is code for 32-bit processors");

namespace {

constexpr size_t kThunkSize = 13;
constexpr size_t kSlotSize = 16;
constexpr size_t kBlockSize = 4096;
constexpr size_t kSlots = kBlockSize / kSlotSize;

constexpr uint32_t kMovToFirstArgument = 0x042444C7;  // mov dword ptr [esp+4], imm32
constexpr unsigned char kJump = 0xE9;                 // jmp rel32
constexpr size_t kJumpSize = 5;

struct ThunkBlock {
  ThunkBlock* Next;
  HANDLE Section;
  unsigned char* Code;         // the executable view
  WindowBase* Owners[kSlots];  // null where a slot is free
};

ThunkBlock* g_pBlocks = nullptr;

bool Contains(const ThunkBlock& block, const unsigned char* thunk) {
  return thunk >= block.Code && thunk < block.Code + kBlockSize;
}

ThunkBlock* BlockOf(const unsigned char* thunk) {
  ThunkBlock* block = g_pBlocks;
  while (block && !Contains(*block, thunk)) block = block->Next;
  return block;
}

void EndBlock(ThunkBlock* block) {
  if (block->Code) UnmapViewOfFile(block->Code);
  if (block->Section) CloseHandle(block->Section);
  delete block;
}

ThunkBlock* AddBlock() {
  ThunkBlock* const block = new (std::nothrow) ThunkBlock{};
  if (!block) return nullptr;
  block->Section = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_EXECUTE_READWRITE, 0, kBlockSize, nullptr);
  if (block->Section) {
    block->Code = static_cast<unsigned char*>(MapViewOfFile(block->Section, FILE_MAP_READ | FILE_MAP_EXECUTE, 0, 0, 0));
  }
  if (!block->Code) {
    EndBlock(block);
    return nullptr;
  }
  block->Next = g_pBlocks;
  g_pBlocks = block;
  return block;
}

unsigned char* TakeSlot(ThunkBlock& block, WindowBase* owner) {
  for (size_t i = 0; i < kSlots; ++i) {
    if (block.Owners[i]) continue;
    block.Owners[i] = owner;
    return block.Code + i * kSlotSize;
  }
  return nullptr;
}

// From the end of a jump to its target.
uint32_t Distance(const unsigned char* from, const void* to) {
  return reinterpret_cast<uint32_t>(to) - reinterpret_cast<uint32_t>(from);
}

bool WriteCode(unsigned char* thunk, const unsigned char* code, size_t size) {
  const ToolkitLock lock(ToolkitLocks().Thunks);
  const ThunkBlock* const block = BlockOf(thunk);
  void* const view = block ? MapViewOfFile(block->Section, FILE_MAP_WRITE, 0, 0, 0) : nullptr;
  if (!view) return false;
  memcpy(static_cast<unsigned char*>(view) + (thunk - block->Code), code, size);
  UnmapViewOfFile(view);
  FlushInstructionCache(GetCurrentProcess(), thunk, size);
  return true;
}

}  // namespace

unsigned char* AllocateThunk(WindowBase* owner) {
  const ToolkitLock lock(ToolkitLocks().Thunks);
  for (ThunkBlock* block = g_pBlocks; block; block = block->Next) {
    if (unsigned char* const thunk = TakeSlot(*block, owner)) return thunk;
  }
  ThunkBlock* const block = AddBlock();
  return block ? TakeSlot(*block, owner) : nullptr;
}

bool WriteThunk(unsigned char* thunk, const WindowBase* owner, const void* procedure) {
  const uint32_t object = reinterpret_cast<uint32_t>(owner);
  const uint32_t distance = Distance(thunk + kThunkSize, procedure);
  unsigned char code[kThunkSize];
  memcpy(code, &kMovToFirstArgument, 4);
  memcpy(code + 4, &object, 4);
  code[8] = kJump;
  memcpy(code + 9, &distance, 4);
  return WriteCode(thunk, code, kThunkSize);
}

bool WriteJump(unsigned char* thunk, const void* procedure) {
  const uint32_t distance = Distance(thunk + kJumpSize, procedure);
  unsigned char code[kJumpSize] = {kJump};
  memcpy(code + 1, &distance, 4);
  return WriteCode(thunk, code, kJumpSize);
}

void FreeThunk(unsigned char* thunk) {
  if (!thunk) return;
  const ToolkitLock lock(ToolkitLocks().Thunks);
  if (ThunkBlock* const block = BlockOf(thunk)) {
    block->Owners[static_cast<size_t>(thunk - block->Code) / kSlotSize] = nullptr;
  }
}

void VisitThunkOwners(void (*visit)(WindowBase* owner)) {
  for (const ThunkBlock* block = g_pBlocks; block; block = block->Next) {
    for (WindowBase* const owner : block->Owners) {
      if (owner) visit(owner);
    }
  }
}

void EndThunkMemory() {
  while (ThunkBlock* const block = g_pBlocks) {
    g_pBlocks = block->Next;
    EndBlock(block);
  }
}
