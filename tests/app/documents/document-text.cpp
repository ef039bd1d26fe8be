// Prints the plain text of a document, as the application reads it: document-text PATH. For
// scripts. Ends with 2 where the document isn't read, and with 3 where a program that reads it is
// missing.
#include <QtCore/QCoreApplication>
#include <cstdio>

#include "DiaryApp/Documents/DocumentReaders.h"
#include "DiaryKit/Documents/DocumentToolError.h"

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc != 2) return 1;
    try {
        const QByteArray text = diary::DatedTextSource::text(QString::fromLocal8Bit(argv[1]),
                                                             diary::documents::documentReaders())
                                    .toUtf8();
        std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stdout);
    } catch (const diary::documents::DocumentToolError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 3;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
    return 0;
}
