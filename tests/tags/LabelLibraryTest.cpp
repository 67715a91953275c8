#include "tags/LabelLibrary.h"

#include "platform/Text.h"

#include <gtest/gtest.h>

#include <QSet>
#include <QStringList>
#include <array>

#include "tags/GroupCatalogue.h"

using tags::LabelLibrary;
using tags::TagDictionary;
using tags::TagRecord;
using tags::ValueKind;

namespace {

constexpr std::array<int, 4> kLanguages = {9, 7, 12, 10};  // English, German, French, Spanish

const TagDictionary& dictionary() {
    static const TagDictionary kDictionary;
    return kDictionary;
}

const LabelLibrary& library(int language) {
    static const LabelLibrary kEnglish(9, dictionary());
    static const LabelLibrary kGerman(7, dictionary());
    static const LabelLibrary kFrench(12, dictionary());
    static const LabelLibrary kSpanish(10, dictionary());
    return language == 7 ? kGerman : language == 12 ? kFrench : language == 10 ? kSpanish : kEnglish;
}

int idOf(const QString& group, const QString& name) {
    const auto number = tags::FindGroup(u'[' + group + u']');
    return number ? dictionary().FindTagId(*number, name) : -1;
}

std::string nameOf(const TagRecord& row) {
    return (QString::number(row.id) + ' ' + platform::wide(row.group) + ':' + platform::wide(row.name))
        .toStdString();
}

QString helpOf(int language, int id) {
    QString help;
    EXPECT_TRUE(library(language).GetHelpFromLibelle(id, help)) << id;
    return help;
}

QString labelAt(int language, int id, int index) {
    QString label;
    QString code;
    library(language).GetLibelleCombo(id, label, code, index);
    return label;
}

QString codeAt(int id, int index) {
    QString label;
    QString code;
    library(9).GetLibelleCombo(id, label, code, index);
    return code;
}

}  // namespace

TEST(LabelLibrary, EveryTagHasALabelAndHelpInEveryLanguage) {
    for (const int language : kLanguages) {
        for (const TagRecord& row : dictionary().records()) {
            const int id = static_cast<int>(row.id);
            ASSERT_TRUE(library(language).CM_xxHasALibelle(id)) << nameOf(row);
            const QString label = library(language).label(id);
            ASSERT_FALSE(label.trimmed().isEmpty()) << nameOf(row);
            const QString help = helpOf(language, id);
            ASSERT_TRUE(help.startsWith(label + u'\n')) << help.toStdString();
            const auto first = dictionary().FindTagById(row.id);
            ASSERT_TRUE((help + u'\n').contains(": " + platform::wide(first->group) + u'\n'))
                << help.toStdString();
            ASSERT_FALSE(help.contains("\n\n") || help.contains('%' + QString::number(1)))
                << nameOf(row) << help.toStdString();
        }
    }
}

TEST(LabelLibrary, HelpTellsWhetherTheTagCanBeWritten) {
    for (const TagRecord& row : dictionary().records()) {
        const auto first = dictionary().FindTagById(row.id);
        const QString help = helpOf(9, static_cast<int>(row.id));
        ASSERT_EQ(help.contains("\nCan be written"), first->writable) << nameOf(row);
        ASSERT_EQ(help.contains("\nRead only"), !first->writable) << nameOf(row);
    }
}

TEST(LabelLibrary, ANumberThatIsNoTagHasNothing) {
    const int unused = [] {
        for (std::uint32_t id = 0;; ++id) {
            if (!dictionary().FindTagById(id)) return static_cast<int>(id);
        }
    }();
    for (const int id : {-1, unused, 14033, 1 << 30}) {
        QString help = "as before";
        QString code = "as before";
        EXPECT_FALSE(library(9).CM_xxHasALibelle(id)) << id;
        EXPECT_FALSE(library(9).GetHelpFromLibelle(id, help)) << id;
        EXPECT_FALSE(library(9).GetLibelleCombo(id, help, code, 0)) << id;
        EXPECT_EQ(help, "as before");
        EXPECT_EQ(code, "as before");
        EXPECT_EQ(library(9).GetItemNumberFromCombo(id), 0) << id;
        EXPECT_EQ(library(9).GetComboIndex(id, u"Off"), -1) << id;
        EXPECT_EQ(library(9).label(id), QString()) << id;
    }
}

