#include "DiaryApp/Appearance/ControlAccess.h"

#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QWidget>

#include "DiaryApp/Appearance/ComboBox.h"
#include "DiaryApp/Appearance/Stepper.h"

namespace velmar::access {

namespace {

constexpr const char* kRole = "accessibleRole";

class ComboBoxAccess : public QAccessibleWidget {
public:
    explicit ComboBoxAccess(ComboBox* box)
        : QAccessibleWidget(box, QAccessible::ComboBox), m_box(box) {}

    [[nodiscard]] QString text(QAccessible::Text which) const override {
        return which == QAccessible::Value ? m_box->currentText() : QAccessibleWidget::text(which);
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.hasPopup = true;
        state.expanded = m_box->isMenuOpen();
        return state;
    }
    [[nodiscard]] QStringList actionNames() const override {
        return {QAccessibleActionInterface::showMenuAction(),
                QAccessibleActionInterface::pressAction()};
    }
    void doAction(const QString& name) override {
        if (actionNames().contains(name)) m_box->click();
    }

private:
    ComboBox* m_box;
};

class StepperAccess : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit StepperAccess(Stepper* stepper)
        : QAccessibleWidget(stepper, QAccessible::SpinBox), m_stepper(stepper) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) {
            return static_cast<QAccessibleValueInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }
    [[nodiscard]] QString text(QAccessible::Text which) const override {
        return which == QAccessible::Value ? m_stepper->valueText()
                                           : QAccessibleWidget::text(which);
    }
    [[nodiscard]] QVariant currentValue() const override { return m_stepper->value(); }
    void setCurrentValue(const QVariant& value) override { m_stepper->change(value.toDouble()); }
    [[nodiscard]] QVariant maximumValue() const override { return m_stepper->maximum(); }
    [[nodiscard]] QVariant minimumValue() const override { return m_stepper->minimum(); }
    [[nodiscard]] QVariant minimumStepSize() const override { return Stepper::kStep; }

private:
    Stepper* m_stepper;
};

QAccessibleInterface* interfaceOf(const QString& /*className*/, QObject* object) {
    if (auto* box = qobject_cast<ComboBox*>(object)) return new ComboBoxAccess(box);
    if (auto* stepper = qobject_cast<Stepper*>(object)) return new StepperAccess(stepper);
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr) return nullptr;
    const QVariant role = widget->property(kRole);
    if (!role.isValid()) return nullptr;
    return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));
}

}  // namespace

void setRole(QWidget* widget, QAccessible::Role role) {
    widget->setProperty(kRole, static_cast<int>(role));
    installControls();
}

void installControls() {
    // A factory that is there already isn't added again.
    QAccessible::installFactory(interfaceOf);
}

}  // namespace velmar::access
