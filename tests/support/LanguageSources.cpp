#include "support/LanguageSources.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QProcess>

namespace support {

namespace fs = std::filesystem;

LanguageSources::LanguageSources() {
    const fs::path babel = fs::path(TAGWRIGHT_SOURCE_DIR) / "babel";
    fs::copy(babel / "forms", folder_ / "forms", fs::copy_options::recursive);
    for (const char* name : {"menus.xml", "ribbon.xml"}) fs::copy_file(babel / name, folder_ / name);
    fs::copy_file(fs::path(TAGWRIGHT_TEXTS_DIR) / "0009" / "texts.ts", folder_ / "texts.ts");
}

void LanguageSources::replace(const std::string& name, const std::string& from, const std::string& to) const {
    std::string content = readBytes(folder_ / name);
    const std::size_t at = content.find(from);
    ASSERT_NE(at, std::string::npos) << name << " has no " << from;
    writeBytes(folder_ / name, content.replace(at, from.size(), to));
}

void LanguageSources::add(const std::string& name, const std::string& content) const {
    writeBytes(folder_ / name, content);
}

void LanguageSources::remove(const std::string& name) const {
    EXPECT_TRUE(fs::remove(folder_ / name)) << name;
}

void LanguageSources::translate(int number, const std::string& translation) const {
    translateBehind("<message id=\"" + std::to_string(number) + "\">", "</message>", translation);
}

void LanguageSources::translate(const std::string& context, const std::string& source,
                                const std::string& translation) const {
    translateBehind("<name>" + context + "</name>", "<source>" + source + "</source>", translation);
}

void LanguageSources::translateBehind(const std::string& begin, const std::string& end,
                                      const std::string& translation) const {
    static const std::string kEmpty = "<translation type=\"unfinished\"></translation>";
    std::string content = readBytes(folder_ / "texts.ts");
    const std::size_t first = content.find(begin);
    ASSERT_NE(first, std::string::npos) << begin;
    const std::size_t owner = end == "</message>" ? first : content.find(end, first);
    ASSERT_NE(owner, std::string::npos) << end;
    const std::size_t at = content.find(kEmpty, owner);
    ASSERT_NE(at, std::string::npos);
    ASSERT_LT(at, content.find("</message>", owner)) << begin << " is translated already";
    writeBytes(folder_ / "texts.ts",
               content.replace(at, kEmpty.size(), "<translation>" + translation + "</translation>"));
}

void LanguageSources::pack(const fs::path& languageFile) const {
    std::string list = "<RCC><qresource prefix=\"/\">\n";
    for (const auto& entry : fs::recursive_directory_iterator(folder_.path()))
        if (entry.is_regular_file())
            list += "<file>" + fs::relative(entry.path(), folder_.path()).string() + "</file>\n";
    const fs::path listFile = folder_ / "language.qrc";
    writeBytes(listFile, list + "</qresource></RCC>\n");
    const int status = QProcess::execute(
        QStringLiteral(TAGWRIGHT_RCC),
        {QStringLiteral("--binary"), QStringLiteral("--format-version"), QStringLiteral("1"),
         QStringLiteral("--output"), QString::fromStdString(languageFile.string()),
         QString::fromStdString(listFile.string())});
    fs::remove(listFile);
    ASSERT_EQ(status, 0);
    const std::string bytes = readBytes(languageFile);
    const QByteArray sum =
        QCryptographicHash::hash(QByteArray::fromStdString(bytes), QCryptographicHash::Sha256).toHex();
    writeBytes(languageFile, bytes + "\nsha256 " + sum.toStdString() + "\n");
}

}  // namespace support
