#include "window/StatusBar.h"

#include "app/SizeText.h"
#include "app/TextNumbers.h"
#include "browser/ColumnText.h"
#include "browser/ShellBrowser.h"

#include <QHBoxLayout>
#include <QLabel>

namespace window {

StatusBar::StatusBar(const app::AppContext& context, const app::LanguageFile& language, QWidget* parent)
    : QWidget(parent),
      context_(context),
      language_(language),
      status_(new QLabel(this)),
      selection_(new QLabel(this)) {
    setObjectName(QStringLiteral("statusBar"));
    status_->setObjectName(QStringLiteral("statusText"));
    status_->setTextFormat(Qt::PlainText);
    // A long text is cut at the edge and never widens the window.
    status_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    selection_->setObjectName(QStringLiteral("selectionText"));
    selection_->setTextFormat(Qt::PlainText);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 0, 12, 0);
    layout->setSpacing(16);
    layout->addWidget(status_, 1);
    layout->addWidget(selection_);
}

void StatusBar::showStatus(const QString& text) {
    // A name may hold line feeds; the bar has one line.
    QString line = text;
    status_->setText(line.replace(u'\n', u' ').replace(u'\r', u' '));
    // What follows may keep the event loop waiting.
    if (status_->isVisible()) status_->repaint();
}

QString StatusBar::statusText() const {
    return status_->text();
}

QString StatusBar::sizeText(std::uint64_t bytes) const {
    const app::Settings::Main& main = context_.settings.main;
    if (main.forceSize || main.sizeDisplayFormat != app::Settings::Main().sizeDisplayFormat)
        return app::sizeText(bytes, main.sizeDisplayFormat);
    // One size must not read in two ways beside each other.
    return app::commandFormOf(context_) == app::CommandForm::Corrected ? browser::sizeText(bytes)
                                                                       : app::sizeText(bytes);
}

void StatusBar::showTotals(const browser::ShellBrowser& list) {
    const browser::ItemList::Totals& totals = list.totals();
    QStringList parts;
    const auto count = [&](std::uint32_t number, int one, int many) {
        if (number > 0)
            parts.append(app::formatText(
                u"%s %s", {QLocale().toString(number), language_.text(number == 1 ? one : many)}));
    };
    count(totals.selectedFolders, app::text::kFolderSelected, app::text::kFoldersSelected);
    count(totals.selectedFiles, app::text::kFileSelected, app::text::kFilesSelected);
    if (totals.selectedFiles > 0) parts.append(sizeText(totals.selectedSize));
    const int items = list.model().rowCount();
    parts.append(app::formatText(
        u"Total %s %s (%s)",
        {QLocale().toString(items), language_.text(app::text::kItems), sizeText(totals.folderSize)}));
    selection_->setText(parts.join(QStringLiteral("   ·   ")));
}

QString StatusBar::selectionText() const {
    return selection_->text();
}

}  // namespace window
