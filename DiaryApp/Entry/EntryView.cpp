#include "DiaryApp/Entry/EntryView.h"

#include <QtGui/QNativeGestureEvent>
#include <QtGui/QWheelEvent>
#include <utility>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/Motion.h"
#include "DiaryApp/Editor/GrowingTextView.h"
#include "DiaryApp/Entry/AllYearsPage.h"
#include "DiaryApp/Entry/DayHead.h"
#include "DiaryApp/Entry/MatchPill.h"
#include "DiaryApp/Entry/OneYearPage.h"
#include "DiaryApp/Entry/PageFade.h"
#include "DiaryApp/Entry/SourcePage.h"

namespace velmar {

EntryView::EntryView(const Settings& settings, QWidget* parent)
    : QWidget(parent),
      m_settings(settings),
      m_oneYear(new OneYearPage(settings, this)),
      m_fade(new PageFade(this)),
      m_shown(m_oneYear) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_oneYear->onDraftChanged = [this](const QString& draft) {
        if (showsEditor() && onDraftChanged) onDraftChanged(draft);
    };
    wireSteps(*m_oneYear->head());
}

void EntryView::wireSteps(const DayHead& head) {
    connect(head.previous(), &Button::clicked, this, [this] {
        if (onPreviousDay) onPreviousDay();
    });
    connect(head.next(), &Button::clicked, this, [this] {
        if (onNextDay) onNextDay();
    });
}

void EntryView::update(const Model& model) {
    const Kind kind = model.sourceText ? Kind::Source
                      : model.allYears ? Kind::AllYears
                                       : Kind::OneYear;
    const Scene scene = {kind, model.dayKey, model.block.mark};
    const QPixmap before = fadesTo(scene) ? m_shown->grab() : QPixmap();
    const bool isOtherDay = std::exchange(m_scene, scene).dayKey != scene.dayKey;
    // Kept in step while another page shows, so that it never holds another day's text.
    m_oneYear->update(model);
    showPage(kind);
    if (model.sourceText) {
        m_source->update(*model.sourceText, model.fileName);
    } else if (model.allYears) {
        m_allYears->update(model.dayKey, *model.allYears);
    }
    showMatches(model.matches);
    if (isOtherDay) m_fade->stop();
    if (!before.isNull()) m_fade->start(before);
    if (m_pill != nullptr) m_pill->raiseAll();
}

// Days don't fade into each other, and neither do a text and its source.
bool EntryView::fadesTo(const Scene& scene) const {
    if (!isVisible() || motion::isReduced() || scene.dayKey != m_scene.dayKey) return false;
    if (scene.kind == Kind::Source || m_scene.kind == Kind::Source) return false;
    return scene.kind != m_scene.kind ||
           (scene.kind == Kind::OneYear && scene.year != m_scene.year);
}

PageScroll* EntryView::page(Kind kind) {
    if (kind == Kind::OneYear) return m_oneYear;
    if (kind == Kind::Source) {
        if (m_source == nullptr) m_source = new SourcePage(this);
        return m_source;
    }
    if (m_allYears == nullptr) {
        m_allYears = new AllYearsPage(m_settings, this);
        m_allYears->onOpenYear = [this](int year) {
            if (onOpenYear) onOpenYear(year);
        };
        wireSteps(*m_allYears->head());
    }
    return m_allYears;
}

void EntryView::showPage(Kind kind) {
    PageScroll* next = page(kind);
    if (next == m_shown) return;
    next->setGeometry(rect());
    next->stackUnder(m_fade);
    next->show();
    // Otherwise Qt would hand the focus of what goes to whatever comes next in the window.
    const QWidget* focused = window()->focusWidget();
    if (focused != nullptr && m_shown->isAncestorOf(focused)) moveFocus(kind);
    std::exchange(m_shown, next)->hide();
    m_oneYear->setEditable(m_isEditable && showsEditor());
}

void EntryView::moveFocus(Kind kind) {
    QWidget* target = m_allYears;
    if (kind == Kind::Source) target = m_source->text();
    // A hint may stand in the editor's place.
    if (kind == Kind::OneYear) target = editor();
    if (target->isHidden()) target = m_oneYear;
    target->setFocus(Qt::OtherFocusReason);
}

