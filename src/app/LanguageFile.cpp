#include "app/LanguageFile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QResource>
#include <QXmlStreamReader>
#include <algorithm>
#include <atomic>
#include <fstream>
#include <iterator>

namespace app {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kCheckSumMark = "\nsha256 ";
constexpr std::size_t kHexDigits = 64;
constexpr std::uintmax_t kLargestFile = 64u << 20;

// The collection without its check sum line; empty when the line is missing or says something else.
QByteArray checkedCollection(const fs::path& file) {
    std::error_code error;
    if (!fs::is_regular_file(file, error) || fs::file_size(file, error) > kLargestFile || error) return {};
    std::ifstream stream(file, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    const std::size_t mark = bytes.rfind(kCheckSumMark);
    if (mark == std::string::npos || bytes.size() < mark + kCheckSumMark.size() + kHexDigits) return {};
    const std::string promised = bytes.substr(mark + kCheckSumMark.size(), kHexDigits);
    bytes.resize(mark);
    QByteArray collection = QByteArray::fromStdString(bytes);
    const QByteArray found = QCryptographicHash::hash(collection, QCryptographicHash::Sha256).toHex();
    return found.toStdString() == promised ? collection : QByteArray();
}

QString privateRoot() {
    static std::atomic<int> next = 0;
    return QStringLiteral("/tagwright-language-%1").arg(next++);
}

// An entry without a text of its own says what its command's string says.
MenuEntry readEntry(QXmlStreamReader& xml, const QHash<int, QString>& texts) {
    MenuEntry entry;
    if (xml.name() == u"separator") {
        xml.skipCurrentElement();
        return entry;
    }
    entry.commandId = xml.attributes().value(QLatin1StringView("command")).toInt();
    entry.text = xml.attributes().value(QLatin1StringView("text")).toString();
    if (entry.text.isEmpty()) entry.text = texts.value(entry.commandId);
    while (xml.readNextStartElement()) entry.children.push_back(readEntry(xml, texts));
    return entry;
}

}  // namespace

LanguageFile::LanguageFile(const fs::path& installPath, int language) {
    valid_ = load(pathOf(installPath, language));
    if (valid_) return;
    texts_.clear();
    menus_.clear();
}

LanguageFile::~LanguageFile() {
    if (!root_.isEmpty())
        QResource::unregisterResource(reinterpret_cast<const uchar*>(collection_.constData()), root_);
}

fs::path LanguageFile::pathOf(const fs::path& installPath, int language) {
    return installPath / "babel" / QString::asprintf("%04d.dlk", language).toStdString();
}

bool LanguageFile::load(const fs::path& file) {
    collection_ = checkedCollection(file);
    if (collection_.isEmpty()) return false;
    const QString root = privateRoot();
    if (!QResource::registerResource(reinterpret_cast<const uchar*>(collection_.constData()), root))
        return false;
    root_ = root;
    const QStringList names =
        QDir(QStringLiteral(":") + root_).entryList({QStringLiteral("*.ts")}, QDir::Files, QDir::Name);
    const bool readAll = std::ranges::all_of(names, [this](const QString& name) { return readTexts(name); });
    return readAll && !texts_.isEmpty() && readMenus();
}

QByteArray LanguageFile::read(const QString& name) const {
    if (root_.isEmpty()) return {};
    QFile file(QStringLiteral(":") + root_ + u'/' + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A Linguist file whose message ids are the numbers: an untranslated message speaks its source text.
bool LanguageFile::readTexts(const QString& name) {
    QXmlStreamReader xml(read(name));
    int number = -1;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement()) continue;
        if (xml.name() == u"message") {
            bool isNumber = false;
            number = xml.attributes().value(QLatin1StringView("id")).toInt(&isNumber);
            if (!isNumber) number = -1;
        } else if (number >= 0 && xml.name() == u"source") {
            texts_.insert(number, xml.readElementText());
        } else if (number >= 0 && xml.name() == u"translation") {
            const QString translation = xml.readElementText();
            if (!translation.isEmpty()) texts_.insert(number, translation);
        }
    }
    return !xml.hasError();
}

bool LanguageFile::readMenus() {
    const QByteArray markup = read(QStringLiteral("menus.xml"));
    if (markup.isEmpty()) return true;
    QXmlStreamReader xml(markup);
    if (!xml.readNextStartElement() || xml.name() != u"menus") return false;
    while (xml.readNextStartElement()) {
        const int number = xml.attributes().value(QLatin1StringView("number")).toInt();
        std::vector<MenuEntry> entries;
        while (xml.readNextStartElement()) entries.push_back(readEntry(xml, texts_));
        menus_.insert(number, entries);
    }
    return !xml.hasError();
}

QByteArray LanguageFile::form(int templateNumber) const {
    return read(QStringLiteral("forms/%1.ui").arg(templateNumber));
}

QString LanguageFile::formatted(int number, std::initializer_list<QString> values) const {
    return formatText(text(number), values);
}

QString formatText(QStringView format, std::initializer_list<QString> values) {
    QString result;
    const QString* value = values.begin();
    for (qsizetype at = 0; at < format.size(); ++at) {
        const QChar kind = at + 1 < format.size() ? format[at + 1] : QChar();
        if (format[at] != u'%' || (kind != u's' && kind != u'd' && kind != u'u' && kind != u'%')) {
            result += format[at];
            continue;
        }
        ++at;
        if (kind == u'%') {
            result += u'%';
        } else if (value != values.end()) {
            result += *value++;
        }
    }
    return result;
}

}  // namespace app
