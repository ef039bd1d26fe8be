// A text view on the screen, and the hands that type into it.
#pragma once

#include <gtest/gtest.h>

#include <QtCore/QMimeData>
#include <QtGui/QClipboard>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QTextBlock>
#include <QtGui/QTextLayout>
#include <QtTest/QTest>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Editor/GrowingTextView.h"
#include "DiaryApp/Settings/Localization.h"

namespace velmar {

class EditorFixture : public testing::Test {
protected:
    EditorFixture() {
        appearance::prepare();
        localization::install(Language::en);
        editor.resize(660, 400);
        editor.restyle(fonts::serif(16.5), 16.5, theme::color(Token::Ink));
        editor.onTextChanged = [this](const QString& draft) { drafts.append(draft); };
        editor.show();
        editor.setFocus();
        editor.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&editor));
    }

    // The text holds "|" at the caret, or at both ends of the selection.
    void load(const QString& marked) {
        const qsizetype from = marked.indexOf(u'|');
        const qsizetype to = marked.indexOf(u'|', from + 1);
        editor.load(QString(marked).remove(u'|'));
        select(int(from), to < 0 ? int(from) : int(to) - 1);
    }

    // The draft with "|" at the caret, or at both ends of the selection.
    [[nodiscard]] QString shown() const {
        const diary::TextRange range = editor.selection();
        QString text = editor.draft();
        if (range.length > 0) text.insert(range.end(), u'|');
        return text.insert(range.location, u'|');
    }

    void compose(const QString& preedit, const QString& committed = {}) {
        QList<QInputMethodEvent::Attribute> attributes;
        QTextCharFormat underlined;
        underlined.setFontUnderline(true);
        if (!preedit.isEmpty()) {
            attributes.append({QInputMethodEvent::TextFormat, 0, int(preedit.size()), underlined});
            attributes.append({QInputMethodEvent::Cursor, int(preedit.size()), 1, {}});
        }
        QInputMethodEvent event(preedit, attributes);
        if (!committed.isEmpty()) event.setCommitString(committed);
        QCoreApplication::sendEvent(&editor, &event);
    }

    void commit(const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(&editor, &event);
    }

    void caretAt(int position) { select(position, position); }

    void select(int from, int to) {
        QTextCursor cursor = editor.textCursor();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        editor.setTextCursor(cursor);
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&editor, key, modifiers);
    }

    // Latin letters, as keys.
    void keys(const char* text) { QTest::keyClicks(&editor, QString::fromLatin1(text)); }

    [[nodiscard]] QTextBlock block(int number) const {
        return editor.document()->findBlockByNumber(number);
    }
    // Where the character begins in its line.
    [[nodiscard]] double x(int blockNumber, int offset) const {
        const QTextLayout* layout = block(blockNumber).layout();
        return layout->lineForTextPosition(offset).cursorToX(offset);
    }

    GrowingTextView editor;
    QStringList drafts;
};

}  // namespace velmar
