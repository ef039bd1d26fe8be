// Trimming that the converter and its tidying share.
#pragma once

#include <QtCore/QStringView>

#include "DiaryKit/Foundation/TextSets.h"

namespace diary::HTMLToMarkdown {

// The view without newline characters at both ends; blanks stay.
[[nodiscard]] inline QStringView trimmedOfNewlines(QStringView text) {
    QStringView rest = text::withoutLeadingNewlines(text);
    while (!rest.isEmpty() && text::isNewline(rest.back().unicode())) rest.chop(1);
    return rest;
}

}  // namespace diary::HTMLToMarkdown
