#pragma once

#include "jobs/Job.h"

namespace jobs {

/// Work over files that all get the same arguments: carried out by ExifTool sessions, one for each processor,
/// with a safety copy of each file before it where they are on. What is written is what the line of each file
/// would write. For the corrected form; the designed one runs its lines.
[[nodiscard]] exiftool::Outcomes writeSameToAll(const ComposeLine& compose, JobWork& work,
                                                const std::vector<std::filesystem::path>& files);

}  // namespace jobs