TEST(LabelLibrary, ListTagsHaveDistinctValuesAndNoOtherTagHasAny) {
    int writable = 0;
    for (const TagRecord& row : dictionary().records()) {
        const auto first = dictionary().FindTagById(row.id);
        const int count = library(9).GetItemNumberFromCombo(static_cast<int>(row.id));
        if (first->valueKind != ValueKind::List) {
            ASSERT_EQ(count, 0) << nameOf(row);
            continue;
        }
        ASSERT_GT(count, 0) << nameOf(row);
        writable += first->writable ? 1 : 0;
        QSet<QString> choices;
        for (int index = 0; index < count; ++index) {
            QString label;
            QString code;
            ASSERT_TRUE(library(9).GetLibelleCombo(static_cast<int>(row.id), label, code, index));
            ASSERT_FALSE(label.isEmpty() || code.isEmpty()) << nameOf(row) << ' ' << index;
            choices += code + u'\n' + label;
        }
        ASSERT_EQ(choices.size(), count) << nameOf(row);
        QString label;
        QString code;
        EXPECT_FALSE(library(9).GetLibelleCombo(static_cast<int>(row.id), label, code, count));
        EXPECT_FALSE(library(9).GetLibelleCombo(static_cast<int>(row.id), label, code, -1));
    }
    EXPECT_EQ(writable, 286);
}

TEST(LabelLibrary, EveryTextOfAListIsFoundAgainInEveryLanguage) {
    for (const int language : kLanguages) {
        for (const TagRecord& row : dictionary().records()) {
            const int id = static_cast<int>(row.id);
            const int count = std::min(library(language).GetItemNumberFromCombo(id), 60);
            for (int index = 0; index < count; ++index) {
                const QString label = labelAt(language, id, index);
                const int found = library(language).GetComboIndex(id, label);
                ASSERT_GE(found, 0) << nameOf(row) << ' ' << label.toStdString();
                ASSERT_LE(found, index) << nameOf(row);
                ASSERT_EQ(labelAt(language, id, found), label) << nameOf(row);
            }
        }
    }
}

struct KnownLabel {
    const char* group;
    const char* name;
    std::array<const char*, 4> labels;  ///< English, German, French, Spanish
};

TEST(LabelLibrary, WellKnownTagsHaveTheirLabelsInFourLanguages) {
    const KnownLabel known[] = {
        {"IFD0",
         "Orientation",
         {"Orientation", "Ausrichtung", "Orientation de l'image", "Orientación de Imagen"}},
        {"IFD0", "Make", {"Make", "Gerätehersteller", "Fabricant", "Marca"}},
        {"IFD0",
         "ResolutionUnit",
         {"Resolution Unit", "Einheit der X- und Y-Auflösung",
          "Unité des résolutions horizontale et verticale", "Unidad de Resolución de X e Y"}},
        {"ExifIFD",
         "ExposureProgram",
         {"Exposure Program", "Belichtungsprogramm", "Programme d'exposition", "Programa Exposición"}},
        {"ExifIFD",
         "MeteringMode",
         {"Metering Mode", "Belichtungsmessmethode", "Mode de mesure", "Modo Medición"}},
        {"ExifIFD", "Flash", {"Flash", "Blitzmodus", "Flash", "Flash"}},
        {"IPTC", "Urgency", {"Urgency", "Dringlichkeit", "Urgence", "Urgencia"}},
        {"GPS",
         "GPSLatitudeRef",
         {"GPS Latitude Ref", "Nördl. oder südl. Breite", "Référence de la valeur GPS en latitude",
          "Latitud Norte o Sur"}},
        {"XMP-xmp", "Rating", {"Rating", "Bewertung", "Classement", "Clasificación"}},
    };
    for (const KnownLabel& tag : known) {
        for (std::size_t language = 0; language < kLanguages.size(); ++language) {
            EXPECT_EQ(library(kLanguages[language]).label(idOf(tag.group, tag.name)).toStdString(),
                      tag.labels[language])
                << tag.group << ':' << tag.name << " in " << kLanguages[language];
        }
    }
}

struct KnownValue {
    const char* group;
    const char* name;
    const char* code;
    std::array<const char*, 4> texts;
};

