#include "edit/ModifRatingDialog.h"

#include "controls/Icons.h"
#include "edit/EditControls.h"
#include "edit/EditTexts.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>

namespace edit {

namespace {

constexpr int kMostStars = 5;
constexpr int kRejected = -1;
constexpr QStringView kRejectedValue = u"-1";
constexpr QSize kPicture(81, 13);
constexpr QSize kStar(15, 13);

/// The picture of one entry, that many of five stars filled.
QIcon starsIcon(int stars, qreal ratio) {
    QPixmap picture(kPicture * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    for (int at = 0; at < kMostStars; ++at) {
        const QString name = at < stars ? QStringLiteral("star-filled") : QStringLiteral("star-empty");
        painter.drawPixmap(QPoint(at * (kStar.width() + 1), 0), controls::iconPixmap(name, kStar, ratio));
    }
    return QIcon(picture);
}

}  // namespace

ModifRatingDialog::ModifRatingDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit,
                                     QWidget* parent)
    : ValueDialog(parts, edit, kTemplate, parent) {
    auto* choice = control<QComboBox>(control::kRating);
    if (choice == nullptr) return;
    choice->setIconSize(kPicture);
    for (int stars = 0; stars <= kMostStars; ++stars)
        choice->addItem(starsIcon(stars, devicePixelRatioF()), QString::number(stars));
    // Some programs mark a photo as rejected by a rating below none.
    if (form() == app::CommandForm::Corrected &&
        (edit.value == kRejectedValue || edit.group.compare(u"XMP-xmp", Qt::CaseInsensitive) == 0))
        choice->addItem(parts.language.formatted(text::kRejected, {QString::number(kRejected)}), kRejected);
    choice->setCurrentIndex(preselection());
    choice->installEventFilter(this);
    choice->setFocus();
    connect(choice, &QComboBox::activated, this, [this] {
        if (!byArrowKey_) findControl(*this, dialogs::kOkControl)->setFocus();
    });
}

int ModifRatingDialog::preselection() {
    if (form() == app::CommandForm::Designed)
        return std::clamp(parts().ratingLog.lastRating(edit().tagId), 0, kMostStars);
    if (edit().value.isEmpty()) return 0;
    bool isNumber = false;
    const int stars = edit().value.toInt(&isNumber);
    if (isNumber && stars >= 0 && stars <= kMostStars) return stars;
    if (isNumber && stars == kRejected) return kMostStars + 1;
    showHint(parts().language.formatted(text::kNoRating, {edit().value}));
    return -1;
}

bool ModifRatingDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        // Whoever walks through the entries does not want to be stopped at the first.
        byArrowKey_ = form() == app::CommandForm::Corrected && (key == Qt::Key_Up || key == Qt::Key_Down);
    } else if (event->type() == QEvent::MouseButtonPress) {
        byArrowKey_ = false;
    }
    return ValueDialog::eventFilter(watched, event);
}

void ModifRatingDialog::accept() {
    const QComboBox& choice = *control<QComboBox>(control::kRating);
    if (choice.currentIndex() >= 0) {
        edit().selection = choice.currentIndex() > kMostStars ? kRejected : choice.currentIndex();
        edit().value = QString::number(edit().selection);
    }
    ValueDialog::accept();
}

}  // namespace edit
