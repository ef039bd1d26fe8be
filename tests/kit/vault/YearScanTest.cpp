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

}  // namespace
}  // namespace diary
