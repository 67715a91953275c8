#include "jobs/JobRunner.h"

#include "jobs/SameForAll.h"
#include "platform/ProcessFolder.h"

#include <QMetaObject>
#include <algorithm>
#include <atomic>
#include <system_error>

namespace jobs {

namespace fs = std::filesystem;
using exiftool::Outcome;
using exiftool::OutcomeKind;
using exiftool::Outcomes;
using std::chrono::steady_clock;

namespace {

constexpr const char* kJobFolder = "job";
/// A progress that changes faster than the screen would only keep the window busy.
constexpr std::chrono::milliseconds kBetweenNotices{40};

app::AppContext contextOfJob(const app::AppContext& context) {
    app::AppContext own = context;
    own.tempPath = context.tempPath / kJobFolder;
    return own;
}

/// There is no place for the files of the work.
Outcomes notStarted(const std::vector<fs::path>& files, const std::error_code& refused) {
    Outcomes outcomes;
    for (const fs::path& file : files) outcomes.push_back({file, OutcomeKind::NotStarted, refused.message()});
    return outcomes;
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

}  // namespace

/// What GUI thread and job thread have in common.
struct JobRunner::Running {
    Running(const app::AppContext& shared, Job&& work, Ended&& whenEnded)
        : context(contextOfJob(shared)), job(std::move(work)), ended(std::move(whenEnded)), runner(context) {}

    app::AppContext context;
    const Job job;
    const Ended ended;
    exiftool::ToolRunner runner;
    std::stop_source stop;
    std::stop_source cut;
    std::atomic<bool> isCutting = false;  ///< the file in work has only its grace left
    std::atomic<steady_clock::time_point> stoppedAt{steady_clock::time_point::max()};
    bool isClosing = false;  ///< GUI thread

