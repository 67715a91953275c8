#include "window/OperationCommands.h"

#include "batch/BatchDispatch.h"
#include "batch/BatchLines.h"
#include "batch/BatchOperations.h"
#include "batch/BatchTexts.h"
#include "browser/ShellBrowser.h"
#include "dialogs/Messages.h"
#include "jobs/OperationDialog.h"
#include "jobs/OutcomeText.h"
#include "payload/ThumbnailOperations.h"
#include "platform/Text.h"
#include "taglists/RemovalOperations.h"
#include "taglists/RemovalTexts.h"
#include "window/BrowseCommands.h"
#include "window/OperationEnding.h"
#include "window/SelectionGathering.h"

#include <algorithm>
#include <utility>

namespace window {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kNamesTold = 3;

const std::vector<const jobs::Operation*>& allOperations() {
    static const std::vector<const jobs::Operation*> all = [] {
        std::vector<const jobs::Operation*> collected;
        for (const auto& table : {batch::operations(), payload::operations(), taglists::operations()})
            for (const jobs::Operation& operation : table) collected.push_back(&operation);
        return collected;
    }();
    return all;
}

}  // namespace

std::span<const CommandRow<OperationCommands>> OperationCommands::rows() {
    static const std::vector<CommandRow<OperationCommands>> all = [] {
        std::vector<CommandRow<OperationCommands>> collected;
        for (const jobs::Operation* operation : allOperations())
            collected.push_back(
                {operation->id, operation->id, &OperationCommands::run, nullptr, Beside::NoOperation});
        return collected;
    }();
    return all;
}

const jobs::Operation* OperationCommands::find(app::CommandId id) {
    for (const jobs::Operation* operation : allOperations())
        if (operation->id == id) return operation;
    return nullptr;
}

void OperationCommands::run(app::CommandId id) {
    const jobs::Operation* const operation = find(id);
    if (operation == nullptr) return;
    const bool choosesFiles = operation->chooseFiles != nullptr;
    if (choosesFiles && !ending_.isReadyToBegin()) return;
    const std::vector<fs::path> files =
        choosesFiles ? parts_.activeBrowser().GetSelectedFiles() : gathering_.GatherSelection();
    if (!choosesFiles && files.empty()) return;
    const batch::BatchOperation* const row = batch::findBatchOperation(id);
    std::optional<jobs::Job> job =
        row != nullptr && !choosesFiles ? dispatch(*operation, files) : ask(*operation, files);
    if (!job) {
        ending_.showReportBeginning();
        return;
    }
    if (!isWanted(id, files)) return;
    carryOut(std::move(*job), row == nullptr || row->reportFollows);
}

void OperationCommands::carryOut(jobs::Job job, bool reportFollows) {
    const auto atEnd = std::exchange(job.atEnd, {});
    const auto dialog = std::exchange(asked_, nullptr);
    ending_.carryOut(std::move(job), [this, reportFollows, atEnd, dialog](const jobs::JobResult& result) {
        tell(result, reportFollows);
        if (result.isClosing) return;
        const jobs::JobEnd end{result, parts_.context, parts_.language, &parts_.window,
                               [this](const fs::path& file) { browse_.openPath(file); }};
        if (atEnd && jobs::hasBroughtAnything(result)) atEnd(end);
        if (dialog) comeBack(dialog, end, reportFollows);
    });
}

void OperationCommands::comeBack(const std::shared_ptr<jobs::OperationDialog>& dialog,
                                 const jobs::JobEnd& end, bool reportFollows) {
    const std::vector<fs::path> found = dialog->showResults(end);
    if (!found.empty()) parts_.activeBrowser().readAgain(found);
    if (dialog->run() == 0 || !ending_.isReadyToBegin()) return;
    asked_ = dialog;
    carryOut(dialog->takeJob(), reportFollows);
}

bool OperationCommands::isWanted(app::CommandId id, const std::vector<fs::path>& files) {
    const bool isByDate =
        id == app::command::kRenameByDateAndMake || id == app::command::kRenameByDateAndModel;
    if (!isByDate || app::commandFormOf(parts_.context) == app::CommandForm::Designed) return true;
    const auto part =
        id == app::command::kRenameByDateAndMake ? batch::CameraPart::Make : batch::CameraPart::Model;
    const std::vector<fs::path> first(
        files.begin(), files.begin() + static_cast<std::ptrdiff_t>(std::min(files.size(), kNamesTold)));
    const exiftool::ReadRun run =
        parts_.runner.runReadLine(first, batch::toldNamesLine(parts_.context, part, first));
    QStringList names;
    for (const batch::ToldName& name : batch::toldNames(run.printed))
        names << parts_.language.formatted(batch::text::kBecomes,
                                           {platform::wide(name.before), platform::wide(name.after)});
    if (names.isEmpty()) names << parts_.language.text(batch::text::kNoNewNames);
    return dialogs::showMessage(&parts_.window,
                                {.text = parts_.language.formatted(
                                     batch::text::kRenameQuestion,
                                     {jobs::filesText(parts_.language, files.size()), names.join(u'\n')}),
                                 .icon = dialogs::MessageIcon::Question,
                                 .buttons = QMessageBox::Yes | QMessageBox::No}) == QMessageBox::Yes;
}

void OperationCommands::tell(const jobs::JobResult& result, bool reportFollows) {
    if (jobs::isReportDue(result, !reportFollows))
        ending_.ShowBatchReport(result);
    else
        parts_.showStatus(jobs::summaryOf(parts_.language, result));
}

std::optional<jobs::Job> OperationCommands::dispatch(const jobs::Operation& operation,
                                                     const std::vector<fs::path>& files) {
    batch::BatchDispatcher dispatcher({parts_.context, parts_.language, parts_.dictionary},
                                      [this](const jobs::Operation& asking, batch::BatchOptions& options) {
                                          return ask(asking, options.files);
                                      });
    return dispatcher.BatchDispatch(operation.id, &operation, files);
}

std::optional<jobs::Job> OperationCommands::ask(const jobs::Operation& operation,
                                                const std::vector<fs::path>& files) {
    const auto dialog =
        std::make_shared<jobs::OperationDialog>(parts_.operations, operation, files, &parts_.window);
    if (dialog->run() == 0) return std::nullopt;
    if (dialog->comesBack()) asked_ = dialog;
    return dialog->takeJob();
}

}  // namespace window
