#include "window/OperationCommands.h"

#include "batch/BatchDispatch.h"
#include "batch/BatchOperations.h"
#include "browser/ShellBrowser.h"
#include "jobs/OperationDialog.h"
#include "jobs/OutcomeText.h"
#include "payload/ThumbnailOperations.h"
#include "taglists/RemovalOperations.h"
#include "window/BrowseCommands.h"
#include "window/OperationEnding.h"
#include "window/SelectionGathering.h"

#include <utility>

namespace window {

namespace fs = std::filesystem;

namespace {

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
    const bool reportFollows = row == nullptr || row->reportFollows;
    const auto atEnd = std::exchange(job->atEnd, {});
    ending_.carryOut(std::move(*job), [this, reportFollows, atEnd](const jobs::JobResult& result) {
        tell(result, reportFollows);
        if (atEnd && !result.isClosing && jobs::hasBroughtAnything(result))
            atEnd({result, parts_.context, parts_.language, &parts_.window,
                   [this](const fs::path& file) { browse_.openPath(file); }});
    });
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
    jobs::OperationDialog dialog(parts_.operations, operation, files, &parts_.window);
    if (dialog.run() == 0) return std::nullopt;
    return dialog.takeJob();
}

}  // namespace window
