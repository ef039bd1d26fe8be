#include "DiaryApp/Shell/EditCommands.h"

#include <QtWidgets/QLineEdit>

#include "DiaryApp/Editor/GrowingTextView.h"
#include "DiaryApp/Entry/EntryView.h"

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

void perform(Action action, QWidget* focus, EntryView& page) {
    if (auto* field = qobject_cast<QLineEdit*>(focus)) return performOn(*field, action);
    if (focus != nullptr && !page.isAncestorOf(focus)) return;
    if (page.showsEditor()) {
        if (focus == nullptr || focus == page.editor()) performOn(*page.editor(), action);
        return;
    }
    if (action == Action::Copy) page.copy();
    if (action == Action::SelectAll) page.selectAll();
}

}  // namespace velmar::editcommands
