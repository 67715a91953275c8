#include "panel/MetadataPanel.h"

#include "app/CommandTable.h"
#include "app/LanguageFile.h"
#include "app/TextNumbers.h"
#include "controls/Icons.h"
#include "panel/MetadataDelegate.h"
#include "panel/PanelTexts.h"
#include "platform/Text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <map>

namespace panel {

namespace {

constexpr int kTitleHeight = 34;
constexpr int kFilterMargin = 4;
constexpr int kTagWidth = 250;
constexpr int kIdWidth = 50;
constexpr int kKindWidth = 22;
constexpr int kLeastValueWidth = 200;
/// Far more than any file has; what a damaged one makes ExifTool print beyond it would only stop the window.
constexpr std::size_t kMostRows = 100'000;
constexpr qsizetype kLongestGroupTitle = 80;
/// An empty list between two files would flicker; after this time it is better than the rows that went.
constexpr std::chrono::milliseconds kHeldOnScreen{300};
/// Who replaces a file may first take the old one away.
constexpr std::chrono::milliseconds kMissing{300};

QString groupIconName(tags::GroupImage image) {
    switch (image) {
        case tags::GroupImage::Exif:
            return QStringLiteral("group-exif");
        case tags::GroupImage::Iptc:
            return QStringLiteral("group-iptc");
        case tags::GroupImage::File:
            return QStringLiteral("group-file");
        case tags::GroupImage::Maker:
            return QStringLiteral("group-maker");
        case tags::GroupImage::Composite:
            return QStringLiteral("group-composite");
        case tags::GroupImage::Media:
            return QStringLiteral("group-media");
        case tags::GroupImage::Icc:
            return QStringLiteral("group-icc");
        case tags::GroupImage::Gps:
            return QStringLiteral("group-gps");
        case tags::GroupImage::Other:
            break;
    }
    return QStringLiteral("group-other");
}

controls::GroupedListView::Group panelGroup(int id, const QString& name, tags::GroupImage image) {
    return {id, QStringLiteral(" ") + name.left(kLongestGroupTitle), controls::icon(groupIconName(image)),
            true};
}

}  // namespace

MetadataPanel::MetadataPanel(const Parts& parts, QWidget* parent)
    : QWidget(parent),
      parts_(parts),
      title_(new QLabel(this)),
      filter_(new QLineEdit(this)),
      model_(new MetadataListModel(parts.context.settings, this)),
      list_(new MetadataListView(parts.context.settings, this)),
      watch_([this] { vanishing_.start(); }) {
    setObjectName(QStringLiteral("RIGHT_HOLDER"));
    list_->setObjectName(QStringLiteral("metadataList"));
    title_->setObjectName(QStringLiteral("metadataTitle"));
    title_->setTextFormat(Qt::PlainText);
    title_->setFixedHeight(kTitleHeight);
    title_->setContentsMargins(6, 0, 8, 0);
    // A long name is cut at the edge and never widens the panel.
    title_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    QFont bold = title_->font();
    bold.setBold(true);
    title_->setFont(bold);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(title_);
    auto* field = new QHBoxLayout;
    field->setContentsMargins(kFilterMargin, 0, kFilterMargin, kFilterMargin);
    field->addWidget(filter_);
    layout->addLayout(field);
    layout->addWidget(list_, 1);

    model_->setValueTitle(parts_.text(app::text::kValueColumn));
    list_->setModel(model_);
    auto* delegate = new MetadataDelegate(*model_, parts_.dictionary, parts_.memory, parts_.context.settings,
                                          parts_.labels, this);
    delegate->setMarksNamesAtTheLeft(app::commandFormOf(parts_.context) == app::CommandForm::Corrected);
    list_->setItemDelegate(delegate);
    list_->setSelectionMode(QAbstractItemView::SingleSelection);
    list_->setGridLines(true);
    list_->setGroupsEnabled(true);
    createColumns();
    CreatePanelGroups();
    clear();

    createFilter();
    hold_.setSingleShot(true);
    hold_.setInterval(kHeldOnScreen);
    connect(&hold_, &QTimer::timeout, this, &MetadataPanel::releaseScreen);
    vanishing_.setSingleShot(true);
    vanishing_.setInterval(kMissing);
    connect(&vanishing_, &QTimer::timeout, this, &MetadataPanel::dropVanished);
    connectList();
}

void MetadataPanel::createFilter() {
    filter_->setObjectName(QStringLiteral("metadataFilter"));
    filter_->setPlaceholderText(parts_.text(text::kFilterHint));
    filter_->setClearButtonEnabled(true);
    filter_->addAction(controls::icon(QStringLiteral("view-filter")), QLineEdit::LeadingPosition);
    filter_->installEventFilter(this);
    model_->setLabels(parts_.labels);
    connect(filter_, &QLineEdit::textChanged, this, &MetadataPanel::setFilter);
}

void MetadataPanel::focusFilter() {
    filter_->setFocus(Qt::ShortcutFocusReason);
    filter_->selectAll();
}

void MetadataPanel::setFilter(const QString& filter) {
    if (model_->rowCount() > 0) notePlace();
    model_->setFilter(filter);
    showCounts();
    showEmptyText();
    goToPlace(Reading::NewFile);
    Q_EMIT CurrentRowChanged();
}

bool MetadataPanel::filterKey(const QKeyEvent& key) {
    switch (key.key()) {
        case Qt::Key_Escape:
            if (filter_->text().isEmpty())
                list_->setFocus(Qt::OtherFocusReason);
            else
                filter_->clear();
            return true;
        case Qt::Key_Down:
        case Qt::Key_Return:
        case Qt::Key_Enter: {
            const std::vector<int> rows = list_->rowsInViewOrder();
            if (rows.empty()) return true;
            if (!list_->currentIndex().isValid())
                list_->setCurrentIndex(
                    model_->index(rows.front(), static_cast<int>(tags::PanelColumn::Value)));
            list_->setFocus(Qt::OtherFocusReason);
            return true;
        }
        default:
            return false;
    }
}

/// A group's header tells how many rows the file has in it, or how many of them match.
void MetadataPanel::showCounts() {
    std::map<std::uint32_t, int> shown;
    for (const tags::MetadataRow& row : model_->rows()) ++shown[row.groupId];
    const bool isFiltering = model_->rowCount() < static_cast<int>(model_->allRows().size());
    for (const auto& [groupId, count] : counts_) {
        const int id = static_cast<int>(groupId);
        list_->setGroupTitle(
            id, tags::groupTitleWithCount(list_->groupTitle(id), isFiltering ? shown[groupId] : count));
    }
}

void MetadataPanel::showEmptyText() {
    list_->setEmptyText(model_->allRows().empty() ? emptyText_ : parts_.text(text::kNoRowMatches));
}

void MetadataPanel::connectList() {
    using controls::GroupedListView;
    connect(list_, &GroupedListView::CellClicked, this,
            [this](const QModelIndex& index, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
                if (button != Qt::LeftButton) return;
                if (!showHelp(index)) Q_EMIT ValueChosen(index.row(), modifiers.testFlag(Qt::AltModifier));
            });
    connect(list_, &QAbstractItemView::activated, this,
            [this](const QModelIndex& index) { Q_EMIT ValueChosen(index.row(), false); });
    connect(list_, &GroupedListView::CellMenuRequested, this, &MetadataPanel::showRowMenu);
    connect(list_, &GroupedListView::GroupHeaderMenuRequested, this, &MetadataPanel::showGroupMenu);
    connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MetadataPanel::CurrentRowChanged);
    list_->installEventFilter(this);
    auto* copy = new QShortcut(QKeySequence::Copy, list_);
    copy->setContext(Qt::WidgetWithChildrenShortcut);
    connect(copy, &QShortcut::activated, this, &MetadataPanel::Copy);
}

