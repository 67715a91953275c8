#pragma once

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QSet>
#include <QXmlStreamReader>

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
    bool available(int commandId) const override { return !missing.contains(commandId); }
    QKeySequence shortcut(int commandId) const override { return keys.value(commandId); }
    bool isToggle(int commandId) const override { return toggles.contains(commandId); }
};

inline QByteArray englishFile(const char* name) {
    QFile file(QStringLiteral(TAGWRIGHT_SOURCE_DIR "/babel/0009/%1").arg(QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline QHash<int, QString> englishTexts() {
    QHash<int, QString> texts;
    QXmlStreamReader xml(englishFile("command-texts.ts"));
    int id = 0;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == QLatin1String("message")) id = xml.attributes().value(QLatin1String("id")).toInt();
        if (xml.name() == QLatin1String("source")) texts.insert(id, xml.readElementText());
    }
    return texts;
}
