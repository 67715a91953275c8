#pragma once

#include "jobs/Job.h"

#include <optional>

namespace jobs {

/// Files of a job that all get the same arguments: carried out by ExifTool sessions, one for each processor,
/// with a safety copy of each file before it where they are on. What is written is what the line of each file
/// would write; a file for which there is no line is told as its composing has it. Files that a stop has
/// kept from being composed have no outcome. For the corrected form; the designed one runs its lines.
///
/// Nothing, and nothing is done, where the lines differ in more than the file, are not of a shape that a
/// session takes, or read from one of the files.
[[nodiscard]] std::optional<exiftool::Outcomes> writeSameToAll(
    const Job& job, const std::vector<std::filesystem::path>& files, JobWork& work);

}  // namespace jobs
