#pragma once

#include <QApplication>
#include <QHash>
#include <QSet>

#include "controls/Icons.h"
#include "controls/RibbonMarkup.h"

/// A source that names each text after its number.
struct NumberedSource : controls::RibbonSource {
    QSet<int> missing;
    QSet<int> toggles;
    QHash<int, QKeySequence> keys;

    QString text(int stringNumber) const override { return QStringLiteral("T%1").arg(stringNumber); }
    QString tip(int stringNumber) const override {
        return stringNumber == 7 ? QStringLiteral("Seventh") : QString();
    }
    QIcon icon(const QString& name) const override { return controls::icon(name); }
    QString commandIcon(int) const override { return QStringLiteral("tag"); }
    bool available(int commandId) const override { return !missing.contains(commandId); }
    QKeySequence shortcut(int commandId) const override { return keys.value(commandId); }
    bool isToggle(int commandId) const override { return toggles.contains(commandId); }
};