int MetadataPanel::commandOfKey(const QKeyEvent& key) {
    if (key.modifiers() != Qt::NoModifier && key.modifiers() != Qt::KeypadModifier) return 0;
    if (key.key() == Qt::Key_Delete) return app::command::kDeleteTag;
    return key.key() == Qt::Key_F5 ? app::command::kRefreshPanel : 0;
}

bool MetadataPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == filter_ && event->type() == QEvent::KeyPress)
        return filterKey(static_cast<QKeyEvent&>(*event));
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    const int command = watched == list_ && isKey ? commandOfKey(static_cast<QKeyEvent&>(*event)) : 0;
    if (command == 0) return QWidget::eventFilter(watched, event);
    // Taken from the window's shortcuts, of which F5 reads the folder again.
    event->accept();
    if (event->type() == QEvent::KeyPress) Q_EMIT CommandChosen(command);
    return true;
}

void MetadataPanel::createColumns() {
    QHeaderView* header = list_->header();
    header->setMinimumSectionSize(1);
    header->setSectionsMovable(false);
    header->setStretchLastSection(true);
    const int stored = parts_.context.settings.metadataValueColumnWidth;
    const int widths[tags::kPanelColumnCount] = {1, kTagWidth, kIdWidth, kKindWidth,
                                                 stored < 1 ? kLeastValueWidth : stored};
    for (int column = 0; column < tags::kPanelColumnCount; ++column)
        header->resizeSection(column, widths[column]);
    for (const tags::PanelColumn fixed :
         {tags::PanelColumn::Item, tags::PanelColumn::Id, tags::PanelColumn::Kind})
        header->setSectionResizeMode(static_cast<int>(fixed), QHeaderView::Fixed);
}

