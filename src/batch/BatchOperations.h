#pragma once

#include "jobs/Operation.h"

#include <span>

namespace batch {

/// The operations of the batch table that are built, but those that write embedded data.
std::span<const jobs::Operation> operations();

}  // namespace batch
