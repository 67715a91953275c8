#pragma once

#include "exiftool/Outcome.h"
#include "platform/CommandText.h"

#include <optional>
#include <string>
#include <utility>

namespace jobs {

/// The line of a file, or what is told of the file in the place of a run: passed over, or why it could not be
/// begun.
struct Composed {
    Composed(platform::CommandText composed) : text(std::move(composed)) {}  // NOLINT: a text is a line
    Composed(exiftool::OutcomeKind kind, std::string words) : instead(kind), words(std::move(words)) {}

    platform::CommandText text{};
    std::optional<exiftool::OutcomeKind> instead{};
    std::string words{};
};

}  // namespace jobs
