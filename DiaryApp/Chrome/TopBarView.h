// The bar above the page: the day's file and how many years it holds, the leap to any
// day, and the way to the file's own text.
#pragma once

#include <QtCore/QString>
#include <QtWidgets/QWidget>
#include <functional>

namespace velmar {

class Button;

class TopBarView : public QWidget {
    Q_OBJECT

public:
    explicit TopBarView(QWidget* parent = nullptr);

    std::function<void()> onRandom;
    std::function<void()> onToggleSource;

    struct Model {
        // "11-21.md"
        QString fileName;
        // The number of years with text in it.
        int sectionCount = 0;
        bool showsSource = false;

        bool operator==(const Model&) const = default;
    };
    void update(const Model& model);
    // The buttons' texts and the count, again in another language.
    void retranslate();

    static constexpr int barHeight = 44;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Model m_model;
    Button* m_random;
    Button* m_source;
};

}  // namespace velmar