void MetadataPanel::CreatePanelGroups() {
    std::vector<controls::GroupedListView::Group> groups;
    groups.reserve(tags::kGroupCount);
    for (std::uint32_t position = 0; position < tags::kGroupCount; ++position)
        groups.push_back(panelGroup(static_cast<int>(position), tags::groupName(position),
                                    tags::GroupIconClass(position)));
    // Below the catalogue's: what the file holds beyond it.
    const QStringList& extra = parts_.parser.extraGroups();
    for (int at = 0; at < extra.size(); ++at)
        groups.push_back(panelGroup(tags::kGroupCount + at, extra[at], tags::GroupImage::Other));
    list_->setGroups(std::move(groups));
}

void MetadataPanel::clear() {
    if (model_->rowCount() > 0) notePlace();
    releaseScreen();
    parts_.reader.cancel();
    parts_.feedback.hideProgress();
    fault_.clear();
    file_.clear();
    watch_.watch({});
    vanishing_.stop();
    number_ = selectedCount_ = 0;
    model_->clear();
    title_->setText(parts_.text(app::text::kMetadataTitle));
    title_->setToolTip({});
    emptyText_ = parts_.text(app::text::kClickAFile);
    showEmptyText();
    Q_EMIT CurrentRowChanged();
}

void MetadataPanel::dropVanished() {
    if (file_.empty() || platform::stampOf(file_).isFile()) return;
    const std::filesystem::path file = file_;
    clear();
    emptyText_ = app::formatText(parts_.text(text::kFileGone), {platform::display(file.filename())});
    showEmptyText();
    Q_EMIT FileVanished(file);
}

void MetadataPanel::clearForNext() {
    clear();
    holdScreen();
}

void MetadataPanel::showNumber(int number, int count) {
    number_ = number;
    selectedCount_ = count;
    if (!file_.empty()) showTitle();
}

void MetadataPanel::newSelection(const std::filesystem::path& file) {
    if (file.empty()) return clear();
    clearForNext();
    beginReading(file, Reading::NewFile, false);
}

void MetadataPanel::newSelectionQuietly(const std::filesystem::path& file) {
    clearForNext();
    beginReading(file, Reading::NewFile, true);
}

void MetadataPanel::Refresh() {
    if (!file_.empty()) beginReading(std::filesystem::path(file_), Reading::SameFile, false);
}

void MetadataPanel::readAgainQuietly() {
    if (!file_.empty()) beginReading(std::filesystem::path(file_), Reading::SameFile, true);
}

void MetadataPanel::beginReading(const std::filesystem::path& file, Reading reading, bool isQuiet) {
    file_ = file;
    watch_.watchFile(file);
    stamp_ = platform::stampOf(file);
    fault_.clear();
    showTitle();
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        // A pipe or a device could keep whoever opens it waiting for ever.
        showRead({file, {}, false, false, parts_.text(app::text::kNoRegularFile)}, reading, isQuiet);
        return;
    }
    if (reading == Reading::NewFile) {
        emptyText_ = parts_.text(text::kReading);
        showEmptyText();
    }
    if (!isQuiet) parts_.feedback.showReading(file);
    parts_.reader.request(file, [this, reading, isQuiet](const exiftool::MetadataRead& read) {
        showRead(read, reading, isQuiet);
    });
}

