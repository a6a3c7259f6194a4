// The module's five exports. ZQVote.def gives their names and ordinals.
#include "module/InstanceRegistry.h"
#include "window/VoteMainWnd.h"

namespace {

InstanceRegistry g_mapInstance(&VoteMainWnd::Create);

}  // namespace

extern "C" {

void* zqCreateInstance(const char* name) {
  return g_mapInstance.Create(name);
}
void zqDestroyInstance(void* instance) {
  g_mapInstance.Destroy(instance);
}
bool zqGetInterfaceName(int index, char* buffer) {
  return GetVoteInterfaceName(index, buffer);
}
bool zqInitialize() {
  return true;
}
void zqUninitialize() {}
}
