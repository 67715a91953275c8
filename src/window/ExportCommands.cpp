#include "window/ExportCommands.h"

#include "app/TextNumbers.h"
#include "browser/ShellBrowser.h"
#include "controls/Icons.h"
#include "dialogs/Messages.h"
#include "exiftool/ReportFile.h"
#include "exiftool/ValuesExport.h"
#include "panel/MetadataPanel.h"
#include "platform/FileCopy.h"
#include "platform/Text.h"
#include "window/BrowseCommands.h"
#include "window/OperationEnding.h"
#include "window/WindowFeedback.h"

#include <QCursor>
#include <QMenu>
#include <cstring>

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

std::span<const CommandRow<ExportCommands>> ExportCommands::rows() {
    using namespace app::command;
    static constexpr CommandRow<ExportCommands> kRows[] = {
        {kHtmlDump, kHtmlDump, &ExportCommands::dumpFile},
        {kVerboseDump, kVerboseDump, &ExportCommands::dumpFile},
        {kExportMenu, kExportMenu, &ExportCommands::showExportMenu},
        {kFirstExport, kLastExport, &ExportCommands::exportValues},
    };
    return kRows;
}

fs::path ExportCommands::selectedRegularFile() {
    std::error_code error;
    for (const fs::path& file : parts_.activeBrowser().GetSelectedFiles())
        if (fs::is_regular_file(file, error)) return file;
    dialogs::showMessage(&parts_.window, {parts_.language.text(app::text::kNoFileSelected),
                                          dialogs::MessageIcon::Information});
    return {};
}

void ExportCommands::dumpFile(app::CommandId id) {
    const fs::path file = selectedRegularFile();
    if (file.empty()) return;
    const bool isHtml = id == app::command::kHtmlDump;
    fs::path output = parts_.context.tempPath / platform::narrow(file.stem()).substr(0, kLongestStem);
    output += isHtml ? ".htm" : ".txt";
    std::error_code error;
    fs::remove(output, error);
    parts_.feedback.showReading(file);
    const int ran = isHtml ? parts_.reads.DumpHtml(file, output) : parts_.reads.DumpVerbose(file, output);
    parts_.feedback.hideProgress();
    if (ran != 0 && hasContent(output))
        browse_.openPath(output);
    else if (!parts_.runner.wasStopped())
        dialogs::showMessage(&parts_.window,
                             {parts_.language.formatted(kNoOutput, {platform::display(file.filename())}),
                              dialogs::MessageIcon::Stop});
}

void ExportCommands::showExportMenu(app::CommandId) {
    QMenu menu(&parts_.window);
    QString extension;
    for (const exiftool::ValuesExport& format : exiftool::valuesExports()) {
        const app::Command* entry = app::findCommand(format.command);
        const auto itsExtension =
            QString::fromLatin1(format.extension.data(), qsizetype(format.extension.size()));
        if (!extension.isEmpty() && itsExtension != extension) menu.addSeparator();
        extension = itsExtension;
        QAction* action = menu.addAction(controls::icon(QString::fromLatin1(entry->iconName)),
                                         parts_.language.text(entry->textNumber));
        action->setData(format.command);
    }
    const QAction* chosen = menu.exec(QCursor::pos());
    if (chosen != nullptr) exportValues(chosen->data().toInt());
}

void ExportCommands::exportValues(app::CommandId id) {
    const exiftool::ValuesExport* format = exiftool::findValuesExport(id);
    const fs::path file = parts_.panel.file().empty() ? selectedRegularFile() : parts_.panel.file();
    if (format == nullptr || file.empty()) return;
    const fs::path target = exiftool::exportTarget(file, *format);
    std::error_code error;
    const bool isNew = !fs::exists(fs::symlink_status(target, error));
    if (!isNew && !clearTheWay(target)) return;
    static_cast<void>(parts_.runner.takeUntold());
    static_cast<void>(exiftool::deleteReport(parts_.context));
    parts_.feedback.showReading(file);
    const QString problem = parts_.context.settings.exifTool.correctedCommands
                                ? exportByWayOfTemp(file, target, *format)
                                : exportStraight(file, target, *format);
    parts_.feedback.hideProgress();
    if (parts_.runner.wasStopped()) return;
    if (!problem.isEmpty()) {
        dialogs::showMessage(&parts_.window, {problem, dialogs::MessageIcon::Stop});
        return;
    }
    if (isNew && target.parent_path() == parts_.activeBrowser().currentFolder())
        parts_.activeBrowser().AddItem(platform::narrow(target.filename()));
    ending_.ShowBatchReport();
    parts_.showStatus(parts_.language.formatted(kExported, {platform::display(target)}));
}

bool ExportCommands::clearTheWay(const fs::path& target) {
    if (!parts_.context.settings.exifTool.correctedCommands) {
        std::error_code error;
        if (!fs::is_directory(target, error)) fs::remove(target, error);
        return true;
    }
    const dialogs::Message question{
        parts_.language.formatted(kReplaceQuestion, {platform::display(target.filename())}),
        dialogs::MessageIcon::Question, QStringLiteral("Tagwright"), QMessageBox::Yes | QMessageBox::No};
    return dialogs::showMessage(&parts_.window, question) == QMessageBox::Yes;
}

QString ExportCommands::exportStraight(const fs::path& file, const fs::path& target,
                                       const exiftool::ValuesExport& format) {
    if (parts_.reads.ExportValues(exiftool::exportFileWord(file),
                                  exiftool::exportOutputWord(parts_.context, target),
                                  platform::CommandText(format.arguments)) == 0)
        return parts_.language.formatted(kExportEmpty, {platform::display(target)});
    return {};
}

QString ExportCommands::exportByWayOfTemp(const fs::path& file, const fs::path& target,
                                          const exiftool::ValuesExport& format) {
    const fs::path output = parts_.context.tempPath / "Export.tmp";
    std::error_code error;
    fs::remove(output, error);
    if (!exportStraight(file, output, format).isEmpty() || !hasContent(output))
        return parts_.language.formatted(kExportEmpty, {platform::display(target)});
    const int failure = platform::copyFile(output, target);
    fs::remove(output, error);
    if (failure == 0) return {};
    return parts_.language.formatted(kExportNotWritten, {platform::display(target), reasonOf(failure)});
}

}  // namespace window
