#include "jobs/JobRunner.h"

#include "app/SpokenText.h"
#include "jobs/CarryOut.h"
#include "jobs/JobTexts.h"
#include "platform/ProcessFolder.h"
#include "platform/Text.h"

#include <QMetaObject>
#include <algorithm>
#include <atomic>
#include <condition_variable>
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
Outcomes notStarted(const Job& job, const std::error_code& refused) {
    Outcomes outcomes;
    for (const fs::path& file : job.files)
        outcomes.push_back({file, OutcomeKind::NotStarted, refused.message()});
    outcomes.insert(outcomes.end(), job.leftOut.begin(), job.leftOut.end());
    return outcomes;
}

}  // namespace

/// What GUI thread and job thread have in common.
struct JobRunner::Running {
    Running(const app::AppContext& shared, Job&& work, Ended&& whenEnded)
        : context(contextOfJob(shared)),
          form(app::commandFormOf(context)),
          job(std::move(work)),
          ended(std::move(whenEnded)),
          runner(context) {}

    app::AppContext context;
    const app::CommandForm form;
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
    bool isEnding = false;  ///< nobody answers any more
    std::optional<Answer> answer;
    std::optional<bool> answerForAll;

    std::mutex asking;  ///< held by the one thread that asks
    std::condition_variable_any answered;
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
    // The runner ends with what it would keep alive here.
    running.runner.setSafetyCopyFailed(
        [this, own = std::weak_ptr(current_)](const fs::path& file, const QString& message) {
            const std::shared_ptr<Running> job = own.lock();
            return !job || safetyCopyFailed(job, file, message);
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
    {
        const std::scoped_lock lock(own->guard);
        own->isEnding = true;
        own->answered.notify_all();
    }
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
                 running.form,
                 running.runner,
                 running.stop.get_token(),
                 [this, own](const fs::path& file) { noteBegun(own, file); },
                 [this, own](const Outcome& outcome) { noteEnded(own, outcome); },
                 running.cut.get_token(),
                 {},
                 [this, own](const QString& question) { return writeAnyway(own, question); }};
    const RenamedFiles names(job.files);
    Outcomes outcomes = refused ? notStarted(job, refused) : carryOut(job, work);
    const bool isCut = std::ranges::any_of(
        outcomes,
        [](OutcomeKind kind) { return kind == OutcomeKind::Stopped || kind == OutcomeKind::NotBegun; },
        &Outcome::kind);
    std::error_code ignored;
    fs::remove_all(running.context.tempPath, ignored);
    NewNames newNames = names.newNames();
    const std::scoped_lock lock(running.guard);
    running.result = {job.title,   std::move(outcomes),    running.stop.stop_requested() && isCut,
                      false,       std::move(newNames),    std::move(work.printed),
                      job.changes, std::move(work.remarks)};
}

// One question at a time, whichever thread has it. A stop is an answer too, and so is the end of the program.
bool JobRunner::writeAnyway(const std::shared_ptr<Running>& running, const QString& question) {
    const std::scoped_lock asking(running->asking);
    std::unique_lock lock(running->guard);
    if (running->answerForAll) return *running->answerForAll;
    if (running->isEnding) return false;
    running->answer.reset();
    QMetaObject::invokeMethod(
        this,
        [this, running, question] {
            const Answer answer = question_ && current_ == running ? question_(question) : Answer::No;
            const std::scoped_lock answering(running->guard);
            running->answer = answer;
            running->answered.notify_all();
        },
        Qt::QueuedConnection);
    running->answered.wait(lock, running->stop.get_token(),
                           [&] { return running->answer.has_value() || running->isEnding; });
    const Answer answer = running->answer.value_or(Answer::No);
    const bool isYes = answer == Answer::Yes || answer == Answer::YesToAll;
    if (answer == Answer::YesToAll || answer == Answer::NoToAll) running->answerForAll = isYes;
    return isYes;
}

bool JobRunner::safetyCopyFailed(const std::shared_ptr<Running>& running, const fs::path& file,
                                 const QString& message) {
    if (running->form == app::CommandForm::Corrected)
        return writeAnyway(running, platform::wide(app::spokenText(text::kNoCopyQuestion,
                                                                   {platform::display(file), message})));
    QMetaObject::invokeMethod(
        this, [this, message] { Q_EMIT SafetyCopyFailed(message); }, Qt::QueuedConnection);
    return true;
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
