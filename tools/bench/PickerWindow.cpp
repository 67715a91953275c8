// The program's window, in which the list of all XMP tags is opened for the files of a folder:
// INSTALL_FOLDER FOLDER

#include "FirstPaint.h"
#include "PlainProcess.h"
#include "browser/FileListView.h"
#include "browser/ShellBrowser.h"
#include "taglists/TagList.h"
#include "window/MainWindow.h"
#include "window/Program.h"

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <filesystem>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;

constexpr int kPatience = 5000;  // milliseconds
constexpr std::size_t kLongest = 2700;

void waitFor(const std::function<bool()>& condition) {
    if (!QTest::qWaitFor(condition, kPatience)) throw std::runtime_error("the window does not answer");
}

void open(window::MainWindow& window, const char* seconds) {
    std::size_t rows = 0;
    double end = 0;
    const double begin = bench::monotonicSeconds();
    const bench::FirstPaint watch(
        [](const QWidget& widget) {
            return qobject_cast<taglists::TagListView*>(widget.parent()) != nullptr;
        },
        [&] {
            end = bench::monotonicSeconds();
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            rows = dialog->findChild<taglists::TagList*>()->rows().size();
            dialog->reject();
        });
    window.Dispatch(app::command::kModifyXmp);
    if (end == 0) throw std::runtime_error("the list was not shown");
    bench::printMeasurement(seconds, end - begin);
    bench::printMeasurement("rows", static_cast<double>(rows));
}

/// A list of that many tags of the dictionary in a dialog of its own.
void openLongest(window::Program& program, std::size_t rows) {
    app::AppContext& context = program.context();
    const app::LanguageFile language(context.installPath, context.settings.main.language);
    const tags::TagDictionary dictionary;
    const tags::LabelLibrary labels(context.settings.main.language, dictionary);
    tags::RatingMemory memory;
    tags::RatingLog log;
    exiftool::ToolRunner runner(context);
    exiftool::ReadFeedback feedback;
    exiftool::ReadCommands reads(context, runner, feedback);
    const jobs::OperationParts parts{context, language, dictionary, labels, memory, log, runner, reads};

    double end = 0;
    const double begin = bench::monotonicSeconds();
    taglists::TagRows tags;
    for (const tags::TagRecord& record : dictionary.records()) {
        if (record.writable && tags.size() < rows) tags.push_back(taglists::rowOf(record));
    }
    QDialog dialog;
    auto* list = taglists::TagList::placeIn(
        dialog, parts,
        {.look = {.columns = {taglists::TagColumn::Name, taglists::TagColumn::Group,
                              taglists::TagColumn::Kind, taglists::TagColumn::Value}}});
    list->model().setRows(std::move(tags));
    const bench::FirstPaint watch(
        [](const QWidget& widget) {
            return qobject_cast<taglists::TagListView*>(widget.parent()) != nullptr;
        },
        [&] {
            end = bench::monotonicSeconds();
            dialog.reject();
        });
    dialog.exec();
    bench::printMeasurement("longest", end - begin);
    bench::printMeasurement("longestRows", static_cast<double>(list->rows().size()));
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc != 3) return 2;
    window::Program program(*qApp, fs::absolute(argv[1]) / "Tagwright");
    if (program.start()) return 1;
    try {
        window::MainWindow& window = program.window();
        waitFor([&] { return window.activeBrowser().isFolderLoaded(); });
        window.openFolder(argv[2]);
        waitFor([&] {
            return window.activeBrowser().currentFolder() == argv[2] && !window.activeBrowser().isLoading();
        });
        window.activeBrowser().view().selectAll();
        open(window, "first");
        open(window, "seconds");
        openLongest(program, kLongest);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
