// What the panel adds to ExifTool's own run, from the click to the painted rows.

#include "Figures.h"
#include "FirstPaint.h"
#include "PlainProcess.h"
#include "SampleFiles.h"
#include "exiftool/MetadataLoad.h"
#include "platform/CommandInterpreter.h"
#include "tags/MetadataPanel.h"

#include <benchmark/benchmark.h>

#include <QApplication>

namespace {

constexpr std::size_t kFileCount = 8;

/// A metadata panel as the main window has it, with the clock on it.
class ClickedPanel {
 public:
    explicit ClickedPanel(const app::AppContext& context) : context_(context), panel_(parts(), &window_) {
        window_.resize(700, 800);
        panel_.setGeometry(window_.rect());
        window_.show();
        QApplication::processEvents();
    }

    /// Seconds from the call until the rows are on the display.
    double click(const std::filesystem::path& file) {
        bool painted = false;
        double end = 0;
        const double begin = bench::monotonicSeconds();
        panel_.NewSelection(file);
        const bench::FirstPaint watch(
            [&](const QWidget& widget) { return &widget == panel_.list().viewport(); },
            [&] {
                end = bench::monotonicSeconds();
                painted = true;
            });
        while (!painted) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QApplication::processEvents();
        return end - begin;
    }

    int rowCount() const { return panel_.model().rowCount(); }

 private:
    tags::MetadataPanel::Parts parts() {
        return {context_, dictionary_, memory_, parser_, load_, loadFeedback_, [](int number) {
                    return QString::number(number);
                }};
    }

    const app::AppContext& context_;
    tags::TagDictionary dictionary_;
    tags::RatingMemory memory_;
    tags::RatingLog log_;
    tags::OutputParser parser_{dictionary_, context_.settings, memory_, log_};
    exiftool::ToolRunner runner_{context_};
    exiftool::ReadFeedback readFeedback_;
    exiftool::ReadCommands commands_{context_, runner_, readFeedback_};
    exiftool::MetadataLoad load_{context_, runner_, commands_, parser_};
    exiftool::LoadFeedback loadFeedback_;
    QWidget window_;
    tags::MetadataPanel panel_;
};

/// Seconds that the same command takes without us.
double runTool(const app::AppContext& context, const std::filesystem::path& file) {
    const std::filesystem::path output = context.tempPath / "Plain.txt";
    // Some file systems write a file out at once when it replaces what was cut off; that would be counted.
    std::filesystem::remove(output);
    const auto commands = platform::parseCommands(exiftool::PanelReadCommand(context, file, output));
    const double begin = bench::monotonicSeconds();
    bench::runPlainly(commands.at(0).words, output);
    return bench::monotonicSeconds() - begin;
}

/// Files from the one with the fewest tags to the one with the most.
std::vector<std::filesystem::path> spreadOfFiles() {
    const auto& all = bench::samples().samples();
    const std::size_t count = std::min(kFileCount, all.size());
    std::vector<std::filesystem::path> files;
    for (std::size_t i = 0; i < count; ++i)
        files.push_back(all[count == 1 ? 0 : i * (all.size() - 1) / (count - 1)].file);
    return files;
}

/// Click and plain run follow each other for every file, and their difference is taken file by file. The
/// first click of a panel loads icons and fonts, and stands for itself.
void clickFiles(benchmark::State& state) {
    const app::AppContext& context = bench::samples().context();
    ClickedPanel panel(context);
    std::vector<double> tool;
    std::vector<double> added;
    const std::vector<std::filesystem::path> files = spreadOfFiles();
    const double plain = runTool(context, files.back());
    state.counters["addedAtFirst"] = panel.click(files.back()) - plain;
    for (auto _ : state) {
        double total = 0;
        for (std::size_t i = 0; i < files.size(); ++i) {
            // A B B A: being second must be nobody's advantage.
            const bool toolFirst = i % 2 == 0;
            if (toolFirst) tool.push_back(runTool(context, files[i]));
            const double click = panel.click(files[i]);
            if (!toolFirst) tool.push_back(runTool(context, files[i]));
            added.push_back(click - tool.back());
            total += click;
        }
        state.SetIterationTime(total / static_cast<double>(files.size()));
    }
    state.counters["tool"] = bench::median(tool);
    state.counters["added"] = bench::median(added);
    state.counters["addedToLargest"] = added.back();
}

BENCHMARK(clickFiles)->Name("Click/Panel")->UseManualTime()->Iterations(1);

}  // namespace
