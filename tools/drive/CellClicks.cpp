#include "drive/CellClicks.h"

#include <QAbstractItemView>
#include <QPointer>
#include <QtTest/QTest>

namespace drive {

int columnNamed(const QAbstractItemModel& model, const QString& name) {
    bool isNumber = false;
    const int number = name.toInt(&isNumber);
    if (isNumber) return number >= 0 && number < model.columnCount() ? number : -1;
    for (int column = 0; column < model.columnCount(); ++column)
        if (model.headerData(column, Qt::Horizontal).toString().compare(name, Qt::CaseInsensitive) == 0)
            return column;
    return -1;
}

std::optional<QPoint> pointOf(QAbstractItemView& view, const QModelIndex& index) {
    view.scrollTo(index);
    const QRect shown = view.visualRect(index).intersected(view.viewport()->rect());
    if (shown.isEmpty()) return std::nullopt;
    return shown.center();
}

bool isKindOfClick(const QString& how) {
    return how == u"left" || how == u"right" || how == u"alt" || how == u"double";
}

Answer clickIndex(QAbstractItemView& view, const QModelIndex& index, const QString& how) {
    const std::optional<QPoint> point = pointOf(view, index);
    if (!point) return Answer::failed(QStringLiteral("the cell is not on the screen"));
    const QPointer<QWidget> viewport = view.viewport();
    QTest::mouseClick(viewport.data(), how == u"right" ? Qt::RightButton : Qt::LeftButton,
                      how == u"alt" ? Qt::AltModifier : Qt::NoModifier, *point);
    // The first click may have taken the list away.
    if (how == u"double" && viewport != nullptr)
        QTest::mouseDClick(viewport.data(), Qt::LeftButton, Qt::NoModifier, *point);
    return {};
}

}  // namespace drive
