// How fast ExifTool's output becomes rows, on one core.

#include "SampleFiles.h"
#include "platform/Text.h"
#include "tags/LabelLibrary.h"
#include "tags/OutputParser.h"

#include <benchmark/benchmark.h>
#include <stdexcept>

#include <fstream>

namespace {

constexpr double kLeastSeconds = 0.3;

void parseAll(benchmark::State& state, const app::Settings& settings) {
    const bench::SampleFiles& samples = bench::samples();
    const tags::TagDictionary dictionary;
    tags::RatingMemory memory;
    std::vector<tags::MetadataRow> rows;
    std::size_t rowCount = 0;
    for (auto _ : state) {
        rowCount = 0;
        for (const auto& sample : samples.samples()) {
            rows.clear();
            tags::RatingLog log;
            tags::OutputParser parser(dictionary, settings, memory, log);
            parser.begin();
            const auto insert = [&](tags::MetadataRow&& row) { rows.push_back(std::move(row)); };
            if (!parser.ParseExifToolOutput(sample.output, insert))
                throw std::runtime_error("the output is gone");
            rowCount += rows.size();
        }
        benchmark::DoNotOptimize(rows);
    }
    state.counters["lines"] = static_cast<double>(samples.lines());
    state.counters["rows"] = static_cast<double>(rowCount);
}

void parseWithAllFamilies(benchmark::State& state) {
    parseAll(state, bench::samples().context().settings);
}

void parseWithDefaults(benchmark::State& state) {
    parseAll(state, app::Settings());
}

/// The part of the work that nobody can leave out: read the lines and make texts of them.
void readLinesPlainly(benchmark::State& state) {
    for (auto _ : state) {
        for (const auto& sample : bench::samples().samples()) {
            std::ifstream stream(sample.output, std::ios::binary);
            std::string line;
            while (std::getline(stream, line)) benchmark::DoNotOptimize(platform::wide(line));
        }
    }
    state.counters["lines"] = static_cast<double>(bench::samples().lines());
}

struct Question {
    std::uint32_t groupId;
    QString tag;
};

std::vector<Question> questions() {
    std::vector<Question> asked;
    for (const auto& sample : bench::samples().samples()) {
        std::ifstream stream(sample.output, std::ios::binary);
        std::string bytes;
        while (std::getline(stream, bytes)) {
            const QString text = platform::wide(bytes);
            const tags::OutputLine line = tags::splitOutputLine(text);
            if (const auto groupId = tags::FindGroup(line.group))
                asked.push_back({*groupId, line.tag.toString()});
        }
    }
    return asked;
}

template <typename Find>
void findAll(benchmark::State& state, Find find) {
    const tags::TagDictionary dictionary;
    const std::vector<Question> asked = questions();
    for (auto _ : state)
        for (const Question& question : asked)
            benchmark::DoNotOptimize((dictionary.*find)(question.groupId, question.tag));
    state.counters["questions"] = static_cast<double>(asked.size());
}

void findByIndex(benchmark::State& state) {
    findAll(state, &tags::TagDictionary::FindTagId);
}

void findByScan(benchmark::State& state) {
    findAll(state, &tags::TagDictionary::findTagIdByScan);
}

void copyDictionary(benchmark::State& state) {
    for (auto _ : state) {
        const tags::TagDictionary copy;
        benchmark::DoNotOptimize(copy.records().data());
    }
}

/// German, which has the most to read.
void firstLabel(benchmark::State& state) {
    constexpr int kGerman = 7;
    constexpr int kMake = 1056;
    const tags::TagDictionary dictionary;
    for (auto _ : state) {
        const tags::LabelLibrary library(kGerman, dictionary);
        benchmark::DoNotOptimize(library.label(kMake));
    }
}

BENCHMARK(parseWithAllFamilies)->Name("Parsing/AllFamilies")->MinTime(kLeastSeconds);
BENCHMARK(parseWithDefaults)->Name("Parsing/Defaults")->MinTime(kLeastSeconds);
BENCHMARK(readLinesPlainly)->Name("Parsing/PlainLines")->MinTime(kLeastSeconds);
BENCHMARK(findByIndex)->Name("Parsing/FindByIndex")->MinTime(kLeastSeconds);
BENCHMARK(findByScan)->Name("Parsing/FindByScan")->MinTime(kLeastSeconds);
BENCHMARK(copyDictionary)->Name("Parsing/CopyOfDictionary")->MinTime(kLeastSeconds);
BENCHMARK(firstLabel)->Name("Parsing/FirstLabel")->MinTime(kLeastSeconds);

}  // namespace
