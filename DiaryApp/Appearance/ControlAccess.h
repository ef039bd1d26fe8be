// What the controls that we paint ourselves tell assistive technology. Buttons need nothing: Qt
// knows them as buttons, check boxes and radio buttons.
#pragma once

#include <QtGui/QAccessible>

class QWidget;

namespace velmar::access {

// The widget presents itself with this role, and with its accessible name and description.
void setRole(QWidget* widget, QAccessible::Role role);

// Presents a ComboBox or a Stepper as what it is; each calls it when it is made.
void installControls();

}  // namespace velmar::access
