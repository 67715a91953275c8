#pragma once

#include "support/TemporaryFolder.h"

#include <sys/types.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace endtoend {

/// The real program on a copy of the install folder, under script control.
class DrivenProgram {
public:
    struct Options {
        QByteArray settings;                            ///< replaces the first-run settings file when not empty
        std::optional<std::filesystem::path> exifTool;  ///< written into the settings file
        std::vector<std::string> environment;           ///< NAME=value
    };

    DrivenProgram();
    explicit DrivenProgram(const Options& options);
    ~DrivenProgram();
    DrivenProgram(const DrivenProgram&) = delete;
    DrivenProgram& operator=(const DrivenProgram&) = delete;

    /// Sends a command; its answer. A test failure when it is not {"ok":true} or none comes within a minute.
    QJsonObject tell(const QString& verb, const QStringList& words = {});
    /// The same for a command that has to fail; the error text.
    QString refuse(const QString& verb, const QStringList& words = {});

    /// Ends the program in the ordinary way; its exit status.
    int quit();
    void kill();

    const std::filesystem::path& install() const { return install_; }

    QJsonArray rows() { return tell("rows")["rows"].toArray(); }
    /// The value of the first row of the tag; nothing when there is none.
    std::optional<QString> value(const QString& group, const QString& tag);
    QStringList fileNames();
    QString status() { return tell("status")["text"].toString(); }

private:
    QJsonObject exchange(const QString& verb, const QStringList& words);
    void start(const Options& options);
    std::string readLine();

    support::TemporaryFolder folder_;
    std::filesystem::path install_;
    pid_t child_ = -1;
    int input_ = -1;
    int output_ = -1;
    std::string buffer_;
};

/// Waits until the condition holds; false when it does not within the limit.
bool waitFor(const std::function<bool()>& condition, int milliseconds = 10000);

}  // namespace endtoend
