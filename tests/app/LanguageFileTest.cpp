#include "app/LanguageFile.h"

#include "app/CommandTable.h"
#include "support/TemporaryFolder.h"

#include <QCryptographicHash>
#include <QXmlStreamReader>
#include <QtEndian>
#include <random>

namespace {

namespace fs = std::filesystem;
using app::LanguageFile;

constexpr int kDamagedFiles = 200;

class LanguageFileTest : public ::testing::Test {
 protected:
    LanguageFileTest() { fs::create_directories(folder_ / "babel"); }

    bool validWith(std::string_view bytes) {
        support::writeBytes(folder_ / "babel" / "0009.dlk", bytes);
        return LanguageFile(folder_.path(), 9).valid();
    }

    const fs::path bin_ = TAGWRIGHT_BIN_DIR;
    support::TemporaryFolder folder_;
};

TEST_F(LanguageFileTest, IsNamedByFourDigits) {
    EXPECT_EQ(LanguageFile::pathOf("/x", 9), "/x/babel/0009.dlk");
    EXPECT_EQ(LanguageFile::pathOf("/x", 1036), "/x/babel/1036.dlk");
}

TEST_F(LanguageFileTest, EnglishHasTextsTipsFormsMenusAndTheRibbon) {
    const LanguageFile english(bin_, 9);
    ASSERT_TRUE(english.valid());
    EXPECT_EQ(english.text(474), QStringLiteral("Value"));
    EXPECT_EQ(english.text(123456789), QString());
    EXPECT_FALSE(english.hasText(123456789));
    EXPECT_FALSE(english.tip(248).isEmpty());
    EXPECT_TRUE(english.form(284).contains("AboutDialog"));
    EXPECT_TRUE(english.form(9999).isEmpty());
    EXPECT_TRUE(english.ribbonMarkup().contains("<ribbon"));
    ASSERT_FALSE(english.menu(1).empty());
    EXPECT_EQ(english.menu(1).front().text, english.text(40012));
    EXPECT_TRUE(english.menu(9999).empty());
}

TEST_F(LanguageFileTest, EnglishHasEveryTextThatIsAskedForByNumber) {
    const LanguageFile english(bin_, 9);
    for (const int number :
         {165,  166,  167,  168,  224,  225,  234,  264,  265,  360,  361,  461,  474,  478,
          480,  481,  809,  810,  900,  902,  905,  907,  938,  939,  940,  1829, 1830, 1831,
          2049, 2050, 2118, 2119, 2154, 2182, 8175, 8176, 8177, 8178, 8183, 40012})
        EXPECT_FALSE(english.text(number).isEmpty()) << number;
    for (int number = 70501; number <= 70518; ++number)
        EXPECT_FALSE(english.text(number).isEmpty()) << number;
    EXPECT_EQ(english.formatted(165, {QStringLiteral("IFD0")}).count(QStringLiteral("IFD0")), 1);
}

TEST_F(LanguageFileTest, EveryMenuSpeaksAndSendsKnownCommands) {
    const LanguageFile english(bin_, 9);
    const std::function<void(const std::vector<app::MenuEntry>&)> check =
        [&](const std::vector<app::MenuEntry>& menu) {
            for (const app::MenuEntry& entry : menu) {
                const bool sends = entry.commandId != 0;
                EXPECT_EQ(sends, app::findCommand(entry.commandId) != nullptr) << entry.commandId;
                EXPECT_EQ(sends || !entry.children.empty(), !entry.text.isEmpty()) << entry.commandId;
                check(entry.children);
            }
        };
    check(english.menu(1));
    check(english.menu(2));
}

TEST_F(LanguageFileTest, EveryTextThatTheRibbonNamesIsThere) {
    const LanguageFile english(bin_, 9);
    QXmlStreamReader xml(english.ribbonMarkup());
    int named = 0;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement()) continue;
        const QXmlStreamAttributes attributes = xml.attributes();
        if (!attributes.hasAttribute(QLatin1StringView("text"))) continue;
        ++named;
        EXPECT_TRUE(english.hasText(attributes.value(QLatin1StringView("text")).toInt()))
            << attributes.value(QLatin1StringView("text")).toString().toStdString();
    }
    EXPECT_FALSE(xml.hasError());
    EXPECT_GT(named, 50);
}

TEST_F(LanguageFileTest, AMissingFileHasKeysAlone) {
    const LanguageFile missing(folder_.path(), 9);
    EXPECT_FALSE(missing.valid());
    EXPECT_EQ(missing.text(474), QStringLiteral("app::kValueColumn"));
    EXPECT_TRUE(missing.text(123456789).isEmpty());
    EXPECT_TRUE(missing.gaps().wholeFile);
    EXPECT_TRUE(missing.form(284).isEmpty());
    EXPECT_TRUE(missing.ribbonMarkup().isEmpty());
    EXPECT_FALSE(LanguageFile().valid());
    fs::create_directories(folder_ / "babel" / "0012.dlk");
    EXPECT_FALSE(LanguageFile(folder_.path(), 12).valid());
}

