#include "exiftool/ValuesExport.h"

#include "exiftool/ReadCommands.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>

using namespace exiftool;

namespace {

namespace fs = std::filesystem;

app::AppContext makeContext() {
    app::AppContext context;
    context.exifToolPath = "/opt/exiftool";
    context.reportFile = "/install/cache/reports/report.txt";
    return context;
}

std::string lineOf(app::CommandForm form, app::CommandId command) {
    const app::AppContext context = makeContext();
    const ValuesExport* format = findValuesExport(command);
    return exportValuesCommand(context, form, exportFileWord("/photos/a \"b\".jpg"),
                               exportOutputWord(context, form, "/photos/a \"b\".x"),
                               platform::CommandText(format->arguments))
        .text();
}

TEST(ValuesExport, EveryCommandHasItsExtensionAndItsArguments) {
    struct Case {
        int command;
        const char* extension;
        const char* arguments;
    };
    const Case cases[] = {{10034, ".txt", ""},          {10035, ".csv", "-csv "},
                          {10036, ".html", "-h "},      {10037, ".xml", "-X "},
                          {10038, ".mie", "-o -.mie "}, {10039, ".html", "-h -g1 "},
                          {10040, ".txt", "-s -G1 "},   {10041, ".txt", "-n "}};
    EXPECT_EQ(valuesExports().size(), std::size(cases));
    for (const auto& [command, extension, arguments] : cases) {
        const ValuesExport* format = findValuesExport(command);
        ASSERT_NE(format, nullptr) << command;
        EXPECT_EQ(format->extension, extension);
        EXPECT_EQ(
            lineOf(app::CommandForm::Designed, command),
            std::string("\"/opt/exiftool\" -lang en -sort --ExifToolVersion -x System:all -f File:All ") +
                arguments + "\"/photos/a \"b\".jpg\" >\"/photos/a \"b\".x\"");
        EXPECT_EQ(
            lineOf(app::CommandForm::Corrected, command),
            std::string("\"/opt/exiftool\" -lang en -sort --ExifToolVersion -x System:all -x File:All ") +
                arguments +
                "\"/photos/a \"b\".jpg\" >\"/photos/a \"b\".x\" "
                "2>>\"/install/cache/reports/report.txt\"");
    }
    for (const int command : {0, 10033, 10042, 248}) EXPECT_EQ(findValuesExport(command), nullptr) << command;
}

TEST(ValuesExport, TheTargetStandsBesideTheFileAndIsNeverTheFileItself) {
    const support::TemporaryFolder folder;
    support::writeBytes(folder / "page.html", "x");
    fs::create_symlink("photo.jpg", folder / "photo.xml");
    support::writeBytes(folder / "photo.jpg", "x");
    struct Case {
        const char* file;
        int command;
        const char* target;
    };
    for (const auto& [file, command, target] :
         {Case{"photo.jpg", 10034, "photo.txt"}, Case{"a.b.c", 10035, "a.b.csv"},
          Case{"none", 10038, "none.mie"}, Case{".hidden", 10034, ".hidden.txt"},
          Case{"page.html", 10036, "page.html.html"}, Case{"page.html", 10037, "page.xml"},
          Case{"photo.jpg", 10037, "photo.jpg.xml"}})
        EXPECT_EQ(exportTarget(folder / file, *findValuesExport(command)), folder / target) << file;
}

}  // namespace
