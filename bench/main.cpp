#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include "JW_Base/Include/JW_Map.h"

int main(int argc, char** argv) {
  // The client is a window program without a standard output. The maps look once whether there is one: they shall find
  // what they find there.
  const int output = fcntl(STDOUT_FILENO, F_DUPFD, 10);
  close(STDOUT_FILENO);
  JW_WarnLongWalk(1);
  dup2(output, STDOUT_FILENO);
  close(output);

  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