TEST_F(LanguageFileTest, ADamagedFileIsRefused) {
    const std::string whole = support::readBytes(bin_ / "babel" / "0009.dlk");
    ASSERT_TRUE(validWith(whole));
    EXPECT_FALSE(validWith(""));
    EXPECT_FALSE(validWith("qres"));
    EXPECT_FALSE(validWith(std::string(100000, '\xAA')));
    EXPECT_FALSE(validWith(whole.substr(whole.size() / 2)));
    EXPECT_FALSE(validWith("\nsha256 e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855\n"));
    for (std::size_t length = 1; length < whole.size(); length += 997)
        EXPECT_FALSE(validWith(whole.substr(0, length)));
    for (std::size_t at = 0; at < whole.size() - 2; at += 1009) {
        std::string flipped = whole;
        flipped[at] = static_cast<char>(flipped[at] ^ 0x40);
        EXPECT_FALSE(validWith(flipped)) << at;
    }
}

// Half of the changes go where Qt's reader takes offsets and counts from: the header, the names and the tree.
TEST_F(LanguageFileTest, ADamagedFileWithARightCheckSumIsReadOrRefused) {
    const std::string whole = support::readBytes(bin_ / "babel" / "0009.dlk");
    const QByteArray sound(whole.data(), static_cast<qsizetype>(whole.rfind("\nsha256 ")));
    const qsizetype names = qFromBigEndian<std::uint32_t>(sound.constData() + 16);
    std::mt19937 random(20);
    const auto upTo = [&](qsizetype limit) {
        return static_cast<qsizetype>(random() % static_cast<std::size_t>(limit));
    };
    int refused = 0;
    for (int turn = 0; turn < kDamagedFiles; ++turn) {
        QByteArray damaged = sound;
        for (qsizetype change = upTo(4); change >= 0; --change) {
            const bool isStructure = random() % 2 == 0;
            const qsizetype at = isStructure && random() % 8 == 0 ? upTo(20)
                                 : isStructure                    ? names + upTo(sound.size() - names)
                                                                  : upTo(sound.size());
            damaged[at] = static_cast<char>(random());
        }
        if (turn % 16 == 0) damaged.truncate(upTo(damaged.size()));
        const QByteArray sum = QCryptographicHash::hash(damaged, QCryptographicHash::Sha256).toHex();
        damaged += "\nsha256 " + sum + "\n";
        support::writeBytes(folder_ / "babel" / "0009.dlk", damaged.toStdString());
        const LanguageFile file(folder_.path(), 9);
        if (!file.valid()) ++refused;
        for (const int form : {9, 171, 284}) static_cast<void>(file.form(form));
        static_cast<void>(file.ribbonMarkup());
    }
    EXPECT_GT(refused, kDamagedFiles / 4);
    EXPECT_LT(refused, kDamagedFiles);
}

TEST_F(LanguageFileTest, TwoFilesDoNotGetInEachOthersWay) {
    support::writeBytes(folder_ / "babel" / "0009.dlk", support::readBytes(bin_ / "babel" / "0009.dlk"));
    auto first = std::make_unique<LanguageFile>(bin_, 9);
    const LanguageFile second(folder_.path(), 9);
    first.reset();
    EXPECT_FALSE(second.form(284).isEmpty());
}

struct FormatCase {
    const char16_t* format;
    const char16_t* result;
};

TEST_F(LanguageFileTest, FormatsTakeTheirValuesInOrder) {
    for (const FormatCase& row :
         {FormatCase{u"%s: %s", u"a: b"}, FormatCase{u"%s (%d)", u"a (b)"}, FormatCase{u"%u%%", u"a%"},
          FormatCase{u"none", u"none"}, FormatCase{u"%s%s%s!", u"ab!"},
          FormatCase{u"%2$s of %1$s", u"b of a"}, FormatCase{u"%3$s%0$s%1$x", u"%0$s%1$x"},
          FormatCase{u"50 % %x %", u"50 % %x %"}}) {
        EXPECT_EQ(app::formatText(QStringView(row.format), {QStringLiteral("a"), QStringLiteral("b")}),
                  QString::fromUtf16(row.result));
    }
    EXPECT_EQ(app::formatText(u"%s %s", {QStringLiteral("%s"), QStringLiteral("x")}), QStringLiteral("%s x"));
}

}  // namespace
