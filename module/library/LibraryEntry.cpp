// The library enters and leaves the process.
#include "notifier/TaskbarNotifier.h"
#include "platform/windows/Windows.h"
#include "toolkit/Toolkit.h"
#include "window/VoteResources.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID processEnds) {
  if (reason == DLL_PROCESS_ATTACH) {
    DisableThreadLibraryCalls(instance);
    InitToolkit(instance);
  } else if (reason == DLL_PROCESS_DETACH) {
    VoteResources::Destroy();
    // At the end of the process the other threads were stopped wherever they were, and the system takes the rest back.
    if (!processEnds) {
      TaskbarNotifier::CloseAll();
      TermToolkit();
    }
  }
  return TRUE;
}
