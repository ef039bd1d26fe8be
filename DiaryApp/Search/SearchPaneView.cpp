#include "DiaryApp/Search/SearchPaneView.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractButton>
#include <utility>

#include "DiaryApp/Appearance/SearchField.h"
#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Search/SearchEmptyViews.h"
#include "DiaryApp/Search/SearchPaneParts.h"
#include "DiaryApp/Search/SearchResultsList.h"
#include "DiaryApp/Search/SearchScopeChips.h"

namespace velmar {

namespace {

constexpr int kLeft = 20;
constexpr int kChipsGap = 12;
constexpr int kCountGap = 14;
constexpr int kNoticeGap = 10;

bool isPaneKey(int key, Qt::KeyboardModifiers modifiers) {
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
    modifiers &= ~Qt::KeypadModifier;
    if (isReturn) return modifiers == Qt::NoModifier || modifiers == Qt::ControlModifier;
    const bool isOther = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Escape;
    return isOther && modifiers == Qt::NoModifier;
}

}  // namespace

SearchPaneView::SearchPaneView(QWidget* parent)
    : QWidget(parent),
      m_field(new SearchField(this)),
      m_chips(new SearchScopeChips(this)),
      m_countLine(new SearchCountLine(this)),
      m_notice(new SearchNoticeBox(this)),
      m_recents(new SearchRecentsView(this)),
      m_noResults(new SearchNoResultsView(this)),
      m_list(new SearchResultsList(this)),
      m_keys(new SearchKeysHint(this)) {
    for (QWidget* each : std::initializer_list<QWidget*>{m_notice, m_recents, m_noResults}) {
        each->hide();
    }
    wire();
    retranslate();
}

void SearchPaneView::wire() {
    m_field->installEventFilter(this);
    m_list->installEventFilter(this);
    connect(m_field, &SearchField::textEdited, this, [this](const QString& text) {
        if (onQueryChanged) onQueryChanged(text);
    });
    connect(m_field, &SearchField::textChanged, this,
            [this](const QString& text) { m_keys->update(!text.isEmpty()); });
    m_chips->onScope = [this](std::optional<int> year) {
        if (onScope) onScope(year);
    };
    m_list->onSelect = [this](int index) {
        if (onSelect) onSelect(index);
    };
    m_recents->onRecent = [this](const QString& text) {
        if (onRecent) onRecent(text);
    };
    m_recents->onLeft = [this] { focusField(FieldCaret::AtEnd); };
    m_noResults->onResetScope = [this] {
        if (onScope) onScope({});
    };
}

void SearchPaneView::retranslate() {
    setAccessibleName(qtTrId("AccessibleSearchPane"));
    m_field->setAccessibleName(qtTrId("AccessibleSearchField"));
    m_field->setPlaceholderText(qtTrId("SearchPlaceholder"));
    m_field->setClearText(qtTrId("SearchClear"));
    m_list->setAccessibleName(qtTrId("AccessibleSearchResults"));
    m_chips->retranslate();
    m_keys->update(!m_field->text().isEmpty());
    m_renderedGeneration.reset();
    QWidget::update();
}

void SearchPaneView::render(State state) {
    m_chips->update(state.scopeYears, state.scope);
    m_countLine->update(state.countLine, state.isSearching);
    m_notice->setVisible(state.notice.has_value());
    if (state.notice) m_notice->update(*state.notice);
    if (m_renderedGeneration != state.generation) m_list->setGroups(std::move(state.groups));
    m_renderedGeneration = state.generation;
    // Where there are hits they are counted.
    m_list->setVisible(state.countLine.has_value());
    m_list->setAccessibleDescription(state.countLine.value_or(QString()));
    renderEmpty(state.empty);
    setTabOrders();
    place();
    m_list->select(state.selected);
}

void SearchPaneView::renderEmpty(const State::Empty& empty) {
    const auto* recents = std::get_if<State::Recents>(&empty);
    const auto* nothing = std::get_if<State::NoResults>(&empty);
    m_recents->setVisible(recents != nullptr);
    m_noResults->setVisible(nothing != nullptr);
    if (recents != nullptr) m_recents->update(*recents);
    if (nothing != nullptr) m_noResults->update(*nothing);
}

// The rows of recent searches come and go, so the order is set with each state.
void SearchPaneView::setTabOrders() {
    QWidget* last = m_field;
    std::vector<QWidget*> stops = m_chips->chips();
    for (QWidget* parent : std::initializer_list<QWidget*>{m_recents, m_noResults}) {
        for (QAbstractButton* each : parent->findChildren<QAbstractButton*>()) {
            stops.push_back(each);
        }
    }
    stops.push_back(m_list);
    for (QWidget* stop : stops) {
        setTabOrder(last, stop);
        last = stop;
    }
}

void SearchPaneView::setQuery(const QString& text) {
    if (!m_field->isComposing() && m_field->text() != text) m_field->setText(text);
}

bool SearchPaneView::isComposing() const {
    return m_field->isComposing();
}

void SearchPaneView::focusField(FieldCaret caret) {
    m_field->setFocus(Qt::OtherFocusReason);
    if (caret == FieldCaret::SelectAll) {
        m_field->selectAll();
    } else {
        m_field->end(false);
    }
}

bool SearchPaneView::eventFilter(QObject* watched, QEvent* event) {
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (isOverride || event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        const bool isOurs = isPaneKey(key->key(), key->modifiers()) && !m_field->isComposing();
        // Ctrl+Return is a command of the menu's, too: here it is the pane's.
        if (isOurs && isOverride) event->accept();
        if (isOurs && !isOverride) useKey(key->key(), key->modifiers());
        if (isOurs) return true;
    }
    return QWidget::eventFilter(watched, event);
}

void SearchPaneView::useKey(int key, Qt::KeyboardModifiers modifiers) {
    switch (key) {
        case Qt::Key_Up:
            if (onMove) onMove(-1);
            break;
        case Qt::Key_Down:
            // Without hits the searches of late are what stands below.
            if (!m_recents->isHidden() && m_recents->focusFirst()) return;
            if (onMove) onMove(1);
            break;
        case Qt::Key_Escape:
            if (onEscape) onEscape();
            break;
        default:
            if (onOpen) onOpen(modifiers.testFlag(Qt::ControlModifier));
    }
}

void SearchPaneView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
}

