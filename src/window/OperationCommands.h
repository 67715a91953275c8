#pragma once

#include "jobs/Job.h"
#include "jobs/Operation.h"
#include "window/CommandMap.h"
#include "window/WindowParts.h"

#include <memory>
#include <optional>

namespace jobs {
class OperationDialog;
}

namespace window {

class BrowseCommands;
class OperationEnding;
class SelectionGathering;

/// Every operation that is data, over the gathered files: a row in the table of its folder is a command here.
/// GUI thread.
class OperationCommands {
 public:
    OperationCommands(const WindowParts& parts, SelectionGathering& gathering, OperationEnding& ending,
                      BrowseCommands& browse)
        : parts_(parts), gathering_(gathering), ending_(ending), browse_(browse) {}

    static std::span<const CommandRow<OperationCommands>> rows();

    /// Of all tables; null when the command is no such operation.
    static const jobs::Operation* find(app::CommandId id);

    void run(app::CommandId id);

 private:
    /// What the dialog leaves to be done, nothing when it was cancelled.
    std::optional<jobs::Job> ask(const jobs::Operation& operation,
                                 const std::vector<std::filesystem::path>& files);
    std::optional<jobs::Job> dispatch(const jobs::Operation& operation,
                                      const std::vector<std::filesystem::path>& files);

    void carryOut(jobs::Job job, bool reportFollows);
    /// Whether files are to get new names: in the corrected form the user sees some of them before.
    bool isWanted(app::CommandId id, const std::vector<std::filesystem::path>& files);
    void tell(const jobs::JobResult& result, bool reportFollows);
    /// Shows once more a dialog that lists what its job has brought.
    void comeBack(const std::shared_ptr<jobs::OperationDialog>& dialog, const jobs::JobEnd& end,
                  bool reportFollows);

    const WindowParts& parts_;
    SelectionGathering& gathering_;
    OperationEnding& ending_;
    BrowseCommands& browse_;
    std::shared_ptr<jobs::OperationDialog> asked_;  ///< of the job that is to begin, where it comes back
};

}  // namespace window
