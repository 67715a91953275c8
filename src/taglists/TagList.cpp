#include "taglists/TagList.h"

#include "controls/GroupedListDelegate.h"
#include "controls/Icons.h"
#include "controls/ListColors.h"
#include "controls/TickBox.h"
#include "dialogs/FormLoader.h"
#include "tags/Entries.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

namespace taglists {

namespace {

constexpr int kTickMargin = 6;
constexpr QSize kKindIcon(12, 12);
constexpr int kGrid = 8;

/// Draws the box in front of the first column, changed rows in bold, and what is to be removed in a fainter
/// tone.
class TagListDelegate : public controls::GroupedListDelegate {
 public:
    TagListDelegate(const TagListModel& model, QObject* parent)
        : GroupedListDelegate(parent), model_(model) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem cell = option;
        const auto* view = qobject_cast<const TagListView*>(option.widget);
        if (view != nullptr && model_.look().ticks && index.column() == 0) {
            const QRect box = view->tickRect(index);
            controls::paintTickBox(*painter, box, view->palette(),
                                   {.ticked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked,
                                    .hovered = option.state.testFlag(QStyle::State_MouseOver)});
            cell.rect.setLeft(box.right() + 1);
        }
        GroupedListDelegate::paint(painter, cell, index);
    }

 protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        GroupedListDelegate::initStyleOption(option, index);
        if (index.column() == model_.columnOf(TagColumn::Kind)) option->decorationSize = kKindIcon;
        const TagRow& row = model_.rows()[model_.rowAt(index.row())];
        if (row.changed) option->font.setBold(true);
        if (row.isRemoval() && index.column() == model_.columnOf(TagColumn::Value)) {
            option->font.setBold(false);
            option->font.setItalic(true);
            option->palette.setColor(QPalette::Text, controls::ListColors(option->palette).secondaryText);
        }
    }

 private:
    const TagListModel& model_;
};

}  // namespace

// --- TagListView

TagListView::TagListView(TagListModel& model, QWidget* parent) : GroupedListView(parent), tagModel_(model) {
    setModel(&model);
    setItemDelegate(new TagListDelegate(model, this));
}

QRect TagListView::tickRect(const QModelIndex& index) const {
    if (!tagModel_.look().ticks) return {};
    const QRect cell = visualRect(index.siblingAtColumn(0));
    return {cell.left() + kTickMargin, cell.top() + (cell.height() - controls::kTickBoxSide) / 2,
            controls::kTickBoxSide, controls::kTickBoxSide};
}

void TagListView::mousePressEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    const QModelIndex index = indexAt(place);
    // The margins around the box belong to it: it is small.
    const bool onBox =
        index.isValid() && event->button() == Qt::LeftButton &&
        tickRect(index).adjusted(-kTickMargin, -kTickMargin, kTickMargin / 2, kTickMargin).contains(place);
    if (!onBox) {
        GroupedListView::mousePressEvent(event);
        return;
    }
    setFocus(Qt::MouseFocusReason);
    setCurrentIndex(index);
    const std::size_t row = tagModel_.rowAt(index.row());
    tagModel_.setTicked(row, !tagModel_.rows()[row].ticked);
}

void TagListView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (!tagModel_.look().ticks || !index.isValid()) {
        GroupedListView::mouseDoubleClickEvent(event);
        return;
    }
    const std::size_t row = tagModel_.rowAt(index.row());
    tagModel_.setTicked(row, !tagModel_.rows()[row].ticked);
}

void TagListView::keyPressEvent(QKeyEvent* event) {
    const QModelIndex current = currentIndex();
    if (current.isValid() && event->key() == Qt::Key_Space && tagModel_.look().ticks) {
        toggleSelected();
        return;
    }
    if (current.isValid() && event->key() == Qt::Key_Delete) {
        Q_EMIT EmptyRequested(current);
        return;
    }
    if (current.isValid() && event->matches(QKeySequence::Undo)) {
        Q_EMIT UndoRequested(current);
        return;
    }
    if (current.isValid() && event->matches(QKeySequence::Copy)) {
        Q_EMIT CopyRequested(current);
        return;
    }
    GroupedListView::keyPressEvent(event);
}

void TagListView::toggleSelected() {
    const std::size_t current = tagModel_.rowAt(currentIndex().row());
    const bool ticked = !tagModel_.rows()[current].ticked;
    tagModel_.setTicked(current, ticked);
    const QModelIndexList selected = selectionModel()->selectedRows();
    for (const QModelIndex& index : selected) tagModel_.setTicked(tagModel_.rowAt(index.row()), ticked);
}

// --- TagList

