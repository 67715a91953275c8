#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <span>
#include <string>
#include <vector>

namespace bench {

/// Runs benchmarks by name again and again in the order of their registration, A B A B, so that whatever
/// slows the machine down for a while slows all of them down; keeps every run's time and counters.
class Rounds : public benchmark::BenchmarkReporter {
 public:
    /// part: the benchmarks whose names start so. False when one of them reported an error.
    bool run(const std::string& part, int rounds);

    /// One value a round. measure: "seconds" for the time of one iteration, or the name of a counter. Empty
    /// when that was not measured.
    const std::vector<double>& values(const std::string& benchmark, const std::string& measure) const;

    /// One line for each benchmark that has run: the median of each of its measures.
    void printMedians() const;

    // --- benchmark::BenchmarkReporter
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

 private:
    std::map<std::string, std::map<std::string, std::vector<double>>> values_;
    bool failed_ = false;
};

double median(std::vector<double> values);

enum class Comparison { None, Ratio, Difference };
enum class Goal { None, AtLeast, AtMost };

/// One line of the summary: a measure of a benchmark, compared round by round with another one's; the median
/// of the rounds counts.
struct Figure {
    const char* title;
    const char* benchmark;
    const char* measure;
    Comparison comparison;
    const char* otherBenchmark;
    const char* otherMeasure;
    double scale;  ///< to the unit
    const char* unit;
    Goal goal;
    double limit;
};

/// Prints those figures whose benchmarks have run. False when one misses its goal.
bool printFigures(std::span<const Figure> figures, const Rounds& rounds);

}  // namespace bench
