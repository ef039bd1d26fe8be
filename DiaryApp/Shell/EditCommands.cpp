#include "DiaryApp/Shell/EditCommands.h"

#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>

#include "DiaryApp/Editor/GrowingTextView.h"

namespace velmar::editcommands {

namespace {

template <typename Text>
void performOn(Text& text, Action action) {
    switch (action) {
        case Action::Undo:
            return text.undo();
        case Action::Redo:
            return text.redo();
        case Action::Cut:
            return text.cut();
        case Action::Copy:
            return text.copy();
        case Action::Paste:
            return text.paste();
        case Action::SelectAll:
            return text.selectAll();
        default:
            return;
    }
}

}  // namespace

void perform(Action action, QWidget* focus, GrowingTextView* editor) {
    if (auto* field = qobject_cast<QLineEdit*>(focus)) return performOn(*field, action);
    if (auto* source = qobject_cast<QPlainTextEdit*>(focus)) return performOn(*source, action);
    if (editor->isVisible()) performOn(*editor, action);
}

}  // namespace velmar::editcommands
