#pragma once

#include "support/TemporaryFolder.h"

#include <sys/types.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace endtoend {

/// The real program on a copy of the install folder, under script control. Its window is 1280 by 800.
class DrivenProgram {
 public:
    struct Options {
        QByteArray settings = {};      ///< replaces the first-run settings file when not empty
        QByteArray moreSettings = {};  ///< added at its end, where a key counts that stands there twice
        std::function<void(const std::filesystem::path& install)> prepare = {};  ///< called before the start
        std::optional<std::filesystem::path> exifTool = {};  ///< written into the settings file
        std::vector<std::string> environment = {};           ///< NAME=value
        /// It runs as a user who may not do everything, to whom this folder is given; in none, as ourselves.
        std::filesystem::path unprivilegedIn = {};
    };

    DrivenProgram();
    explicit DrivenProgram(const Options& options);
    /// A second one on the install folder of the first, which must still run and outlive it.
    explicit DrivenProgram(const DrivenProgram* first);
    ~DrivenProgram();
    DrivenProgram(const DrivenProgram&) = delete;
    DrivenProgram& operator=(const DrivenProgram&) = delete;

    /// Sends a command; its answer. A test failure when it is not {"ok":true} or none comes within two
    /// minutes.
    QJsonObject tell(const QString& verb, const QStringList& words = {});
    /// The same for a command that has to fail; the error text.
    QString refuse(const QString& verb, const QStringList& words = {});

    /// One line as it stands; its answer, which may be a refusal.
    QJsonObject say(const QByteArray& line);
    QJsonObject nextAnswer();
    /// A line after which the program may end without an answer.
    void send(const QByteArray& line);

    /// Ends the program in the ordinary way; its exit status.
    int quit();
    /// Waits for the program's own end; its exit status, -1 when it does not end.
    int waitForEnd(int milliseconds = 60000);
    void closeInput();
    void kill();
    /// Starts it again on the same install folder, after it has ended.
    void restart();

    const std::filesystem::path& install() const { return install_; }
    std::filesystem::path tempRoot() const { return install_ / "Temp"; }
    /// The folder of this process in it.
    std::filesystem::path temp() const { return tempRoot() / ("process-" + std::to_string(number_)); }
    /// The batch report of a program that was started today.
    std::filesystem::path report() const;
    /// What the settings file holds for the key now; nothing when it does not.
    std::optional<std::string> setting(const std::string& section, const std::string& key) const;

    QJsonArray rows() { return tell("rows")["rows"].toArray(); }
    /// The value of the first row of the tag; nothing when there is none.
    std::optional<QString> value(const QString& group, const QString& tag);
    QStringList fileNames();
    QStringList selectedFiles();
    QString status() { return tell("status")["text"].toString(); }
    QString selection() { return tell("status")["selection"].toString(); }
    /// The title without the program's name.
    QString folder();
    /// The text of the open message box, which is answered with OK.
    QString takeMessage();

 private:
    QJsonObject exchange(const QString& verb, const QStringList& words);
    void layOut(const Options& options);
    void start();
    std::string readLine();

    support::TemporaryFolder folder_;
    std::filesystem::path install_;
    std::vector<std::string> environment_;
    std::filesystem::path unprivilegedIn_;
    pid_t child_ = -1;
    int input_ = -1;
    int output_ = -1;
    std::string buffer_;
    int number_ = 1;  ///< among the programs on this install folder
};

/// Waits until the condition holds; false when it does not within the limit, which is that of a busy machine.
bool waitFor(const std::function<bool()>& condition, int milliseconds = 60000);

}  // namespace endtoend
