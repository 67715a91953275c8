#include "controls/DumpText.h"
#include "controls/TextRows.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace controls;

namespace {

Bytes bytesOf(const std::string& text) {
    return {reinterpret_cast<const unsigned char*>(text.data()), text.size()};
}

std::string counted(std::size_t count) {
    std::string text;
    for (std::size_t index = 0; index < count; ++index) text += static_cast<char>('A' + index);
    return text;
}

}  // namespace

TEST(DumpText, LinesToTheLetter) {
    struct {
        const char* what;
        std::string bytes;
        std::size_t offset;
        ShortLineFill fill;
        const char* line;
    } const cases[] = {
        {"whole line", counted(16), 0, ShortLineFill::FourBlanks,
         "00000000   41 42 43 44 45 46 47 48   49 4A 4B 4C 4D 4E 4F 50    ABCDEFGHIJKLMNOP"},
        {"the same aligned", counted(16), 0x1F0, ShortLineFill::Aligned,
         "000001F0   41 42 43 44 45 46 47 48   49 4A 4B 4C 4D 4E 4F 50    ABCDEFGHIJKLMNOP"},
        {"what is no printable ASCII", std::string("\x00\x1F ~\x7F\x80\xFF\n\r\t\xC3\xA4", 12) + "<&>\"", 16,
         ShortLineFill::Aligned,
         "00000010   00 1F 20 7E 7F 80 FF 0A   0D 09 C3 A4 3C 26 3E 22    .. ~........<&>\""},
        {"short, four blanks a byte", counted(13), 0, ShortLineFill::FourBlanks,
         "00000000   41 42 43 44 45 46 47 48   49 4A 4B 4C 4D                "
         "ABCDEFGHIJKLM"},
        {"short, aligned", counted(13), 0, ShortLineFill::Aligned,
         "00000000   41 42 43 44 45 46 47 48   49 4A 4B 4C 4D             ABCDEFGHIJKLM"},
        {"exactly the first half", counted(8), 0, ShortLineFill::Aligned,
         "00000000   41 42 43 44 45 46 47 48                              ABCDEFGH"},
        {"less than a half", counted(1), 0xABCDEF0, ShortLineFill::Aligned,
         "0ABCDEF0   41                                                   A"},
        {"less than a half, four blanks a byte", counted(15).substr(0, 7), 0, ShortLineFill::FourBlanks,
         "00000000   41 42 43 44 45 46 47                                        ABCDEFG"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(dumpLine(bytesOf(row.bytes), row.offset, row.fill).toStdString(), row.line) << row.what;
}

TEST(DumpText, TheTextStandsWhereItIsSaidToStand) {
    for (const ShortLineFill fill : {ShortLineFill::FourBlanks, ShortLineFill::Aligned}) {
        for (std::size_t count = 1; count <= kBytesPerDumpLine; ++count) {
            const std::string line = dumpLine(bytesOf(std::string(count, 'z')), 0, fill).toStdString();
            EXPECT_EQ(line.find('z'), dumpColumnOfText(count, fill)) << count;
            EXPECT_EQ(line.size(), dumpColumnOfText(count, fill) + count);
            EXPECT_EQ(line.substr(dumpColumnOfByte(count - 1), 2), "7A");
        }
    }
}

TEST(DumpText, SeveralLinesAndTheEnd) {
    const std::string bytes = counted(16) + "xyz";
    EXPECT_EQ(dumpLines(bytesOf(bytes), 1, 9, ShortLineFill::Aligned).toStdString(),
              "00000010   78 79 7A                                             xyz\r\n");
    EXPECT_EQ(dumpLines(bytesOf(bytes), 0, 1, ShortLineFill::Aligned).toStdString(),
              "00000000   41 42 43 44 45 46 47 48   49 4A 4B 4C 4D 4E 4F 50    ABCDEFGHIJKLMNOP\r\n");
    EXPECT_EQ(dumpLines({}, 0, 5, ShortLineFill::Aligned), QString());
    EXPECT_EQ(dumpEnd(0), QStringLiteral("(0 bytes)"));
    EXPECT_EQ(dumpEnd(104857600), QStringLiteral("(104857600 bytes)"));
    EXPECT_EQ(dumpLineCount(0), 0u);
    EXPECT_EQ(dumpLineCount(16), 1u);
    EXPECT_EQ(dumpLineCount(17), 2u);
}

TEST(TextRows, RowsOfText) {
    struct {
        const char* what;
        std::string bytes;
        std::vector<std::string> rows;
    } const cases[] = {
        {"nothing", "", {}},
        {"no line end", "abc", {"abc"}},
        {"both line ends", "a\nb\r\n\nc\n", {"a", "b", "", "c"}},
        {"control characters", std::string("a\tb\0c\x1B", 6), {"a b.c."}},
        {"other scripts", "gr\xC3\xBC\n\xE6\x97\xA5", {"gr\xC3\xBC", "\xE6\x97\xA5"}},
        {"no UTF-8", "a\xFFz", {"a\xEF\xBF\xBDz"}},
    };
    for (const auto& row : cases) {
        const TextRows rows(bytesOf(row.bytes));
        ASSERT_EQ(rows.rowCount(), row.rows.size()) << row.what;
        for (std::size_t index = 0; index < row.rows.size(); ++index)
            EXPECT_EQ(rows.textOf(index).toStdString(), row.rows[index]) << row.what;
    }
}

TEST(TextRows, ALongLineIsCutBetweenCharacters) {
    std::string bytes(TextRows::kLongestRow - 1, 'a');
    bytes +=
        "\xF0\x9F\x93\xB7"
        "b";
    const TextRows rows(bytesOf(bytes));
    ASSERT_EQ(rows.rowCount(), 2u);
    EXPECT_EQ(rows.textOf(0).size(), static_cast<qsizetype>(TextRows::kLongestRow - 1));
    EXPECT_EQ(rows.textOf(1).toStdString(),
              "\xF0\x9F\x93\xB7"
              "b");
    // Bytes that only continue do not keep it from going on.
    EXPECT_EQ(TextRows(bytesOf(std::string(5000, '\x80'))).rowCount(), 10u);
}

TEST(TextRows, EveryByteIsFoundInItsRow) {
    std::string bytes;
    for (int row = 0; row < 300; ++row) bytes += std::string(static_cast<std::size_t>(row % 7), 'x') + '\n';
    const TextRows rows(bytesOf(bytes));
    ASSERT_EQ(rows.rowCount(), 300u);
    for (std::size_t row = 0; row < rows.rowCount(); ++row) {
        for (std::size_t offset = rows.beginOf(row); offset < rows.endOf(row); ++offset)
            ASSERT_EQ(rows.rowOf(offset), row) << offset;
    }
    EXPECT_EQ(rows.endOf(299), bytes.size());
    EXPECT_EQ(rows.rowOf(bytes.size() + 10), 299u);
}
