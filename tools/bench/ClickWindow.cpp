// The program's window, in which the files given are clicked: INSTALL_FOLDER FILE...
// For each file the click and the plain run of the same ExifTool command follow each other.

#include "Figures.h"
#include "FirstPaint.h"
#include "PlainProcess.h"
#include "browser/FileListView.h"
#include "browser/ShellBrowser.h"
#include "exiftool/ReadCommands.h"
#include "panel/MetadataPanel.h"
#include "platform/CommandInterpreter.h"
#include "window/MainWindow.h"
#include "window/Program.h"

#include <QApplication>
#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;

// Milliseconds.
constexpr int kPatience = 5000;
constexpr int kSettling = 300;  ///< until the columns and icons of a folder just opened have come

void waitFor(const std::function<bool()>& condition) {
    if (!QTest::qWaitFor(condition, kPatience)) throw std::runtime_error("the window does not answer");
}

/// Seconds that the command of the panel takes without us.
double runTool(const app::AppContext& context, const fs::path& file) {
    const fs::path output = context.tempPath / "Plain.txt";
    // Some file systems write a file out at once when it replaces what was cut off; that would be counted.
    fs::remove(output);
    const auto commands = platform::parseCommands(
        exiftool::panelReadCommand(context, app::commandFormOf(context), file, output));
    const double begin = bench::monotonicSeconds();
    bench::runPlainly(commands.at(0).words, output);
    return bench::monotonicSeconds() - begin;
}

/// Opens the file's folder and brings its row into sight.
QPoint placeOf(window::MainWindow& window, const fs::path& file) {
    browser::ShellBrowser& browser = window.activeBrowser();
    if (browser.currentFolder() != file.parent_path()) {
        window.openFolder(file.parent_path());
        waitFor([&] { return browser.currentFolder() == file.parent_path() && !browser.isLoading(); });
        QTest::qWait(kSettling);
    }
    const browser::ItemList& list = browser.model().list();
    const QModelIndex index = browser.model().index(list.rowOf(list.findItem(file.filename().native())), 0);
    if (!index.isValid()) throw std::runtime_error(file.string() + " is not in the list");
    browser.view().scrollTo(index);
    QApplication::processEvents();
    const QRect row = browser.view().visualRect(index);
    return {row.left() + 60, row.center().y()};
}

/// Seconds from the mouse's button until the rows are on the display.
double click(window::MainWindow& window, const fs::path& file) {
    const QPoint place = placeOf(window, file);
    const QWidget* rows = window.metadataPanel().list().viewport();
    QEventLoop untilPainted;
    double end = 0;
    const double begin = bench::monotonicSeconds();
    const bench::FirstPaint watch(
        [&](const QWidget& widget) {
            return &widget == rows && window.metadataPanel().file() == file &&
                   window.metadataPanel().model().rowCount() > 0;
        },
        [&] {
            end = bench::monotonicSeconds();
            untilPainted.quit();
        });
    QTest::mouseClick(window.activeBrowser().view().viewport(), Qt::LeftButton, {}, place);
    QTimer::singleShot(kPatience, &untilPainted, &QEventLoop::quit);
    untilPainted.exec();
    if (end == 0) throw std::runtime_error(file.string() + " was not shown");
    QApplication::processEvents();
    return end - begin;
}

/// The first click loads icons and fonts, and stands for itself. The last file is the one with the most tags.
void measure(window::Program& program, const std::vector<fs::path>& files) {
    const double first = click(program.window(), files.front());
    bench::printMeasurement("addedAtFirst", first - runTool(program.context(), files.front()));
    std::vector<double> tool(files.size());
    std::vector<double> clicks(files.size());
    std::vector<double> added;
    for (std::size_t i = 0; i < files.size(); ++i) {
        // A B B A: being second must be nobody's advantage.
        const bool toolFirst = i % 2 == 0;
        if (toolFirst) tool[i] = runTool(program.context(), files[i]);
        clicks[i] = click(program.window(), files[i]);
        if (!toolFirst) tool[i] = runTool(program.context(), files[i]);
        added.push_back(clicks[i] - tool[i]);
    }
    bench::printMeasurement("tool", bench::median(tool));
    bench::printMeasurement("seconds", bench::median(clicks));
    bench::printMeasurement("added", bench::median(added));
    bench::printMeasurement("addedToLargest", added.back());
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc < 3) return 2;
    window::Program program(*qApp, fs::absolute(argv[1]) / "Tagwright");
    if (program.start()) return 1;
    try {
        waitFor([&] { return program.window().activeBrowser().isFolderLoaded(); });
        measure(program, {argv + 2, argv + argc});
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
