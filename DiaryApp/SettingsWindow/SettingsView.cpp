#include "DiaryApp/SettingsWindow/SettingsView.h"

#include <QtGui/QPainter>
#include <QtWidgets/QVBoxLayout>

#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

namespace {
constexpr int kMargin = 36;
constexpr int kTop = 8;
}  // namespace

SettingsView::SettingsView(QWidget* parent)
    : QWidget(parent),
      m_appearance(new AppearanceSection(actions, this)),
      m_writing(new WritingSection(actions, this)),
      m_photos(new PhotosSection(actions, this)),
      m_folder(new FolderSection(actions, this)),
      m_inAndOut(new InAndOutSection(actions, this)),
      m_language(new LanguageSection(actions, this)),
      m_updates(new UpdatesSection(actions, this)) {
    setFixedWidth(kWidth);
    setMinimumHeight(kHeight);
    auto* sections = new QVBoxLayout(this);
    sections->setContentsMargins(kMargin, kTop, kMargin - SettingsSection::rightRoom, 0);
    sections->setSpacing(0);
    for (QWidget* each : std::initializer_list<QWidget*>{
             m_appearance, m_writing, m_photos, m_folder, m_inAndOut, m_language, m_updates}) {
        sections->addWidget(each);
    }
    sections->addStretch();
}

void SettingsView::update(const SettingsModel& model) {
    m_appearance->update(model);
    m_writing->update(model);
    m_photos->update(model);
    m_folder->update(model);
    m_inAndOut->update(model);
    m_language->update(model);
    m_updates->update(model);
    QWidget::update();
}

void SettingsView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::color(Token::Paper));
}

}  // namespace velmar
