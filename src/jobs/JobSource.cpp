#include "jobs/JobSource.h"

namespace jobs {

exiftool::Outcomes runHere(const Job& job, const app::AppContext& context, exiftool::ToolRunner& runner) {
    const std::uint8_t copies = runner.safetyCopies().SafetyCopyEnabled;
    if (!job.makesSafetyCopies) runner.safetyCopies().SafetyCopyEnabled = 0;
    JobWork work{.context = context,
                 .form = app::commandFormOf(context),
                 .runner = runner,
                 .stop = {},
                 .fileBegun = [](const std::filesystem::path&) {},
                 .fileEnded = [](const exiftool::Outcome&) {}};
    exiftool::Outcomes outcomes;
    if (job.workOnAll && !job.files.empty()) {
        outcomes = job.workOnAll(work, job.files);
    } else {
        for (const std::filesystem::path& file : job.files) outcomes.push_back(job.workOnFile(work, file));
    }
    runner.safetyCopies().SafetyCopyEnabled = copies;
    outcomes.insert(outcomes.end(), job.leftOut.begin(), job.leftOut.end());
    return outcomes;
}

}  // namespace jobs
