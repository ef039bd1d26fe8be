#include "DiaryApp/Documents/DocumentReaders.h"

#include "DiaryApp/Documents/PdfPages.h"
#include "DiaryKit/Documents/DocumentText.h"

namespace diary::documents {

DatedTextSource::DocumentReaders documentReaders() {
    return {.pdfPages = pdfPages, .documentText = documentText};
}

}  // namespace diary::documents
