// The bar above the page: the day's file and how many years it holds, and the two leaps.
#pragma once

#include <QtWidgets/QWidget>
#include <functional>

namespace velmar {

class Button;

class TopBarView : public QWidget {
    Q_OBJECT

public:
    explicit TopBarView(QWidget* parent = nullptr);

    std::function<void()> onToday;
    std::function<void()> onRandom;

    // "11-21.md", and the number of years with text in it.
    void update(const QString& fileName, int sectionCount);
    // The buttons' texts and the count, again in another language.
    void retranslate();

    static constexpr int barHeight = 44;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_fileName;
    int m_sectionCount = 0;
    Button* m_today;
    Button* m_random;
};

}  // namespace velmar
