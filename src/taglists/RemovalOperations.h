#pragma once

#include "jobs/Operation.h"

#include <span>

namespace taglists {

/// Removing and copying tags, as far as it needs no list of tags: commands 176, 10062 and 10065.
std::span<const jobs::Operation> operations();

}  // namespace taglists
