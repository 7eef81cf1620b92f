// Reports a run of benchmarks: the median cost of each, and its ratio to its peer beside the bar for it.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace bench {

// A benchmark that measures something other than time stores the result in this counter.
inline constexpr char kFigure[] = "figure";
// The peak of the process, if a benchmark measures that too. Its row has this name and that of the benchmark.
inline constexpr char kPeakMegabytes[] = "peak_MB";

// Prints nothing until the end.
class BarReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    // Returns the median of all rounds, in nanoseconds an item, or of the figure; 0 if the benchmark did not
    // run.
    double Median(const std::string& name) const;
    void PrintCosts();
    void PrintBars();

    std::map<std::string, std::vector<double>> costs; // one for each round
};

} // namespace bench
