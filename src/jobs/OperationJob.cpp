#include "jobs/OperationJob.h"

#include "app/SpokenText.h"
#include "exiftool/LineParts.h"
#include "exiftool/ReportFile.h"
#include "jobs/JobTexts.h"
#include "platform/Text.h"

#include <algorithm>
#include <condition_variable>
#include <iterator>
#include <memory>
#include <mutex>
#include <system_error>
#include <unordered_map>

namespace jobs {

namespace fs = std::filesystem;
using app::CommandForm;
using exiftool::Outcome;
using exiftool::OutcomeKind;
using exiftool::Outcomes;
using platform::CommandText;

namespace {

bool isFilled(const OperationField& field, const FilledForm& filled) {
    switch (field.kind) {
        case FieldKind::Text:
            return !filled.text(field.control).isEmpty();
        case FieldKind::File:
        case FieldKind::Folder:
            return !filled.path(field.control).empty();
        case FieldKind::Rows:
            return !filled.rows(field.control).empty();
        case FieldKind::DateTime:
            return filled.dateTime(field.control).isValid();
        case FieldKind::Box:
            return filled.isTicked(field.control);
        case FieldKind::Number:
        case FieldKind::Choice:
            break;
    }
    return true;
}

bool isMissing(const OperationField& field, const FilledForm& filled) {
    if (field.neededWith != 0 && !filled.isTicked(field.neededWith)) return false;
    if (field.mustBeFilled && !isFilled(field, filled)) return true;
    return field.accepts != nullptr && !field.accepts(filled.path(field.control));
}

bool isAnythingTicked(const Operation& operation, const FilledForm& filled) {
    return std::ranges::any_of(operation.boxes,
                               [&](const OperationBox& box) { return filled.isTicked(box.control); }) ||
           std::ranges::any_of(operation.fields, [&](const OperationField& field) {
               return field.kind == FieldKind::Rows && !filled.rows(field.control).empty();
           });
}

const OperationField* fieldOf(const Operation& operation, int control) {
    const auto found = std::ranges::find(operation.fields, control, &OperationField::control);
    return found != operation.fields.end() ? &*found : nullptr;
}

void appendValue(CommandText& terms, const OperationField& field, const Composing& composing) {
    const std::string bytes = textOf(field, composing.form, composing.filled);
    if (composing.form == CommandForm::Corrected)
        terms.literal("\"").outside(bytes).literal("\"");
    else
        terms.typed(bytes);
}

Composed composed(const Operation& operation, const Composing& composing) {
    return operation.compose != nullptr ? operation.compose(composing) : boxTerms(operation, composing);
}

/// Ends early when the job is stopped.
void rest(const std::stop_token& stop, std::chrono::milliseconds time) {
    if (time.count() == 0) return;
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any().wait_for(lock, stop, time, [] { return false; });
}

/// The files of a run, each of which is found at once among thousands.
class RunFiles {
 public:
    explicit RunFiles(std::vector<fs::path> files) : files_(std::move(files)) {
        for (std::size_t at = 0; at < files_.size(); ++at) counts_.emplace(files_[at].native(), at + 1);
    }

    std::span<const fs::path> upTo(const fs::path& file) const {
        const auto found = counts_.find(file.native());
        return std::span(files_).first(found != counts_.end() ? found->second : 0);
    }

 private:
    std::vector<fs::path> files_;
    std::unordered_map<std::string, std::size_t> counts_;
};

Outcomes read(JobWork& work, const std::vector<fs::path>& files, const CommandText& command) {
    exiftool::ReadRun run = work.runner.runReadLine(files, command);
    work.printed += run.printed;
    return std::move(run.outcomes);
}

Outcome run(ComposedAs composedAs, JobWork& work, const fs::path& file, const CommandText& command) {
    if (isReading(composedAs)) return read(work, {file}, command).front();
    if (composedAs == ComposedAs::Arguments) return work.runner.RunOnFile(file, command);
    if (std::optional<Outcome> refused = work.runner.copyForSafety(file)) return *refused;
    return composedAs == ComposedAs::HiddenLine ? work.runner.runHiddenOnFile(file, command)
                                                : work.runner.runWriteLine(file, command);
}

/// What runs on the job's thread: an operation with what was filled in, and the files of the run.
class Run {
 public:
    Run(const Operation& operation, ComposedAs composedAs, const FilledForm& filled,
        std::vector<fs::path> files, const tags::TagDictionary& dictionary)
        : operation_(&operation),
          composedAs_(composedAs),
          filled_(filled),
          files_(std::make_shared<const RunFiles>(std::move(files))),
          dictionary_(std::make_shared<const tags::TagDictionary>(dictionary)) {}

