// The small parts of the search pane that only show something: the line of counts, the notice, and
// the keys at the bottom.
#pragma once

#include <QtWidgets/QWidget>
#include <optional>

#include "DiaryApp/Search/SearchPaneState.h"

namespace velmar {

// What was found, in numbers, and whether a search runs.
class SearchCountLine : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    void update(const std::optional<QString>& count, bool isSearching);

    static constexpr int lineHeight = 25;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::optional<QString> m_count;
    bool m_isSearching = false;
};

// A box that says why the list may not be all there is.
class SearchNoticeBox : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    void update(const SearchPaneState::Notice& notice);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    SearchPaneState::Notice m_notice;
};

// The search's keys. What Esc does depends on whether there is text to clear.
class SearchKeysHint : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    void update(bool hasText);

    static constexpr int hintHeight = 56;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QStringList m_lines;
};

}  // namespace velmar
