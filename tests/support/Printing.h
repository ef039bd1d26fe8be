// How values of ours read in a failed expectation.
#pragma once

#include <QtCore/QString>
#include <ostream>

// GoogleTest finds it by the argument's namespace, which for Qt's classes is the global one.
inline void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toUtf8().replace('\n', "\\n").replace('\r', "\\r").constData() << '"';
}
