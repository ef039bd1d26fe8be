#include "DiaryApp/Search/SearchScopeChips.h"

#include <QtWidgets/QMenu>
#include <algorithm>

#include "DiaryApp/Appearance/Chip.h"

namespace velmar {

namespace {

constexpr int kGap = 4;
constexpr int kMenuDrop = 4;

}  // namespace

SearchScopeChips::SearchScopeChips(QWidget* parent)
    : QWidget(parent), m_all(new Chip(Chip::Size::Small, this)) {
    connect(m_all, &Chip::clicked, this, [this] { choose({}); });
    for (std::size_t i = 0; i < inlineYears; ++i) {
        m_inline.push_back(new Chip(Chip::Size::Small, this));
        connect(m_inline[i], &Chip::clicked, this, [this, i] { choose(m_years.at(i)); });
    }
    m_overflow = new Chip(Chip::Size::Small, this);
    m_overflow->setIconName(QStringLiteral("chevron-down"), Chip::IconPlace::Trailing);
    connect(m_overflow, &Chip::clicked, this, &SearchScopeChips::showMenu);
    setFixedHeight(Chip::chipHeight);
    retranslate();
}

void SearchScopeChips::retranslate() {
    m_all->setText(qtTrId("SearchScopeAll"));
    m_overflow->setToolTip(qtTrId("SearchMoreYears"));
    update(m_years, m_scope);
}

void SearchScopeChips::update(const std::vector<int>& years, std::optional<int> scope) {
    m_years = years;
    m_scope = scope;
    m_all->setChecked(!scope);
    for (std::size_t i = 0; i < m_inline.size(); ++i) {
        const bool isThere = i < years.size();
        m_inline[i]->setVisible(isThere);
        m_inline[i]->setText(isThere ? QString::number(years[i]) : QString());
        m_inline[i]->setChecked(isThere && scope == years[i]);
    }
    const std::vector<int> others = overflowYears();
    const bool isOnOverflow = scope && std::ranges::find(others, *scope) != others.end();
    m_overflow->setVisible(!others.empty());
    m_overflow->setText(isOnOverflow ? QString::number(*scope) : QString());
    m_overflow->setChecked(isOnOverflow);
    const QString name = qtTrId("SearchMoreYears");
    m_overflow->setAccessibleName(isOnOverflow ? m_overflow->text() + QStringLiteral(", ") + name
                                               : name);
    place();
}

std::vector<int> SearchScopeChips::overflowYears() const {
    if (m_years.size() <= inlineYears) return {};
    return {m_years.begin() + inlineYears, m_years.end()};
}

std::vector<QWidget*> SearchScopeChips::chips() const {
    std::vector<QWidget*> all = {m_all};
    all.insert(all.end(), m_inline.begin(), m_inline.end());
    all.push_back(m_overflow);
    return all;
}

void SearchScopeChips::place() {
    int x = 0;
    for (QWidget* chip : chips()) {
        if (chip->isHidden()) continue;
        chip->setGeometry(QRect(QPoint(x, 0), chip->sizeHint()));
        x += chip->width() + kGap;
    }
}

void SearchScopeChips::showMenu() {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const int year : overflowYears()) {
        QAction* item = menu->addAction(QString::number(year));
        item->setCheckable(true);
        item->setChecked(m_scope == year);
        connect(item, &QAction::triggered, this, [this, year] { choose(year); });
    }
    menu->popup(m_overflow->mapToGlobal(QPoint(0, m_overflow->height() + kMenuDrop)));
}

void SearchScopeChips::choose(std::optional<int> year) {
    if (onScope) onScope(year);
}

}  // namespace velmar
