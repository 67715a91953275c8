#pragma once

#include "jobs/Operation.h"

#include <span>
#include <string_view>
#include <vector>

namespace jobs {

/// The classes of the controls that can hold what a field of the kind is filled with, as forms name them. A
/// control of another class would be read as empty or 0, and that be written.
std::span<const std::string_view> controlClasses(FieldKind kind);

/// Every control that the operation uses, and what it has to be.
struct NeededControl {
    int control;
    std::span<const std::string_view> classes;  ///< none: any
};
std::vector<NeededControl> neededControls(const Operation& operation);

}  // namespace jobs
