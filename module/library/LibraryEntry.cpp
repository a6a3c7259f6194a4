// The library enters and leaves the process.
#include "platform/windows/Windows.h"
#include "window/VoteResources.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) {
    DisableThreadLibraryCalls(instance);
  } else if (reason == DLL_PROCESS_DETACH) {
    VoteResources::Destroy();
  }
  return TRUE;
}
