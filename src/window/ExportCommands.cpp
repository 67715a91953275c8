#include "window/ExportCommands.h"

#include "app/TextNumbers.h"
#include "browser/ShellBrowser.h"
#include "dialogs/Messages.h"
#include "exiftool/ValuesExport.h"
#include "jobs/OutcomeText.h"
#include "jobs/ReportText.h"
#include "panel/MetadataPanel.h"
#include "platform/FileCopy.h"
#include "platform/Text.h"
#include "window/BrowseCommands.h"
#include "window/OperationEnding.h"
#include "window/WindowTexts.h"

#include <QCursor>
#include <QMenu>
#include <cstring>

namespace window {

namespace fs = std::filesystem;
using exiftool::Outcome;
using exiftool::OutcomeKind;

namespace {

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
        {kHtmlDump, kHtmlDump, &ExportCommands::dumpFile, &ExportCommands::ifFileSelected},
        {kVerboseDump, kVerboseDump, &ExportCommands::dumpFile, &ExportCommands::ifFileSelected},
        {kExportMenu, kExportMenu, &ExportCommands::showExportMenu, &ExportCommands::ifAnyFile,
         Beside::NoOperation},
        {kFirstExport, kLastExport, &ExportCommands::exportValues, &ExportCommands::ifAnyFile,
         Beside::NoOperation},
    };
    return kRows;
}

CommandState ExportCommands::ifFileSelected(app::CommandId) const {
    return {.enabled = parts_.hasSelectedFile()};
}

CommandState ExportCommands::ifAnyFile(app::CommandId) const {
    return {.enabled = !parts_.panel.file().empty() || parts_.hasSelectedFile()};
}

fs::path ExportCommands::selectedRegularFile() {
    std::error_code error;
    for (const fs::path& file : parts_.activeBrowser().GetSelectedFiles())
        if (fs::is_regular_file(file, error)) return file;
    parts_.tellNothingChosen(app::text::kNoFileSelected);
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
    const int ran = isHtml ? parts_.reads.DumpHtml(file, output) : parts_.reads.DumpVerbose(file, output);
    if (parts_.runner.wasStopped()) {
        tellStopped(file);
        return;
    }
    const std::string fault = parts_.runner.lastFaultOfRead(output);
    if (ran != 0 && hasContent(output) && fault.empty()) {
        browse_.openPath(output);
        return;
    }
    QString told = parts_.language.formatted(text::kNoOutput, {platform::display(file.filename())});
    if (!fault.empty()) told += u'\n' + platform::wide(fault);
    dialogs::showMessage(&parts_.window, {told, dialogs::MessageIcon::Stop});
}

void ExportCommands::showExportMenu(app::CommandId) {
    QMenu menu(&parts_.window);
    QString extension;
    actions_.refresh();
    for (const exiftool::ValuesExport& format : exiftool::valuesExports()) {
        const auto itsExtension =
            QString::fromLatin1(format.extension.data(), qsizetype(format.extension.size()));
        if (!extension.isEmpty() && itsExtension != extension) menu.addSeparator();
        extension = itsExtension;
        controls::CommandAction& command = *actions_.action(format.command);
        menu.addAction(command.makeEntry(command.text(), &menu));
    }
    menu.exec(QCursor::pos());
}

void ExportCommands::exportValues(app::CommandId id) {
    const exiftool::ValuesExport* format = exiftool::findValuesExport(id);
    const fs::path file = parts_.panel.file().empty() ? selectedRegularFile() : parts_.panel.file();
    if (format == nullptr || file.empty()) return;
    const fs::path target = exiftool::exportTarget(file, *format);
    std::error_code error;
    const bool isNew = !fs::exists(fs::symlink_status(target, error));
    const app::CommandForm form = app::commandFormOf(parts_.context);
    // Its complaints go to the report, which is the running operation's.
    if (!ending_.isReadyToBegin()) return;
    if (!isNew && !clearTheWay(form, target)) return;
    const Outcome outcome = form == app::CommandForm::Corrected ? exportByWayOfTemp(file, target, *format)
                                                                : exportStraight(form, file, target, *format);
    const bool isAdded = exiftool::isWritten(outcome.kind) && isNew;
    if (isAdded && target.parent_path() == parts_.activeBrowser().currentFolder())
        parts_.activeBrowser().AddItem(platform::narrow(target.filename()));
    tellExported(outcome, target);
}

void ExportCommands::tellExported(const Outcome& outcome, const fs::path& target) {
    // ExifTool had something to say about a file that it wrote all the same.
    if (outcome.kind == OutcomeKind::Warned) ending_.ShowBatchReport({{}, {outcome}, false, false});
    const QString name = platform::display(target);
    if (exiftool::isWritten(outcome.kind))
        parts_.showStatus(parts_.language.formatted(text::kExported, {name}));
    else if (outcome.kind == OutcomeKind::Stopped)
        tellStopped(outcome.file);
    else
        dialogs::showMessage(
            &parts_.window,
            {outcome.words.empty()
                 ? parts_.language.formatted(text::kExportEmpty, {name})
                 : parts_.language.formatted(text::kExportNotWritten, {name, platform::wide(outcome.words)}),
             dialogs::MessageIcon::Stop});
}

void ExportCommands::tellStopped(const fs::path& file) {
    const QString stopped = jobs::wordsOf(parts_.language, {file, OutcomeKind::Stopped, {}});
    parts_.showStatus(platform::display(file.filename()) + QStringLiteral(": ") + stopped);
}

bool ExportCommands::clearTheWay(app::CommandForm form, const fs::path& target) {
    if (form == app::CommandForm::Designed) {
        std::error_code error;
        if (!fs::is_directory(target, error)) fs::remove(target, error);
        return true;
    }
    const dialogs::Message question{
        parts_.language.formatted(text::kReplaceQuestion, {platform::display(target.filename())}),
        dialogs::MessageIcon::Question, QStringLiteral("Tagwright"), QMessageBox::Yes | QMessageBox::No};
    return dialogs::showMessage(&parts_.window, question) == QMessageBox::Yes;
}

Outcome ExportCommands::exportStraight(app::CommandForm form, const fs::path& file, const fs::path& target,
                                       const exiftool::ValuesExport& format) {
    const int ran = parts_.reads.ExportValues(exiftool::exportFileWord(file),
                                              exiftool::exportOutputWord(parts_.context, form, target),
                                              platform::CommandText(format.arguments));
    const std::string fault = parts_.runner.lastFaultOfRead(target);
    if (ran != 0 && fault.empty() && hasContent(target)) {
        const std::string words = jobs::reportBeginning(parts_.context);
        return {file, words.empty() ? OutcomeKind::Done : OutcomeKind::Warned, words};
    }
    std::error_code ignored;
    if (fs::symlink_status(target, ignored).type() == fs::file_type::regular) fs::remove(target, ignored);
    const OutcomeKind end = parts_.runner.lastEnd();
    return {file, end == OutcomeKind::Done ? OutcomeKind::Failed : end, fault};
}

Outcome ExportCommands::exportByWayOfTemp(const fs::path& file, const fs::path& target,
                                          const exiftool::ValuesExport& format) {
    const fs::path output = parts_.context.tempPath / "Export.tmp";
    std::error_code error;
    fs::remove(output, error);
    Outcome outcome = exportStraight(app::CommandForm::Corrected, file, output, format);
    if (!exiftool::isWritten(outcome.kind)) return outcome;
    const int failure = platform::copyFile(output, target);
    fs::remove(output, error);
    if (failure != 0) return {file, OutcomeKind::Failed, platform::narrow(reasonOf(failure))};
    return outcome;
}

}  // namespace window
