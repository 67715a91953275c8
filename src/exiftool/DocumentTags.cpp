#include "exiftool/DocumentTags.h"

#include "exiftool/ArgumentLines.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace exiftool {

using std::chrono::steady_clock;

namespace {

/// A cell can stay empty; a tool that hangs must not hold up all others.
constexpr std::chrono::seconds kPatience{10};

// Numbers and times as they are kept, groups with their exact name, every value once.
constexpr std::string_view kQuestion = "-j\n-n\n-G1\n-m\n-api\nLargeFileSupport=1\n-x\nSystem:all\n";

QStringList textsOf(const QJsonValue& value) {
    if (!value.isArray()) return {value.toVariant().toString()};
    QStringList texts;
    for (const QJsonValue& element : value.toArray()) texts.append(element.toVariant().toString());
    return texts;
}

}  // namespace

properties::FileTags DocumentTags::tagsOf(const std::filesystem::path& file) {
    std::error_code error;
    const auto line = fileLine(std::filesystem::absolute(file, error).native());
    if (error || !line || exifTool_.empty()) return {};
    const std::lock_guard lock(asking_);
    std::optional<std::string> answer = ask(*line);
    if (!answer) answer = ask(*line);
    properties::FileTags tags;
    if (!answer) return tags;
    const QJsonArray files = QJsonDocument::fromJson(QByteArray::fromStdString(*answer)).array();
    const QJsonObject values = files.isEmpty() ? QJsonObject() : files.first().toObject();
    for (auto tag = values.begin(); tag != values.end(); ++tag) tags.insert(tag.key(), textsOf(*tag));
    return tags;
}

/// Nothing when the tool has died or was ended, so that another may be asked.
std::optional<std::string> DocumentTags::ask(std::string_view fileArgument) {
    if (!tool_) {
        tool_.emplace();
        const auto started = tool_->start(exifTool_, {"-stay_open", "True", "-@", "-"});
        if (started.kind == platform::ChildOutcome::Kind::NotStarted) {
            tool_.reset();
            return std::nullopt;
        }
    }
    const std::string number = std::to_string(++lastNumber_);
    const std::string end = "{ready" + number + "}\n";
    tool_->takeOutput();
    tool_->takeErrors();
    const auto deadline = steady_clock::now() + kPatience;
    const auto isAnswered = [&] { return tool_->output().ends_with(end); };
    const auto isOver = [&] { return isAnswered() || steady_clock::now() >= deadline; };
    const bool isSent =
        tool_->send(std::string(kQuestion).append(fileArgument).append("-execute" + number + "\n"));
    if (isSent) tool_->collect(isOver, {});
    if (!isSent || !isAnswered()) {
        const bool isGone = steady_clock::now() < deadline;
        tool_.reset();
        return isGone ? std::nullopt : std::optional<std::string>(std::in_place);
    }
    std::string answer = tool_->takeOutput();
    answer.resize(answer.size() - end.size());
    return answer;
}

}  // namespace exiftool
