#pragma once

#include "jobs/Operation.h"

#include <span>

namespace payload {

/// Command 183: a JPEG becomes the thumbnail of all files of a selection.
std::span<const jobs::Operation> operations();

}  // namespace payload
