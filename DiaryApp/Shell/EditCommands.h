// The commands of the Edit menu that act on the text that has the focus: a search field's or the
// page's.
#pragma once

#include <QtWidgets/QWidget>

#include "DiaryApp/Chrome/MenuTable.h"

namespace velmar {

class EntryView;

namespace editcommands {

// Runs the command on `focus` if that is a field, else on the page if the focus is in its text or
// nowhere. Where something else has the focus, and for what the text in view doesn't have, nothing
// happens: nobody expects a paste into a text that doesn't show a caret.
void perform(Action action, QWidget* focus, EntryView& page);

}  // namespace editcommands

}  // namespace velmar