TEST(LabelLibrary, WellKnownValuesHaveTheirCodesAndTexts) {
    const KnownValue known[] = {
        {"IFD0",
         "Orientation",
         "6",
         {"Rotate 90 CW", "90° im Uhrzeigersinn", "Rotation antihoraire de 90°", "Girado 90° sentido reloj"}},
        {"ExifIFD",
         "ExposureProgram",
         "2",
         {"Program AE", "Programmautomatik", "Programme normal", "Programa normal"}},
        {"ExifIFD",
         "MeteringMode",
         "5",
         {"Multi-segment", "Multi-Segment", "Multi-segments", "Multi-segmento"}},
        {"ExifIFD", "Flash", "1", {"Fired", "Blitz wurde ausgelöst", "Flash déclenché", "Flash disparado"}},
        {"IFD0", "ResolutionUnit", "2", {"inches", "Zoll", "Pouce", "Pulgada"}},
        {"IPTC",
         "Urgency",
         "1",
         {"1 (most urgent)", "1 (sehr dringend)", "1 (très urgent)", "1 (más urgente)"}},
        {"GPS", "GPSLatitudeRef", "N", {"North", "Nördliche Breite", "Nord", "Latitud norte"}},
        {"XMP-plus",
         "CopyrightStatus",
         "CS-PUB",
         {"Public Domain", "Public Domain", "Public Domain", "Public Domain"}},
        {"XMP-plus",
         "ModelReleaseStatus",
         "MR-NAP",
         {"Not Applicable", "Not Applicable", "Non applicable", "Not Applicable"}},
    };
    for (const KnownValue& value : known) {
        const int id = idOf(value.group, value.name);
        for (std::size_t language = 0; language < kLanguages.size(); ++language) {
            const LabelLibrary& tested = library(kLanguages[language]);
            const int index = tested.GetComboIndex(id, QString(value.texts[0]));
            ASSERT_GE(index, 0) << value.group << ':' << value.name;
            EXPECT_EQ(codeAt(id, index), value.code) << value.name;
            EXPECT_EQ(labelAt(kLanguages[language], id, index), value.texts[language]) << value.name;
            EXPECT_EQ(tested.printedText(id, index), value.texts[0]);
            // Whatever language ExifTool was asked for.
            for (const char* printed : value.texts) {
                EXPECT_EQ(tested.GetComboIndex(id, QString(printed)), index) << printed;
            }
        }
    }
}

TEST(LabelLibrary, TheRightsFormFindsItsCodesInTheOrderThatItWrites) {
    const std::pair<int, QStringList> lists[] = {
        {8642, {"CS-PRO", "CS-PUB", "CS-UNK"}},
        {8643, {"CR-CAI", "CR-CCA", "CR-COI", "CR-NRQ"}},
        {8644, {"AL-CLR", "AL-CRP", "AL-DCL", "AL-FLP", "AL-MRG", "AL-RET"}},
        {8648, {"DP-LIC", "DP-NDC", "DP-NOD"}},
        {8649, {"IF-MFN", "IF-MFT", "IF-MID", "IF-MMD"}},
        {8653, {"TY-ILL", "TY-MCI", "TY-OTR", "TY-PHO", "TY-VID"}},
        {8675, {"cell", "fax", "home", "pager", "work"}},
        {8678, {"CW-AWR", "CW-NRQ", "CW-UNK"}},
        {8686, {"MR-LMR", "MR-NAP", "MR-NON", "MR-UMR"}},
        {8689, {"PR-LPR", "PR-NAP", "PR-NON", "PR-UPR"}},
    };
    for (const auto& [id, codes] : lists) {
        QStringList found;
        for (int index = 0; index < library(9).GetItemNumberFromCombo(id); ++index)
            found += codeAt(id, index);
        EXPECT_EQ(found, codes) << id;
    }
    EXPECT_EQ(library(9).GetItemNumberFromCombo(8684), 13);
}

