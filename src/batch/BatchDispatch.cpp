#include "batch/BatchDispatch.h"

#include "jobs/OperationJob.h"

#include <utility>

namespace batch {

namespace fs = std::filesystem;

BatchDispatcher::BatchDispatcher(const BatchParts& parts, OpenBatchDialog openDialog)
    : parts_(parts), openDialog_(std::move(openDialog)) {}

std::optional<jobs::Job> BatchDispatcher::BatchDispatch(app::CommandId id, const jobs::Operation* operation,
                                                        const std::vector<fs::path>& files) {
    options_ = {};
    const BatchOperation* const row = findBatchOperation(id);
    if (row == nullptr || row->isOfWindow || operation == nullptr || files.empty()) return {};
    options_.command = id;
    options_.files = files;
    if (operation->templateNumber == 0)
        return jobs::jobOf(*operation, parts_.language.text(operation->progressText),
                           app::commandFormOf(parts_.context), {}, files, parts_.dictionary);
    if (!openDialog_) return {};
    return openDialog_(*operation, options_);
}

}  // namespace batch
