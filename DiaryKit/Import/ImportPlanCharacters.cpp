#include "DiaryKit/Import/ImportPlanCharacters.h"

#include <unicode/brkiter.h>

#include <memory>

namespace diary {

namespace {

// Calls `visit(start, end)` for each character.
template <typename Visit>
void forEachRange(QStringView text, Visit visit) {
    // Making an iterator costs far more than using it, so each thread keeps one.
    thread_local const std::unique_ptr<icu::BreakIterator> characters = [] {
        UErrorCode status = U_ZERO_ERROR;
        return std::unique_ptr<icu::BreakIterator>(
            icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    }();
    UErrorCode status = U_ZERO_ERROR;
    UText units = UTEXT_INITIALIZER;
    utext_openUChars(&units, text.utf16(), text.size(), &status);
    characters->setText(&units, status);
    int32_t start = characters->first();
    for (int32_t end = characters->next(); end != icu::BreakIterator::DONE;
         start = end, end = characters->next()) {
        visit(start, end);
    }
    utext_close(&units);
}

}  // namespace

void forEachCharacter(QStringView text, const std::function<void(QStringView)>& visit) {
    forEachRange(text, [&](int32_t start, int32_t end) { visit(text.sliced(start, end - start)); });
}

qsizetype characterCount(QStringView text) {
    qsizetype count = 0;
    forEachRange(text, [&](int32_t, int32_t) { ++count; });
    return count;
}

}  // namespace diary
