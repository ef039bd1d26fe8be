// The demo diary: nine years of one person's writing, as day files. The same day gives the same
// diary; nothing here reads the clock or writes a file.
#pragma once

#include <QtCore/QDate>
#include <QtCore/QString>
#include <map>

namespace demo {

// The day files by name ("03-07.md"), as they are when `today` begins: this year's section of the
// day itself isn't there yet, and each of the eight years before has written on it, where it had
// such a day.
[[nodiscard]] std::map<QString, QString> dayFiles(const QDate& today);

}  // namespace demo
