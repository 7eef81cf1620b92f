// Sums a run of all benchmarks up: the median cost of each, and how it stands to its peer and to the bar.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace bench {

// A benchmark that measures something else than time says what it found in this counter.
inline constexpr char kFigure[] = "figure";

// Prints nothing until the end.
class BarReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    // Nanoseconds an item, or the figure, median of all rounds; 0 if the benchmark did not run.
    double Median(const std::string& name) const;
    void PrintCosts();
    void PrintBars();

    std::map<std::string, std::vector<double>> costs; // one for each round
};

} // namespace bench
