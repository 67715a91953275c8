#pragma once

#include "app/Settings.h"
#include "controls/GroupedListDelegate.h"
#include "tags/MetadataListModel.h"

namespace tags {

/// Paints the cells of the panel: colours by kind of tag, the kind's icon, stars for ratings. The list has
/// painted the row's ground before.
class MetadataDelegate : public controls::GroupedListDelegate {
    Q_OBJECT

 public:
    /// All references outlive the delegate.
    MetadataDelegate(const MetadataListModel& model, const TagDictionary& dictionary,
                     const RatingMemory& memory, const app::Settings& settings, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

 protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
    RowAppearance appearanceOf(const MetadataRow& row) const;

    const MetadataListModel& model_;
    const TagDictionary& dictionary_;
    const RatingMemory& memory_;
    const app::Settings& settings_;
};

}  // namespace tags
