// The frame of the main window: it places the bars, the columns and the page, and remembers its
// size. What they show and do is MainWindowController's.
#pragma once

#include <QtCore/QList>
#include <QtCore/QUrl>
#include <QtWidgets/QWidget>
#include <functional>

#include "DiaryApp/Settings/Settings.h"

class QMenuBar;

namespace velmar {

class EntryView;
class SearchPaneView;
class SidebarView;
class StatusBarView;
class TopBarView;
class YearRailView;

class MainWindow : public QWidget {
    Q_OBJECT

public:
    explicit MainWindow(Settings& settings);

    [[nodiscard]] TopBarView* topBar() const { return m_topBar; }
    [[nodiscard]] SidebarView* sidebar() const { return m_sidebar; }
    // Made when it is first asked for: the search isn't needed for the first page.
    SearchPaneView* searchPane();
    [[nodiscard]] EntryView* entryView() const { return m_entryView; }
    [[nodiscard]] YearRailView* rail() const { return m_rail; }
    [[nodiscard]] StatusBarView* statusBar() const { return m_statusBar; }
    // The window takes the bar over.
    void setMenuBar(QMenuBar* bar);
    [[nodiscard]] QMenuBar* menuBar() const { return m_menuBar; }
    void retranslate();
    void rememberFrame() const;

    // Once, right after the window was painted for the first time; the columns come with it.
    std::function<void()> onFirstPaint;
    // Whether the columns have come.
    [[nodiscard]] bool hasColumns() const { return m_hasColumns; }
    // The Escape key, where nothing that has the focus wants it.
    std::function<void()> onEscape;
    // The mouse's back (-1) or forward (1) button, wherever in the window.
    std::function<void(int)> onPageButton;
    // Files were dropped, wherever in the window.
    std::function<void(const QList<QUrl>&)> onFilesDropped;
    // Whether the window may close now. Asked at each close; absent means yes.
    std::function<bool()> onClosing;
    std::function<void()> onClosed;
    // The search pane was made and is to be wired.
    std::function<void(SearchPaneView*)> onSearchPaneMade;

    static constexpr QSize preferredSize{1360, 840};
    static constexpr QSize leastSize{1080, 620};
    static constexpr int sidebarWidth = 268;

protected:
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void addFocusKeys();
    void openContextMenu();
    void focusNextPane(int step);
    bool focusPane(QWidget* pane);
    static void joinFocusChain(const QWidget* pane, QWidget* behind);
    void restoreFrame();
    void place();

    Settings& m_settings;
    QMenuBar* m_menuBar = nullptr;
    // In the order in which Tab walks them.
    TopBarView* m_topBar;
    SidebarView* m_sidebar;
    EntryView* m_entryView;
    YearRailView* m_rail;
    StatusBarView* m_statusBar;
    SearchPaneView* m_searchPane = nullptr;
    bool m_isPainted = false;
    bool m_hasColumns = false;
};

}  // namespace velmar
