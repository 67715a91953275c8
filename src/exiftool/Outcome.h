#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace exiftool {

/// How the work on one file ended. Only Done means that the file now is what was asked for; whatever is told
/// to the user is made from these and from nothing else.
enum class OutcomeKind {
    Done,        ///< written, and the tool had nothing to complain of
    Unchanged,   ///< the tool found nothing to change; the file is as it was
    Warned,      ///< written, with a complaint
    Failed,      ///< not written: the tool refused, or gave no account of what it did
    Killed,      ///< the tool was ended by a signal that was not ours
    Stopped,     ///< ended because the user did not want to wait
    NotStarted,  ///< the tool could not be started, or the command not be written
    NotBegun,    ///< an operation ended before this file's turn
};

/// words: what the tool said, or else why it could not, in UTF-8 and possibly several lines; empty for most
/// that are done.
struct [[nodiscard]] Outcome {
    std::filesystem::path file;
    OutcomeKind kind = OutcomeKind::NotBegun;
    std::string words;

    bool operator==(const Outcome&) const = default;
};

/// In the order of the files.
using Outcomes = std::vector<Outcome>;

/// Done or done with warnings.
[[nodiscard]] constexpr bool isWritten(OutcomeKind kind) {
    return kind == OutcomeKind::Done || kind == OutcomeKind::Warned;
}

/// The only case in which success is told. False for no outcomes at all.
[[nodiscard]] bool isEveryFileDone(std::span<const Outcome> outcomes);

[[nodiscard]] std::size_t countOf(std::span<const Outcome> outcomes, OutcomeKind kind);

}  // namespace exiftool
