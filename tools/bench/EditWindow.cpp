// The program's window, in which one tag of a file is edited as a user does: INSTALL_FOLDER FILE ROUNDS
// WARM_START. Each edit and the plain run of the same ExifTool command follow each other.

#include "Figures.h"
#include "FirstPaint.h"
#include "PlainProcess.h"
#include "browser/FileListView.h"
#include "browser/ShellBrowser.h"
#include "dialogs/FormLoader.h"
#include "edit/ModifStringDialog.h"
#include "exiftool/SafetyCopy.h"
#include "exiftool/WriteTag.h"
#include "panel/MetadataPanel.h"
#include "platform/CommandInterpreter.h"
#include "platform/IniFile.h"
#include "window/MainWindow.h"
#include "window/Program.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPlainTextEdit>
#include <QTest>
#include <filesystem>
#include <optional>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;

// Milliseconds.
constexpr int kPatience = 20000;
constexpr int kSettling = 300;  ///< until the list has seen that the file changed, and rests

constexpr int kTextControl = 1694;
const QString kGroup = QStringLiteral("IFD0");
const QString kTag = QStringLiteral("Artist");

void waitFor(const char* what, const std::function<bool()>& condition) {
    if (!QTest::qWaitFor(condition, kPatience)) throw std::runtime_error(std::string("never: ") + what);
}

/// Seconds.
struct Edit {
    double opening = 0;  ///< from the click on the value until the dialog is painted
    double writing = 0;  ///< from OK until the new value is painted
};

class EditedWindow {
 public:
    EditedWindow(window::Program& program, fs::path file) : program_(program), file_(std::move(file)) {}

    void openFile() {
        browser::ShellBrowser& browser = program_.window().activeBrowser();
        program_.window().openFolder(file_.parent_path());
        waitFor("the folder",
                [&] { return browser.currentFolder() == file_.parent_path() && !browser.isLoading(); });
        QTest::qWait(kSettling);
        const browser::ItemList& list = browser.model().list();
        const QModelIndex index =
            browser.model().index(list.rowOf(list.findItem(file_.filename().native())), 0);
        const QRect row = browser.view().visualRect(index);
        QTest::mouseClick(browser.view().viewport(), Qt::LeftButton, {}, {row.left() + 60, row.center().y()});
        waitFor("the tag in the panel", [&] { return panel().file() == file_ && rowOfTag().isValid(); });
    }

    Edit edit(const QString& value) {
        panel().list().scrollTo(rowOfTag());
        QApplication::processEvents();
        Edit measured;
        double begin = bench::monotonicSeconds();
        const bench::FirstPaint dialog(
            [](const QWidget& widget) {
                return qobject_cast<edit::ModifStringDialog*>(widget.window()) != nullptr;
            },
            [&] {
                measured.opening = bench::monotonicSeconds() - begin;
                begin = confirm(value);
            });
        std::optional<double> end;
        const bench::FirstPaint written(
            [&](const QWidget& widget) {
                return &widget == panel().list().viewport() && rowOfTag().isValid() &&
                       panel().model().row(rowOfTag().row()).value == value;
            },
            [&] { end = bench::monotonicSeconds(); });
        QTest::mouseClick(panel().list().viewport(), Qt::LeftButton, {},
                          panel().list().visualRect(rowOfTag()).center());
        waitFor("the new value", [&] { return end.has_value(); });
        measured.writing = *end - begin;
        QTest::qWait(kSettling);
        return measured;
    }

    /// Seconds that the line of the last edit takes without us, with another value.
    double runTool(const QString& value) {
        app::CurrentEdit same = program_.context().currentEdit;
        same.value = value;
        const auto commands = platform::parseCommands(exiftool::writeTagCommand(
            program_.context(), app::commandFormOf(program_.context()), file_, same));
        const fs::path output = program_.context().tempPath / "Plain.txt";
        fs::remove(output);
        const double begin = bench::monotonicSeconds();
        bench::runPlainly(commands.at(0).words, output);
        const double seconds = bench::monotonicSeconds() - begin;
        program_.window().Dispatch(app::command::kRefreshPanel);
        QTest::qWait(kSettling);
        return seconds;
    }

    /// Seconds of one safety copy.
    double copyForSafety() {
        const fs::path folder = program_.context().tempPath / "copies";
        const double begin = bench::monotonicSeconds();
        if (!exiftool::MakeSafetyCopy(file_, folder, {}).isEmpty())
            throw std::runtime_error("no safety copy");
        const double seconds = bench::monotonicSeconds() - begin;
        fs::remove_all(folder);
        return seconds;
    }

 private:
    panel::MetadataPanel& panel() { return program_.window().metadataPanel(); }

    QModelIndex rowOfTag() {
        const panel::MetadataListModel& model = panel().model();
        for (int row = 0; row < model.rowCount(); ++row) {
            if (model.row(row).tag == kTag && model.row(row).group == kGroup)
                return model.index(row, static_cast<int>(tags::PanelColumn::Value));
        }
        return {};
    }

    /// Types the value and presses OK; the moment of it.
    static double confirm(const QString& value) {
        auto* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr) throw std::runtime_error("no dialog");
        auto* field = qobject_cast<QPlainTextEdit*>(dialogs::findControl(*dialog, kTextControl));
        // As typed: a text that is only set counts as untouched.
        field->selectAll();
        field->insertPlainText(value);
        auto* ok = qobject_cast<QAbstractButton*>(dialogs::findControl(*dialog, dialogs::kOkControl));
        const double now = bench::monotonicSeconds();
        ok->click();
        return now;
    }

    window::Program& program_;
    fs::path file_;
};

void measure(EditedWindow& window, int rounds) {
    window.edit(QStringLiteral("First"));
    std::vector<double> tool;
    std::vector<double> opening;
    std::vector<double> writing;
    std::vector<double> added;
    std::vector<double> copy;
    for (int round = 0; round < rounds; ++round) {
        // A B B A: being second must be nobody's advantage.
        const QString name = QStringLiteral("Somebody %1").arg(round);
        if (round % 2 == 0) tool.push_back(window.runTool(name + QStringLiteral(" plainly")));
        const Edit edit = window.edit(name);
        if (round % 2 != 0) tool.push_back(window.runTool(name + QStringLiteral(" plainly")));
        opening.push_back(edit.opening);
        writing.push_back(edit.writing);
        copy.push_back(window.copyForSafety());
        added.push_back(edit.opening + edit.writing - tool.back());
    }
    bench::printMeasurement("tool", bench::median(tool));
    bench::printMeasurement("opening", bench::median(opening));
    bench::printMeasurement("seconds", bench::median(writing));
    bench::printMeasurement("copy", bench::median(copy));
    bench::printMeasurement("added", bench::median(added));
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc != 5) return 2;
    const fs::path install = fs::absolute(argv[1]);
    platform::IniFile settings(install / "cache" / "Tagwright.ini");
    settings.setBoolean("ExifTool", "WarmStart", std::string_view(argv[4]) == "1");
    if (!settings.save()) return 1;
    window::Program program(*qApp, install / "Tagwright");
    if (program.start()) return 1;
    try {
        waitFor("the first folder", [&] { return program.window().activeBrowser().isFolderLoaded(); });
        EditedWindow window(program, argv[2]);
        window.openFile();
        measure(window, std::atoi(argv[3]));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
