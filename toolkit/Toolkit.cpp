#include "toolkit/Toolkit.h"

#include <new>
#include <optional>

#include "JW_Base/Include/JW_Types.h"
#include "platform/Resources.h"
#include "toolkit/ThunkMemory.h"
#include "toolkit/ToolkitState.h"
#include "toolkit/WindowBase.h"

namespace {

struct Termination {
  Termination* Next;
  void (*Function)(void* argument);
  void* Argument;
};

HINSTANCE g_hInstance = nullptr;
std::optional<ToolkitSections> g_Locks;
Termination* g_pTerminations = nullptr;

void RunTerminations() {
  while (Termination* const first = g_pTerminations) {
    g_pTerminations = first->Next;
    first->Function(first->Argument);
    delete first;
  }
}

}  // namespace

void InitToolkit(HINSTANCE instance) {
  g_hInstance = instance;
  platform::SetResourceModule(instance);
  g_Locks.emplace();
}

void TermToolkit() {
  // All windows are let go before the first is destroyed: destroying one reaches its children.
  VisitThunkOwners([](WindowBase* owner) { owner->LetWindowGo(); });
  VisitThunkOwners([](WindowBase* owner) { owner->ForgetWindow(); });
  g_Locks.reset();
  RunTerminations();
  EndThunkMemory();
}

HINSTANCE ToolkitInstance() {
  return g_hInstance;
}

ToolkitSections& ToolkitLocks() {
  JW_ASSERT(g_Locks.has_value(), "g_Locks");
  return *g_Locks;
}

bool AddTermination(void (*function)(void* argument), void* argument) {
  Termination* const added = new (std::nothrow) Termination{g_pTerminations, function, argument};
  if (added) g_pTerminations = added;
  return added != nullptr;
}
