#pragma once

#include "app/AppContext.h"
#include "controls/CommandAction.h"
#include "exiftool/MetadataLoad.h"
#include "panel/MetadataListModel.h"
#include "panel/MetadataListView.h"
#include "platform/FileStamp.h"
#include "platform/FolderWatch.h"
#include "tags/LabelLibrary.h"
#include "tags/RowPlace.h"

#include <QTimer>
#include <QUrl>
#include <QWidget>
#include <filesystem>
#include <functional>
#include <optional>

class QKeyEvent;
class QLabel;
class QLineEdit;
class QMenu;

namespace panel {

/// The right-hand pane that shows the tags of the current file, in the groups of the catalogue. It owns the
/// list, its painting and its menus; the reading is MetadataReader's, on a thread of its own. GUI thread.
class MetadataPanel : public QWidget, public exiftool::LoadTarget {
    Q_OBJECT

 public:
    /// What the panel needs of others; all outlive it.
    struct Parts {
        const app::AppContext& context;
        const tags::TagDictionary& dictionary;
        const tags::RatingMemory& memory;
        tags::OutputParser& parser;
        exiftool::MetadataReader& reader;
        exiftool::MetadataLoad& load;
        exiftool::LoadFeedback& feedback;
        std::function<QString(int)> text;            ///< string by number of the language file
        const tags::LabelLibrary* labels = nullptr;  ///< null: no help on tags
    };

    explicit MetadataPanel(const Parts& parts, QWidget* parent = nullptr);

    /// Where the entries of the menus come from; outlives the panel's use. Without them the menus hold only
    /// what the panel does itself.
    void setCommands(controls::CommandActions& commands) { commands_ = &commands; }

    /// Command 40108: clears the list and has the file read; an empty path only clears it. The rows come when
    /// ReadingEnded is told; a file that is chosen before then takes the place of this one. The user stays at
    /// the tag where he was, if the file has it.
    void newSelection(const std::filesystem::path& file);
    /// The same without a word in the status bar.
    void newSelectionQuietly(const std::filesystem::path& file);
    /// Command 8056: has the shown file read again; the rows stay until the new ones are there, row and
    /// scroll position remain.
    void Refresh();
    /// The same without a word in the status bar, where something stands that is to be read.
    void readAgainQuietly();
    /// Command 8003.
    void clear();
    /// Clears the list for a file that will soon be known; until then the rows may stay to be seen, and for
    /// nothing else.
    void clearForNext();
    /// Of the files that are selected the one that is shown, for the title.
    void showNumber(int number, int count);

    /// Copies the current cell, or the whole selected row where no cell is current.
    void Copy() const;
    /// What a row's value is with the characters that its cell cannot show; without, the cell's text is
    /// copied.
    void setWholeValue(std::function<QString(const tags::MetadataRow&)> wholeValue) {
        wholeValue_ = std::move(wholeValue);
    }
    /// Command 40011: opens the value of the current row when it is the address of a web page.
    void openAddress() const;
    /// Whether openAddress() would do something.
    bool canOpenAddress() const;

    const std::filesystem::path& file() const { return file_; }
    /// From a request to its ReadingEnded.
    bool isReading() const { return parts_.reader.isReading(); }
    /// Why the shown rows are not all, for people; empty when they are.
    const QString& fault() const { return fault_; }
    /// Whether the file is still the one whose tags are shown, and nobody has written it since.
    bool isFileUnchanged() const;
    /// The value that was written is shown in its row, and the file counts as unchanged again.
    void showWrittenValue(int row, const QString& value);
    /// The rows of the group of the current row, or none without one.
    std::vector<tags::MetadataRow> rowsOfCurrentGroup() const;

    /// The keyboard goes to the field that narrows the list.
    void focusFilter();

    MetadataListView& list() { return *list_; }
    const MetadataListModel& model() const { return *model_; }
    /// Width of the value column in pixels, for the settings.
    int valueColumnWidth() const;

    // --- exiftool::LoadTarget
    void InsertMetadataRow(tags::MetadataRow&& row) override;
    void SetGroupCount(std::uint32_t groupId, int count) override;

 Q_SIGNALS:
    /// A click on a row, but on a name that has help, or Enter on a row.
    void ValueChosen(int row, bool altHeld);
    /// A command was chosen by a key; it is about the current row.
    void CommandChosen(int commandId);
    /// The rows of the file that was asked for last stand in the list, or the reason why they do not.
    void ReadingEnded();
    /// The file on show was deleted, renamed or moved by somebody else. Its rows are gone, and the panel is
    /// about no file.
    void FileVanished(const std::filesystem::path& file);
    /// Another row is the current one, or other tags are shown.
    void CurrentRowChanged();

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    void createFilter();
    void createColumns();
    void setFilter(const QString& filter);
    bool filterKey(const QKeyEvent& key);
    void showCounts();
    void showEmptyText();
    void connectList();
    /// The command of a key that the panel takes; 0 for none.
    static int commandOfKey(const QKeyEvent& key);
    /// A command of the window, if it has it.
    void addCommand(QMenu& menu, int id, const QString& text) const;
    void addListEntries(QMenu& menu) const;
    void addRowEntries(QMenu& menu, const tags::MetadataRow& row) const;
    void addDesignedEntries(QMenu& menu, const QModelIndex& index) const;
    void makeCurrent(int groupId);
    void CreatePanelGroups();
    void showRowMenu(const QModelIndex& index, const QPoint& position);
    void showGroupMenu(int groupId, const QPoint& position);
    void collapseAll(bool collapsed);
    /// Empty when the value names nothing that may be opened.
    static QUrl addressIn(const QString& value);
    /// The help of a tag whose name was clicked, in a pop-up beside it. False when there is none to show.
    bool showHelp(const QModelIndex& index);
    /// Where the user is in the list: the current row, and a row in sight with its distance from the top.
    struct Place {
        std::optional<tags::RowPlace> current;
        int column = 0;
        std::optional<tags::RowPlace> inSight;
        int top = 0;
    };
    enum class Reading { NewFile, SameFile };
    Place place() const;
    /// Remembers where the user is; where nobody has moved since goToPlace(), what was wanted stays wanted.
    void notePlace();
    void goToPlace(Reading reading);
    void scrollToPlace();
    void holdScreen();
    void releaseScreen();
    void dropVanished();
    void beginReading(const std::filesystem::path& file, Reading reading, bool isQuiet);
    void showRead(const exiftool::MetadataRead& read, Reading reading, bool isQuiet);
    void showTitle();
    int titleRoom() const;

    Parts parts_;
    controls::CommandActions* commands_ = nullptr;
    std::function<QString(const tags::MetadataRow&)> wholeValue_;
    std::filesystem::path file_;
    platform::FileStamp stamp_;
    QString fault_;
    QLabel* title_;
    QLineEdit* filter_;
    QString emptyText_;  ///< while no filter hides all rows
    MetadataListModel* model_;
    MetadataListView* list_;
    Place wanted_;
    int arrivedAt_ = -1;       ///< the current row after goToPlace()
    int arrivedScrolled_ = 0;  ///< and the scroll bar's value
    QTimer hold_;              ///< how long the rows that went stay on the screen
    QTimer vanishing_;         ///< how long a file may be missing before it is gone
    platform::FolderWatch watch_;
    int number_ = 0;  ///< of the file among the selected ones
    int selectedCount_ = 0;
    std::vector<std::pair<std::uint32_t, int>> counts_;
    std::size_t rowsOfFile_ = 0;
};

}  // namespace panel
