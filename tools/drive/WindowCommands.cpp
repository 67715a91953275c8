#include "drive/WindowCommands.h"

#include "browser/AddressPath.h"
#include "browser/ShellBrowser.h"
#include "browser/TabContainer.h"
#include "drive/CellClicks.h"
#include "drive/ControlState.h"
#include "drive/OpenWindows.h"
#include "panel/MetadataPanel.h"
#include "platform/Text.h"
#include "window/CommandMap.h"
#include "window/MainWindow.h"
#include "window/Program.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QHeaderView>
#include <QJsonArray>
#include <QPointer>
#include <QRegularExpression>
#include <QScreen>
#include <QTabBar>
#include <QTimer>
#include <QtTest/QTest>

#include <functional>

namespace drive {

namespace {

constexpr int kLoadLimit = 30000;
constexpr int kColumnLimit = 10000;
constexpr int kActivationLimit = 1000;
/// In a longer list only the texts that are on the screen are waited for.
constexpr int kMostRowsWaitedFor = 2000;

/// Lets the program run until the condition holds.
bool waitUntil(const std::function<bool()>& condition, int limitMilliseconds) {
    QElapsedTimer since;
    since.start();
    while (!condition()) {
        if (since.elapsed() > limitMilliseconds) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 10);
    }
    return true;
}

int rowOfFile(const browser::FileListModel& model, const QString& name) {
    for (int row = 0; row < model.rowCount(); ++row)
        if (model.index(row, 0).data(browser::FileListModel::NameRole).toString() == name) return row;
    return -1;
}

Answer noSuchFile(const QString& name) {
    return Answer::failed(QStringLiteral("no file \"%1\" in the list").arg(name));
}

Answer noCommand(int id) {
    return Answer::failed(QStringLiteral("there is no command %1").arg(id));
}

/// The title of a group without the number of its rows.
QString nameOfHeader(const QString& title) {
    static const QRegularExpression count(QStringLiteral(" \\(\\d+\\)$"));
    return QString(title).remove(count).trimmed();
}

QString textOfPart(const QWidget& whole, const QString& objectName) {
    const auto* part = whole.findChild<QWidget*>(objectName);
    return part == nullptr ? QString() : describeControl(*part, 0)["text"].toString();
}

/// The main window with what other windows show over it; without one the front window. There is no screen to
/// take.
QPixmap pictureOfWindows(window::Program& program) {
    QWidget* base = program.hasWindow() ? &program.window() : QApplication::activeModalWidget();
    if (base == nullptr) return {};
    QPixmap picture = base->grab();
    QPainter painter(&picture);
    for (QWidget* front : QApplication::topLevelWidgets())
        if (front != base && front->isVisible())
            painter.drawPixmap(base->mapFromGlobal(front->mapToGlobal(QPoint(0, 0))), front->grab());
    return picture;
}

/// Closes what stands in front, then the window. What comes up while the window closes is left to the script.
void closeSoon(window::Program& program) {
    constexpr int kRetryMilliseconds = 20;
    QTimer::singleShot(kRetryMilliseconds, qApp, [&program] {
        const bool waiting = program.hasWindow() && program.canStopWaiting();
        if (waiting || openDialog() != nullptr || openMessage() != nullptr || openMenu() != nullptr) {
            dismissFrontWindow();
            closeSoon(program);
        } else if (program.hasWindow()) {
            // Refused while a tool is being waited for.
            if (!program.window().close()) closeSoon(program);
        }
    });
}

}  // namespace

Answer WindowCommands::open(const QString& path) {
    window::MainWindow& window = program_.window();
    const std::filesystem::path folder = browser::absolutePath(path, window.activeBrowser().currentFolder());
    if (!window.openFolder(folder))
        return Answer::failed(QStringLiteral("\"%1\" cannot be opened: %2").arg(path, window.statusText()));
    if (!waitUntil([&] { return !window.activeBrowser().isLoading(); }, kLoadLimit))
        return Answer::failed(QStringLiteral("the folder is still being read"));
    return {{{"path", platform::display(window.activeBrowser().currentFolder())}}, {}};
}

Answer WindowCommands::files() {
    browser::ShellBrowser& browser = program_.window().activeBrowser();
    waitForFolder();
    const browser::FileListModel& model = browser.model();
    const std::vector<int> order = browser.view().rowsInViewOrder();
    const auto textsMissing = [&] {
        bool missing = false;
        for (const int row : order)
            for (int column = 1; column < model.columnCount(); ++column)
                // Asking for the text is what queues it.
                if (!model.list().itemAt(row).isFolder() &&
                    model.index(row, column).data().toString().isEmpty())
                    missing = browser.hasWaitingCells();
        return missing;
    };
    if (order.size() <= kMostRowsWaitedFor) waitUntil([&] { return !textsMissing(); }, kColumnLimit);

    QJsonArray files;
    for (const int row : order) {
        QJsonObject columns;
        for (int column = 1; column < model.columnCount(); ++column)
            columns[model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString()] =
                model.index(row, column).data().toString();
        const bool selected = browser.view().selectionModel()->isRowSelected(row, {});
        files.append(
            QJsonObject{{"name", model.index(row, 0).data(browser::FileListModel::NameRole).toString()},
                        {"columns", columns},
                        {"selected", selected},
                        {"checked", selected && browser.view().checkBoxes()},
                        {"group", QJsonValue()}});
    }
    return {{{"files", files}}, {}};
}

