#pragma once

#include "jobs/Job.h"

#include <QObject>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace exiftool {
class WarmStarter;
}

namespace jobs {

/// Carries out one operation over files at a time, on a thread of its own. The object lives on the GUI thread
/// and tells there how far it is; it owns the thread, which it stops and waits for at its end. Reads go on
/// beside it: the job has a tool runner and a temp folder of its own.
class JobRunner : public QObject {
    Q_OBJECT

 public:
    using Ended = std::function<void(const JobResult& result)>;

    /// A tool that runs when the user stops gets this long to end its file by itself.
    static constexpr std::chrono::milliseconds kGrace{2000};

    /// The context outlives the runner and is read on the GUI thread only.
    explicit JobRunner(const app::AppContext& context, QObject* parent = nullptr);
    ~JobRunner() override;

    /// Not owned; null for none.
    void setWarmStarter(exiftool::WarmStarter* starter) { warmStarter_ = starter; }
    void setSafetyCopies(const exiftool::SafetyCopies& copies) { safetyCopies_ = copies; }

    /// Asked on the GUI thread before a file is written although something is amiss, such as a safety copy
    /// that failed (corrected form); the work waits. What is answered for all holds for the running job.
    /// Empty: no.
    enum class Answer { Yes, YesToAll, No, NoToAll };
    using Question = std::function<Answer(const QString& question)>;
    void setQuestion(Question question) { question_ = std::move(question); }

    /// Begins the job; ended is called on the GUI thread once all is over, after the signal. False, and
    /// nothing is begun, while another one runs, and for a job without files.
    [[nodiscard]] bool begin(Job job, Ended ended);

    bool isRunning() const { return current_ != nullptr; }
    /// Of the running job; empty when none runs.
    QString title() const;
    /// Whether the file is one of those that the running job has not yet ended.
    bool isWorkingOn(const std::filesystem::path& file) const;

    /// No further file is begun; the file in work may end within kGrace, then its tool is ended. Does not
    /// wait.
    void stop();
    /// No further file is begun, and what is in work is let end: one file, or what ExifTool sessions have
    /// been handed (exiftool/WriteSessions.h). A stop may still cut it.
    void closeAfterThisFile();

    /// Blocks, without an event loop, until the running job is over, and delivers its end. For the end of the
    /// program.
    void waitForEnd();

 Q_SIGNALS:
    void Began(const QString& title, std::size_t count, bool countsFiles);
    /// number counts from 1.
    void FileBegun(const std::filesystem::path& file, std::size_t number);
    /// In the designed form: the safety copy of a file failed, for a box; the work goes on.
    void SafetyCopyFailed(const QString& message);
    void JobEnded(const jobs::JobResult& result);

 private:
    struct Running;

    void work(const std::shared_ptr<Running>& own);
    bool writeAnyway(const std::shared_ptr<Running>& running, const QString& question);
    bool safetyCopyFailed(const std::shared_ptr<Running>& running, const std::filesystem::path& file,
                          const QString& message);
    bool keepWaiting(Running& running) const;
    void noteBegun(const std::shared_ptr<Running>& running, const std::filesystem::path& file);
    void noteEnded(const std::shared_ptr<Running>& running, const exiftool::Outcome& outcome);
    void finish(const std::shared_ptr<Running>& running);

    const app::AppContext& context_;
    exiftool::WarmStarter* warmStarter_ = nullptr;
    exiftool::SafetyCopies safetyCopies_;
    Question question_;
    std::shared_ptr<Running> current_;
    std::thread thread_;
};

}  // namespace jobs
