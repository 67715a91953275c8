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
    const int stars = control<QComboBox>(control::kRating)->currentIndex();
    if (stars >= 0) {
        edit().selection = stars;
        edit().value = QString::number(stars);
    }
    ValueDialog::accept();
}

}  // namespace edit