    std::mutex guard;  ///< of what follows
    std::size_t begun = 0;
    steady_clock::time_point lastNotice{};
    std::vector<fs::path> over;
    JobResult result;
};

JobRunner::JobRunner(const app::AppContext& context, QObject* parent) : QObject(parent), context_(context) {}

JobRunner::~JobRunner() {
    if (current_) {
        current_->stop.request_stop();
        current_->stoppedAt = steady_clock::now();
        current_->isCutting = true;
        current_->cut.request_stop();
    }
    if (thread_.joinable()) thread_.join();
}

bool JobRunner::begin(Job job, Ended ended) {
    if (current_ || (job.files.empty() && job.leftOut.empty())) return false;
    if (thread_.joinable()) thread_.join();
    current_ = std::make_shared<Running>(context_, std::move(job), std::move(ended));
    Running& running = *current_;
    running.runner.setWarmStarter(warmStarter_);
    running.runner.safetyCopies() = safetyCopies_;
    if (!running.job.makesSafetyCopies) running.runner.safetyCopies().SafetyCopyEnabled = 0;
    running.runner.setKeepWaiting(
        [this, &running](std::chrono::milliseconds) { return keepWaiting(running); });
    running.runner.setSafetyCopyFailed([this](const QString& message) {
        QMetaObject::invokeMethod(
            this, [this, message] { Q_EMIT SafetyCopyFailed(message); }, Qt::QueuedConnection);
    });
    Q_EMIT Began(running.job.title, running.job.files.size(), running.job.countsFiles);
    thread_ = std::thread([this, own = current_] {
        work(own);
        QMetaObject::invokeMethod(
            this, [this, own] { finish(own); }, Qt::QueuedConnection);
    });
    return true;
}

QString JobRunner::title() const {
    return current_ ? current_->job.title : QString();
}

bool JobRunner::isWorkingOn(const fs::path& file) const {
    if (!current_) return false;
    const std::vector<fs::path>& files = current_->job.files;
    if (std::ranges::find(files, file) == files.end()) return false;
    const std::scoped_lock lock(current_->guard);
    return std::ranges::find(current_->over, file) == current_->over.end();
}

void JobRunner::stop() {
    if (!current_) return;
    current_->stop.request_stop();
    if (!current_->isCutting.exchange(true)) current_->stoppedAt = steady_clock::now();
    current_->cut.request_stop();
}

void JobRunner::closeAfterThisFile() {
    if (!current_) return;
    current_->isClosing = true;
    current_->stop.request_stop();
}

void JobRunner::waitForEnd() {
    if (!current_) return;
    const std::shared_ptr<Running> own = current_;
    if (thread_.joinable()) thread_.join();
    finish(own);
}

bool JobRunner::keepWaiting(Running& running) const {
    return !running.isCutting || steady_clock::now() - running.stoppedAt.load() < kGrace;
}

void JobRunner::work(const std::shared_ptr<Running>& own) {
    Running& running = *own;
    const Job& job = running.job;
    const std::error_code refused = platform::makeOwnSubfolder(running.context.tempPath);
    JobWork work{running.context,
                 app::commandFormOf(running.context),
                 running.runner,
                 running.stop.get_token(),
                 [this, own](const fs::path& file) { noteBegun(own, file); },
                 [this, own](const Outcome& outcome) { noteEnded(own, outcome); },
                 running.cut.get_token()};
    const RenamedFiles names(job.files);
    Outcomes outcomes = refused ? notStarted(job.files, refused) : inOrder(job.files, workOn(running, work));
    outcomes.insert(outcomes.end(), job.leftOut.begin(), job.leftOut.end());
    const bool isCut = std::ranges::any_of(
        outcomes,
        [](OutcomeKind kind) { return kind == OutcomeKind::Stopped || kind == OutcomeKind::NotBegun; },
        &Outcome::kind);
    std::error_code ignored;
    fs::remove_all(running.context.tempPath, ignored);
    NewNames newNames = names.newNames();
    const std::scoped_lock lock(running.guard);
    running.result = {job.title, std::move(outcomes), running.stop.stop_requested() && isCut,
                      false,     std::move(newNames), std::move(work.printed)};
}

Outcomes JobRunner::workOn(Running& running, JobWork& work) {
    const Job& job = running.job;
    if (job.workOnAll && !job.files.empty()) return job.workOnAll(work, job.files);
    if (job.lineOf && work.form == app::CommandForm::Corrected && job.files.size() > 1) {
        if (std::optional<Outcomes> outcomes = writeSameToAll(job, work)) return std::move(*outcomes);
    }
    return workOnFiles(running, work);
}

Outcomes JobRunner::workOnFiles(Running& running, JobWork& work) {
    Outcomes outcomes;
    for (const fs::path& file : running.job.files) {
        if (running.stop.stop_requested()) {
            outcomes.push_back({file, OutcomeKind::NotBegun, {}});
            continue;
        }
        work.fileBegun(file);
        Outcome outcome = running.job.workOnFile(work, file);
        outcome.file = file;
        // Who does not want to wait for one file has had enough of all.
        if (outcome.kind == OutcomeKind::Stopped) running.stop.request_stop();
        work.fileEnded(outcome);
        outcomes.push_back(std::move(outcome));
    }
    return outcomes;
}

void JobRunner::noteBegun(const std::shared_ptr<Running>& running, const fs::path& file) {
    std::size_t number = 0;
    {
        const std::scoped_lock lock(running->guard);
        number = ++running->begun;
        const auto now = steady_clock::now();
        if (number > 1 && now - running->lastNotice < kBetweenNotices) return;
        running->lastNotice = now;
    }
    QMetaObject::invokeMethod(
        this,
        [this, running, file, number] {
            if (current_ == running) Q_EMIT FileBegun(file, number);
        },
        Qt::QueuedConnection);
}

void JobRunner::noteEnded(const std::shared_ptr<Running>& running, const Outcome& outcome) {
    const std::scoped_lock lock(running->guard);
    running->over.push_back(outcome.file);
}

void JobRunner::finish(const std::shared_ptr<Running>& running) {
    // waitForEnd() may have been earlier.
    if (current_ != running) return;
    if (thread_.joinable()) thread_.join();
    running->result.isClosing = running->isClosing;
    const JobResult result = running->result;
    current_.reset();
    Q_EMIT JobEnded(result);
    if (running->ended) running->ended(result);
}

}  // namespace jobs
