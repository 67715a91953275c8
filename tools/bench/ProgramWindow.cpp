// The program itself with the clock on it: INSTALL_FOLDER, and a folder to open when the window stands.

#include "FirstPaint.h"
#include "LoopWatch.h"
#include "PlainProcess.h"
#include "ProcessMemory.h"
#include "browser/FileListView.h"
#include "browser/ShellBrowser.h"
#include "window/MainWindow.h"
#include "window/Program.h"

#include <QApplication>
#include <QItemSelectionModel>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <filesystem>
#include <optional>

namespace {

constexpr int kJumps = 100;
constexpr int kBetweenJumps = 5;  // milliseconds
constexpr app::SortMode kOrders[] = {app::SortMode::Size, app::SortMode::DateModified, app::SortMode::Type,
                                     app::SortMode::Name};
constexpr int kRowsForEachSelected = 1000;

/// Ends without closing the window, which would store the folder that is shown as the next one to start with.
void leave() {
    QApplication::exit(0);
}

/// Opens a folder in the window and prints how long it took until its files were on the display.
class FolderOpening : public QObject {
 public:
    FolderOpening(window::MainWindow& window, std::filesystem::path folder)
        : window_(window), folder_(std::move(folder)) {}

    void start() {
        loopWatch_.emplace();
        // From within the event loop, so that the opening itself is among what makes others wait.
        QTimer::singleShot(std::chrono::milliseconds(20), this, [this] { open(); });
    }

 private:
    void open() {
        begin_ = bench::monotonicSeconds();
        paint_.emplace([this](const QWidget& widget) { return showsTheFolder(widget); }, [this] { end(); });
        window_.openFolder(folder_);
    }

    bool showsTheFolder(const QWidget& widget) {
        browser::ShellBrowser& browser = window_.activeBrowser();
        return &widget == browser.view().viewport() && browser.currentFolder() == folder_ &&
               !browser.isLoading();
    }

    void end() {
        bench::printMeasurement("seconds", bench::monotonicSeconds() - begin_);
        // What the list does behind its first picture counts for the blocks and the memory, too.
        QTimer::singleShot(std::chrono::seconds(1), this, [this] {
            bench::printMeasurement("block", loopWatch_->longestWait());
            bench::printMeasurement("memory", bench::ownMemory());
            bench::printMeasurement("items", window_.activeBrowser().model().rowCount());
            bench::printMeasurement("scroll", longestScroll());
            sortBegin_ = bench::monotonicSeconds();
            connect(&window_.activeBrowser().model(), &QAbstractItemModel::layoutChanged, this,
                    [this] { sorted(); });
            sortNext();
        });
    }

    /// By each of the orders once, with a row in a thousand selected, which goes with its item. The folder is
    /// in the order of its names.
    void sortNext() {
        if (sortedTimes_ == std::size(kOrders)) {
            bench::printMeasurement("sort", longestSort_);
            bench::printMeasurement("sortBlock", longestSortBlock_);
            return leave();
        }
        if (sortedTimes_ == 0) selectSome();
        loopWatch_.emplace();
        QTimer::singleShot(std::chrono::milliseconds(20), this, [this] {
            sortBegin_ = bench::monotonicSeconds();
            window_.activeBrowser().SetSortMode(kOrders[sortedTimes_]);
        });
    }

    void sorted() {
        longestSort_ = std::max(longestSort_, bench::monotonicSeconds() - sortBegin_);
        // Laying out and painting the new order is part of what others wait for.
        QTimer::singleShot(std::chrono::milliseconds(200), this, [this] {
            longestSortBlock_ = std::max(longestSortBlock_, loopWatch_->longestWait());
            ++sortedTimes_;
            sortNext();
        });
    }

    void selectSome() {
        browser::FileListView& view = window_.activeBrowser().view();
        const QAbstractItemModel& model = *view.model();
        QItemSelection selection;
        for (int row = 0; row < model.rowCount(); row += kRowsForEachSelected)
            selection.select(model.index(row, 0), model.index(row, model.columnCount() - 1));
        view.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    }

    /// Jumps through the whole list, each time to rows that have never been painted. Between the jumps the
    /// columns and icons of the rows arrive.
    double longestScroll() {
        browser::FileListView& view = window_.activeBrowser().view();
        double longest = 0;
        for (int jump = 1; jump <= kJumps; ++jump) {
            QScrollBar* bar = view.verticalScrollBar();
            const double begin = bench::monotonicSeconds();
            bar->setValue(static_cast<int>(static_cast<qint64>(bar->maximum()) * jump / kJumps));
            view.viewport()->repaint();
            longest = std::max(longest, bench::monotonicSeconds() - begin);
            QApplication::processEvents(QEventLoop::AllEvents, kBetweenJumps);
        }
        return longest;
    }

    window::MainWindow& window_;
    std::filesystem::path folder_;
    std::optional<bench::LoopWatch> loopWatch_;
    std::optional<bench::FirstPaint> paint_;
    double begin_ = 0;
    std::size_t sortedTimes_ = 0;
    double sortBegin_ = 0;
    double longestSort_ = 0;
    double longestSortBlock_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc < 2) return 2;
    window::Program program(application, std::filesystem::absolute(argv[1]) / "Tagwright");
    std::optional<FolderOpening> opening;
    // All of a window's widgets are painted in one go; the list is the one that may still lack its files.
    bench::FirstPaint painted(
        [&](const QWidget& widget) {
            if (!program.hasWindow() || widget.window() != &program.window()) return false;
            browser::ShellBrowser& browser = program.window().activeBrowser();
            return &widget == browser.view().viewport() && browser.isFolderLoaded();
        },
        [&] {
            bench::printMeasurement("painted", bench::monotonicSeconds());
            if (argc < 3) return leave();
            opening.emplace(program.window(), argv[2]);
            // The start folder's icons and columns have come by then.
            QTimer::singleShot(std::chrono::seconds(1), &*opening, [&] { opening->start(); });
        });
    if (const std::optional<int> status = program.start()) return 1;
    return QApplication::exec();
}
