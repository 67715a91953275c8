#pragma once

#include "app/CommandTable.h"

#include <functional>
#include <ostream>

namespace inspect {

/// The tag dictionary as TSV, in table order: id name tableId group groupIndex valueKind writable categoryId.
void reportDictionary(std::ostream& output);

/// The group catalogue as TSV: position groupId key image gate counted. gate is the settings key that hides
/// the group or "-"; counted is 0 for the groups whose rows are dropped.
void reportCatalogue(std::ostream& output);

/// The command table as TSV, by ascending id: id name needsSelection built. The last two are 0 or 1; isBuilt
/// says which commands have a handler.
void reportCommands(std::ostream& output, const std::function<bool(app::CommandId)>& isBuilt);

}  // namespace inspect
