#pragma once

#include "app/CommandTable.h"

#include <span>

namespace batch {

inline constexpr app::CommandId kFirstBatchCommand = 146;
inline constexpr app::CommandId kLastBatchCommand = 228;

/// An operation over the gathered files. One whose command the window does not handle yet is shown nowhere
/// and never dispatched.
struct BatchOperation {
    app::CommandId id;
    const char* dialog;         ///< that asks for the parameters; empty: nothing is asked
    int templateNumber;         ///< of the dialog where it is fixed, else 0
    bool reportFollows = true;  ///< ShowBatchReport comes after it
    bool isOfWindow = false;    ///< the window has an entry of its own for the command, and that one runs
};

/// All, by ascending id.
std::span<const BatchOperation> batchTable();

/// Null when the command is no batch operation.
const BatchOperation* findBatchOperation(app::CommandId id);

}  // namespace batch
