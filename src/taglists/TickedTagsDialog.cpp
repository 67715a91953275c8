#include "taglists/TickedTagsDialog.h"

#include "dialogs/Messages.h"
#include "taglists/RemovalTexts.h"
#include "tags/ExactOutput.h"

#include <QAbstractButton>
#include <algorithm>

namespace taglists {

namespace {

enum Control { kListPlace = 81100, kTickAll = 81101, kTickNone = 81102 };

/// Whether a text in another language stands beside the plain one and is not ticked.
bool keepsTranslation(const TagRows& rows, const TagRow& plain) {
    return std::ranges::any_of(rows, [&plain](const TagRow& row) {
        const auto parted = tags::splitLanguage(row.name);
        return parted && parted->tag == plain.name && row.group == plain.group && !row.ticked;
    });
}

}  // namespace

TickedTagsDialog::TickedTagsDialog(const jobs::OperationParts& parts, int templateNumber,
                                   TagList::Wishes wishes, QSize size, QWidget* parent)
    : DarkModeDialogBase(parts.language, templateNumber, parent), parts_(parts) {
    resize(size);
    auto* place = control<QWidget>(kListPlace);
    if (place == nullptr) return;
    wishes.listControl = kListControl;
    wishes.look.ticks = true;
    list_ = TagList::placeIn(*place, parts_, std::move(wishes));
    list_->setEmptyText(parts_.language.text(text::kNothingToRemove));
    list_->setFocus();
    connect(list_, &TagList::ConfirmRequested, this, [this] { accept(); });
    for (const int button : {kTickAll, kTickNone}) {
        if (auto* tick = control<QAbstractButton>(button))
            connect(tick, &QAbstractButton::clicked, this,
                    [this, button] { list_->model().setAllShownTicked(button == kTickAll); });
    }
}

std::vector<TagAddress> TickedTagsDialog::tickedTags() const {
    const TagRows& all = list_->model().rows();
    std::vector<TagAddress> tags;
    for (const TagRow& row : list_->tickedRows()) {
        tags.push_back({row.group.toStdString(), row.name.toStdString()});
        // Under its bare name ExifTool would remove the text in all its languages.
        if (form() == app::CommandForm::Corrected && parts_.labels.keepsLanguages(row.tagId) &&
            keepsTranslation(all, row))
            tags.back().name += "-x-default";
    }
    return tags;
}

void TickedTagsDialog::showHeldTags(TagRows rows, const QString& fault) {
    const bool isEmpty = rows.empty();
    list_->model().setRows(std::move(rows));
    if (fault.isEmpty()) return;
    const QString told =
        parts_.language.formatted(isEmpty ? text::kTagsNotRead : text::kTagsReadInPart, {fault});
    if (isEmpty)
        list_->setEmptyText(told);
    else
        dialogs::showMessage(this, {told, dialogs::MessageIcon::Exclamation});
}

}  // namespace taglists
