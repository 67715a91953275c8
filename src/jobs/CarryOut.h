#pragma once

#include "jobs/Job.h"

namespace jobs {

/// Carries the job out on the calling thread and blocks until that is done. One outcome a file, in the order
/// of the files, then those left out.
///
/// In the corrected form a job that changes contents gets the file behind a symbolic link, and not those that
/// are marked as not to be written, or that would lose what the file system keeps with them and are therefore
/// not to be written; its outcomes carry the names that the job has for the files.
[[nodiscard]] exiftool::Outcomes carryOut(const Job& job, JobWork& work);

}  // namespace jobs