TEST(LabelLibrary, AValueIsFoundExactlyThenWithoutCase) {
    const int id = idOf("IFD0", "Orientation");
    EXPECT_EQ(library(9).GetComboIndex(id, u"Horizontal (normal)"), 0);
    EXPECT_EQ(library(9).GetComboIndex(id, u"horizontal (NORMAL)"), 0);
    EXPECT_EQ(library(9).GetComboIndex(id, u" Horizontal (normal) "), 0);
    EXPECT_EQ(library(9).GetComboIndex(id, u"Horizontal"), -1);
    EXPECT_EQ(library(9).GetComboIndex(id, u"Unknown (9)"), -1);
    EXPECT_EQ(library(9).GetComboIndex(id, u""), -1);

    EXPECT_EQ(library(9).GetComboIndex(id, u"6"), -1);  // a code is not what is printed
    EXPECT_EQ(library(9).GetComboIndex(idOf("IFD0", "Make"), u"Off"), -1);
}

TEST(LabelLibrary, NamesWithoutATableAreSetApartInWords) {
    const std::pair<std::pair<const char*, const char*>, const char*> labels[] = {
        {{"Matroska", "AspectRatio,"}, "Aspect Ratio"},
        {{"AIFF", "Duration)"}, "Duration"},
        {{"XMP-GPano", "FullPanoWidthPixels "}, "Full Pano Width Pixels"},
        {{"Apple", "Apple_0x0009"}, "Apple 0x0009"},
        {{"XMP", "GpxMetadataAuthorEmailId"}, "Gpx Metadata Author Email Id"},
    };
    for (const auto& [tag, label] : labels) {
        const int id = idOf(tag.first, tag.second);
        ASSERT_GE(id, 0) << tag.second;
        EXPECT_EQ(library(9).label(id), label) << tag.second;
    }
    for (const int id : {2018, 7090, 11509}) {
        EXPECT_EQ(library(9).label(id), "Unnamed tag");
        EXPECT_EQ(library(7).label(id), "Tag ohne Namen");
    }
}

TEST(LabelLibrary, HelpIsMadeOfTheFactsInItsLanguage) {
    const int id = idOf("ExifIFD", "ExposureProgram");
    EXPECT_EQ(helpOf(9, id).split('\n').mid(0, 5),
              QStringList({"Exposure Program",
                           "The value of 9 is not standard EXIF, but is used by the Canon EOS 7D.",
                           "Format: whole number from 0, 16 bits", "Can be written", "Values:"}));
    EXPECT_TRUE(
        helpOf(9, id).endsWith("\nGroup: ExifIFD\nName: ExposureProgram\n"
                               "Tag 34850 (0x8822) of Exif::Main\nTopic: camera and exposure"))
        << helpOf(9, id).toStdString();
    EXPECT_TRUE(helpOf(9, id).contains("\n2 = Program AE\n")) << helpOf(9, id).toStdString();
    const QString german = helpOf(7, id);
    EXPECT_TRUE(german.contains("\nFormat: ganze Zahl ab 0, 16 Bit\nKann geschrieben werden\n"))
        << german.toStdString();
    EXPECT_TRUE(german.contains("\n2 = Programmautomatik\n")) << german.toStdString();
    EXPECT_TRUE(helpOf(12, id).contains("Groupe : ExifIFD")) << helpOf(12, id).toStdString();
    EXPECT_TRUE(helpOf(10, id).contains("Grupo: ExifIFD")) << helpOf(10, id).toStdString();
}

TEST(LabelLibrary, HelpTellsOfSeveralValuesAndOfLongLists) {
    EXPECT_TRUE(helpOf(9, idOf("XMP-dc", "Subject")).contains("Format: text, several values"))
        << helpOf(9, idOf("XMP-dc", "Subject")).toStdString();
    const int genre = idOf("ItemList", "AppleStoreCountry");
    const QString help = helpOf(9, genre);
    const int left = library(9).GetItemNumberFromCombo(genre) - 40;
    ASSERT_GT(left, 0);
    EXPECT_TRUE(help.contains("and " + QString::number(left) + " more\n")) << help.toStdString();
    EXPECT_LT(help.count('\n'), 55);
}

TEST(LabelLibrary, OnlyTheLanguageInTheLowBitsCounts) {
    const int id = idOf("IFD0", "Make");
    EXPECT_EQ(LabelLibrary(1031, dictionary()).label(id), "Gerätehersteller");  // German of Germany
    EXPECT_EQ(LabelLibrary(3084, dictionary()).label(id), "Fabricant");         // French of Canada
    EXPECT_EQ(LabelLibrary(1033, dictionary()).label(id), "Make");
    EXPECT_EQ(LabelLibrary(16, dictionary()).label(id), "Make");  // Italian is not there
}
