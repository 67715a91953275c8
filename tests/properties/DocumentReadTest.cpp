#include "exiftool/DocumentTags.h"
#include "platform/ProgramSearch.h"
#include "properties/DocumentProperties.h"
#include "properties/MediaFiles.h"
#include "properties/OfficeFiles.h"
#include "properties/PropertyStore.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace {

namespace fs = std::filesystem;
using properties::PropertyStore;
using properties::PropertyValue;
using Id = properties::PropertyId;

constexpr std::int64_t kSecond = 1'000'000'000;
constexpr std::int64_t kTicksInAMinute = 600'000'000;
constexpr std::int64_t kJanuary = 1'577'934'245;  // 2020-01-02 03:04:05

PropertyValue text(const char* value) {
    return QString::fromUtf8(value);
}
PropertyValue list(const char* value) {
    return QString::fromUtf8(value).split(u'|');
}
PropertyValue number(std::int64_t value) {
    return value;
}
PropertyValue moment(std::int64_t seconds) {
    return platform::PointInTime{seconds * kSecond};
}

/// While it lives, stores ask a real ExifTool about documents.
class DocumentRead : public ::testing::Test {
 protected:
    DocumentRead() {
        properties::setTagSource(std::make_shared<exiftool::DocumentTags>(platform::findProgram("exiftool")));
    }
    ~DocumentRead() override { properties::setTagSource(nullptr); }

    struct Expected {
        Id property;
        PropertyValue value;
    };
    void expect(const char* name, const std::vector<Expected>& all) const {
        PropertyStore store(folder / name);
        for (const Expected& one : all)
            EXPECT_EQ(store.get(one.property), one.value) << name << " " << static_cast<int>(one.property);
    }

    support::TemporaryFolder folder;
};

void writeOfficeDocument(const fs::path& file) {
    const std::string schemas = "http://schemas.openxmlformats.org/";
    const std::string types = "application/vnd.openxmlformats-";
    support::writeArchive(
        file,
        {{"[Content_Types].xml", "<?xml version=\"1.0\"?><Types xmlns=\"" + schemas +
                                     "package/2006/content-types\"><Override "
                                     "PartName=\"/word/document.xml\" ContentType=\"" +
                                     types + "officedocument.wordprocessingml.document.main+xml\"/></Types>"},
         {"word/document.xml", "<x/>"},
         {"docProps/core.xml",
          "<?xml version=\"1.0\"?><cp:coreProperties xmlns:cp=\"" + schemas +
              "package/2006/metadata/core-properties\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\" "
              "xmlns:dcterms=\"http://purl.org/dc/terms/\"><dc:title>Größe</dc:title><dc:subject>Sub</"
              "dc:subject>"
              "<dc:creator>Ann</dc:creator><cp:keywords>one, two</cp:keywords><dc:description>Note"
              "</dc:description><cp:lastModifiedBy>Bo</cp:lastModifiedBy><cp:revision>7</cp:revision>"
              "<dcterms:created>2020-01-02T03:04:05Z</dcterms:created><cp:version>1.5</cp:version>"
              "<dcterms:modified>2020-01-02T03:04:06Z</dcterms:modified></cp:coreProperties>"},
         {"docProps/app.xml",
          "<?xml version=\"1.0\"?><Properties xmlns=\"" + schemas +
              "officeDocument/2006/extended-properties\"><Application>App</Application>"
              "<TotalTime>25</TotalTime><Pages>3</Pages><Company>Comp</Company></Properties>"}});
}