void MetadataPanel::showRead(const exiftool::MetadataRead& read, Reading reading, bool isQuiet) {
    if (model_->rowCount() > 0) notePlace();
    counts_.clear();
    rowsOfFile_ = 0;
    model_->clear();
    fault_ = read.wasStopped ? parts_.text(app::text::kReadingStopped) : read.fault;
    exiftool::LoadFeedback silent;
    const bool loaded = parts_.load.showRead(read, *this, isQuiet ? silent : parts_.feedback) != 0;
    CreatePanelGroups();
    model_->Commit();
    showTitle();
    showCounts();
    QString empty = parts_.text(app::text::kNoTags);
    if (!loaded || !fault_.isEmpty()) empty = parts_.text(text::kFileNotRead);
    if (!fault_.isEmpty()) empty += QStringLiteral("\n") + fault_;
    emptyText_ = empty;
    showEmptyText();
    goToPlace(reading);
    releaseScreen();
    Q_EMIT CurrentRowChanged();
    Q_EMIT ReadingEnded();
}

/// Before the first layout the panel has no width yet; then nothing is cut.
int MetadataPanel::titleRoom() const {
    const int room = width() - title_->contentsMargins().left() - title_->contentsMargins().right();
    return room > 0 && isVisible() ? room : QWIDGETSIZE_MAX;
}

void MetadataPanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!file_.empty()) showTitle();
}

void MetadataPanel::showTitle() {
    QString title = platform::display(file_.filename());
    QString tip = platform::display(file_);
    if (selectedCount_ > 1)
        title = app::formatText(parts_.text(text::kFileOfSelected),
                                {title, QLocale().toString(number_), QLocale().toString(selectedCount_)});
    if (rowsOfFile_ > kMostRows)
        title = app::formatText(
            parts_.text(text::kRowsShown),
            {title, QLocale().toString(qulonglong{kMostRows}), QLocale().toString(qulonglong{rowsOfFile_})});
    if (!fault_.isEmpty() && model_->rowCount() > 0) {
        title += QStringLiteral(" - ") + parts_.text(app::text::kNotAllRead);
        tip += u'\n' + fault_;
    }
    title_->setText(title_->fontMetrics().elidedText(title, Qt::ElideMiddle, titleRoom()));
    title_->setToolTip(tip);
}

void MetadataPanel::InsertMetadataRow(tags::MetadataRow&& row) {
    if (++rowsOfFile_ <= kMostRows) model_->InsertMetadataRow(std::move(row));
}

void MetadataPanel::SetGroupCount(std::uint32_t groupId, int count) {
    counts_.emplace_back(groupId, count);
}

int MetadataPanel::valueColumnWidth() const {
    return list_->header()->sectionSize(static_cast<int>(tags::PanelColumn::Value));
}

void MetadataPanel::Copy() const {
    const QModelIndex current = list_->currentIndex();
    if (!current.isValid()) return;
    const tags::MetadataRow& row = model_->row(current.row());
    const auto column = static_cast<tags::PanelColumn>(current.column());
    QString text;
    if (column == tags::PanelColumn::Tag)
        text = row.tag;
    else if (column == tags::PanelColumn::Id)
        text = row.id;
    else if (row.stars)
        text = QString::number(*row.stars);
    else
        text = wholeValue_ ? wholeValue_(row) : row.value;
    QGuiApplication::clipboard()->setText(text);
}

/// The commands about a group take it from the current row.
void MetadataPanel::makeCurrent(int groupId) {
    const QModelIndex current = list_->currentIndex();
    if (current.isValid() && static_cast<int>(model_->row(current.row()).groupId) == groupId) return;
    for (int position = 0; position < model_->rowCount(); ++position) {
        if (static_cast<int>(model_->row(position).groupId) != groupId) continue;
        list_->setCurrentIndex(model_->index(position, static_cast<int>(tags::PanelColumn::Value)));
        return;
    }
}

std::vector<tags::MetadataRow> MetadataPanel::rowsOfCurrentGroup() const {
    std::vector<tags::MetadataRow> rows;
    const QModelIndex current = list_->currentIndex();
    if (!current.isValid()) return rows;
    const std::uint32_t groupId = model_->row(current.row()).groupId;
    // What the filter hides belongs to the group all the same.
    for (const tags::MetadataRow& row : model_->allRows())
        if (row.groupId == groupId) rows.push_back(row);
    return rows;
}

bool MetadataPanel::isFileUnchanged() const {
    return platform::stampOf(file_) == stamp_;
}

void MetadataPanel::showWrittenValue(int row, const QString& value) {
    stamp_ = platform::stampOf(file_);
    if (row >= 0 && row < model_->rowCount()) model_->SetValue(row, value);
}

void MetadataPanel::collapseAll(bool collapsed) {
    for (const int groupId : list_->shownGroups()) list_->setGroupCollapsed(groupId, collapsed);
}

}  // namespace panel
