// One keystroke in the editor, with all that it restyles and repaints, beside one in a plain text
// field, at 2, 20 and 200 kB; and the memory that an open text takes. The text has paragraphs below
// 2 kB, a third of them Chinese or Japanese, with marks in them.
#include <benchmark/benchmark.h>
#include <time.h>

#include <QtCore/QFile>
#include <QtGui/QKeyEvent>
#include <QtGui/QTextBlock>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollArea>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/OverlayScrollBar.h"
#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Editor/GrowingTextView.h"

namespace {

using velmar::GrowingTextView;

// Bytes of UTF-8, which is what a day's file has.
QString diary(qsizetype bytes) {
    static const QStringList paragraphs = {
        QStringLiteral("Woke at seven to **white roofs**. The kettle took its time, so I stood at "
                       "the window and watched *the whole street* go from grey to rose. ")
            .repeated(4),
        QStringLiteral("- [ ] Find the good gloves, and the `rye-3` [starter](rye.md)"),
        QStringLiteral("七時に起きると、向こう岸の**屋根**が白かった。やかんがなかなか沸かない。")
            .repeated(5),
        QStringLiteral("## A heading of its own"),
        QStringLiteral("Market by the canal: two loaves, quinces, a jar of ink. ").repeated(6),
        QStringLiteral("雨后的街道很*安静*，只有运河的水声。我们走了很久。").repeated(6),
    };
    QString text;
    qsizetype size = 0;
    for (qsizetype i = 0; size < bytes; ++i) {
        const QString paragraph = paragraphs[i % paragraphs.size()] + u'\n';
        text += paragraph;
        size += paragraph.toUtf8().size();
    }
    return text;
}

// A page of the window's height around the field, as the application has it.
struct Page {
    QScrollArea area;
    GrowingTextView* editor = new GrowingTextView;

    explicit Page(const QString& text) {
        new velmar::OverlayScrollBar(&area);
        area.setWidget(editor);
        editor->restyle(velmar::fonts::serif(16.5), 16.5, velmar::theme::color(velmar::Token::Ink));
        editor->resize(660, 700);
        editor->onHeightChanged = [this] { editor->resize(660, editor->textHeight()); };
        area.resize(700, 700);
        area.show();
        editor->load(text);
        editor->resize(660, editor->textHeight());
        editor->setFocus();
        QCoreApplication::processEvents();
    }
};

// How often a text view has been painted.
class Paints : public QObject {
public:
    explicit Paints(QWidget* editor) {
        qobject_cast<QAbstractScrollArea*>(editor)->viewport()->installEventFilter(this);
    }
    [[nodiscard]] int count() const { return m_count; }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++m_count;
        return false;
    }

private:
    int m_count = 0;
};

void putCaretInTheMiddle(QTextDocument* document, auto* editor) {
    QTextCursor cursor(document);
    cursor.setPosition(document->findBlock(document->characterCount() / 2).position() + 1);
    editor->setTextCursor(cursor);
}

// A letter and a delete, so that the text stays as long as it is: two keystrokes.
void typeTwice(QWidget* widget) {
    QKeyEvent letter(QEvent::KeyPress, Qt::Key_A, {}, QStringLiteral("a"));
    QCoreApplication::sendEvent(widget, &letter);
    QCoreApplication::processEvents();
    QKeyEvent back(QEvent::KeyPress, Qt::Key_Backspace, {});
    QCoreApplication::sendEvent(widget, &back);
    QCoreApplication::processEvents();
}

void editorKey(benchmark::State& state) {
    Page page(diary(state.range(0) * 1000));
    putCaretInTheMiddle(page.editor->document(), page.editor);
    page.area.ensureVisible(0, page.editor->caretRect().center().y());
    for (auto _ : state) typeTwice(page.editor);
    state.SetItemsProcessed(state.iterations() * 2);
}

double processorSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) / 1e9;
}

