// Any bytes as the parts of a word processor's document: they give text in proportion, or are
// refused. The input's pieces between its NULs are the main part, the styles and the notes; without
// the archive around them, which a target of its own is for.
#include <QtCore/QList>

#include "DiaryKit/Documents/DocxBody.h"
#include "DiaryKit/Documents/OdtBody.h"
#include "DiaryKit/Documents/XmlWalk.h"
#include "DiaryKit/Import/ImportError.h"
#include "tests/fuzz/ImportFuzzing.h"

namespace diary::fuzz {
namespace {

using documents::walkXml;

// Blanks in an OpenDocument text are told by their number.
constexpr qsizetype kBlanks = 1'000'000;

template <typename Read>
void allowRefusal(const Read& read) {
    try {
        read();
    } catch (const ImportError& error) {
        check(error.kind() == ImportError::Kind::unrecognized, "a refusal is one of the kind");
    }
}

void readDocx(const QByteArray& main, const QByteArray& styles, const QByteArray& notes) {
    documents::DocxStyles hidden;
    allowRefusal([&] { walkXml(styles, hidden); });
    documents::DocxNotes texts;
    documents::DocxBody noteBody(hidden.hidden(), texts);
    allowRefusal([&] { walkXml(notes, noteBody); });
    documents::DocxBody body(hidden.hidden(), texts);
    allowRefusal([&] { walkXml(main, body); });
    check(body.text().size() <= main.size() + notes.size(), "a text is no longer than its source");
}

void readOdt(const QByteArray& main, const QByteArray& styles) {
    documents::HiddenStyles hidden;
    documents::OdtStyles visitor(hidden);
    allowRefusal([&] { walkXml(styles, visitor); });
    allowRefusal([&] { walkXml(main, visitor); });
    documents::OdtBody body(hidden);
    allowRefusal([&] { walkXml(main, body); });
    check(body.text().size() <= main.size() + kBlanks, "a text is no longer than its source");
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QList<QByteArray> pieces = diary::fuzz::view(data, size).toByteArray().split('\0');
    diary::fuzz::readDocx(pieces.value(0), pieces.value(1), pieces.value(2));
    diary::fuzz::readOdt(pieces.value(0), pieces.value(1));
    return 0;
}
