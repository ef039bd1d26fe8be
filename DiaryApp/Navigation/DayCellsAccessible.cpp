#include "DiaryApp/Navigation/DayCellsAccessible.h"

#include <QtCore/QPointer>
#include <QtWidgets/QAccessibleWidget>
#include <vector>

#include "DiaryApp/Navigation/DayCellsView.h"

namespace velmar {

namespace {

// One day. Lives as long as its table, and is invalid while the month has no such day.
class DayCell final : public QAccessibleInterface,
                      public QAccessibleTableCellInterface,
                      public QAccessibleActionInterface {
public:
    DayCell(DayCellsView* view, int day) : m_view(view), m_day(day) {}

    [[nodiscard]] bool isValid() const override {
        return m_view != nullptr && m_day <= m_view->grid().dayCount;
    }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override {
        return m_view ? m_view->window()->windowHandle() : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(m_view);
    }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override {
        return nullptr;
    }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override {
        return -1;
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (!isValid()) return {};
        if (kind == QAccessible::Name) return m_view->cellName(m_day);
        if (kind == QAccessible::Description) return m_view->cellDescription(m_day);
        return {};
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    [[nodiscard]] QRect rect() const override {
        if (!isValid()) return {};
        const QRect cell = m_view->cellRect(m_day).toAlignedRect();
        return {m_view->mapToGlobal(cell.topLeft()), cell.size()};
    }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Cell; }
    [[nodiscard]] QAccessible::State state() const override;

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableCellInterface) {
            return static_cast<QAccessibleTableCellInterface*>(this);
        }
        if (type == QAccessible::ActionInterface) {
            return static_cast<QAccessibleActionInterface*>(this);
        }
        return nullptr;
    }

    [[nodiscard]] bool isSelected() const override { return isValid() && m_view->isChosen(m_day); }
    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    [[nodiscard]] int columnIndex() const override {
        return isValid() ? m_view->grid().column(m_day) : -1;
    }
    [[nodiscard]] int rowIndex() const override {
        return isValid() ? m_view->grid().row(m_day) : -1;
    }
    [[nodiscard]] int columnExtent() const override { return 1; }
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] QAccessibleInterface* table() const override { return parent(); }

    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& action) override {
        if (isValid() && action == pressAction()) m_view->pick(m_day);
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*action*/) const override {
        return {};
    }

private:
    QPointer<DayCellsView> m_view;
    int m_day;
};

QAccessible::State DayCell::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.focusable = true;
    state.selectable = true;
    state.focused = m_view->hasFocus() && m_view->focusDay() == m_day;
    state.selected = m_view->isChosen(m_day);
    state.invisible = !m_view->isVisible();
    state.disabled = !m_view->isEnabled();
    return state;
}

class DayTable final : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit DayTable(DayCellsView* view)
        : QAccessibleWidget(view, QAccessible::Table), m_view(view) {}

    ~DayTable() override {
        for (const QAccessible::Id cell : m_cells) QAccessible::deleteAccessibleInterface(cell);
    }

    DayTable(const DayTable&) = delete;
    DayTable& operator=(const DayTable&) = delete;

    [[nodiscard]] int childCount() const override { return m_view->grid().dayCount; }
    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        return index >= 0 && index < childCount() ? cell(index + 1) : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        for (int index = 0; index < childCount(); ++index) {
            if (cell(index + 1) == child) return index;
        }
        return -1;
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
        const auto day = m_view->dayAt(m_view->mapFromGlobal(QPoint(x, y)));
        return day ? cell(*day) : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override {
        return m_view->hasFocus() ? cell(m_view->focusDay()) : nullptr;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableInterface) {
            return static_cast<QAccessibleTableInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }

    [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override {
        const auto day = m_view->grid().dayIn(row, column);
        return day ? cell(*day) : nullptr;
    }
    [[nodiscard]] int rowCount() const override { return m_view->grid().rowCount(); }
    [[nodiscard]] int columnCount() const override { return CalendarGrid::columns; }
    [[nodiscard]] QString columnDescription(int column) const override {
        return m_view->columnName(column);
    }
    [[nodiscard]] QString rowDescription(int /*row*/) const override { return {}; }

    [[nodiscard]] int selectedCellCount() const override {
        return static_cast<int>(selectedCells().size());
    }
    [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override {
        QList<QAccessibleInterface*> chosen;
        for (int day = 1; day <= childCount(); ++day) {
            if (m_view->isChosen(day)) chosen.append(cell(day));
        }
        return chosen;
    }
    // Days are chosen one by one, never as rows or columns.
    [[nodiscard]] int selectedColumnCount() const override { return 0; }
    [[nodiscard]] int selectedRowCount() const override { return 0; }
    [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
    [[nodiscard]] QList<int> selectedRows() const override { return {}; }
    [[nodiscard]] bool isColumnSelected(int /*column*/) const override { return false; }
    [[nodiscard]] bool isRowSelected(int /*row*/) const override { return false; }
    bool selectRow(int /*row*/) override { return false; }
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* /*event*/) override {}

private:
    // Made when first asked for; Qt's registry owns it until this table goes.
    [[nodiscard]] QAccessibleInterface* cell(int day) const {
        while (static_cast<int>(m_cells.size()) < day) {
            const int next = static_cast<int>(m_cells.size()) + 1;
            m_cells.push_back(QAccessible::registerAccessibleInterface(new DayCell(m_view, next)));
        }
        return QAccessible::accessibleInterface(m_cells[day - 1]);
    }

    DayCellsView* m_view;
    mutable std::vector<QAccessible::Id> m_cells;
};

QAccessibleInterface* tableOf(const QString& /*className*/, QObject* object) {
    auto* view = qobject_cast<DayCellsView*>(object);
    return view ? new DayTable(view) : nullptr;
}

}  // namespace

void installDayCellsAccessibility() {
    static const bool isInstalled = [] {
        QAccessible::installFactory(tableOf);
        return true;
    }();
    Q_UNUSED(isInstalled);
}

}  // namespace velmar