    Outcome onFile(JobWork& work, const fs::path& file) const {
        const DesignedHabits habits =
            work.form == CommandForm::Designed ? operation_->designed : DesignedHabits();
        // The line itself may empty the report too, but only after its end has been noted, behind which the
        // words of this file are looked for.
        std::error_code ignored;
        if (habits.emptiesReport) fs::remove(work.context.reportFile, ignored);
        const Composing composing = composingOf(work.context, work.form, file);
        const Composed line = composed(*operation_, composing);
        Outcome outcome =
            line.instead ? passedOver(work.context, file, line) : run(composedAs_, work, file, line.text);
        complete(composing, {&outcome, 1});
        rest(work.stop, habits.rest);
        return outcome;
    }

    Outcomes onAll(JobWork& work, const std::vector<fs::path>& all) const {
        // Makes the safety copies, too.
        const exiftool::FileList list = work.runner.WriteFileList(all);
        Outcomes outcomes = onListed(work, list);
        std::ranges::copy(list.refused, std::back_inserter(outcomes));
        return outcomes;
    }

    Composed wholeLine(const app::AppContext& context, CommandForm form, const fs::path& file) const {
        Composed line = composed(*operation_, composingOf(context, form, file));
        if (!line.instead && composedAs_ == ComposedAs::Arguments)
            line.text = exiftool::lineOnFile(context, form, line.text, file);
        return line;
    }

 private:
    Composing composingOf(const app::AppContext& context, CommandForm form, const fs::path& file) const {
        return {context, form, filled_, *dictionary_, file, files_->upTo(file)};
    }

    static Outcome passedOver(const app::AppContext& context, const fs::path& file, const Composed& line) {
        // Where the report cannot be written the outcome still tells it.
        if (!line.words.empty()) static_cast<void>(exiftool::appendToReport(context, line.words));
        return {file, *line.instead, line.words};
    }

    Outcomes onListed(JobWork& work, const exiftool::FileList& list) const {
        const auto all = [&](OutcomeKind kind, const std::string& words) {
            Outcomes outcomes;
            for (const fs::path& file : list.listed) outcomes.push_back({file, kind, words});
            return outcomes;
        };
        if (list.path.empty()) return all(OutcomeKind::NotStarted, app::spokenText(text::kListNotWritten));
        if (list.listed.empty()) return {};
        const Composing composing{work.context, work.form, filled_, *dictionary_, list.path, list.listed};
        const Composed line = composed(*operation_, composing);
        if (line.instead) return all(*line.instead, line.words);
        Outcomes outcomes = isReading(composedAs_) ? read(work, list.listed, line.text)
                                                   : work.runner.runWriteLine(list.listed, line.text);
        complete(composing, outcomes);
        return outcomes;
    }

    void complete(const Composing& composing, std::span<Outcome> outcomes) const {
        const bool hasCome = std::ranges::any_of(outcomes, exiftool::isWritten, &Outcome::kind);
        if (operation_->afterRun != nullptr && hasCome) operation_->afterRun(composing, outcomes);
    }

