#include "DiaryKit/AppSources/HTMLParts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace diary {
namespace {

constexpr HTMLParts::Classes kClasses = {u"a", u"b", u"c"};

bool isHolder(const HTMLNode& node) {
    return node.hasClass(u"h");
}

// What the walk finds, asked of each holder by itself.
void expectFirstOfEach(const HTMLNode& root, HTMLParts::OwnClass ownClass) {
    const HTMLParts found(root, isHolder, kClasses, ownClass);
    const std::vector<const HTMLNode*> holders = root.all(isHolder);
    ASSERT_EQ(found.holders().size(), holders.size());
    for (std::size_t i = 0; i < holders.size(); ++i) {
        const HTMLParts::Holder& holder = found.holders()[i];
        ASSERT_EQ(holder.node, holders[i]);
        for (std::size_t index = 0; index < kClasses.size(); ++index) {
            const bool isOwn =
                ownClass == HTMLParts::OwnClass::Counts && holders[i]->hasClass(kClasses[index]);
            const HTMLNode* const expected =
                isOwn ? holders[i] : holders[i]->firstOfClass(kClasses[index]);
            const HTMLPart* const part = holder.parts[index];
            ASSERT_EQ(part ? part->node : nullptr, expected);
            if (!part) continue;
            const std::vector<qsizetype> images = HTMLParts::positions(root, u"img");
            const auto isInside = [&](qsizetype at) { return at >= part->begin && at < part->end; };
            ASSERT_EQ(std::count_if(images.begin(), images.end(), isInside),
                      static_cast<qsizetype>(part->node->allOfTag(u"img").size()));
        }
    }
}

TEST(HTMLParts, AreTheFirstOfTheirClassesBelowEachHolder) {
    const QStringList pieces = {QStringLiteral("<div class=h>"),
                                QStringLiteral("<div class='h a'>"),
                                QStringLiteral("<div class=a>"),
                                QStringLiteral("<i class='b c'>"),
                                QStringLiteral("<b class=c>"),
                                QStringLiteral("<img>"),
                                QStringLiteral("</div>"),
                                QStringLiteral("</div>"),
                                QStringLiteral("</i>"),
                                QStringLiteral("text"),
                                QStringLiteral("<img class='a b'>"),
                                QStringLiteral("<p class='h h c'>")};
    std::mt19937 random(20261121);  // NOLINT: the same pages in every run.
    for (int round = 0; round < 20'000; ++round) {
        QString page;
        const unsigned length = random() % 24;
        for (unsigned i = 0; i < length; ++i) {
            page += pieces[static_cast<qsizetype>(random() % 12)];
        }
        const HTMLDocument document = MiniHTML::parse(page);
        SCOPED_TRACE(page.toStdString());
        expectFirstOfEach(document.root(), HTMLParts::OwnClass::Counts);
        expectFirstOfEach(document.root(), HTMLParts::OwnClass::DoesNotCount);
        if (HasFatalFailure()) return;
    }
}

TEST(NestingBound, TurnsAwayWhatLiesWithinTooManyOthers) {
    NestingBound bound;
    const auto most = static_cast<qsizetype>(NestingBound::kMost);
    for (qsizetype depth = 0; depth < most; ++depth) {
        EXPECT_TRUE(bound.admits({.begin = 2 + depth, .end = 100}));
    }
    EXPECT_FALSE(bound.admits({.begin = 2 + most, .end = 100}));
    EXPECT_FALSE(bound.admits({.begin = 100, .end = 100})) << "The last element of all of them.";
    EXPECT_TRUE(bound.admits({.begin = 101, .end = 120})) << "Behind them.";
}

}  // namespace
}  // namespace diary
