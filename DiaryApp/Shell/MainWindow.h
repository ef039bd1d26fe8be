// The frame of the main window: it places the bars and the page, and remembers its size. What they
// show and do is MainWindowController's.
#pragma once

#include <QtWidgets/QWidget>
#include <functional>

#include "DiaryApp/Settings/Settings.h"

class QMenuBar;

namespace velmar {

class EntryView;
class StatusBarView;
class TopBarView;

class MainWindow : public QWidget {
    Q_OBJECT

public:
    explicit MainWindow(Settings& settings);

    [[nodiscard]] TopBarView* topBar() const { return m_topBar; }
    [[nodiscard]] EntryView* entryView() const { return m_entryView; }
    [[nodiscard]] StatusBarView* statusBar() const { return m_statusBar; }
    // The window takes the bar over.
    void setMenuBar(QMenuBar* bar);
    [[nodiscard]] QMenuBar* menuBar() const { return m_menuBar; }

    // Whether the window may close now. Asked at each close; absent means yes.
    std::function<bool()> onClosing;
    std::function<void()> onClosed;

    static constexpr QSize preferredSize{1360, 840};
    static constexpr QSize leastSize{1080, 620};

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void addFocusKeys();
    void restoreFrame();
    void place();

    Settings& m_settings;
    QMenuBar* m_menuBar = nullptr;
    TopBarView* m_topBar;
    EntryView* m_entryView;
    StatusBarView* m_statusBar;
};

}  // namespace velmar