    const Operation* operation_;
    ComposedAs composedAs_;
    FilledForm filled_;
    std::shared_ptr<const RunFiles> files_;
    std::shared_ptr<const tags::TagDictionary> dictionary_;
};

}  // namespace

OperationRefusal refused(const OperationMessage& message, int control, const QString& held,
                         const app::LanguageFile& language) {
    OperationRefusal refusal{.control = control, .icon = message.icon};
    if (message.title != nullptr) refusal.title = QString::fromLatin1(message.title);
    if (message.literal != nullptr)
        refusal.text = QString::fromLatin1(message.literal);
    else if (message.text != 0)
        refusal.text = language.formatted(message.text, {held});
    return refusal;
}

std::optional<OperationRefusal> refusalOf(const Operation& operation, const FilledForm& filled,
                                          const app::LanguageFile& language) {
    for (const OperationField& field : operation.fields) {
        if (!isMissing(field, filled)) continue;
        const QString held = field.kind == FieldKind::Text ? filled.text(field.control)
                                                           : platform::display(filled.path(field.control));
        return refused(field.missing, field.control, held, language);
    }
    if (operation.nothingTicked == NothingTicked::Runs || isAnythingTicked(operation, filled)) return {};
    if (operation.nothingTicked == NothingTicked::Cancels) return OperationRefusal{.cancels = true};
    return refused(operation.noneTicked, 0, {}, language);
}

std::string textOf(const OperationField& field, CommandForm form, const FilledForm& filled) {
    const QString text = filled.text(field.control);
    if (form == CommandForm::Corrected) return text.toStdString();
    const QString kept =
        field.designed.limit != 0 ? text.left(static_cast<qsizetype>(field.designed.limit)) : text;
    return field.designed.encoding == DesignedText::Encoding::Western ? kept.toLatin1().toStdString()
                                                                      : kept.toStdString();
}

CommandText boxTerms(const Operation& operation, const Composing& composing) {
    CommandText terms;
    for (const OperationBox& box : operation.boxes) {
        if (!composing.filled.isTicked(box.control)) continue;
        const BoxTerm& term = composing.form == CommandForm::Corrected ? box.corrected : box.designed;
        terms.literal(terms.empty() ? term.first : term.joined);
        if (const OperationField* const value = fieldOf(operation, box.value))
            appendValue(terms, *value, composing);
        terms.literal(term.closing);
    }
    return terms;
}

Job jobOf(const Operation& operation, const QString& title, CommandForm form, const FilledForm& filled,
          std::vector<fs::path> files, const tags::TagDictionary& dictionary) {
    Job job{.title = title, .files = files};
    const ComposedAs composedAs =
        operation.chooseRoad != nullptr ? operation.chooseRoad(form, filled) : operation.composedAs;
    const Run run(operation, composedAs, filled, std::move(files), dictionary);
    if (operation.makesSafetyCopies != nullptr)
        job.makesSafetyCopies = operation.makesSafetyCopies(form, filled);
    if (isReading(composedAs)) job.makesSafetyCopies = false;
    job.changes = isReading(composedAs)   ? Changes::Nothing
                  : operation.onlyRenames ? Changes::Names
                                          : Changes::Contents;
    if (operation.judgeAgain != nullptr)
        job.judgeAgain = [&operation, filled](JobWork& work, std::span<Outcome> outcomes) {
            operation.judgeAgain(work, filled, outcomes);
        };
    if (operation.atEnd != nullptr)
        job.atEnd = [&operation, filled](const JobEnd& end) { operation.atEnd(end, filled); };
    if (isOverAll(composedAs)) {
        job.countsFiles = false;
        job.workOnAll = [run](JobWork& work, const std::vector<fs::path>& all) {
            return run.onAll(work, all);
        };
        return job;
    }
    job.workOnFile = [run](JobWork& work, const fs::path& file) { return run.onFile(work, file); };
    if (isReading(composedAs)) return job;
    job.lineOf = [run](const app::AppContext& context, CommandForm runForm, const fs::path& file) {
        return run.wholeLine(context, runForm, file);
    };
    for (const OperationField& field : operation.fields) {
        const bool isRead = field.kind == FieldKind::File && field.offer.newExtension == nullptr;
        const fs::path source = isRead ? filled.path(field.control) : fs::path();
        if (!source.empty()) job.sources.push_back(source);
    }
    return job;
}

}  // namespace jobs
