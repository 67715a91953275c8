#include "jobs/CarryOut.h"

#include "app/SpokenText.h"
#include "exiftool/OutcomeJudge.h"
#include "exiftool/ReportFile.h"
#include "jobs/JobTexts.h"
#include "jobs/SameForAll.h"
#include "platform/FileBelongings.h"
#include "platform/Text.h"

#include <algorithm>
#include <cerrno>
#include <map>
#include <utility>

namespace jobs {

namespace fs = std::filesystem;
using exiftool::Outcome;
using exiftool::OutcomeKind;
using exiftool::Outcomes;

namespace {

/// The files of a job as they are written.
struct Admitted {
    std::vector<fs::path> named;  ///< as the job has them
    std::vector<fs::path> files;  ///< the same, behind their links
    std::map<fs::path, fs::path> nameBehindLink;
    Outcomes refused;

    const fs::path& nameOf(const fs::path& file) const {
        const auto found = nameBehindLink.find(file);
        return found == nameBehindLink.end() ? file : found->second;
    }
};

std::string refusalOf(const fs::path& file) {
    const std::error_code why = platform::checkRewritable(file);
    if (!why) return {};
    return "Error: " + (why.value() == EPERM
                            ? app::spokenText(text::kMarkedReadOnly)
                            : app::spokenText(text::kMayNotBeWritten, {platform::wide(why.message())}));
}

/// Asks where something would be lost.
std::string refusalForLosses(const JobWork& work, const fs::path& named, const fs::path& file) {
    const platform::FileLosses losses = platform::FileBelongings(file).losses();
    if (!losses.any()) return {};
    const QString lost = platform::wide(exiftool::wordsOfLosses(losses));
    const std::string question = app::spokenText(text::kLossQuestion, {platform::display(named), lost});
    if (!work.writeAnyway || work.writeAnyway(platform::wide(question))) return {};
    return "Error: " + app::spokenText(text::kWouldLose, {lost});
}

Admitted admit(const Job& job, const JobWork& work) {
    Admitted admitted;
    const bool isGuarded = work.form == app::CommandForm::Corrected && job.changes == Changes::Contents;
    for (const fs::path& named : job.files) {
        fs::path file = isGuarded ? platform::behindLink(named) : named;
        std::string refusal = isGuarded ? refusalOf(file) : std::string();
        if (isGuarded && refusal.empty()) refusal = refusalForLosses(work, named, file);
        if (!refusal.empty()) {
            refusal += " - " + platform::narrow(named);
            admitted.refused.push_back({named, OutcomeKind::Failed, refusal});
            continue;
        }
        if (file != named) admitted.nameBehindLink.emplace(file, named);
        admitted.named.push_back(named);
        admitted.files.push_back(std::move(file));
    }
    return admitted;
}

/// One outcome a file in the files' order, whatever order and gaps the work has left.
Outcomes inOrder(const std::vector<fs::path>& files, Outcomes outcomes) {
    Outcomes ordered;
    ordered.reserve(files.size());
    std::vector<bool> taken(outcomes.size());
    std::size_t next = 0;
    for (const fs::path& file : files) {
        std::size_t found = outcomes.size();
        for (std::size_t step = 0; step < outcomes.size() && found == outcomes.size(); ++step) {
            const std::size_t at = (next + step) % outcomes.size();
            if (!taken[at] && outcomes[at].file == file) found = at;
        }
        if (found == outcomes.size()) {
            ordered.push_back({file, OutcomeKind::NotBegun, {}});
            continue;
        }
        taken[found] = true;
        next = found + 1;
        ordered.push_back(std::move(outcomes[found]));
    }
    return ordered;
}

Outcomes workOnEach(const Job& job, const std::vector<fs::path>& files, JobWork& work) {
    Outcomes outcomes;
    bool isStopped = false;
    for (const fs::path& file : files) {
        if (isStopped || work.stop.stop_requested()) {
            outcomes.push_back({file, OutcomeKind::NotBegun, {}});
            continue;
        }
        work.fileBegun(file);
        Outcome outcome = job.workOnFile(work, file);
        outcome.file = file;
        // Who does not want to wait for one file has had enough of all.
        isStopped = outcome.kind == OutcomeKind::Stopped;
        work.fileEnded(outcome);
        outcomes.push_back(std::move(outcome));
    }
    return outcomes;
}

Outcomes workOn(const Job& job, const std::vector<fs::path>& files, JobWork& work) {
    if (files.empty()) return {};
    if (job.workOnAll) return job.workOnAll(work, files);
    if (job.lineOf && work.form == app::CommandForm::Corrected && files.size() > 1) {
        if (std::optional<Outcomes> outcomes = writeSameToAll(job, files, work)) return std::move(*outcomes);
    }
    return workOnEach(job, files, work);
}

/// The work hears and tells of the files behind the links; whoever waits knows the links.
Outcomes workUnderNames(const Job& job, const Admitted& admitted, JobWork& work) {
    const auto begun = work.fileBegun;
    const auto ended = work.fileEnded;
    work.fileBegun = [&](const fs::path& file) { begun(admitted.nameOf(file)); };
    work.fileEnded = [&](const Outcome& outcome) {
        Outcome named = outcome;
        named.file = admitted.nameOf(outcome.file);
        ended(named);
    };
    Outcomes outcomes = inOrder(admitted.files, workOn(job, admitted.files, work));
    if (job.judgeAgain && work.form == app::CommandForm::Corrected && !work.cut.stop_requested())
        job.judgeAgain(work, outcomes);
    work.fileBegun = begun;
    work.fileEnded = ended;
    for (std::size_t at = 0; at < outcomes.size(); ++at) outcomes[at].file = admitted.named[at];
    return outcomes;
}

}  // namespace

Outcomes carryOut(const Job& job, JobWork& work) {
    const Admitted admitted = admit(job, work);
    for (const Outcome& refused : admitted.refused) {
        work.fileBegun(refused.file);
        // Where the report cannot be written the outcome still tells it.
        static_cast<void>(exiftool::appendToReport(work.context, refused.words));
        work.fileEnded(refused);
    }
    Outcomes outcomes = workUnderNames(job, admitted, work);
    outcomes.insert(outcomes.end(), admitted.refused.begin(), admitted.refused.end());
    outcomes = inOrder(job.files, std::move(outcomes));
    outcomes.insert(outcomes.end(), job.leftOut.begin(), job.leftOut.end());
    return outcomes;
}

}  // namespace jobs
