// The years of a day file, straight from its bytes: the overview of the archive reads hundreds of
// files and needs no text of them.
#pragma once

#include <QtCore/QByteArrayView>
#include <set>

namespace diary {

// Exactly YearSectionParser::yearsWithContent of the bytes as UTF-8, invalid sequences counting as
// content. Pure; linear in time; any thread.
[[nodiscard]] std::set<int> yearsWithContent(QByteArrayView bytes);

}  // namespace diary
