#include "DrivenProgram.h"

#include "platform/IniFile.h"
#include "support/SmallFiles.h"
#include "support/UnprivilegedUser.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDate>
#include <QElapsedTimer>
#include <QJsonDocument>

extern char** environ;

namespace endtoend {

namespace fs = std::filesystem;

namespace {

constexpr int kAnswerLimit = 120000;
constexpr const char* kWindowPosition = "\n[MainWindow-Position]\nLeft=20\nTop=20\nRight=1300\nBottom=820\n";

QByteArray quoted(const QString& word) {
    const QByteArray array = QJsonDocument(QJsonArray{word}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}

std::vector<std::string> environmentWith(const std::vector<std::string>& more) {
    std::vector<std::string> all(more);
    all.emplace_back("QT_QPA_PLATFORM=offscreen");
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string name = std::string(*entry).substr(0, std::string(*entry).find('='));
        const bool replaced = std::any_of(
            all.begin(), all.end(), [&](const std::string& given) { return given.starts_with(name + "="); });
        if (!replaced) all.emplace_back(*entry);
    }
    return all;
}

}  // namespace

DrivenProgram::DrivenProgram() : DrivenProgram(Options{}) {}

DrivenProgram::DrivenProgram(const Options& options)
    : environment_(options.environment), unprivilegedIn_(options.unprivilegedIn) {
    layOut(options);
    start();
}

DrivenProgram::DrivenProgram(const DrivenProgram* first)
    : install_(first->install_), environment_(first->environment_), number_(first->number_ + 1) {
    // The numbers are given out in the order of the starts.
    EXPECT_TRUE(waitFor([&] { return fs::exists(first->temp() / "lock"); }));
    start();
}

fs::path DrivenProgram::report() const {
    const QString number = number_ == 1 ? QString() : QStringLiteral("-%1").arg(number_);
    const QString day = QDate::currentDate().toString(QStringLiteral("MM-dd-yyyy"));
    return install_ / "cache/reports" / (day + "-BatchReport" + number + ".txt").toStdString();
}

void DrivenProgram::layOut(const Options& options) {
    install_ = folder_ / "install";
    const fs::path firstRun = fs::path(TAGWRIGHT_SOURCE_DIR) / "data";
    for (const char* folder : {"cache/reports", "cache/sav", "Temp"})
        fs::create_directories(install_ / folder);
    fs::copy(fs::path(TAGWRIGHT_BIN_DIR) / "babel", install_ / "babel", fs::copy_options::recursive);
    // With 0 every command is a run of its own.
    const fs::path warm = fs::path(TAGWRIGHT_BIN_DIR) / "warm";
    if (qgetenv("TAGWRIGHT_TEST_WARM_START") != "0" && fs::exists(warm)) fs::copy(warm, install_ / "warm");
    QByteArray settings = options.settings;
    if (settings.isEmpty())
        settings =
            QByteArray::fromStdString(support::readBytes(firstRun / "first-run.ini")) + kWindowPosition;
    settings += options.moreSettings;
    if (options.exifTool) settings += "\n[PATHS]\nExifToolPath=" + options.exifTool->string() + "\n";
    support::writeBytes(install_ / "cache/Tagwright.ini", settings.toStdString());
    fs::copy_file(firstRun / "first-run-ColumnsHeader.ini", install_ / "cache/ColumnsHeader.ini");
    if (options.prepare) options.prepare(install_);
}

void DrivenProgram::start() {
    signal(SIGPIPE, SIG_IGN);
    int toChild[2];
    int fromChild[2];
    ASSERT_EQ(pipe2(toChild, O_CLOEXEC), 0);
    ASSERT_EQ(pipe2(fromChild, O_CLOEXEC), 0);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, toChild[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, fromChild[1], STDOUT_FILENO);
    std::vector<std::string> words{TAGWRIGHT_DRIVE, "--install", install_.string()};
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    std::vector<std::string> variables = environmentWith(environment_);
    std::vector<char*> envp;
    for (std::string& variable : variables) envp.push_back(variable.data());
    envp.push_back(nullptr);
    std::optional<support::UnprivilegedUser> user;
    if (!unprivilegedIn_.empty()) {
        user.emplace(unprivilegedIn_);
        // Only the superuser can give away more.
        user.reset();
        user.emplace(folder_.path());
    }
    ASSERT_EQ(posix_spawn(&child_, TAGWRIGHT_DRIVE, &actions, nullptr, argv.data(), envp.data()), 0);
    posix_spawn_file_actions_destroy(&actions);
    close(toChild[0]);
    close(fromChild[1]);
    input_ = toChild[1];
    output_ = fromChild[0];
}

DrivenProgram::~DrivenProgram() {
    kill();
    closeInput();
    if (output_ >= 0) close(output_);
}

void DrivenProgram::restart() {
    ASSERT_EQ(child_, -1) << "the program still runs";
    closeInput();
    close(output_);
    buffer_.clear();
    start();
}

void DrivenProgram::closeInput() {
    if (input_ >= 0) close(input_);
    input_ = -1;
}

void DrivenProgram::kill() {
    if (child_ < 0) return;
    ::kill(child_, SIGKILL);
    waitpid(child_, nullptr, 0);
    child_ = -1;
}

int DrivenProgram::quit() {
    tell("quit");
    return waitForEnd();
}

int DrivenProgram::waitForEnd(int milliseconds) {
    int status = -1;
    const bool ended = waitFor([&] { return waitpid(child_, &status, WNOHANG) == child_; }, milliseconds);
    EXPECT_TRUE(ended) << "the program did not end";
    if (!ended) {
        kill();
        return -1;
    }
    child_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string DrivenProgram::readLine() {
    QElapsedTimer since;
    since.start();
    for (;;) {
        const std::size_t feed = buffer_.find('\n');
        if (feed != std::string::npos) {
            std::string line = buffer_.substr(0, feed);
            buffer_.erase(0, feed + 1);
            return line;
        }
        const auto left = kAnswerLimit - static_cast<int>(since.elapsed());
        pollfd wait{output_, POLLIN, 0};
        if (left <= 0 || poll(&wait, 1, left) <= 0) return {};
        char block[65536];
        const ssize_t got = read(output_, block, sizeof block);
        if (got <= 0) return {};
        buffer_.append(block, static_cast<std::size_t>(got));
    }
}

QJsonObject DrivenProgram::exchange(const QString& verb, const QStringList& words) {
    QByteArray line = verb.toUtf8();
    for (const QString& word : words) line += ' ' + quoted(word);
    return say(line);
}

QJsonObject DrivenProgram::say(const QByteArray& line) {
    send(line);
    return nextAnswer();
}

void DrivenProgram::send(const QByteArray& command) {
    const QByteArray line = command + '\n';
    EXPECT_EQ(write(input_, line.constData(), static_cast<std::size_t>(line.size())), line.size())
        << line.toStdString();
}

QJsonObject DrivenProgram::nextAnswer() {
    const std::string answer = readLine();
    EXPECT_FALSE(answer.empty()) << "no answer";
    return QJsonDocument::fromJson(QByteArray::fromStdString(answer)).object();
}

QJsonObject DrivenProgram::tell(const QString& verb, const QStringList& words) {
    QJsonObject answer = exchange(verb, words);
    EXPECT_TRUE(answer["ok"].toBool()) << verb.toStdString() << " " << words.join(" ").toStdString() << ": "
                                       << answer["error"].toString().toStdString();
    return answer;
}

QString DrivenProgram::refuse(const QString& verb, const QStringList& words) {
    const QJsonObject answer = exchange(verb, words);
    EXPECT_FALSE(answer["ok"].toBool(true)) << verb.toStdString() << " was expected to fail";
    return answer["error"].toString();
}

std::optional<QString> DrivenProgram::value(const QString& group, const QString& tag) {
    for (const QJsonValue& row : rows())
        if (row["group"].toString().trimmed() == group && row["tag"].toString() == tag)
            return row["value"].toString();
    return std::nullopt;
}

QStringList DrivenProgram::fileNames() {
    QStringList names;
    const QJsonArray files = tell("files")["files"].toArray();
    for (const QJsonValue& file : files) names.append(file["name"].toString());
    return names;
}

QStringList DrivenProgram::selectedFiles() {
    QStringList names;
    const QJsonArray files = tell("files")["files"].toArray();
    for (const QJsonValue& file : files)
        if (file["selected"].toBool()) names.append(file["name"].toString());
    return names;
}

QString DrivenProgram::folder() {
    return tell("title")["title"].toString().remove(" - Tagwright");
}

QString DrivenProgram::takeMessage() {
    const QString text = tell("message")["text"].toString();
    tell("press", {"1"});
    return text;
}

std::optional<std::string> DrivenProgram::setting(const std::string& section, const std::string& key) const {
    return platform::IniFile(install_ / "cache/Tagwright.ini").find(section, key);
}

bool waitFor(const std::function<bool()>& condition, int milliseconds) {
    QElapsedTimer since;
    since.start();
    while (!condition()) {
        if (since.elapsed() > milliseconds) return false;
        poll(nullptr, 0, 10);
    }
    return true;
}

}  // namespace endtoend