MatchPill* EntryView::pill() {
    if (m_pill != nullptr) return m_pill;
    m_pill = new MatchPill(this);
    connect(m_pill->previous(), &QAbstractButton::clicked, this, [this] {
        if (onPreviousMatch) onPreviousMatch();
    });
    connect(m_pill->next(), &QAbstractButton::clicked, this, [this] {
        if (onNextMatch) onNextMatch();
    });
    return m_pill;
}

void EntryView::showMatches(const std::optional<Matches>& matches) {
    if (matches || m_pill != nullptr) pill()->setMatches(matches);
}

void EntryView::retranslate() {
    m_oneYear->retranslate();
    if (m_allYears != nullptr) m_allYears->retranslate();
    if (m_pill != nullptr) m_pill->retranslate();
}

void EntryView::restyle() {
    m_fade->stop();
    m_oneYear->restyle();
    if (m_allYears != nullptr) m_allYears->restyle();
    if (m_source != nullptr) m_source->restyle();
    if (m_pill != nullptr) m_pill->place();
}

void EntryView::editDraft(const QString& draft) {
    editor()->edit(draft);
}

void EntryView::scrollToTop() {
    m_shown->scrollToTop();
}

void EntryView::focusEditor() {
    if (showsEditor()) m_oneYear->focusEditor();
}

void EntryView::setEditable(bool editable) {
    m_isEditable = editable;
    m_oneYear->setEditable(editable && showsEditor());
}

bool EntryView::showsEditor() const {
    return m_shown == m_oneYear;
}

void EntryView::copy() {
    if (showsEditor()) return editor()->copy();
    if (m_shown == m_source) m_source->text()->copy();
}

void EntryView::selectAll() {
    if (showsEditor()) return editor()->selectAll();
    if (m_shown == m_source) m_source->text()->selectAll();
}

void EntryView::setHighlights(const std::vector<diary::TextRange>& ranges, int current,
                              Scroll scroll) {
    m_oneYear->setMatches(ranges, current);
    const bool hasPill = showsEditor() && !ranges.empty();
    showMatches(hasPill ? std::optional(Matches{static_cast<int>(ranges.size()), current})
                        : std::nullopt);
    if (scroll == Scroll::ToMatch && showsEditor()) m_oneYear->glideToMatch(current);
}

void EntryView::setYearHighlights(const std::map<int, std::vector<diary::TextRange>>& ranges) {
    if (m_allYears != nullptr) m_allYears->setMatches(ranges);
}

void EntryView::clearHighlights() {
    m_oneYear->setMatches({}, -1);
    showMatches(std::nullopt);
    setYearHighlights({});
}

void EntryView::showYear(int year) {
    if (m_allYears != nullptr && m_shown == m_allYears) m_allYears->glideToYear(year);
}

const QString& EntryView::draft() const {
    return editor()->draft();
}

GrowingTextView* EntryView::editor() const {
    return m_oneYear->editor();
}

const std::map<int, YearCard*>& EntryView::yearCards() const {
    static const std::map<int, YearCard*> none;
    return m_allYears != nullptr ? m_allYears->yearCards() : none;
}

bool EntryView::event(QEvent* event) {
    if (event->type() != QEvent::NativeGesture) return QWidget::event(event);
    return takeGesture(static_cast<QNativeGestureEvent&>(*event));
}

bool EntryView::takeGesture(QNativeGestureEvent& event) {
    switch (event.gestureType()) {
        case Qt::BeginNativeGesture:
        case Qt::EndNativeGesture:
            m_pinch.begin();
            break;
        case Qt::ZoomNativeGesture:
            act(m_pinch.add(event.value()), event.globalPosition());
            break;
        default:
            return false;
    }
    event.accept();
    return true;
}

void EntryView::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) return event->ignore();
    act(m_wheel.turn(event->angleDelta().y(), event->timestamp()), event->globalPosition());
    event->accept();
}

void EntryView::act(std::optional<Pinch::Act> act, const QPointF& global) {
    if (!act || !onPinch) return;
    if (*act == Pinch::Act::Close) return onPinch(true, std::nullopt);
    if (m_allYears == nullptr || m_shown != m_allYears) return;
    onPinch(false, m_allYears->yearAt(global.toPoint()));
}

void EntryView::resizeEvent(QResizeEvent* /*event*/) {
    m_fade->stop();
    m_shown->setGeometry(rect());
    if (m_pill != nullptr) m_pill->place();
}

void EntryView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) restyle();
}

}  // namespace velmar