TagList::TagList(const jobs::OperationParts& parts, Wishes wishes, QWidget* parent)
    : QWidget(parent),
      parts_(parts),
      wishes_(std::move(wishes)),
      model_(new TagListModel({parts.language, parts.labels, parts.context.settings}, wishes_.look, this)),
      filter_(new QLineEdit(this)),
      onlyFilled_(new QCheckBox(parts.language.text(text::kOnlyFilled), this)),
      view_(new TagListView(*model_, this)),
      count_(new QLabel(this)) {
    filter_->setProperty(dialogs::kControlIdProperty, kFilterControl);
    filter_->setPlaceholderText(parts_.language.text(wishes_.filterHint));
    filter_->setClearButtonEnabled(true);
    filter_->addAction(controls::icon(QStringLiteral("view-filter")), QLineEdit::LeadingPosition);
    filter_->installEventFilter(this);
    count_->setProperty(dialogs::kControlIdProperty, kCountControl);
    count_->setTextFormat(Qt::PlainText);
    createView();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kGrid);
    auto* above = new QHBoxLayout;
    above->setSpacing(2 * kGrid);
    above->addWidget(filter_, 1);
    above->addWidget(onlyFilled_);
    layout->addLayout(above);
    layout->addWidget(view_, 1);
    layout->addWidget(count_);
    setFocusProxy(filter_);
    onlyFilled_->setProperty(dialogs::kControlIdProperty, kOnlyFilledControl);
    onlyFilled_->setVisible(wishes_.tellsFilled);
    connect(onlyFilled_, &QCheckBox::toggled, this,
            [this](bool only) { keepingCurrent([&] { model_->setOnlyFilled(only); }); });
    auto* find = new QShortcut(QKeySequence::Find, this);
    find->setContext(Qt::WidgetWithChildrenShortcut);
    connect(find, &QShortcut::activated, this, [this] {
        filter_->setFocus(Qt::ShortcutFocusReason);
        filter_->selectAll();
    });
    connect(filter_, &QLineEdit::textChanged, this, &TagList::setFilter);
    connect(model_, &TagListModel::RowsChanged, this, [this] {
        updateCount();
        Q_EMIT RowsChanged();
    });
    updateCount();
}

TagList* TagList::placeIn(QWidget& place, const jobs::OperationParts& parts, Wishes wishes) {
    auto* layout = new QVBoxLayout(&place);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* list = new TagList(parts, std::move(wishes), &place);
    layout->addWidget(list);
    return list;
}

void TagList::createView() {
    view_->setProperty(dialogs::kControlIdProperty, wishes_.listControl);
    view_->setObjectName(QStringLiteral("tagList"));
    view_->setSelectionMode(wishes_.look.ticks ? QAbstractItemView::ExtendedSelection
                                               : QAbstractItemView::SingleSelection);
    view_->setGridLines(true);
    view_->setSearchColumn(0);
    QHeaderView& header = *view_->header();
    header.setSectionsMovable(false);
    header.setStretchLastSection(true);
    header.setMinimumSectionSize(16);
    header.setSectionsClickable(true);
    const int kindColumn = model_->columnOf(TagColumn::Kind);
    if (kindColumn >= 0) header.setSectionResizeMode(kindColumn, QHeaderView::Fixed);
    connect(&header, &QHeaderView::sectionClicked, this, &TagList::sortBy);
    connect(view_, &controls::GroupedListView::CellClicked, this, &TagList::clicked);
    connect(view_, &controls::GroupedListView::CellMenuRequested, this, &TagList::showMenu);
    connect(view_, &QAbstractItemView::activated, this, &TagList::requestEdit);
    connect(view_, &TagListView::EmptyRequested, this, &TagList::empty);
    connect(view_, &TagListView::UndoRequested, this, &TagList::undo);
    connect(view_, &TagListView::CopyRequested, this, &TagList::copy);
}

bool TagList::eventFilter(QObject* watched, QEvent* event) {
    if (watched != filter_ || event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Down:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            // From the filter into the list; Enter must not be the dialog's OK while one is still looking.
            if (model_->rowCount() > 0) goToList();
            return true;
        case Qt::Key_Escape:
            if (filter_->text().isEmpty()) return false;
            filter_->clear();
            return true;
        default:
            return false;
    }
}

void TagList::goToList() {
    view_->setFocus(Qt::TabFocusReason);
    if (!view_->currentIndex().isValid()) view_->setCurrentIndex(model_->index(0, 0));
}

void TagList::setEmptyText(const QString& text) {
    emptyText_ = text;
    updateCount();
}

void TagList::setColumnWidths(const std::vector<int>& widths) {
    for (std::size_t column = 0; column < widths.size(); ++column)
        view_->header()->resizeSection(static_cast<int>(column), widths[column]);
}

TagRows TagList::tickedRows() const {
    TagRows ticked;
    for (const TagRow& row : rows())
        if (row.ticked) ticked.push_back(row);
    return ticked;
}

template <typename Change>
void TagList::keepingCurrent(Change&& change) {
    const QModelIndex current = view_->currentIndex();
    const std::optional<std::size_t> row =
        current.isValid() ? std::optional(model_->rowAt(current.row())) : std::nullopt;
    change();
    const int shown = row ? model_->shownRowOf(*row) : -1;
    if (shown < 0) return;
    view_->setCurrentIndex(model_->index(shown, 0));
    view_->scrollTo(view_->currentIndex());
}

