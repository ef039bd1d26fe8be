// A regular expression as ICU understands it: the yardstick for scanners written by hand.
#pragma once

#include <unicode/regex.h>

#include <QtCore/QString>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

#include "DiaryKit/Foundation/TextRange.h"

namespace diary::test {

class IcuPattern {
public:
    explicit IcuPattern(const char16_t* pattern) {
        UErrorCode status = U_ZERO_ERROR;
        m_pattern.reset(icu::RegexPattern::compile(icu::UnicodeString(pattern), 0, status));
        check(status);
    }

    // All matches; of each its groups, the whole match first.
    [[nodiscard]] std::vector<std::vector<TextRange>> matches(const QString& text) const {
        UErrorCode status = U_ZERO_ERROR;
        const icu::UnicodeString units(reinterpret_cast<const char16_t*>(text.utf16()),
                                       static_cast<int32_t>(text.size()));
        const std::unique_ptr<icu::RegexMatcher> matcher(m_pattern->matcher(units, status));
        std::vector<std::vector<TextRange>> found;
        while (matcher->find(status)) {
            std::vector<TextRange> groups;
            for (int32_t group = 0; group <= matcher->groupCount(); ++group) {
                const int32_t start = matcher->start(group, status);
                groups.push_back({start, matcher->end(group, status) - start});
            }
            found.push_back(groups);
        }
        check(status);
        return found;
    }

private:
    // Without GoogleTest, since fuzz targets have none.
    static void check(UErrorCode status) {
        if (U_SUCCESS(status)) return;
        std::fprintf(stderr, "ICU: %s\n", u_errorName(status));
        std::abort();
    }

    std::unique_ptr<icu::RegexPattern> m_pattern;
};

}  // namespace diary::test
