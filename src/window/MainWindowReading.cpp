#include "app/TextNumbers.h"
#include "browser/ShellBrowser.h"
#include "controls/Icons.h"
#include "dialogs/Messages.h"
#include "exiftool/ReportFile.h"
#include "exiftool/ValuesExport.h"
#include "panel/MetadataPanel.h"
#include "platform/FileCopy.h"
#include "platform/Text.h"
#include "window/MainWindow.h"
#include "window/MainWindowFeedback.h"

#include <QCursor>
#include <QMenu>
#include <cstring>

// What is read out of the file shown, written to another one and opened or left there.
namespace window {

namespace fs = std::filesystem;

namespace {

constexpr int kNoOutput = 82500;          ///< "%s" is the file
constexpr int kReplaceQuestion = 82501;   ///< "%s" is the file that is there
constexpr int kExportNotWritten = 82502;  ///< "%s" is the file to be, "%s" the reason
constexpr int kExported = 82503;          ///< "%s" is the file
constexpr int kExportEmpty = 82504;       ///< "%s" is the file

/// A name leaves room for an extension of this program.
constexpr std::size_t kLongestStem = 240;

bool hasContent(const fs::path& file) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(file, error);
    return !error && size > 0;
}

QString reasonOf(int error) {
    return QString::fromLocal8Bit(std::strerror(error));
}

}  // namespace

fs::path MainWindow::selectedRegularFile() {
    std::error_code error;
    for (const fs::path& file : activeBrowser().GetSelectedFiles())
        if (fs::is_regular_file(file, error)) return file;
    dialogs::showMessage(this,
                         {language_.text(app::text::kNoFileSelected), dialogs::MessageIcon::Information});
    return {};
}

void MainWindow::dumpFile(app::CommandId id) {
    const fs::path file = selectedRegularFile();
    if (file.empty()) return;
    const bool isHtml = id == app::command::kHtmlDump;
    fs::path output = context_.tempPath / platform::narrow(file.stem()).substr(0, kLongestStem);
    output += isHtml ? ".htm" : ".txt";
    std::error_code error;
    fs::remove(output, error);
    feedback_->showReading(file);
    const int ran = isHtml ? readCommands_.DumpHtml(file, output) : readCommands_.DumpVerbose(file, output);
    feedback_->hideProgress();
    if (ran != 0 && hasContent(output))
        openPath(output);
    else if (!runner_.wasStopped())
        dialogs::showMessage(this, {language_.formatted(kNoOutput, {platform::display(file.filename())}),
                                    dialogs::MessageIcon::Stop});
}

void MainWindow::showExportMenu(app::CommandId) {
    QMenu menu(this);
    QString extension;
    for (const exiftool::ValuesExport& format : exiftool::valuesExports()) {
        const app::Command* entry = app::findCommand(format.command);
        const auto itsExtension =
            QString::fromLatin1(format.extension.data(), qsizetype(format.extension.size()));
        if (!extension.isEmpty() && itsExtension != extension) menu.addSeparator();
        extension = itsExtension;
        QAction* action = menu.addAction(controls::icon(QString::fromLatin1(entry->iconName)),
                                         language_.text(entry->textNumber));
        action->setData(format.command);
    }
    const QAction* chosen = menu.exec(QCursor::pos());
    if (chosen != nullptr) exportValues(chosen->data().toInt());
}

void MainWindow::exportValues(app::CommandId id) {
    const exiftool::ValuesExport* format = exiftool::findValuesExport(id);
    const fs::path file = metadataPanel_->file().empty() ? selectedRegularFile() : metadataPanel_->file();
    if (format == nullptr || file.empty()) return;
    const fs::path target = exiftool::exportTarget(file, *format);
    std::error_code error;
    const bool isNew = !fs::exists(fs::symlink_status(target, error));
    if (!isNew && !clearTheWay(target)) return;
    static_cast<void>(runner_.takeUntold());
    static_cast<void>(exiftool::deleteReport(context_));
    feedback_->showReading(file);
    const QString problem = context_.settings.exifTool.correctedCommands
                                ? exportByWayOfTemp(file, target, *format)
                                : exportStraight(file, target, *format);
    feedback_->hideProgress();
    if (runner_.wasStopped()) return;
    if (!problem.isEmpty()) {
        dialogs::showMessage(this, {problem, dialogs::MessageIcon::Stop});
        return;
    }
    if (isNew && target.parent_path() == activeBrowser().currentFolder())
        activeBrowser().AddItem(platform::narrow(target.filename()));
    ShowBatchReport();
    showStatus(language_.formatted(kExported, {platform::display(target)}));
}

/// The designed form deletes what stands in the target's place; the corrected one asks, and replaces it when
/// the new content is there.
bool MainWindow::clearTheWay(const fs::path& target) {
    if (!context_.settings.exifTool.correctedCommands) {
        std::error_code error;
        if (!fs::is_directory(target, error)) fs::remove(target, error);
        return true;
    }
    const dialogs::Message question{
        language_.formatted(kReplaceQuestion, {platform::display(target.filename())}),
        dialogs::MessageIcon::Question, QStringLiteral("Tagwright"), QMessageBox::Yes | QMessageBox::No};
    return dialogs::showMessage(this, question) == QMessageBox::Yes;
}

QString MainWindow::exportStraight(const fs::path& file, const fs::path& target,
                                   const exiftool::ValuesExport& format) {
    if (readCommands_.ExportValues(exiftool::exportFileWord(file),
                                   exiftool::exportOutputWord(context_, target),
                                   platform::CommandText(format.arguments)) == 0)
        return language_.formatted(kExportEmpty, {platform::display(target)});
    return {};
}

QString MainWindow::exportByWayOfTemp(const fs::path& file, const fs::path& target,
                                      const exiftool::ValuesExport& format) {
    const fs::path output = context_.tempPath / "Export.tmp";
    std::error_code error;
    fs::remove(output, error);
    if (!exportStraight(file, output, format).isEmpty() || !hasContent(output))
        return language_.formatted(kExportEmpty, {platform::display(target)});
    const int failure = platform::copyFile(output, target);
    fs::remove(output, error);
    if (failure == 0) return {};
    return language_.formatted(kExportNotWritten, {platform::display(target), reasonOf(failure)});
}

void MainWindow::openAddress(app::CommandId) {
    metadataPanel_->openAddress();
}

void MainWindow::applyItemStates(app::CommandId) {
    activeBrowser().applySettings();
}

}  // namespace window
