// Where the user is in the panel, and how he stays there while the rows come and go.
#include "panel/MetadataPanel.h"

#include <QScrollBar>

namespace panel {

void MetadataPanel::holdScreen() {
    list_->setUpdatesEnabled(false);
    hold_.start();
}

void MetadataPanel::releaseScreen() {
    hold_.stop();
    list_->setUpdatesEnabled(true);
}

MetadataPanel::Place MetadataPanel::place() const {
    Place place;
    const QModelIndex current = list_->currentIndex();
    const QRect seen = list_->viewport()->rect();
    int inSight = -1;
    if (current.isValid()) {
        place.current = tags::placeOf(model_->rows(), current.row());
        place.column = current.column();
        if (list_->visualRect(current).intersects(seen)) inSight = current.row();
    }
    // At the very top everybody wants to see the top.
    if (inSight < 0 && list_->verticalScrollBar()->value() > 0) {
        const std::vector<int> rows = list_->visibleRows();
        if (!rows.empty()) inSight = rows.front();
    }
    if (inSight < 0) return place;
    place.inSight = tags::placeOf(model_->rows(), inSight);
    place.top = list_->visualRect(model_->index(inSight, static_cast<int>(tags::PanelColumn::Value))).top();
    return place;
}

void MetadataPanel::notePlace() {
    const QModelIndex current = list_->currentIndex();
    const bool hasMoved = (current.isValid() ? current.row() : -1) != arrivedAt_ ||
                          list_->verticalScrollBar()->value() != arrivedScrolled_;
    if (hasMoved) wanted_ = place();
}

void MetadataPanel::goToPlace(Reading reading) {
    list_->doItemsLayout();
    if (wanted_.current) {
        const tags::FoundRow found = tags::findPlace(model_->rows(), *wanted_.current);
        // What is done next with the current row must not fall on a tag that nobody has chosen. In the file
        // itself it is the one that took the place of one that was deleted.
        if (found.isSame || (reading == Reading::SameFile && found.position >= 0))
            list_->setCurrentIndex(model_->index(found.position, wanted_.column));
    }
    scrollToPlace();
    arrivedAt_ = list_->currentIndex().isValid() ? list_->currentIndex().row() : -1;
    arrivedScrolled_ = list_->verticalScrollBar()->value();
}

void MetadataPanel::scrollToPlace() {
    QScrollBar& bar = *list_->verticalScrollBar();
    if (!wanted_.inSight) return;
    const tags::FoundRow found = tags::findPlace(model_->rows(), *wanted_.inSight);
    if (found.position < 0) return;
    const QRect row =
        list_->visualRect(model_->index(found.position, static_cast<int>(tags::PanelColumn::Value)));
    // A row of a collapsed group has no place of its own.
    if (!row.isEmpty()) bar.setValue(bar.value() + row.top() - wanted_.top);
}

}  // namespace panel