/// The first object is the root, the last one the information.
void writePdf(const fs::path& file, const std::vector<std::string>& objects) {
    std::string bytes = "%PDF-1.4\n";
    std::string table = "0000000000 65535 f \n";
    for (std::size_t i = 0; i < objects.size(); ++i) {
        const std::string place = std::to_string(bytes.size());
        table += std::string(10 - place.size(), '0') + place + " 00000 n \n";
        bytes += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const std::string count = std::to_string(objects.size());
    const std::string start = std::to_string(bytes.size());
    support::writeBytes(file, bytes + "xref\n0 " + std::to_string(objects.size() + 1) + "\n" + table +
                                  "trailer\n<</Root 1 0 R/Info " + count + " 0 R>>\nstartxref\n" + start +
                                  "\n%%EOF\n");
}

TEST_F(DocumentRead, GivesWhatDocumentsHold) {
    writeOfficeDocument(folder / "a.docx");
    expect("a.docx", {{Id::SummaryTitle, text("Größe")},
                      {Id::SummarySubject, text("Sub")},
                      {Id::SummaryAuthor, list("Ann")},
                      {Id::SummaryKeywords, list("one|two")},
                      {Id::SummaryComment, text("Note")},
                      {Id::SummaryApplicationName, text("App")},
                      {Id::VersionCompany, text("Comp")},
                      {Id::TextLastAuthor, text("Bo")},
                      {Id::TextRevisionNumber, text("7")},
                      {Id::TextVersion, text("1.5")},
                      {Id::TextPageCount, number(3)},
                      {Id::TextTotalEditingTime, number(25 * kTicksInAMinute)},
                      {Id::TextDateCreated, moment(kJanuary)},
                      {Id::TextDateSaved, moment(kJanuary + 1)}});
    support::writeBytes(folder / "a.rtf",
                        "{\\rtf1\\ansi{\\info{\\title T}{\\subject S}{\\author Ann}{\\manager M}{\\company C}"
                        "{\\operator Bo}{\\keywords k}{\\creatim\\yr2020\\mo1\\dy2\\hr3\\min4\\sec5}"
                        "{\\edmins25}{\\nofpages3}{\\nofwords400}}x}");
    expect("a.rtf", {{Id::SummaryTitle, text("T")},
                     {Id::SummarySubject, text("S")},
                     {Id::TextManager, text("M")},
                     {Id::TextLastAuthor, text("Bo")},
                     {Id::TextWordCount, number(400)},
                     {Id::TextTotalEditingTime, number(25 * kTicksInAMinute)}});
    writePdf(folder / "a.pdf", {"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Kids[]/Count 7>>",
                                "<</Title(T)/Subject(S)/Keywords(one, two)/Creator(App)"
                                "/CreationDate(D:20200102050405+02'00')>>"});
    expect("a.pdf", {{Id::TextVersion, text("1.4")},
                     {Id::TextPageCount, number(7)},
                     {Id::SummaryTitle, text("T")},
                     {Id::SummarySubject, text("S")},
                     {Id::SummaryKeywords, list("one|two")},
                     {Id::SummaryApplicationName, text("App")},
                     {Id::TextDateCreated, moment(kJanuary)}});
}

TEST_F(DocumentRead, GivesWhatOldDocumentsPagesAndProgramsHold) {
    constexpr std::uint64_t kTicks = 10'000'000;
    constexpr std::uint64_t kFrom1601 = 11'644'473'600;
    support::writeCompoundFile(
        folder / "a.ppt",
        {{2, "Größe"},
         {3, "Sub"},
         {4, "Ann"},
         {5, "one; two"},
         {6, "Note"},
         {7, "Template"},
         {8, "Bo"},
         {9, "7"},
         {10, support::FileTime{90 * kTicks}},
         {12, support::FileTime{(kFrom1601 + kJanuary) * kTicks}},
         {15, 400},
         {18, "Program"}},
        {{2, "Category"}, {3, "On-screen"}, {7, 12}, {9, 2}, {14, "Man"}, {15, "Comp"}});
    expect("a.ppt", {{Id::SummaryTitle, text("Größe")},
                     {Id::SummarySubject, text("Sub")},
                     {Id::SummaryAuthor, list("Ann")},
                     {Id::SummaryKeywords, list("one|two")},
                     {Id::SummaryComment, text("Note")},
                     {Id::SummaryCategory, list("Category")},
                     {Id::SummaryApplicationName, text("Program")},
                     {Id::TextTemplate, text("Template")},
                     {Id::TextLastAuthor, text("Bo")},
                     {Id::TextRevisionNumber, text("7")},
                     {Id::TextTotalEditingTime, number(90 * static_cast<std::int64_t>(kTicks))},
                     {Id::TextDateCreated, moment(kJanuary)},
                     {Id::TextWordCount, number(400)},
                     {Id::TextPresentationFormat, text("On-screen")},
                     {Id::TextSlideCount, number(12)},
                     {Id::TextHiddenSlideCount, number(2)},
                     {Id::TextManager, text("Man")},
                     {Id::VersionCompany, text("Comp")}});
    support::writeBytes(
        folder / "a.html",
        "<!DOCTYPE html>\n<html>\n<head>\n<title>T</title>\n<meta name=\"author\" content=\"Ann\">"
        "\n<meta name=\"keywords\" content=\"one, two\"><meta name=\"description\" content=\"Note\">"
        "\n<meta name=\"generator\" content=\"Program\">\n</head>\n<body></body>\n</html>\n");
    expect("a.html", {{Id::SummaryTitle, text("T")},
                      {Id::SummaryAuthor, list("Ann")},
                      {Id::SummaryKeywords, list("one|two")},
                      {Id::SummaryComment, text("Note")},
                      {Id::SummaryApplicationName, text("Program")}});
    support::writeProgram(folder / "a.exe", {{"CompanyName", "Comp"},
                                             {"FileDescription", "Desc"},
                                             {"FileVersion", "1.2.3.4"},
                                             {"LegalCopyright", "Ann 2020"},
                                             {"LegalTrademarks", "Mark"},
                                             {"ProductName", "Product"},
                                             {"ProductVersion", "1.2"}});
    expect("a.exe", {{Id::VersionCompany, text("Comp")},
                     {Id::VersionDescription, text("Desc")},
                     {Id::VersionFileVersion, text("1.2.3.4")},
                     {Id::VersionProductName, text("Product")},
                     {Id::VersionProductVersion, text("1.2")},
                     {Id::SummaryCopyright, text("Ann 2020")},
                     {Id::SummaryTrademarks, text("Mark")}});
}

TEST_F(DocumentRead, GivesTheSizeOfPicturesThatNoLibraryKnows) {
    const std::string drawing = "<svg xmlns=\"http://www.w3.org/2000/svg\" ";
    support::writeBytes(folder / "a.svg", drawing + "width=\"120px\" height=\"80\"><title>T</title></svg>");
    support::writeBytes(folder / "b.svg", drawing + "width=\"4in\" height=\"25.4mm\"></svg>");
    support::writeBytes(folder / "c.svg", drawing + "viewBox=\"0 0 210 297\"></svg>");
    support::writeBytes(folder / "a.xcf", std::string("gimp xcf file\0\0\0\0\x20\0\0\0\x18\0\0\0\0", 26) +
                                              std::string(16, '\0'));
    expect("a.svg", {{Id::ImageDimensions, text("120 x 80")}, {Id::SummaryTitle, text("T")}});
    expect("b.svg", {{Id::ImageHorizontalSize, number(384)}, {Id::ImageVerticalSize, number(96)}});
    expect("c.svg", {{Id::ImageDimensions, text("210 x 297")}});
    expect("a.xcf", {{Id::ImageDimensions, text("32 x 24")}});
}

/// How often it was asked; knows nothing.
class CountingSource : public properties::TagSource {
 public:
    properties::FileTags tagsOf(const fs::path& /*file*/) override {
        ++asked;
        return {};
    }
    int asked = 0;
};

TEST_F(DocumentRead, OnlyWhatNoLibraryKnowsIsAskedForAndOnce) {
    const auto source = std::make_shared<CountingSource>();
    properties::setTagSource(source);
    support::writeJpeg(folder / "a.jpg");
    support::writeMp4(folder / "a.mp4");
    support::writeFlac(folder / "a.flac");
    support::writeBytes(folder / "a.txt", "text");
    support::writeBytes(folder / "a.pdf", "%PDF-1.4\n");
    const auto readAll = [&](const char* name) {
        PropertyStore store(folder / name);
        for (std::size_t i = 0; i < properties::kPropertyCount; ++i)
            static_cast<void>(store.get(static_cast<Id>(i)));
    };
    for (const char* name : {"a.jpg", "a.mp4", "a.flac", "a.txt"}) readAll(name);
    EXPECT_EQ(source->asked, 0);
    readAll("a.pdf");
    EXPECT_EQ(source->asked, 1);
}

TEST_F(DocumentRead, ThreadsMayAskAndGo) {
    writeOfficeDocument(folder / "a.docx");
    for (int round = 0; round < 3; ++round) {
        PropertyValue title;
        // The tool ends with the thread that has started it.
        std::thread([&] { title = PropertyStore(folder / "a.docx").get(Id::SummaryTitle); }).join();
        EXPECT_EQ(title, text("Größe")) << round;
    }
}

TEST_F(DocumentRead, WithoutAToolNothingIsKnownAndNobodyWaits) {
    writeOfficeDocument(folder / "a.docx");
    for (const char* tool : {"/nowhere/exiftool", "/bin/false"}) {
        properties::setTagSource(std::make_shared<exiftool::DocumentTags>(tool));
        const auto before = std::chrono::steady_clock::now();
        EXPECT_EQ(PropertyStore(folder / "a.docx").get(Id::SummaryTitle), PropertyValue()) << tool;
        EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(5)) << tool;
    }
}

}  // namespace
