// The commands of the Edit menu that act on the text that has the focus: the page's, a search
// field's, or the source's.
#pragma once

#include <QtWidgets/QWidget>

#include "DiaryApp/Chrome/MenuTable.h"

namespace velmar {

class GrowingTextView;

namespace editcommands {

// Runs the command on `focus` if that is a text, else on `editor` unless it is hidden. A command
// that a text doesn't have does nothing.
void perform(Action action, QWidget* focus, GrowingTextView* editor);

}  // namespace editcommands

}  // namespace velmar
