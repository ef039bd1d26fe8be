#include "DiaryKit/Import/UniqueJoined.h"

#include <gtest/gtest.h>

#include <array>

namespace diary {
namespace {

std::optional<QString> joined(std::initializer_list<std::optional<QString>> parts) {
    return uniqueJoined({parts.begin(), parts.end()}, u" · ");
}

TEST(UniqueJoined, DropsAbsentEmptyAndRepeatedParts) {
    EXPECT_EQ(joined({QStringLiteral(" a"), std::nullopt, QString(), QStringLiteral("a "),
                      QStringLiteral("b")}),
              QStringLiteral("a · b"));
    EXPECT_EQ(joined({QStringLiteral("Paris"), QStringLiteral("Paris")}), QStringLiteral("Paris"));
    EXPECT_EQ(joined({QStringLiteral("b"), QStringLiteral("\ta\n"), QStringLiteral("b")}),
              QStringLiteral("b · a"));
}

TEST(UniqueJoined, GivesNothingWhereNothingIsLeft) {
    EXPECT_EQ(joined({}), std::nullopt);
    EXPECT_EQ(joined({std::nullopt, QStringLiteral(" \n\u3000")}), std::nullopt);
}

}  // namespace
}  // namespace diary
