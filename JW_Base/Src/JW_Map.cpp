#include "JW_Base/Include/JW_Map.h"

#include <cstdio>
#include <cstring>

#include "platform/StandardOutput.h"

namespace {

constexpr char kWarning[] = "warning: unreasonable hash key!\r\n";
constexpr size_t kWarningLength = sizeof(kWarning) - 1;
constexpr u32 kLinesAtOnce = 64;

}  // namespace

void JW_WarnLongWalk(u32 times) {
  static const bool s_Heard = platform::HasStandardOutput();
  if (!s_Heard) return;
  char lines[kLinesAtOnce * kWarningLength];
  for (u32 i = 0; i < kLinesAtOnce && i < times; ++i) memcpy(lines + i * kWarningLength, kWarning, kWarningLength);
  while (times > 0) {
    const u32 now = times < kLinesAtOnce ? times : kLinesAtOnce;
    std::printf("%.*s", static_cast<int>(now * kWarningLength), lines);
    times -= now;
  }
}
