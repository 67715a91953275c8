#include "browser/AddressPath.h"

#include "platform/Text.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QDir>

namespace {

struct PathCase {
    const char* name;
    const char* text;
    const char* base;
    std::string path;
};

class AddressPath : public testing::TestWithParam<PathCase> {};

TEST_P(AddressPath, FollowsTheRule) {
    const auto& [name, text, base, path] = GetParam();
    EXPECT_EQ(browser::absolutePath(QString::fromUtf8(text), base).native(), path);
}

const std::string kHome = QDir::homePath().toStdString();

INSTANTIATE_TEST_SUITE_P(
    Texts, AddressPath,
    testing::Values(PathCase{"EmptyStays", "", "/base", ""},
                    PathCase{"AbsoluteStays", "/a/b", "/base", "/a/b"},
                    PathCase{"RelativeIsAppended", "sub/dir", "/base", "/base/sub/dir"},
                    PathCase{"DotsAreResolved", "../x/./y", "/base/one", "/base/x/y"},
                    PathCase{"NothingIsAboveTheRoot", "/../../a", "/base", "/a"},
                    PathCase{"SeparatorAtTheEndGoes", "/a/b/", "/base", "/a/b"},
                    PathCase{"RootStays", "/", "/base", "/"}, PathCase{"DotIsTheBase", ".", "/base", "/base"},
                    PathCase{"DotDotIsTheParent", "..", "/base/one", "/base"},
                    PathCase{"AddressStays", "https://a.b/../c", "/base", "https://a.b/../c"},
                    PathCase{"ColonInANameIsNoAddress", "Rome: day 1", "/base", "/base/Rome: day 1"},
                    PathCase{"BlanksBelongToTheName", "a b ", "/base", "/base/a b "},
                    PathCase{"TildeIsHome", "~", "/no/such", kHome},
                    PathCase{"TildeLeadsHome", "~/x", "/no/such", kHome + "/x"},
                    PathCase{"TildeInsideIsAName", "~x", "/base", "/base/~x"}),
    [](const auto& info) { return info.param.name; });

TEST(AddressPathTilde, AFolderOfThatNameGoesFirst) {
    const support::TemporaryFolder folder;
    std::filesystem::create_directory(folder / "~");
    EXPECT_EQ(browser::absolutePath("~", folder.path()), folder / "~");
}

}  // namespace