// The processor time of a key and all that it has posted, until the screen is painted. What is left
// for idle moments isn't done then.
double untilPainted(QWidget* widget, int key, const QString& text) {
    Paints paints(widget);
    const double before = processorSeconds();
    QKeyEvent event(QEvent::KeyPress, key, {}, text);
    QCoreApplication::sendEvent(widget, &event);
    QCoreApplication::sendPostedEvents();
    const double seconds = processorSeconds() - before;
    if (paints.count() == 0) qFatal("The key was not painted.");
    return seconds;
}

// A back-tick fence opened, and closed again, at the text's start turns everything behind it over.
// The time is that of one key until the screen is painted; "all_ms" is the processor time of one
// key with what is left for idle moments.
void editorFence(benchmark::State& state) {
    Page page(QStringLiteral("``\n") + diary(state.range(0) * 1000));
    page.editor->selectRange({2, 0});
    QCoreApplication::processEvents();
    const double before = processorSeconds();
    bool isOpen = false;
    for (auto _ : state) {
        isOpen = !isOpen;
        state.SetIterationTime(
            isOpen ? untilPainted(page.editor, Qt::Key_QuoteLeft, QStringLiteral("`"))
                   : untilPainted(page.editor, Qt::Key_Backspace, QString()));
        QCoreApplication::processEvents();
        page.editor->settleLook();
        QCoreApplication::processEvents();
    }
    const double keys = double(state.iterations());
    state.counters["all_ms"] = (processorSeconds() - before) * 1000 / keys;
}

void plainKey(benchmark::State& state) {
    QPlainTextEdit editor;
    editor.setFont(velmar::fonts::serif(16.5));
    editor.resize(660, 700);
    editor.setPlainText(diary(state.range(0) * 1000));
    editor.show();
    editor.setFocus();
    putCaretInTheMiddle(editor.document(), &editor);
    QCoreApplication::processEvents();
    for (auto _ : state) typeTwice(&editor);
    state.SetItemsProcessed(state.iterations() * 2);
}

// The yardstick of editorFence, measured in the same way.
void plainPainted(benchmark::State& state) {
    QPlainTextEdit editor;
    editor.setFont(velmar::fonts::serif(16.5));
    editor.resize(660, 700);
    editor.setPlainText(diary(state.range(0) * 1000));
    editor.show();
    editor.setFocus();
    QCoreApplication::processEvents();
    bool isLetter = false;
    for (auto _ : state) {
        isLetter = !isLetter;
        state.SetIterationTime(isLetter ? untilPainted(&editor, Qt::Key_A, QStringLiteral("a"))
                                        : untilPainted(&editor, Qt::Key_Backspace, QString()));
        QCoreApplication::processEvents();
    }
}

double residentMegabytes() {
    QFile status(QStringLiteral("/proc/self/statm"));
    if (!status.open(QIODevice::ReadOnly)) return 0;
    return status.readAll().split(' ').value(1).toDouble() * 4096 / 1e6;
}

void editorMemory(benchmark::State& state) {
    for (auto _ : state) {
        Page page{QString()};
        page.area.grab();
        const double empty = residentMegabytes();
        page.editor->load(diary(state.range(0) * 1000));
        QCoreApplication::processEvents();
        page.area.grab();
        state.counters["MB"] = residentMegabytes() - empty;
    }
}

void load(benchmark::State& state) {
    const QString text = diary(state.range(0) * 1000);
    Page page{QString()};
    for (auto _ : state) page.editor->load(text);
}

}  // namespace

BENCHMARK(editorMemory)->Arg(200)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(editorKey)->Arg(2)->Arg(20)->Arg(200)->Unit(benchmark::kMillisecond);
BENCHMARK(plainKey)->Arg(2)->Arg(20)->Arg(200)->Unit(benchmark::kMillisecond);
BENCHMARK(plainPainted)->Arg(2)->Arg(20)->Arg(200)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(editorFence)->Arg(2)->Arg(20)->Arg(200)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(load)->Arg(20)->Arg(200)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    velmar::appearance::prepare();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
