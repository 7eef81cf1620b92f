#include "bench/bar_table.h"

#include <malloc.h>

int main(int argumentCount, char** arguments) {
    // The process keeps its heap between rounds, for both sides: the work is measured, not the system's
    // pages.
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    mallopt(M_MMAP_THRESHOLD, 1 << 30);

    benchmark::Initialize(&argumentCount, arguments);
    if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments)) return 1;
    bench::BarReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
