#pragma once

#include "jobs/Job.h"
#include "window/CommandMap.h"
#include "window/WindowParts.h"

#include <optional>

namespace batch {
struct BatchOperation;
struct BatchOptions;
}  // namespace batch

namespace window {

class OperationEnding;
class SelectionGathering;

/// Commands 146 to 228: the operations of the batch table over the gathered files. GUI thread.
class BatchCommands {
 public:
    BatchCommands(const WindowParts& parts, SelectionGathering& gathering, OperationEnding& ending)
        : parts_(parts), gathering_(gathering), ending_(ending) {}

    static std::span<const CommandRow<BatchCommands>> rows();

    void runBatch(app::CommandId id);

 private:
    /// The dialog of an operation that asks for something: what it leaves to be done, nothing when it was
    /// cancelled.
    std::optional<jobs::Job> openBatchDialog(const batch::BatchOperation& operation,
                                             const batch::BatchOptions& options);

    const WindowParts& parts_;
    SelectionGathering& gathering_;
    OperationEnding& ending_;
};

}  // namespace window
