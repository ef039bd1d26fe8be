#include "DiaryApp/Documents/PdfPages.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "DiaryKit/Foundation/Background.h"
#include "tests/kit/import/TemporaryPackage.h"

namespace diary {
namespace {

using documents::pdfPages;

// A PDF of one font whose pages show these lines, each as a literal of PDF between its brackets.
QByteArray pdf(const std::vector<QList<QByteArray>>& pages) {
    QByteArray bytes = "%PDF-1.4\n";
    std::vector<qsizetype> offsets;
    const auto add = [&](const QByteArray& object) {
        offsets.push_back(bytes.size());
        bytes += QByteArray::number(static_cast<int>(offsets.size())) + " 0 obj\n" + object +
                 "\nendobj\n";
    };
    QByteArray kids;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        kids += QByteArray::number(static_cast<int>(4 + 2 * i)) + " 0 R ";
    }
    add("<</Type/Catalog/Pages 2 0 R>>");
    add("<</Type/Pages/Kids[" + kids + "]/Count " +
        QByteArray::number(static_cast<int>(pages.size())) + ">>");
    add("<</Type/Font/Subtype/Type1/BaseFont/Helvetica/Encoding/WinAnsiEncoding>>");
    for (std::size_t i = 0; i < pages.size(); ++i) {
        QByteArray content = "BT /F 12 Tf 72 720 Td 14 TL\n";
        for (const QByteArray& line : pages[i]) content += "(" + line + ") Tj T*\n";
        content += "ET";
        add("<</Type/Page/Parent 2 0 R/MediaBox[0 0 612 792]/Resources<</Font<</F 3 0 R>>>>"
            "/Contents " +
            QByteArray::number(static_cast<int>(5 + 2 * i)) + " 0 R>>");
        add("<</Length " + QByteArray::number(content.size()) + ">>\nstream\n" + content +
            "\nendstream");
    }
    const qsizetype table = bytes.size();
    const QByteArray count = QByteArray::number(static_cast<int>(offsets.size() + 1));
    bytes += "xref\n0 " + count + "\n0000000000 65535 f \n";
    for (const qsizetype offset : offsets) {
        bytes += QByteArray::number(offset).rightJustified(10, '0') + " 00000 n \n";
    }
    return bytes + "trailer\n<</Size " + count + "/Root 1 0 R>>\nstartxref\n" +
           QByteArray::number(table) + "\n%%EOF\n";
}

std::optional<QStringList> read(const QByteArray& bytes) {
    const testing::TemporaryPackage folder;
    return pdfPages(folder.add(QStringLiteral("diary.pdf"), bytes));
}

TEST(PdfPages, eachPageHasItsLines) {
    EXPECT_EQ(read(pdf({{"2024-03-05", "Caf\\351."}, {}, {"b"}})),
              (QStringList{QStringLiteral("2024-03-05\nCafé."), QString(), QStringLiteral("b")}));
}

TEST(PdfPages, aDividedWordIsOneWord) {
    EXPECT_EQ(read(pdf({{"This line was hyphen-", "ated by the typesetter."}})),
              QStringList{QStringLiteral("This line was hyphenated by the typesetter.")});
}

TEST(PdfPages, whatIsNoPdfIsRefused) {
    EXPECT_EQ(read(""), std::nullopt);
    EXPECT_EQ(read("2024-03-05\nplain"), std::nullopt);
    EXPECT_EQ(read("%PDF-1.4\n%%EOF"), std::nullopt);
    EXPECT_EQ(pdfPages(QStringLiteral("/nowhere/a.pdf")), std::nullopt);
}

TEST(PdfPages, aCutFileIsReadOrRefused) {
    const QByteArray whole = pdf({{"a"}, {"b"}});
    for (qsizetype length = 0; length < whole.size(); length += 7) {
        const auto pages = read(whole.first(length));
        EXPECT_TRUE(!pages || pages->size() <= 2) << length;
    }
}

TEST(PdfPages, aFileThatAsksForAPasswordIsRefused) {
    QByteArray locked = pdf({{"a"}});
    locked.replace("/Root 1 0 R",
                   "/Root 1 0 R/ID[<00112233445566778899AABBCCDDEEFF>"
                   "<00112233445566778899AABBCCDDEEFF>]/Encrypt<</Filter/Standard/V 1/R 2/P -4/O<" +
                       QByteArray(64, 'A') + ">/U<" + QByteArray(64, 'B') + ">>>");
    EXPECT_EQ(read(locked), std::nullopt);
}

TEST(PdfPages, severalThreadsReadAtOnce) {
    constexpr int kThreads = 8;
    std::array<std::optional<QStringList>, kThreads> read = {};
    const testing::TemporaryPackage folder;
    std::vector<QString> paths;
    for (int i = 0; i < kThreads; ++i) {
        const QByteArray number = QByteArray::number(i);
        paths.push_back(folder.add(QString::number(i) + QStringLiteral(".pdf"),
                                   pdf(std::vector<QList<QByteArray>>(20, {"page of " + number}))));
    }
    background::inParallel(kThreads, [&](int i) {
        const auto index = static_cast<std::size_t>(i);
        read.at(index) = pdfPages(paths[index]);
    });
    for (int i = 0; i < kThreads; ++i) {
        EXPECT_EQ(read.at(static_cast<std::size_t>(i)),
                  QStringList(20, QStringLiteral("page of ") + QString::number(i)));
    }
}

}  // namespace
}  // namespace diary
