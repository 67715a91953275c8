#pragma once

#include "exiftool/Outcome.h"
#include "exiftool/ToolRunner.h"
#include "jobs/RenamedFiles.h"
#include "platform/CommandText.h"

#include <QString>
#include <filesystem>
#include <functional>
#include <stop_token>
#include <vector>

namespace jobs {

/// What the work on files has at hand, on the runner's thread. The context is a copy from the moment at which
/// the job began, with a temp folder of the job's own, so that nothing that the user sets or reads meanwhile
/// meets it.
struct JobWork {
    const app::AppContext& context;
    app::CommandForm form;  ///< of the context; the one form of all lines of the job
    exiftool::ToolRunner& runner;
    std::stop_token stop;  ///< no further file is to be begun
    /// To be called by work over all files when it turns to a file, and when a file has ended; any thread.
    std::function<void(const std::filesystem::path& file)> fileBegun;
    std::function<void(const exiftool::Outcome& outcome)> fileEnded;
    std::stop_token cut = {};  ///< what is in work is to end too, soon
};

using WorkOnFile = std::function<exiftool::Outcome(JobWork& work, const std::filesystem::path& file)>;
/// Puts together the line of one file: the tool first, the file last, then perhaps a redirection of the
/// errors. Any thread.
using ComposeLine = std::function<platform::CommandText(const app::AppContext& context, app::CommandForm form,
                                                        const std::filesystem::path& file)>;
using WorkOnAll =
    std::function<exiftool::Outcomes(JobWork& work, const std::vector<std::filesystem::path>& files)>;

/// One operation over files, put together on the GUI thread and carried out on the runner's. What the
/// functions hold must not be touched by others meanwhile: values, no references.
struct Job {
    QString title = {};  ///< what is done, and to how many files, such as "Add keywords to 12 files"
    std::vector<std::filesystem::path> files = {};
    WorkOnFile workOnFile = {};
    WorkOnAll workOnAll = {};  ///< in the place of workOnFile, for work that files share
    /// For work that gives all files the same arguments: the line of one of them, the file as its last word.
    /// In the corrected form several files then go through ExifTool sessions, a safety copy before each.
    ComposeLine sameForAll = {};
    /// Files that are not worked on, with the reason; they end the outcomes.
    exiftool::Outcomes leftOut = {};
    bool makesSafetyCopies = true;  ///< false: none in this job, whatever the settings say
    bool countsFiles = true;        ///< false: one run over all, of which nobody knows how far it is
};

/// How a job ended.
struct JobResult {
    QString title;
    exiftool::Outcomes outcomes;  ///< one for each file, in the order of the files, then those left out
    bool wasStopped = false;      ///< by the user, before the last file
    bool isClosing = false;       ///< by the closing of the window
    NewNames newNames = {};       ///< of the files that the work has renamed
};

}  // namespace jobs
