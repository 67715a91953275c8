#include "app/LanguageFile.h"

#include "app/TextKeys.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <algorithm>

namespace app {

namespace fs = std::filesystem;

namespace {

// An entry without a text of its own says what its command's text says.
MenuEntry readEntry(QXmlStreamReader& xml, const QHash<int, QString>& texts) {
    MenuEntry entry;
    if (xml.name() == u"separator") {
        xml.skipCurrentElement();
        return entry;
    }
    entry.commandId = xml.attributes().value(QLatin1StringView("command")).toInt();
    const QStringView ownText = xml.attributes().value(QLatin1StringView("text"));
    entry.text = texts.value(ownText.isEmpty() ? entry.commandId : ownText.toInt());
    while (xml.readNextStartElement()) entry.children.push_back(readEntry(xml, texts));
    return entry;
}

// The form with its strings in the language. What is not well-formed stays as it is, for the loader to tell.
QByteArray translated(const QByteArray& form, const QHash<LanguageCollection::FormText, QString>& texts) {
    QByteArray result;
    QXmlStreamReader xml(form);
    QXmlStreamWriter writer(&result);
    QString context;
    while (!xml.atEnd()) {
        xml.readNext();
        writer.writeCurrentToken(xml);
        if (!xml.isStartElement()) continue;
        const bool isClass = context.isEmpty() && xml.name() == u"class";
        if (!isClass && xml.name() != u"string") continue;
        const bool isFixed = xml.attributes().value(QLatin1StringView("notr")) == u"true";
        const QString source = xml.readElementText();
        if (isClass) context = source;
        writer.writeCharacters(isClass || isFixed ? source : texts.value({context, source}, source));
        writer.writeEndElement();
    }
    return xml.hasError() ? form : result;
}

// A place of a format: how long it is, and which value it takes; 0 takes the next one, and a length of 0 is
// none.
struct Place {
    qsizetype length = 0;
    std::size_t number = 0;
};

Place placeAt(QStringView format, qsizetype at) {
    const auto takesValue = [](QChar kind) { return kind == u's' || kind == u'd' || kind == u'u'; };
    const auto charAt = [&](qsizetype index) { return index < format.size() ? format[index] : QChar(); };
    if (takesValue(charAt(at + 1))) return {.length = 2};
    const bool isNumbered = charAt(at + 1) >= u'1' && charAt(at + 1) <= u'9' && charAt(at + 2) == u'$';
    if (!isNumbered || !takesValue(charAt(at + 3))) return {};
    return {.length = 4, .number = static_cast<std::size_t>(format[at + 1].digitValue())};
}

}  // namespace

LanguageFile::LanguageFile(const fs::path& installPath, int language)
    : own_(pathOf(installPath, language)),
      english_(language == kEnglishLanguage ? fs::path() : pathOf(installPath, kEnglishLanguage)) {
    gatherTexts();
    readMenus();
    countGaps(language);
}

fs::path LanguageFile::pathOf(const fs::path& installPath, int language) {
    return installPath / "babel" / QString::asprintf("%04d.dlk", language).toStdString();
}

void LanguageFile::gatherTexts() {
    texts_ = english_.sources();
    texts_.insert(own_.sources());
    texts_.insert(own_.translations());
    for (const auto& [number, key] : textKeys())
        if (!texts_.contains(number)) texts_.insert(number, keyOfText(number));
}

// Forms, menus and ribbon are the same for all languages: those of another version, or faulty ones, must not
// keep the program from opening a window that English has.
QByteArray LanguageFile::read(const QString& name) const {
    const QByteArray english = english_.read(name);
    return english.isEmpty() ? own_.read(name) : english;
}

void LanguageFile::readMenus() {
    QXmlStreamReader xml(read(QStringLiteral("menus.xml")));
    if (!xml.readNextStartElement() || xml.name() != u"menus") return;
    while (xml.readNextStartElement()) {
        const int number = xml.attributes().value(QLatin1StringView("number")).toInt();
        std::vector<MenuEntry> entries;
        while (xml.readNextStartElement()) entries.push_back(readEntry(xml, texts_));
        menus_.insert(number, entries);
    }
}

void LanguageFile::countGaps(int language) {
    gaps_ = {.wholeFile = !own_.valid()};
    if (gaps_.wholeFile) return;
    const QHash<int, QString>& said = language == kEnglishLanguage ? own_.sources() : own_.translations();
    gaps_.texts = std::ranges::count_if(
        textKeys(), [&](int number) { return !said.contains(number); }, &TextKey::number);
    if (language == kEnglishLanguage) return;
    gaps_.texts += own_.untranslatedFormTexts();
    QStringList shared = {QStringLiteral("menus.xml"), QStringLiteral("ribbon.xml")};
    for (const int form : english_.forms()) shared += LanguageCollection::nameOfForm(form);
    gaps_.forms =
        std::ranges::count_if(shared, [&](const QString& name) { return own_.read(name) != read(name); });
}

QByteArray LanguageFile::form(int templateNumber) const {
    const QByteArray form = read(LanguageCollection::nameOfForm(templateNumber));
    return own_.formTranslations().isEmpty() ? form : translated(form, own_.formTranslations());
}

QString LanguageFile::formatted(int number, std::initializer_list<QString> values) const {
    const QString format = text(number);
    const bool isMissing = !format.isEmpty() && format == keyOfText(number);
    return isMissing ? keyAndValues(number, values) : formatText(format, values);
}

QString formatText(QStringView format, std::initializer_list<QString> values) {
    QString result;
    std::size_t next = 0;
    for (qsizetype at = 0; at < format.size(); ++at) {
        if (format[at] != u'%') {
            result += format[at];
            continue;
        }
        if (at + 1 < format.size() && format[at + 1] == u'%') {
            result += u'%';
            ++at;
            continue;
        }
        const Place place = placeAt(format, at);
        if (place.length == 0) {
            result += u'%';
            continue;
        }
        const std::size_t index = place.number > 0 ? place.number - 1 : next++;
        if (index < values.size()) result += values.begin()[index];
        at += place.length - 1;
    }
    return result;
}

}  // namespace app
