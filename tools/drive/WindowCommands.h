#pragma once

#include "drive/CommandServer.h"

#include <QTimer>
#include <filesystem>

class QAbstractItemView;

namespace window {
class MainWindow;
class Program;
}  // namespace window

namespace drive {

/// The commands for the main window: what a user does there with mouse and keyboard, and what stands on it.
/// The window is that of the program given, looked up for each command, since there is none before the start.
/// GUI thread.
class WindowCommands {
 public:
    explicit WindowCommands(window::Program& program) : program_(program) {}

    Answer open(const QString& path);
    Answer files();
    Answer select(const QStringList& names);
    Answer click(const QString& name, const QString& column, const QString& how);
    Answer rows();
    /// how: as clickIndex() takes it.
    Answer row(const QString& group, const QString& tag, const QString& column, const QString& how);
    /// The menu of a group header.
    Answer header(const QString& group);
    Answer command(int id);
    Answer state(int id);
    /// A key to whatever has the keyboard; a folder that it opens is there when it returns.
    Answer key(const QString& keys);
    /// Types the text character by character.
    Answer type(const QString& text);
    /// Clicks the part of the window that has this object name, such as "Address".
    /// What the right mouse button or the Menu key opens on a part of the window.
    Answer menuOf(const QString& objectName);
    Answer focus(const QString& objectName);
    /// Clicks a tab, counted from 0 from the left.
    Answer tab(int index);
    /// Place and size of that part, whether it is shown, and its text.
    Answer area(const QString& objectName);
    Answer status();
    /// What the buttons do that end a wait or an operation.
    Answer stop();
    Answer title();
    /// The main window with what stands in front of it.
    Answer screenshot(const QString& file);
    Answer wait(int milliseconds);
    /// Cancels what stands in front of the window and closes it in the ordinary way.
    Answer quit();
    /// Ends the program though nobody answers its questions any more.
    void endUnattended();

 private:
    void waitForFolder();
    void takeKeyboardBack();

    window::Program& program_;
    QTimer unattended_;
};

}  // namespace drive
