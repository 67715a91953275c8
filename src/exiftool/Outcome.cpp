#include "exiftool/Outcome.h"

#include <algorithm>

namespace exiftool {

bool isEveryFileDone(std::span<const Outcome> outcomes) {
    return !outcomes.empty() &&
           std::ranges::all_of(
               outcomes, [](OutcomeKind kind) { return kind == OutcomeKind::Done; }, &Outcome::kind);
}

std::size_t countOf(std::span<const Outcome> outcomes, OutcomeKind kind) {
    return static_cast<std::size_t>(std::ranges::count(outcomes, kind, &Outcome::kind));
}

}  // namespace exiftool
