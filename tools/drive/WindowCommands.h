#pragma once

#include "drive/CommandServer.h"

#include <filesystem>

class QAbstractItemView;

namespace app {
class MainWindow;
class Program;
}  // namespace app

namespace drive {

/// The commands for the main window: what a user does there with mouse and keyboard, and what stands on it. The
/// window is that of the program given, looked up for each command, since there is none before the start. GUI thread.
class WindowCommands {
 public:
    explicit WindowCommands(app::Program& program) : program_(program) {}

    Answer open(const QString& path);
    Answer files();
    Answer select(const QStringList& names);
    Answer click(const QString& name, const QString& column, bool twice);
    Answer rows();
    /// how: "left", "right" or "alt".
    Answer row(const QString& group, const QString& tag, const QString& column, const QString& how);
    /// The menu of a group header.
    Answer header(const QString& group);
    Answer command(int id);
    Answer status();
    Answer title();
    Answer screenshot(const QString& file);
    Answer wait(int milliseconds);
    Answer quit();

 private:
    app::Program& program_;
};

}  // namespace drive
