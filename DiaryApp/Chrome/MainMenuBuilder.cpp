#include "DiaryApp/Chrome/MainMenuBuilder.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QShortcut>
#include <QtWidgets/QMenu>

namespace velmar {

namespace {

constexpr const char* kMenuProperty = "velmarMenu";
constexpr const char* kRowProperty = "velmarRow";

// A menu's letters aren't marked with "&", which Chinese and Japanese titles have none for; the
// keyboard reaches the menus by Alt and the arrows in every language.
QString title(const char* key) {
    QString text = qtTrId(key);
    if (text.contains(QLatin1String("%1"))) text = text.arg(QCoreApplication::applicationName());
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QList<QKeySequence> sequences(const MenuRow& row) {
    QList<QKeySequence> keys;
    for (const QKeyCombination key : row.keys) keys.append(QKeySequence(key));
    return keys;
}

// The menus of the bar. Its children hold one more, for what doesn't fit into a narrow window.
QList<QMenu*> menusOf(const QMenuBar* bar) {
    QList<QMenu*> menus;
    for (const QAction* each : bar->actions()) menus.append(each->menu());
    return menus;
}

QMenu* menuOf(QMenuBar* bar, Menu menu) {
    for (QMenu* each : menusOf(bar)) {
        if (each->property(kMenuProperty).toInt() == static_cast<int>(menu)) return each;
    }
    auto* made = new QMenu(bar);
    made->setProperty(kMenuProperty, static_cast<int>(menu));
    bar->addMenu(made);
    return made;
}

}  // namespace

QMenuBar* MainMenuBuilder::build(QWidget* window, const Dispatch& dispatch) {
    auto* bar = new QMenuBar(window);
    bar->setNativeMenuBar(false);
    const auto rows = menuTable();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const MenuRow& row = rows[i];
        QMenu* menu = menuOf(bar, row.menu);
        QAction* item = menu->addAction(QString());
        item->setProperty(kRowProperty, static_cast<int>(i));
        item->setShortcuts(sequences(row));
        // The other windows have no menu of their own, and are no reason to stay.
        if (row.action == Action::Quit) item->setShortcutContext(Qt::ApplicationShortcut);
        QObject::connect(item, &QAction::triggered, bar,
                         [dispatch, action = row.action] { dispatch(action); });
        if (row.hasSeparatorBehind) menu->addSeparator();
    }
    retranslate(bar);
    return bar;
}

void MainMenuBuilder::retranslate(QMenuBar* bar) {
    for (QMenu* menu : menusOf(bar)) {
        menu->setTitle(title(menuTitle(static_cast<Menu>(menu->property(kMenuProperty).toInt()))));
        for (QAction* item : menu->actions()) {
            if (item->isSeparator()) continue;
            item->setText(title(menuTable()[item->property(kRowProperty).toUInt()].title));
        }
    }
}

void MainMenuBuilder::showStates(const QMenuBar* bar, Menu menu, StateOf stateOf) {
    for (QMenu* each : menusOf(bar)) {
        if (each->property(kMenuProperty).toInt() != static_cast<int>(menu)) continue;
        QObject::connect(each, &QMenu::aboutToShow, each, [each, stateOf = std::move(stateOf)] {
            for (QAction* item : each->actions()) {
                if (item->isSeparator()) continue;
                const Action action = menuTable()[item->property(kRowProperty).toUInt()].action;
                const ItemState state = stateOf(action);
                item->setEnabled(state.isEnabled);
                item->setCheckable(state.isChecked.has_value());
                item->setChecked(state.isChecked.value_or(false));
            }
        });
        // A disabled item's keys do nothing, and its state is only looked at when it shows.
        QObject::connect(each, &QMenu::aboutToHide, each, [each] {
            for (QAction* item : each->actions()) item->setEnabled(true);
        });
        return;
    }
}

QAction* MainMenuBuilder::item(const QMenuBar* bar, Action action) {
    for (const QMenu* menu : menusOf(bar)) {
        for (QAction* each : menu->actions()) {
            if (each->isSeparator()) continue;
            if (menuTable()[each->property(kRowProperty).toUInt()].action == action) return each;
        }
    }
    return nullptr;
}

}  // namespace velmar
