#include "Figures.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>

namespace bench {

bool Rounds::run(const std::string& part, int rounds) {
    for (int round = 1; round <= rounds; ++round) {
        std::fprintf(stderr, "\r%s: round %d of %d ", part.c_str(), round, rounds);
        benchmark::RunSpecifiedBenchmarks(this, "^" + part + "/");
    }
    std::fputc('\n', stderr);
    return !failed_;
}

void Rounds::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.error_occurred) {
            std::fprintf(stderr, "\n%s: %s\n", run.run_name.function_name.c_str(), run.error_message.c_str());
            failed_ = true;
            continue;
        }
        auto& measures = values_[run.run_name.function_name];
        measures["seconds"].push_back(run.real_accumulated_time / static_cast<double>(run.iterations));
        for (const auto& [name, counter] : run.counters) measures[name].push_back(counter.value);
    }
}

const std::vector<double>& Rounds::values(const std::string& benchmark, const std::string& measure) const {
    static const std::vector<double> none;
    const auto measures = values_.find(benchmark);
    if (measures == values_.end()) return none;
    const auto found = measures->second.find(measure);
    return found == measures->second.end() ? none : found->second;
}

void Rounds::printMedians() const {
    std::printf("\nMedians\n");
    for (const auto& [benchmark, measures] : values_) {
        std::printf("  %-28s", benchmark.c_str());
        for (const auto& [measure, values] : measures)
            std::printf("  %s %.6g", measure.c_str(), median(values));
        std::printf("\n");
    }
}

double median(std::vector<double> values) {
    if (values.empty()) return std::nan("");
    std::ranges::sort(values);
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

namespace {

std::vector<double> compared(const Figure& figure, const Rounds& rounds) {
    std::vector<double> results = rounds.values(figure.benchmark, figure.measure);
    if (figure.comparison != Comparison::None) {
        const std::vector<double>& others = rounds.values(figure.otherBenchmark, figure.otherMeasure);
        results.resize(std::min(results.size(), others.size()));
        for (std::size_t i = 0; i < results.size(); ++i)
            results[i] =
                figure.comparison == Comparison::Ratio ? results[i] / others[i] : results[i] - others[i];
    }
    for (double& result : results) result *= figure.scale;
    return results;
}

bool meets(const Figure& figure, double value) {
    switch (figure.goal) {
        case Goal::AtLeast:
            return value >= figure.limit;
        case Goal::AtMost:
            return value <= figure.limit;
        case Goal::None:
            break;
    }
    return true;
}

std::string goalText(const Figure& figure, bool met) {
    if (figure.goal == Goal::None) return {};
    char text[64];
    std::snprintf(text, sizeof text, "%s %g: %s", figure.goal == Goal::AtLeast ? ">=" : "<=", figure.limit,
                  met ? "met" : "MISSED");
    return text;
}

}  // namespace

bool printFigures(std::span<const Figure> figures, const Rounds& rounds) {
    bool allMet = true;
    std::printf("\n%-62s %12s %-8s %s\n", "Figure (median of the rounds)", "", "", "goal");
    for (const Figure& figure : figures) {
        const std::vector<double> results = compared(figure, rounds);
        if (results.empty()) continue;
        const double value = median(results);
        const bool met = meets(figure, value);
        allMet = allMet && met;
        std::printf("%-62s %12.*f %-8s %s\n", figure.title, value >= 1000 ? 0 : 2, value, figure.unit,
                    goalText(figure, met).c_str());
    }
    return allMet;
}

}  // namespace bench
