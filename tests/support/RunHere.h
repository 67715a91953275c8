#pragma once

#include "jobs/CarryOut.h"

namespace support {

enum class Sessions { No, WhereTheyCan };

/// Carries the job out on the calling thread; without sessions, which know no wait that ends, file after
/// file. The context outlives the call.
[[nodiscard]] inline exiftool::Outcomes runHere(jobs::Job job, const app::AppContext& context,
                                                exiftool::ToolRunner& runner,
                                                Sessions sessions = Sessions::No) {
    if (sessions == Sessions::No) job.lineOf = {};
    const std::uint8_t copies = runner.safetyCopies().SafetyCopyEnabled;
    if (!job.makesSafetyCopies) runner.safetyCopies().SafetyCopyEnabled = 0;
    jobs::JobWork work{.context = context,
                       .form = app::commandFormOf(context),
                       .runner = runner,
                       .stop = {},
                       .fileBegun = [](const std::filesystem::path&) {},
                       .fileEnded = [](const exiftool::Outcome&) {}};
    exiftool::Outcomes outcomes = jobs::carryOut(job, work);
    runner.safetyCopies().SafetyCopyEnabled = copies;
    return outcomes;
}

}  // namespace support
