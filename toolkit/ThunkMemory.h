// Executable memory for the thunks, apart from every heap.
//
// Pages are mapped twice from one section: for good as readable and executable, and as writable only while a thunk is
// being written. So no address is ever both, nobody else's memory becomes executable, and thunks on other threads run
// on meanwhile. Safe on any thread.
#pragma once

class WindowBase;

// Memory for the thunk of `owner`; null if there is none left.
unsigned char* AllocateThunk(WindowBase* owner);
// Makes the thunk `mov dword ptr [esp+4], owner; jmp procedure`. False if the memory can't be reached.
bool WriteThunk(unsigned char* thunk, const WindowBase* owner, const void* procedure);
// Makes the thunk `jmp procedure`: the window's messages pass the owner by.
bool WriteJump(unsigned char* thunk, const void* procedure);
// Null is allowed.
void FreeThunk(unsigned char* thunk);

// Calls `visit` for the owner of each thunk. No thunk may come or go meanwhile.
void VisitThunkOwners(void (*visit)(WindowBase* owner));
// Gives all of it back; no thunk may run any more.
void EndThunkMemory();
