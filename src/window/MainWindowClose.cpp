#include "app/ColumnsHeader.h"
#include "app/SettingsStore.h"
#include "app/StartUp.h"
#include "browser/ShellBrowser.h"
#include "browser/TabContainer.h"
#include "dialogs/Messages.h"
#include "dialogs/ProgressDialog.h"
#include "panel/MetadataPanel.h"
#include "platform/Text.h"
#include "window/MainWindow.h"
#include "window/WindowFeedback.h"

#include <QCloseEvent>
#include <QCoreApplication>

namespace window {

namespace {

std::vector<app::ColumnState> columnStates(const tags::PropertyCatalogue& catalogue) {
    std::vector<app::ColumnState> states;
    for (const tags::PropertyRecord& record : catalogue.records())
        states.push_back({static_cast<int>(record.columnType), record.width, record.visible != 0});
    return states;
}

}  // namespace

void MainWindow::loadColumns() {
    std::vector<app::ColumnState> states = columnStates(properties_);
    app::LoadColumns(context_.columnsHeaderPath, states);
    for (const app::ColumnState& state : states) {
        properties_.setVisible(static_cast<std::uint32_t>(state.columnType), state.visible);
        properties_.setWidth(static_cast<std::uint32_t>(state.columnType), state.width);
    }
}

void MainWindow::closeEvent(QCloseEvent* event) {
    // The file that is being read or written comes first. A read's wait is ended by its own dialog; an
    // operation over files closes the window behind the file.
    if (feedback_->closeAfterThisFile() || progress_.isWaiting()) {
        event->ignore();
        return;
    }
    if (!closed_) {
        closed_ = true;
        session_.CloseExifToolSession();
        warmStarter_.Stop();
        writeColumns();
        saveEverything();
        app::emptyTempFolder(context_);
    }
    event->accept();
    QCoreApplication::exit(0);
}

void MainWindow::writeColumns() {
    activeBrowser().SaveColumnWidths();
    std::vector<app::ColumnState> states = columnStates(properties_);
    const std::error_code error = app::writeColumnsFile(context_.columnsHeaderPath, states);
    if (error) {
        dialogs::showMessage(this, {app::formatText(u"Could not write to ColumnsHeader.ini.\nError: %d",
                                                    {QString::number(error.value())}),
                                    dialogs::MessageIcon::Information});
    }
}

void MainWindow::saveEverything() {
    const QRect normal = isMaximized() ? normalGeometry() : geometry();
    app::Settings::WindowPosition position{normal.left(), normal.top(), normal.right() + 1,
                                           normal.bottom() + 1};
    // Far edges of 0 are how the file says maximised.
    if (isMaximized()) position = {};
    app::Settings::WindowSizes sizes = context_.settings.windowSizes;
    sizes.middleListWidth = tabs_->width();
    sizes.mainWidth = client_->width();
    sizes.mainHeight = client_->height();
    context_.settings.metadataValueColumnWidth = metadataPanel_->valueColumnWidth();
    context_.settings.startFolder = platform::display(activeBrowser().currentFolder());

    QString problem = app::SaveWindowPosition(context_, position);
    if (problem.isEmpty()) problem = app::SaveWindowSizes(context_, sizes);
    if (problem.isEmpty()) problem = app::SaveSettings(context_);
    if (!problem.isEmpty()) tellSettingsProblem(problem);
}

}  // namespace window
