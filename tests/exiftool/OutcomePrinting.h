#pragma once

#include "exiftool/Outcome.h"

#include <ostream>

/// How failures of tests show outcomes.
namespace exiftool {

inline void PrintTo(OutcomeKind kind, std::ostream* stream) {
    constexpr const char* kNames[] = {"Done",   "Unchanged", "Warned",     "Failed",
                                      "Killed", "Stopped",   "NotStarted", "NotBegun"};
    *stream << kNames[static_cast<int>(kind)];
}

inline void PrintTo(const Outcome& outcome, std::ostream* stream) {
    PrintTo(outcome.kind, stream);
    *stream << ' ' << outcome.file << ": " << outcome.words;
}

}  // namespace exiftool