void SearchPaneView::place() {
    const int contentWidth = fieldBox().width();
    const int margin = SearchField::boxMargin;
    m_field->setGeometry(fieldBox().adjusted(-margin, -margin, margin, margin));
    const int chipsTop = fieldBox().bottom() + 1 + kChipsGap;
    m_chips->setGeometry(kLeft, chipsTop, contentWidth, m_chips->height());
    const int chipsBottom = chipsTop + m_chips->height();
    m_countLine->setGeometry(kLeft, chipsBottom + kCountGap, contentWidth,
                             SearchCountLine::lineHeight);
    const int keysTop = height() - SearchKeysHint::hintHeight;
    m_keys->setGeometry(0, keysTop, width(), SearchKeysHint::hintHeight);

    const bool hasRows = !m_list->isHidden();
    int top = hasRows ? m_countLine->geometry().bottom() + 1 : chipsBottom;
    if (!m_notice->isHidden()) {
        const int noticeHeight = m_notice->heightForWidth(contentWidth);
        m_notice->setGeometry(kLeft, top + kNoticeGap, contentWidth, noticeHeight);
        top += kNoticeGap + noticeHeight;
    }
    const QRect rest(0, top, width(), qMax(0, keysTop - top));
    m_list->setGeometry(rest);
    m_recents->setGeometry(rest);
    m_noResults->setGeometry(rest);
}

void SearchPaneView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::color(Token::Panel));
}

}  // namespace velmar
