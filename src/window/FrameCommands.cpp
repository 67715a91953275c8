#include "window/FrameCommands.h"

#include "platform/Text.h"
#include "window/AboutDialog.h"
#include "window/ReadingCommands.h"

#include <QCoreApplication>
#include <QProcess>
#include <utility>

namespace window {

std::span<const CommandRow<FrameCommands>> FrameCommands::rows() {
    using namespace app::command;
    static constexpr CommandRow<FrameCommands> kRows[] = {
        {kShowFolders, kShowFolders, &FrameCommands::toggleFolders, &FrameCommands::foldersState},
        {kShowStatusBar, kShowStatusBar, &FrameCommands::toggleStatusBar, &FrameCommands::statusBarState},
        {kMetadataPanel, kMetadataPanel, &FrameCommands::toggleMetadataPanel,
         &FrameCommands::metadataPanelState},
        {kAbout, kAbout, &FrameCommands::showAbout},
        {kClose, kClose, &FrameCommands::closeWindow},
        {kRestart, kRestart, &FrameCommands::restart},
    };
    return kRows;
}

CommandState FrameCommands::foldersState(app::CommandId) const {
    return {.checked = parts_.context.settings.main.showFolders};
}

CommandState FrameCommands::statusBarState(app::CommandId) const {
    return {.checked = parts_.context.settings.main.showStatusBar};
}

CommandState FrameCommands::metadataPanelState(app::CommandId) const {
    return {.checked = parts_.context.settings.lists.showMetadataWindow};
}

void FrameCommands::toggleFolders(app::CommandId) {
    parts_.context.settings.main.showFolders = !parts_.context.settings.main.showFolders;
    relayout_();
}

void FrameCommands::toggleStatusBar(app::CommandId) {
    parts_.context.settings.main.showStatusBar = !parts_.context.settings.main.showStatusBar;
    relayout_();
}

void FrameCommands::toggleMetadataPanel(app::CommandId) {
    const app::Settings::Lists& lists = parts_.context.settings.lists;
    setRightPanel(&app::Settings::Lists::showMetadataWindow, !lists.showMetadataWindow);
    reading_.readSelection(app::command::kReadSelection);
}

void FrameCommands::setRightPanel(bool app::Settings::Lists::*flag, bool shown) {
    // The four right panels exclude each other.
    parts_.context.settings.lists = {};
    parts_.context.settings.lists.*flag = shown;
    relayout_();
}

void FrameCommands::showAbout(app::CommandId) {
    AboutDialog dialog(parts_.context, parts_.language, QStringLiteral(TAGWRIGHT_VERSION), &parts_.window);
    dialog.run();
}

void FrameCommands::closeWindow(app::CommandId) {
    parts_.window.close();
}

void FrameCommands::restart(app::CommandId) {
    // The window closes later when an operation runs or something is waited for.
    if (!std::exchange(restarts_, true))
        QObject::connect(qApp, &QCoreApplication::aboutToQuit,
                         [program = platform::display(parts_.context.installPath / "Tagwright")] {
                             QProcess::startDetached(program, {});
                         });
    parts_.window.close();
}

}  // namespace window
