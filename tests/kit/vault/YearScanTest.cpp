#include "DiaryKit/Vault/YearScan.h"

#include <gmock/gmock.h>

#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/support/HostileText.h"

namespace diary {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(YearScan, FindsTheYearsThatHoldAnything) {
    EXPECT_THAT(yearsWithContent(QByteArrayView("# 01-02\n\n## 2023\n\n \n## 2024\nx")),
                ElementsAre(2024));
    EXPECT_THAT(yearsWithContent(QByteArrayView("")), IsEmpty());
}

TEST(YearScan, CountsInvalidBytesAsContent) {
    EXPECT_THAT(yearsWithContent(QByteArrayView("## 2024\n\xE2\x80")), ElementsAre(2024));
}

TEST(YearScan, GivesWhatTheParserGivesOnHostileTexts) {
    test::HostileText hostile(7);
    for (int round = 0; round < 20000; ++round) {
        QByteArray bytes = hostile.text(14).toUtf8();
        if (round % 5 == 0 && !bytes.isEmpty()) bytes.chop(1);  // Cut inside a sequence.
        ASSERT_EQ(yearsWithContent(QByteArrayView(bytes)),
                  YearSectionParser::yearsWithContent(utf8::decodedWithRepair(bytes)))
            << bytes.toPercentEncoding().constData();
    }
}

std::vector<YearSectionParser::YearBody> decodedSections(const QByteArray& bytes) {
    std::vector<YearSectionParser::YearBody> decoded;
    for (const ByteSection& section : byteSections(bytes)) {
        decoded.push_back({section.year, utf8::decodedWithRepair(section.body)});
    }
    return decoded;
}

std::vector<YearSectionParser::YearBody> textSections(const QString& text) {
    std::vector<YearSectionParser::YearBody> bodies;
    for (const YearSectionParser::Section& section : YearSectionParser::sections(text)) {
        bodies.push_back(
            {section.year, text.sliced(section.bodyRange.location, section.bodyRange.length)});
    }
    return bodies;
}

TEST(ByteSections, AreTheParsersOnHostileTexts) {
    test::HostileText hostile(8);
    for (int round = 0; round < 20000; ++round) {
        QByteArray bytes = hostile.text(14).toUtf8();
        if (round % 5 == 0 && !bytes.isEmpty()) bytes.chop(1);  // Cut inside a sequence.
        // A sequence cut short right ahead of a line end is where a body may end.
        if (round % 3 == 0) bytes.replace("\n## ", "\xE3\x81\n## ");
        ASSERT_EQ(decodedSections(bytes), textSections(utf8::decodedWithRepair(bytes)))
            << bytes.toPercentEncoding().constData();
    }
}

}  // namespace
}  // namespace diary