Answer WindowCommands::select(const QStringList& names) {
    browser::ShellBrowser& browser = program_.window().activeBrowser();
    QItemSelection selection;
    QModelIndex last;
    for (const QString& name : names) {
        const int row = rowOfFile(browser.model(), name);
        if (row < 0) return noSuchFile(name);
        last = browser.model().index(row, 0);
        selection.select(last, last);
    }
    QItemSelectionModel& model = *browser.view().selectionModel();
    model.select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (last.isValid()) model.setCurrentIndex(last, QItemSelectionModel::NoUpdate);
    return {};
}

Answer WindowCommands::click(const QString& name, const QString& column, const QString& how) {
    if (!isKindOfClick(how)) return Answer::failed(QStringLiteral("\"%1\" is no kind of click").arg(how));
    browser::ShellBrowser& browser = program_.window().activeBrowser();
    const int row = rowOfFile(browser.model(), name);
    if (row < 0) return noSuchFile(name);
    const int section = column.isEmpty() ? 0 : columnNamed(browser.model(), column);
    if (section < 0) return Answer::failed(QStringLiteral("no column \"%1\"").arg(column));
    const QModelIndex index = browser.model().index(row, section);
    Answer answer = clickIndex(browser.view(), index, how);
    waitForFolder();
    return answer;
}

Answer WindowCommands::rows() {
    panel::MetadataPanel& panel = program_.window().metadataPanel();
    QJsonArray rows;
    for (const int position : panel.list().rowsInViewOrder()) {
        const tags::MetadataRow& row = panel.model().row(position);
        const QString header = panel.list().groupTitle(static_cast<int>(row.groupId));
        rows.append(QJsonObject{{"group", nameOfHeader(header)},
                                {"tag", row.tag},
                                {"id", row.id},
                                {"value", row.value},
                                {"image", row.stars ? QJsonValue(*row.stars) : QJsonValue()}});
    }
    const QModelIndex current = panel.list().currentIndex();
    QString place;
    if (current.isValid()) {
        const tags::MetadataRow& row = panel.model().row(current.row());
        place = row.group + u':' + row.tag;
    }
    return {{{"rows", rows},
             {"title", textOfPart(panel, QStringLiteral("metadataTitle"))},
             {"current", place},
             {"top", current.isValid() ? panel.list().visualRect(current).top() : -1}},
            {}};
}

Answer WindowCommands::row(const QString& group, const QString& tag, const QString& column,
                           const QString& how) {
    panel::MetadataPanel& panel = program_.window().metadataPanel();
    const int section =
        column.isEmpty() ? static_cast<int>(tags::PanelColumn::Value) : columnNamed(panel.model(), column);
    if (section < 0) return Answer::failed(QStringLiteral("no column \"%1\"").arg(column));
    for (int position = 0; position < panel.model().rowCount(); ++position) {
        const tags::MetadataRow& row = panel.model().row(position);
        if (row.group.compare(group, Qt::CaseInsensitive) != 0 || row.tag != tag) continue;
        panel.list().setGroupCollapsed(static_cast<int>(row.groupId), false);
        return clickIndex(panel.list(), panel.model().index(position, section), how);
    }
    return Answer::failed(QStringLiteral("no row %1:%2").arg(group, tag));
}

Answer WindowCommands::header(const QString& group) {
    panel::MetadataListView& list = program_.window().metadataPanel().list();
    for (const int id : list.shownGroups()) {
        const QString title = list.groupTitle(id);
        if (nameOfHeader(title).compare(group, Qt::CaseInsensitive) != 0) continue;
        const std::vector<int> rows = list.rowsInViewOrder();
        for (const int row : rows) {
            const QModelIndex index = list.model()->index(row, 0);
            if (index.data(controls::GroupedListView::GroupIdRole).toInt() == id) {
                list.scrollTo(index, QAbstractItemView::PositionAtCenter);
                break;
            }
        }
        const QPoint point = list.groupHeaderRect(id).intersected(list.viewport()->rect()).center();
        QTest::mouseClick(list.viewport(), Qt::RightButton, Qt::NoModifier, point);
        return {};
    }
    return Answer::failed(QStringLiteral("no group \"%1\" is shown").arg(group));
}

Answer WindowCommands::command(int id) {
    if (!program_.window().commands().isBuilt(id)) return noCommand(id);
    program_.window().Dispatch(id);
    waitForFolder();
    return {};
}

Answer WindowCommands::state(int id) {
    const QAction* action = program_.window().commands().action(id);
    if (action == nullptr) return noCommand(id);
    QJsonObject state{{"enabled", action->isEnabled()}};
    if (action->isCheckable()) state["checked"] = action->isChecked();
    return {state, {}};
}

