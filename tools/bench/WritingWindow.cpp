// The program's window while an operation writes every file of a folder, browsed meanwhile: INSTALL_FOLDER
// FOLDER OTHER_FOLDER. Prints the seconds until everything is told, and the longest block of the window.

#include "FirstPaint.h"
#include "LoopWatch.h"
#include "PlainProcess.h"
#include "browser/FileListView.h"
#include "browser/ShellBrowser.h"
#include "window/MainWindow.h"
#include "window/Program.h"

#include <QApplication>
#include <QTest>
#include <filesystem>
#include <optional>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;

constexpr int kPatience = 120'000;  // milliseconds

void waitFor(const std::function<bool()>& condition, const char* what) {
    if (!QTest::qWaitFor(condition, kPatience)) throw std::runtime_error(what);
}

void waitForFolder(window::MainWindow& window, const fs::path& folder) {
    waitFor(
        [&] {
            const browser::ShellBrowser& browser = window.activeBrowser();
            return browser.currentFolder() == folder && !browser.isLoading() && !browser.isSorting();
        },
        "the folder is not shown");
}

void write(window::MainWindow& window, const fs::path& folder, const fs::path& other) {
    bool isPainted = false;
    const QWidget* list = window.activeBrowser().view().viewport();
    const bench::FirstPaint paint([list](const QWidget& widget) { return &widget == list; },
                                  [&isPainted] { isPainted = true; });
    window.openFolder(folder);
    waitForFolder(window, folder);
    // Nobody can begin an operation in a window that is not yet on the screen.
    waitFor([&] { return isPainted; }, "the folder is not painted");
    window.activeBrowser().view().selectAll();
    std::optional<bench::LoopWatch> watch;
    watch.emplace();
    const double begin = bench::monotonicSeconds();
    window.Dispatch(app::command::kFileDateFromPhoto);
    if (!window.isBusy()) throw std::runtime_error("nothing is written");
    window.openFolder(other);
    waitForFolder(window, other);
    if (!window.isBusy()) throw std::runtime_error("all was written before the other folder was seen");
    window.openFolder(folder);
    waitForFolder(window, folder);
    waitFor([&] { return !window.isBusy(); }, "the operation does not end");
    bench::printMeasurement("seconds", bench::monotonicSeconds() - begin);
    // The list is read once more behind it.
    waitForFolder(window, folder);
    QTest::qWait(1000);
    bench::printMeasurement("block", watch->longestWait());
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc != 4) return 2;
    window::Program program(*qApp, fs::absolute(argv[1]) / "Tagwright");
    if (program.start()) return 1;
    try {
        waitFor([&] { return program.window().activeBrowser().isFolderLoaded(); }, "no first folder");
        write(program.window(), argv[2], argv[3]);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
