#include "app/LanguageFile.h"
#include "app/SpokenText.h"
#include "app/TextNumbers.h"
#include "support/LanguageSources.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <QRegularExpression>

namespace {

namespace fs = std::filesystem;
using app::LanguageFile;

constexpr int kFrench = 12;
constexpr int kValue = 474;
constexpr int kTag = 461;

/// A language file beside English in an install folder of its own.
class LanguageFallback : public ::testing::Test {
 protected:
    LanguageFallback() {
        fs::create_directories(folder_ / "babel");
        fs::copy_file(fs::path(TAGWRIGHT_BIN_DIR) / "babel/0009.dlk", english());
        sources_.translate(kValue, "Valeur");
        sources_.translate("AboutDialog", "About Tagwright", "À propos");
    }

    fs::path english() const { return folder_ / "babel/0009.dlk"; }
    fs::path french() const { return folder_ / "babel/0012.dlk"; }
    void pack() const { sources_.pack(french()); }

    support::TemporaryFolder folder_;
    support::LanguageSources sources_;
};

QStringList stringsOf(const QByteArray& form) {
    static const QRegularExpression string(QStringLiteral("<string[^>]*>([^<]*)</string>"));
    QStringList texts;
    for (const auto& match : string.globalMatch(QString::fromUtf8(form))) texts.append(match.captured(1));
    EXPECT_FALSE(texts.isEmpty());
    return texts;
}

TEST_F(LanguageFallback, ATranslatedTextIsTakenAndAnotherStaysEnglish) {
    pack();
    const LanguageFile french(folder_.path(), kFrench);
    EXPECT_EQ(french.text(kValue), QStringLiteral("Valeur"));
    EXPECT_EQ(french.text(kTag), QStringLiteral("Tag"));
    EXPECT_EQ(LanguageFile(folder_.path(), app::kEnglishLanguage).text(kValue), QStringLiteral("Value"));
}

TEST_F(LanguageFallback, TheTextsOfAFormAreTranslatedInTheirContext) {
    pack();
    const LanguageFile french(folder_.path(), kFrench);
    EXPECT_TRUE(french.form(284).contains("<string>À propos</string>")) << french.form(284).toStdString();
    EXPECT_TRUE(french.form(284).contains("<string>Tagwright</string>"));
    const LanguageFile english(folder_.path(), app::kEnglishLanguage);
    EXPECT_TRUE(english.form(284).contains("<string>About Tagwright</string>"));
    EXPECT_EQ(stringsOf(french.form(9)), stringsOf(english.form(9))) << "a form without translations stays";
}

TEST_F(LanguageFallback, MenusSpeakTheLanguage) {
    sources_.translate(72401, "Trier par");
    pack();
    const LanguageFile french(folder_.path(), kFrench);
    ASSERT_GT(french.menu(2).size(), 2u);
    EXPECT_EQ(french.menu(2)[2].text, QStringLiteral("Trier par"));
}

TEST_F(LanguageFallback, AFormAMenuAndARibbonThatAreMissingAreEnglish) {
    sources_.remove("forms/284.ui");
    sources_.remove("menus.xml");
    sources_.remove("ribbon.xml");
    pack();
    const LanguageFile french(folder_.path(), kFrench);
    EXPECT_TRUE(french.form(284).contains("AboutDialog"));
    EXPECT_FALSE(french.menu(1).empty());
    EXPECT_TRUE(french.ribbonMarkup().contains("<ribbon"));
    EXPECT_EQ(french.gaps().forms, 3);
}

TEST_F(LanguageFallback, FaultyFormsMenusAndRibbonOfALanguageAreNotLookedAt) {
    sources_.replace("forms/284.ui", "<ui", "<nonsense");
    sources_.replace("menus.xml", "<menus", "<nonsense");
    sources_.replace("ribbon.xml", "<ribbon", "<nonsense");
    pack();
    const LanguageFile french(folder_.path(), kFrench);
    const LanguageFile sound(folder_.path(), app::kEnglishLanguage);
    EXPECT_EQ(french.ribbonMarkup(), sound.ribbonMarkup());
    EXPECT_EQ(french.menu(1).size(), sound.menu(1).size());
    EXPECT_EQ(stringsOf(french.form(284)).size(), stringsOf(sound.form(284)).size());
    EXPECT_TRUE(french.form(284).contains("<string>À propos</string>"));
    EXPECT_EQ(french.gaps().forms, 3);
}

TEST_F(LanguageFallback, ATextThatEnglishLacksIsCountedAndShowsItsKey) {
    pack();
    const qsizetype before = LanguageFile(folder_.path(), kFrench).gaps().texts;
    sources_.replace("texts.ts", "<message id=\"461\">", "<message id=\"9461\">");
    sources_.replace("texts.ts", "<message id=\"70510\">", "<message id=\"9470\">");
    sources_.replace("texts.ts", "<message id=\"70514\">", "<message id=\"9471\">");
    sources_.pack(english());
    pack();
    const LanguageFile english(folder_.path(), app::kEnglishLanguage);
    EXPECT_EQ(english.gaps().texts, 3);
    EXPECT_TRUE(english.gaps().any());
    const LanguageFile french(folder_.path(), kFrench);
    EXPECT_EQ(french.gaps().texts, before);
    for (const LanguageFile* file : {&english, &french}) {
        EXPECT_EQ(file->text(kTag), QStringLiteral("taglists::kTagColumn"));
        EXPECT_EQ(file->text(70510), QStringLiteral("app::kNoFileSelected"));
        EXPECT_EQ(file->formatted(70514, {QStringLiteral("1.2")}), QStringLiteral("app::kAboutVersion 1.2"));
    }
}

TEST_F(LanguageFallback, WhatIsSaidWithoutAWindowIsInTheSpokenLanguage) {
    const int number = app::text::kPathNotHeld;
    EXPECT_EQ(app::spokenText(number, {QStringLiteral("/a")}), "A settings file cannot hold the path /a.");
    sources_.translate(number, "Impossible: %s.");
    pack();
    {
        const LanguageFile french(folder_.path(), kFrench);
        const app::SpokenLanguage spoken(french);
        EXPECT_EQ(app::spokenText(number, {QStringLiteral("/a")}), "Impossible: /a.");
    }
    EXPECT_EQ(app::spokenText(app::text::kReady), "Ready");
}

TEST_F(LanguageFallback, WhatIsNotTranslatedIsCounted) {
    pack();
    const qsizetype before = LanguageFile(folder_.path(), kFrench).gaps().texts;
    sources_.translate(kTag, "Balise");
    sources_.translate("AboutDialog", "Tagwright", "Tagwright");
    pack();
    const LanguageFile french(folder_.path(), kFrench);
    EXPECT_EQ(french.gaps().texts, before - 2);
    EXPECT_GT(before, 1000);
    EXPECT_FALSE(french.gaps().wholeFile);
    EXPECT_FALSE(LanguageFile(folder_.path(), app::kEnglishLanguage).gaps().any());
}

TEST_F(LanguageFallback, ALanguageWithoutAFileIsEnglish) {
    for (const char* bytes : {"", "garbage"}) {
        if (*bytes != '\0') support::writeBytes(french(), bytes);
        const LanguageFile french(folder_.path(), kFrench);
        EXPECT_TRUE(french.valid());
        EXPECT_TRUE(french.gaps().wholeFile);
        EXPECT_EQ(french.text(kValue), QStringLiteral("Value"));
        EXPECT_FALSE(french.form(284).isEmpty());
        EXPECT_FALSE(french.menu(1).empty());
    }
}

TEST_F(LanguageFallback, ALanguageFileIsWholeWithoutTheEnglishOne) {
    pack();
    fs::remove(english());
    const LanguageFile french(folder_.path(), kFrench);
    EXPECT_TRUE(french.valid());
    EXPECT_EQ(french.text(kValue), QStringLiteral("Valeur"));
    EXPECT_EQ(french.text(kTag), QStringLiteral("Tag"));
    EXPECT_FALSE(LanguageFile(folder_.path(), app::kEnglishLanguage).valid());
}

TEST_F(LanguageFallback, AnOlderFileThatLacksATextHasTheEnglishOne) {
    sources_.replace("texts.ts", "<message id=\"461\">", "<message id=\"9461\">");
    pack();
    const LanguageFile french(folder_.path(), kFrench);
    EXPECT_EQ(french.text(kTag), QStringLiteral("Tag"));
}

}  // namespace