/// Nobody manages the windows of a script's screen: when a dialog, a menu or a list of offers has closed, the
/// keyboard may be with no window, or with the one that is gone.
void WindowCommands::takeKeyboardBack() {
    QWidget* front = openMessage();
    if (front == nullptr) front = openDialog();
    if (front == nullptr && program_.hasWindow()) front = &program_.window();
    const auto hasKeyboard = [&] {
        return QApplication::activeWindow() == front &&
               QGuiApplication::focusWindow() == front->windowHandle();
    };
    if (front == nullptr || QApplication::activePopupWidget() != nullptr || hasKeyboard()) return;
    front->activateWindow();
    waitUntil(
        [guarded = QPointer<QWidget>(front), &hasKeyboard] { return guarded == nullptr || hasKeyboard(); },
        kActivationLimit);
}

Answer WindowCommands::type(const QString& text) {
    takeKeyboardBack();
    return typeText(text);
}

Answer WindowCommands::key(const QString& keys) {
    takeKeyboardBack();
    Answer answer = pressKey(keys);
    if (program_.hasWindow()) waitForFolder();
    return answer;
}

Answer WindowCommands::focus(const QString& objectName) {
    takeKeyboardBack();
    for (QWidget* widget : program_.window().findChildren<QWidget*>(objectName)) {
        if (!widget->isVisible() || !widget->isEnabled()) continue;
        QTest::mouseClick(widget, Qt::LeftButton);
        return {};
    }
    return Answer::failed(QStringLiteral("nothing named \"%1\" is shown").arg(objectName));
}

Answer WindowCommands::menuOf(const QString& objectName) {
    auto* part = program_.window().findChild<QWidget*>(objectName);
    if (part == nullptr || !part->isVisible())
        return Answer::failed(QStringLiteral("nothing named \"%1\" is shown").arg(objectName));
    auto* scrolled = qobject_cast<QAbstractScrollArea*>(part);
    QWidget* target = scrolled != nullptr ? scrolled->viewport() : part;
    // At its lower edge, where a short list is free.
    const QPoint place(target->width() / 20, target->height() - 5);
    QContextMenuEvent event(QContextMenuEvent::Other, place, target->mapToGlobal(place));
    QApplication::sendEvent(target, &event);
    return {};
}

Answer WindowCommands::tab(int index) {
    QTabBar& bar = program_.window().tabs().tabBar();
    if (index < 0 || index >= bar.count())
        return Answer::failed(QStringLiteral("there is no tab %1").arg(index));
    QTest::mouseClick(&bar, Qt::LeftButton, Qt::NoModifier, bar.tabRect(index).center());
    waitForFolder();
    return {};
}

Answer WindowCommands::area(const QString& objectName) {
    const auto* part = program_.window().findChild<QWidget*>(objectName);
    if (part == nullptr) return Answer::failed(QStringLiteral("the window has no \"%1\"").arg(objectName));
    QJsonObject described = describeControl(*part, 0);
    described.remove(QStringLiteral("id"));
    const QPoint place = part->mapTo(&program_.window(), QPoint(0, 0));
    described["x"] = place.x();
    described["y"] = place.y();
    described["width"] = part->width();
    described["height"] = part->height();
    return {described, {}};
}

void WindowCommands::waitForFolder() {
    waitUntil(
        [&] {
            const browser::ShellBrowser& browser = program_.window().activeBrowser();
            return !browser.isLoading() && !browser.isSorting();
        },
        kLoadLimit);
}

Answer WindowCommands::status() {
    const QWidget* focused = program_.window().focusWidget();
    return {{{"text", program_.window().statusText()},
             {"selection", program_.window().selectionText()},
             {"focus", focused != nullptr ? focused->objectName() : QString()}},
            {}};
}

Answer WindowCommands::stop() {
    program_.window().stopWaiting();
    return {};
}

Answer WindowCommands::title() {
    return {{{"title", program_.window().windowTitle()}}, {}};
}

Answer WindowCommands::screenshot(const QString& file) {
    QPixmap picture;
    if (QApplication::platformName() == u"offscreen") {
        picture = pictureOfWindows(program_);
    } else {
        QCoreApplication::processEvents();
        picture = QApplication::primaryScreen()->grabWindow(0);
    }
    if (!picture.save(file)) return Answer::failed(QStringLiteral("\"%1\" cannot be written").arg(file));
    return {};
}

Answer WindowCommands::wait(int milliseconds) {
    waitUntil([] { return false; }, milliseconds);
    return {};
}

void WindowCommands::endUnattended() {
    constexpr int kEveryMilliseconds = 50;
    if (unattended_.isActive()) return;
    QObject::connect(&unattended_, &QTimer::timeout, [] { dismissFrontWindow(); });
    unattended_.start(kEveryMilliseconds);
    closeSoon(program_);
}

Answer WindowCommands::quit() {
    // The answer comes first: after it the program is gone.
    closeSoon(program_);
    return {};
}

}  // namespace drive
