#include "app/ColumnsHeader.h"
#include "app/SettingsStore.h"
#include "app/StartUp.h"
#include "app/TextNumbers.h"
#include "browser/ShellBrowser.h"
#include "browser/TabContainer.h"
#include "dialogs/Messages.h"
#include "dialogs/ProgressDialog.h"
#include "dialogs/Waiting.h"
#include "jobs/JobRunner.h"
#include "panel/MetadataPanel.h"
#include "platform/Text.h"
#include "window/MainWindow.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QTimer>
#include <algorithm>
#include <utility>

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
    loadedColumns_ = app::LoadColumns(context_.columnsHeaderPath, states);
    for (const app::ColumnState& state : states) {
        properties_.setVisible(static_cast<std::uint32_t>(state.columnType), state.visible);
        properties_.setWidth(static_cast<std::uint32_t>(state.columnType), state.width);
    }
}

void MainWindow::closeEvent(QCloseEvent* event) {
    // The file that is being written comes first; the operation then closes the window behind it.
    if (jobs_->isRunning()) {
        jobs_->closeAfterThisFile();
        jobProgress_->showClosing();
        event->ignore();
        return;
    }
    if (waiting_->isWaiting()) {
        closesAfterWait_ = true;
        event->ignore();
        return;
    }
    if (!closed_) {
        closed_ = true;
        session_.CloseExifToolSession();
        warmStarter_.Stop();
        writeColumns();
        saveEverything();
        removeTempFolder();
    }
    event->accept();
    QCoreApplication::exit(0);
}

void MainWindow::waitHasEnded() {
    // What the wait was for goes on first.
    if (std::exchange(closesAfterWait_, false)) QTimer::singleShot(0, this, &QWidget::close);
}

void MainWindow::writeColumns() {
    activeBrowser().SaveColumnWidths();
    const std::error_code error =
        app::writeColumnsFile(context_.columnsHeaderPath, columnStates(properties_), loadedColumns_);
    if (error) {
        dialogs::showMessage(this, {app::formatText(u"Could not write to ColumnsHeader.ini.\nError: %d",
                                                    {QString::number(error.value())}),
                                    dialogs::MessageIcon::Information});
    }
}

app::Settings::WindowPosition MainWindow::currentPosition() const {
    const QRect normal = isMaximized() ? normalGeometry() : geometry();
    // A top edge above the screen is how the file says maximised; far edges of 0 say it, too.
    if (isMaximized() && !normal.isValid()) return {};
    const int top = isMaximized() ? app::maximisedTop(normal.top()) : normal.top();
    return {isMaximized() ? std::max(normal.left(), 0) : normal.left(), top, normal.right() + 1,
            normal.bottom() + 1};
}

app::Settings::WindowSizes MainWindow::currentSizes() const {
    app::Settings::WindowSizes sizes = context_.settings.windowSizes;
    sizes.middleListWidth = tabs_->width();
    sizes.mainWidth = client_->width();
    sizes.mainHeight = client_->height();
    return sizes;
}

void MainWindow::takeLayoutAsLoaded() {
    context_.settings.windowPosition = currentPosition();
    context_.settings.windowSizes = currentSizes();
    app::takeAsLoaded(context_, "MainWindow-Position");
    app::takeAsLoaded(context_, "WINDOWS_SIZES");
}

void MainWindow::saveEverything() {
    context_.settings.metadataValueColumnWidth = metadataPanel_->valueColumnWidth();
    context_.settings.startFolder = app::startFolderText(activeBrowser().currentFolder());

    QString problem = app::SaveWindowPosition(context_, currentPosition());
    if (problem.isEmpty()) problem = app::SaveWindowSizes(context_, currentSizes());
    if (problem.isEmpty()) problem = app::SaveSettings(context_);
    if (!problem.isEmpty()) tellFault(app::text::kSettingsNotSaved, {problem});
}

void MainWindow::removeTempFolder() {
    const QString problem = app::closeTempFolder(context_, tempFolder_);
    if (problem.isEmpty()) return;
    tellFault(app::text::kTempFolderNotCleared, {platform::display(context_.tempRoot), problem});
}

}  // namespace window