void TagList::setFilter(const QString& filter) {
    keepingCurrent([&] { model_->setFilter(filter); });
}

void TagList::clicked(const QModelIndex& index, Qt::MouseButton button) {
    const bool onValue = hasValues() && index.column() == model_->columnOf(TagColumn::Value);
    if (button == Qt::LeftButton && onValue) requestEdit(index);
}

void TagList::requestEdit(const QModelIndex& index) {
    if (wishes_.look.ticks) Q_EMIT ConfirmRequested();
    if (hasValues() && index.isValid()) Q_EMIT EditRequested(model_->rowAt(index.row()));
}

void TagList::empty(const QModelIndex& index) {
    if (hasValues()) model_->empty(model_->rowAt(index.row()), wishes_.severalFiles);
}

void TagList::undo(const QModelIndex& index) {
    if (hasValues()) model_->undo(model_->rowAt(index.row()));
}

void TagList::copy(const QModelIndex& index) const {
    const TagRow& row = rows()[model_->rowAt(index.row())];
    QStringList cells{row.name};
    if (model_->columnOf(TagColumn::Group) >= 0) cells << row.group;
    // What the cell shows has dots where the value has line feeds.
    if (model_->columnOf(TagColumn::Value) >= 0)
        cells << (row.severalEntries ? tags::splitEntries(row.value).join(QStringLiteral(", ")) : row.value);
    QGuiApplication::clipboard()->setText(cells.join(u'\t'));
}

void TagList::showMenu(const QModelIndex& index, const QPoint& position) {
    if (!index.isValid()) return;
    view_->setCurrentIndex(index);
    QMenu menu(this);
    const auto add = [&](int number, const char* icon, const QKeySequence& key, auto action) {
        QAction* entry =
            menu.addAction(controls::icon(QString::fromLatin1(icon)), parts_.language.text(number));
        entry->setShortcut(key);
        connect(entry, &QAction::triggered, this, [this, index, action] { (this->*action)(index); });
    };
    if (hasValues()) {
        add(text::kEditValue, "document-edit", Qt::Key_Return, &TagList::requestEdit);
        add(text::kEmptyValue, "edit-delete", QKeySequence::Delete, &TagList::empty);
        add(text::kUndoChange, "edit-undo", QKeySequence::Undo, &TagList::undo);
        menu.addSeparator();
    }
    menu.addAction(controls::icon(QStringLiteral("edit-copy")), parts_.language.text(text::kCopyValue),
                   QKeySequence::Copy, this, [this, index] { copy(index); });
    menu.exec(position);
}

void TagList::sortBy(int section) {
    const TagColumn column = wishes_.look.columns[static_cast<std::size_t>(section)];
    if (column == TagColumn::Name || column == TagColumn::Group) {
        ascending_ = !ascending_;
        sortedSection_ = section;
        const QModelIndex current = view_->currentIndex();
        const TagRow kept = current.isValid() ? rows()[model_->rowAt(current.row())] : TagRow();
        model_->sort(column == TagColumn::Name ? TagSort::Name : TagSort::Group, ascending_);
        if (current.isValid()) goTo(kept);
    }
    // The header turns its arrow at every click, also over a column that does not sort.
    QHeaderView& header = *view_->header();
    header.setSortIndicatorShown(sortedSection_ >= 0);
    if (sortedSection_ < 0) return;
    header.setSortIndicator(sortedSection_, ascending_ ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void TagList::goTo(const TagRow& wanted) {
    const auto found = std::ranges::find_if(rows(), [&](const TagRow& row) {
        return row.tagId == wanted.tagId && row.name == wanted.name && row.group == wanted.group;
    });
    if (found == rows().end()) return;
    const int shown = model_->shownRowOf(static_cast<std::size_t>(found - rows().begin()));
    if (shown < 0) return;
    view_->setCurrentIndex(model_->index(shown, 0));
    view_->scrollTo(view_->currentIndex());
}

void TagList::updateCount() {
    const QLocale locale;
    const auto number = [&](std::size_t count) { return locale.toString(static_cast<qulonglong>(count)); };
    QStringList parts{parts_.language.formatted(
        wishes_.countOfRows, {number(static_cast<std::size_t>(model_->rowCount())), number(rows().size())})};
    if (wishes_.tellsFilled)
        parts << parts_.language.formatted(text::kCountFilled, {number(filledCount(rows()))});
    if (hasValues()) parts << parts_.language.formatted(text::kCountChanged, {number(changedCount(rows()))});
    if (wishes_.look.ticks)
        parts << parts_.language.formatted(text::kCountTicked, {number(tickedCount(rows()))});
    count_->setText(parts.join(QStringLiteral(", ")));
    view_->setEmptyText(rows().empty() ? emptyText_ : parts_.language.text(text::kNoTagMatches));
}

}  // namespace taglists
