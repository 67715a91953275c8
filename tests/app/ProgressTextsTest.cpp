#include "app/ProgressTexts.h"

namespace {

struct Texts {
    int language;
    const char* initializing;
    const char* reading;
    const char* sorting;
};

constexpr Texts kTexts[] = {
    {9, "Initializing ...", "Reading a.jpg", "Metadata sorting ..."},
    {12, "Initialisation ...", "Lecture de a.jpg", "Tri des metadonn\u00E9es ..."},
    {7, "Initialisieren ...", "Lesen a.jpg", "Sortierung von Metadaten ..."},
    {10, "Inicializando ...", "Leyendo a.jpg", "Clasificaci\u00F3n de matadatos ..."},
    {1036, "Initialisation ...", "Lecture de a.jpg", "Tri des metadonn\u00E9es ..."},
    {0, "Initializing ...", "Reading a.jpg", "Metadata sorting ..."},
    {-1, "Initializing ...", "Reading a.jpg", "Metadata sorting ..."},
};

TEST(ProgressTexts, SpeakFourLanguagesAndEnglishOtherwise) {
    const QString name = QStringLiteral("a.jpg");
    for (const Texts& row : kTexts) {
        SCOPED_TRACE(row.language);
        EXPECT_EQ(app::progressText(row.language, app::ProgressStep::Initializing, name),
                  QString::fromUtf8(row.initializing));
        EXPECT_EQ(app::progressText(row.language, app::ProgressStep::Reading, name),
                  QString::fromUtf8(row.reading));
        EXPECT_EQ(app::progressText(row.language, app::ProgressStep::Sorting, name),
                  QString::fromUtf8(row.sorting));
    }
    EXPECT_EQ(app::progressText(9, app::ProgressStep::ExtractingThumbnail),
              QStringLiteral("Extracting thumbnail ..."));
}

TEST(ProgressTexts, StepsHaveTheirNumbers) {
    EXPECT_EQ(app::progressStepOf(1152), app::ProgressStep::Sorting);
    EXPECT_EQ(app::progressStepOf(1153), app::ProgressStep::ExtractingThumbnail);
    EXPECT_EQ(app::progressStepOf(1154), app::ProgressStep::Initializing);
    EXPECT_EQ(app::progressStepOf(1155), app::ProgressStep::Reading);
    EXPECT_EQ(app::progressStepOf(1151), std::nullopt);
    EXPECT_EQ(app::progressStepOf(0), std::nullopt);
}

}  // namespace
