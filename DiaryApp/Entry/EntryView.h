// The middle of the window: the day in view, as one year to be written in, as all its years, or as
// the source of its file. The view is passive: it shows the model that it is given and calls back.
#pragma once

#include <QtWidgets/QWidget>
#include <functional>
#include <map>
#include <optional>

#include "DiaryApp/Entry/EntryModel.h"
#include "DiaryApp/Entry/Pinch.h"
#include "DiaryKit/Foundation/TextRange.h"

class QNativeGestureEvent;

namespace velmar {

class AllYearsPage;
class DayHead;
class GrowingTextView;
class MatchPill;
class OneYearPage;
class PageFade;
class PageScroll;
class SourcePage;
class YearCard;

class EntryView : public QWidget {
    Q_OBJECT

public:
    using Model = EntryModel;
    using AllYears = EntryModel::AllYears;
    using Matches = EntryModel::Matches;

    enum class Scroll { None, ToMatch };

    explicit EntryView(const Settings& settings, QWidget* parent = nullptr);

    // After each change by the user, with the new draft.
    std::function<void(const QString&)> onDraftChanged;
    // A card of all years, or the newest year of a line of missing ones, was chosen.
    std::function<void(int year)> onOpenYear;
    // Fingers closed, which asks for all years; or they opened over all years, which asks for the
    // year of the card below them, if there is one.
    std::function<void(bool isClosing, std::optional<int> year)> onPinch;
    std::function<void()> onPreviousDay;
    std::function<void()> onNextDay;
    std::function<void()> onPreviousMatch;
    std::function<void()> onNextMatch;

    // Shows the model. The editor is touched only if its draft isn't the one in it already: then
    // the new one is loaded and its undo history cleared. Otherwise only labels change, and the
    // caret, the composition and the history stay. Another year of the day in view fades over.
    void update(const Model& model);

    // The texts that aren't part of the model, after a change of language; the model follows.
    void retranslate();
    // Fonts and colours, after a change of settings or palette.
    void restyle();

    // Makes the draft in the editor another one, as an edit that the user can undo. Nothing where
    // it can't be edited.
    void editDraft(const QString& draft);

    // Of the page in view.
    void scrollToTop();
    // The page itself where a hint stands in the editor's place; nothing where another page shows.
    void focusEditor();
    // Off while an import writes. Another model doesn't turn it on again.
    void setEditable(bool editable);
    // Whether the text in view is one that can be written in. Where it isn't, commands of the
    // menus must leave the editor alone.
    [[nodiscard]] bool showsEditor() const;
    // Of what is selected in the text in view, and all of that text.
    void copy();
    void selectAll();

    // Marks what a search has found in the draft, in UTF-16 units; `current` is the index of the
    // match that is stepped to. A draft that is loaded has no marks.
    void setHighlights(const std::vector<diary::TextRange>& ranges, int current, Scroll scroll);
    // The same in the cards of all years, in units of each year's text.
    void setYearHighlights(const std::map<int, std::vector<diary::TextRange>>& ranges);
    void clearHighlights();
    // Scrolls to the card of the year, where all years show.
    void showYear(int year);

    [[nodiscard]] const QString& draft() const;
    // The text field, to which the editing commands of the menu go.
    [[nodiscard]] GrowingTextView* editor() const;
    // The cards of all years; empty before these first showed.
    [[nodiscard]] const std::map<int, YearCard*>& yearCards() const;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    enum class Kind { OneYear, AllYears, Source };

    // What shows, as far as it decides on a fade.
    struct Scene {
        Kind kind = Kind::OneYear;
        QString dayKey;
        QString year;
    };

    void wireSteps(const DayHead& head);
    [[nodiscard]] bool fadesTo(const Scene& scene) const;
    [[nodiscard]] PageScroll* page(Kind kind);
    void showPage(Kind kind);
    void moveFocus(Kind kind);
    [[nodiscard]] MatchPill* pill();
    void showMatches(const std::optional<Matches>& matches);
    bool takeGesture(QNativeGestureEvent& event);
    void act(std::optional<Pinch::Act> act, const QPointF& global);

    const Settings& m_settings;
    Scene m_scene;
    OneYearPage* m_oneYear;
    // Made when they first show.
    AllYearsPage* m_allYears = nullptr;
    SourcePage* m_source = nullptr;
    MatchPill* m_pill = nullptr;
    PageFade* m_fade;
    PageScroll* m_shown;
    Pinch m_pinch;
    Pinch m_wheel;
    bool m_isEditable = true;
};

}  // namespace velmar
