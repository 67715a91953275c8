#pragma once

#include "app/LanguageFile.h"
#include "exiftool/Outcome.h"
#include "exiftool/ToolRunner.h"
#include "jobs/Composed.h"
#include "jobs/RenamedFiles.h"

#include <QString>
#include <filesystem>
#include <functional>
#include <span>
#include <stop_token>
#include <vector>

class QWidget;

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
    std::string printed = {};  ///< what reading has printed that no line has led to a file
    /// Asks the user whether a file is to be written although something is amiss, and waits. Any thread.
    /// Empty: yes.
    std::function<bool(const QString& question)> writeAnyway = {};
    std::vector<std::string> remarks = {};  ///< on the whole of the job, for people
};

using WorkOnFile = std::function<exiftool::Outcome(JobWork& work, const std::filesystem::path& file)>;
/// Puts together the line of one file: the tool first, the file last, then perhaps a redirection of the
/// errors. Any thread.
using ComposeLine = std::function<Composed(const app::AppContext& context, app::CommandForm form,
                                           const std::filesystem::path& file)>;
using WorkOnAll =
    std::function<exiftool::Outcomes(JobWork& work, const std::vector<std::filesystem::path>& files)>;

/// What a job does to its files.
enum class Changes {
    Contents,
    Names,    ///< only these: of a link its own, and of a file that is not to be written too
    Nothing,  ///< reads them
};

/// How a job ended.
struct JobResult {
    QString title;
    exiftool::Outcomes outcomes;  ///< one for each file, in the order of the files, then those left out
    bool wasStopped = false;      ///< by the user, before the last file
    bool isClosing = false;       ///< by the closing of the window
    NewNames newNames = {};       ///< of the files that the work has renamed
    std::string printed = {};     ///< of JobWork
    Changes changes = Changes::Contents;
    std::vector<std::string> remarks = {};  ///< of JobWork
};

/// What the end of a job is shown with.
struct JobEnd {
    const JobResult& result;
    const app::AppContext& context;
    const app::LanguageFile& language;
    QWidget* window;  ///< the parent of what is shown
    /// Opens a file in its own program, or says that none does.
    std::function<void(const std::filesystem::path& file)> open;
};

/// One operation over files, put together on the GUI thread and carried out on the runner's. What the
/// functions hold must not be touched by others meanwhile: values, no references.
struct Job {
    QString title = {};  ///< what is done, and to how many files, such as "Add keywords to 12 files"
    std::vector<std::filesystem::path> files = {};
    WorkOnFile workOnFile = {};
    WorkOnAll workOnAll = {};  ///< in the place of workOnFile, for work that files share
    /// The line that workOnFile runs. In the corrected form, files whose lines differ in nothing but the file
    /// go through ExifTool sessions in its place, a safety copy before each.
    ComposeLine lineOf = {};
    /// Files that the lines read from. While one of them is itself written it can be missing for a moment, so
    /// that then one file is worked on after the other.
    std::vector<std::filesystem::path> sources = {};
    /// Called on the GUI thread when files have been done, or had nothing to do, and what became of all is
    /// told: shows what the job has brought.
    std::function<void(const JobEnd& end)> atEnd = {};
    /// Files that are not worked on, with the reason; they end the outcomes.
    exiftool::Outcomes leftOut = {};
    Changes changes = Changes::Contents;
    /// In the corrected form, once all files are done: looks whether they now are what was asked for, and
    /// judges them again. One outcome for each file that was worked on.
    std::function<void(JobWork& work, std::span<exiftool::Outcome> outcomes)> judgeAgain = {};
    bool makesSafetyCopies = true;  ///< false: none in this job, whatever the settings say
    bool countsFiles = true;        ///< false: one run over all, of which nobody knows how far it is
};

}  // namespace jobs
