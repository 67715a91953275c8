#include "app/ColumnsHeader.h"
#include "app/MainWindow.h"
#include "app/MainWindowFeedback.h"
#include "app/Messages.h"
#include "app/ProgressDialog.h"
#include "app/SettingsStore.h"
#include "app/StartUp.h"
#include "browser/ShellBrowser.h"
#include "browser/TabContainer.h"
#include "platform/Text.h"
#include "tags/MetadataPanel.h"

#include <QCloseEvent>
#include <QCoreApplication>

namespace app {

namespace {

std::vector<ColumnState> columnStates(const tags::PropertyCatalogue& catalogue) {
    std::vector<ColumnState> states;
    for (const tags::PropertyRecord& record : catalogue.records())
        states.push_back({static_cast<int>(record.columnType), record.width, record.visible != 0});
    return states;
}

}  // namespace

void MainWindow::loadColumns() {
    std::vector<ColumnState> states = columnStates(properties_);
    LoadColumns(context_.columnsHeaderPath, states);
    for (const ColumnState& state : states) {
        properties_.setVisible(static_cast<std::uint32_t>(state.columnType), state.visible);
        properties_.setWidth(static_cast<std::uint32_t>(state.columnType), state.width);
    }
}

void MainWindow::closeEvent(QCloseEvent* event) {
    // The file that is being read or written comes first. A read's wait is ended by its own dialog; an
    // operation over files closes the window behind the file.
    if (feedback_->CloseAfterThisFile() || progress_.isWaiting()) {
        event->ignore();
        return;
    }
    if (!closed_) {
        closed_ = true;
        session_.CloseExifToolSession();
        warmStarter_.Stop();
        writeColumns();
        saveEverything();
        EmptyTempFolder(context_);
    }
    event->accept();
    QCoreApplication::exit(0);
}

void MainWindow::writeColumns() {
    activeBrowser().SaveColumnWidths();
    std::vector<ColumnState> states = columnStates(properties_);
    const std::error_code error = WriteColumnsFile(context_.columnsHeaderPath, states);
    if (error) {
        ShowMessage(this, {FormatText(u"Could not write to ColumnsHeader.ini.\nError: %d",
                                      {QString::number(error.value())}),
                           MessageIcon::Information});
    }
}

void MainWindow::saveEverything() {
    const QRect normal = isMaximized() ? normalGeometry() : geometry();
    Settings::WindowPosition position{normal.left(), normal.top(), normal.right() + 1, normal.bottom() + 1};
    // Far edges of 0 are how the file says maximised.
    if (isMaximized()) position = {};
    Settings::WindowSizes sizes = context_.settings.windowSizes;
    sizes.middleListWidth = tabs_->width();
    sizes.mainWidth = client_->width();
    sizes.mainHeight = client_->height();
    context_.settings.metadataValueColumnWidth = metadataPanel_->valueColumnWidth();
    context_.settings.startFolder = platform::display(activeBrowser().currentFolder());

    QString problem = SaveWindowPosition(context_, position);
    if (problem.isEmpty()) problem = SaveWindowSizes(context_, sizes);
    if (problem.isEmpty()) problem = SaveSettings(context_);
    if (!problem.isEmpty()) TellSettingsProblem(problem);
}

}  // namespace app
