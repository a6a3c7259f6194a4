#include <cstdio>
#include <cstdlib>

#include "JW_Base/Include/JW_Types.h"

#if defined(JW_ASSERTIONS)
void JW_AssertionFailed(const char* text) {
  std::fprintf(stderr, "assertion failed: %s\n", text);
  std::fflush(stderr);
  std::abort();
}
#endif
