#include "DiaryApp/SettingsWindow/SettingsSections.h"

#include <QtGui/QPainter>
#include <algorithm>
#include <array>
#include <utility>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/CheckBox.h"
#include "DiaryApp/Appearance/ComboBox.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/SegmentedControl.h"
#include "DiaryApp/Appearance/Stepper.h"
#include "DiaryApp/Appearance/TextLabel.h"
#include "DiaryApp/SettingsWindow/PaletteSwatch.h"
#include "DiaryApp/SettingsWindow/PathField.h"

namespace velmar {

namespace {

constexpr int kComboWidth = 234;
constexpr int kSwatchGap = 16;
constexpr int kDividerGap = 7;
constexpr int kSmallLine = 28;
constexpr int kSmallLineGap = 6;
constexpr int kNoteLine = 19;
// Where the words of a check box begin.
constexpr int kNoteIndent = 26;

// In the order of the control.
constexpr std::array kModes = {diary::AppearanceMode::light, diary::AppearanceMode::dark,
                               diary::AppearanceMode::system};
constexpr std::array kStyles = {PhotoStyle::strip, PhotoStyle::timeline, PhotoStyle::mosaic};

template <class Values, class Value>
int indexOf(const Values& values, Value value) {
    return static_cast<int>(std::ranges::find(values, value) - values.begin());
}

template <class Function, class... Arguments>
void call(const Function& function, Arguments... arguments) {
    if (function) function(arguments...);
}

TextLook noteLook() {
    return {fonts::sans(13), kNoteLine, Token::ChromeText};
}

Button* makeButton(Button::Kind kind, Button::Size size, const char* icon, QWidget* parent,
                   const std::function<void()>& action) {
    auto* button = new Button(kind, parent);
    button->setButtonSize(size);
    button->setIconName(QLatin1String(icon));
    QObject::connect(button, &Button::clicked, parent, [&action] { call(action); });
    return button;
}

// With as many segments as it will have: they take their places in the order of the Tab key when
// they are made.
SegmentedControl* makeSegments(std::size_t count, QWidget* parent) {
    auto* control = new SegmentedControl(parent);
    control->setChoices(std::vector<SegmentedControl::Choice>(count));
    return control;
}

// A vertical hairline between the light and the dark palettes.
class Divider : public QWidget {
public:
    explicit Divider(QWidget* parent) : QWidget(parent) { setFixedWidth(1); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.fillRect(rect().adjusted(0, PaletteSwatch::kMargin, 0, 0),
                         theme::color(Token::BorderSoft));
    }
};

}  // namespace

// One sentence in the diary's own font and size.
class FontSample : public QLabel {
public:
    explicit FontSample(QWidget* parent) : QLabel(parent) {
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }
    void setLook(const QFont& font) {
        m_font = font;
        QWidget::update();
    }
    [[nodiscard]] QSize sizeHint() const override { return minimumSizeHint(); }
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, kHeight}; }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        paintLine(painter, rect(), text(), {m_font, kHeight, Token::Ink});
    }

private:
    static constexpr int kHeight = 32;
    QFont m_font;
};

AppearanceSection::AppearanceSection(const SettingsActions& actions, QWidget* parent)
    : SettingsSection(parent),
      m_mode(makeSegments(kModes.size(), this)),
      m_light(new SwatchGroup(diary::palette::light(), this)),
      m_dark(new SwatchGroup(diary::palette::dark(), this)) {
    auto* modes = addLine();
    modes->addWidget(m_mode);
    modes->addStretch();
    // The swatches bring the room for their rings along.
    auto* palettes = addLine(Outdent::Ring, 0, kSwatchGap - PaletteSwatch::kMargin);
    palettes->setSpacing(0);
    palettes->addWidget(m_light);
    palettes->addSpacing(kDividerGap);
    palettes->addWidget(new Divider(this));
    palettes->addSpacing(kDividerGap);
    palettes->addWidget(m_dark);
    palettes->addStretch();
    m_mode->onChosen = [&actions](int index) {
        call(actions.onMode, kModes[static_cast<std::size_t>(index)]);
    };
    for (SwatchGroup* each : {m_light, m_dark}) {
        each->onPicked = [&actions](diary::Palette palette) { call(actions.onPalette, palette); };
    }
}

void AppearanceSection::update(const SettingsModel& model) {
    setTitle(qtTrId("Settings.Appearance"));
    m_mode->setAccessibleName(qtTrId("Settings.Appearance"));
    m_mode->setChoices({{qtTrId("Settings.Light"), {}},
                        {qtTrId("Settings.Dark"), {}},
                        {qtTrId("Settings.System"), {}}});
    m_mode->setChosen(indexOf(kModes, model.mode));
    m_light->setAccessibleName(qtTrId("Settings.LightPalettes"));
    m_dark->setAccessibleName(qtTrId("Settings.DarkPalettes"));
    m_light->update(model.swatches);
    m_dark->update(model.swatches);
}

WritingSection::WritingSection(const SettingsActions& actions, QWidget* parent)
    : SettingsSection(parent),
      m_font(new ComboBox(this)),
      m_size(new Stepper(this)),
      m_sample(new FontSample(this)),
      m_gapYears(new CheckBox(QString(), this)) {
    m_font->setFixedWidth(kComboWidth);
    m_size->setRange(kLeastFontSize, kGreatestFontSize);
    auto* line = addLine();
    line->addWidget(m_font);
    line->addWidget(m_size);
    line->addSpacing(12);
    line->addWidget(m_sample, 1);
    auto* years = addLine();
    years->addWidget(m_gapYears);
    years->addStretch();
    m_font->onChosen = [&actions](int index) { call(actions.onFont, index); };
    m_size->onChanged = [&actions](double size) { call(actions.onFontSize, size); };
    m_gapYears->onChanged = [&actions](bool on) { call(actions.onGapYears, on); };
}

void WritingSection::update(const SettingsModel& model) {
    setTitle(qtTrId("Settings.Writing"));
    m_font->setAccessibleName(qtTrId("Settings.Font"));
    m_font->setChoices(model.fonts, model.font);
    m_size->setAccessibleName(qtTrId("Settings.FontSize"));
    m_size->setStepNames(qtTrId("Settings.Smaller"), qtTrId("Settings.Larger"));
    m_size->setValue(model.fontSize);
    m_sample->setText(qtTrId("Settings.Sample"));
    m_sample->setLook(fonts::body(model.bodyFamily, model.fontSize));
    m_gapYears->setText(qtTrId("Settings.GapYears"));
    m_gapYears->setChecked(model.showGapYears);
    m_gapYears->updateGeometry();
}

PhotosSection::PhotosSection(const SettingsActions& actions, QWidget* parent)
    : SettingsSection(parent),
      m_style(makeSegments(kStyles.size(), this)),
      m_show(new CheckBox(QString(), this)),
      m_hidden(new TextLabel(noteLook, this)),
      m_restore(makeButton(Button::Kind::Plain, Button::Size::Small, "undo", this,
                           actions.onRestoreAll)) {
    auto* styles = addLine();
    styles->addWidget(m_style);
    styles->addStretch();
    auto* show = addLine();
    show->addWidget(m_show);
    show->addStretch();
    auto* hidden = addLine();
    hidden->addWidget(m_hidden, 1);
    hidden->addWidget(m_restore);
    m_style->onChosen = [&actions](int index) {
        call(actions.onPhotoStyle, kStyles[static_cast<std::size_t>(index)]);
    };
    m_show->onChanged = [&actions](bool on) { call(actions.onShowPhotos, on); };
}

void PhotosSection::update(const SettingsModel& model) {
    setTitle(qtTrId("Settings.Photos"));
    m_style->setAccessibleName(qtTrId("Settings.PhotoStyle"));
    m_style->setChoices({{qtTrId("Settings.Strip"), QStringLiteral("photos-strip")},
                         {qtTrId("Settings.Timeline"), QStringLiteral("photos-timeline")},
                         {qtTrId("Settings.Mosaic"), QStringLiteral("photos-mosaic")}});
    m_style->setChosen(indexOf(kStyles, model.photoStyle));
    m_show->setText(qtTrId("Settings.ShowPhotos"));
    m_show->setChecked(model.showPhotos);
    m_show->updateGeometry();
    m_hidden->setText(model.hiddenPhotos);
    m_restore->setText(qtTrId("Settings.RestoreAll"));
    m_restore->setEnabled(model.hiddenPhotoCount > 0);
    m_restore->updateGeometry();
}

FolderSection::FolderSection(const SettingsActions& actions, QWidget* parent)
    : SettingsSection(parent),
      m_path(new PathField(this)),
      m_choose(
          makeButton(Button::Kind::Plain, Button::Size::Regular, "", this, actions.onChooseVault)),
      m_cloud(
          makeButton(Button::Kind::Quiet, Button::Size::Small, "cloud", this, actions.onUseCloud)),
      m_default(makeButton(Button::Kind::Quiet, Button::Size::Small, "computer", this,
                           actions.onUseDefault)) {
    auto* path = addLine();
    path->addWidget(m_path, 1);
    path->addWidget(m_choose);
    auto* places = addLine(Outdent::Quiet, kSmallLine, kSmallLineGap);
    places->addWidget(m_cloud);
    places->addWidget(m_default);
    places->addStretch();
}

void FolderSection::update(const SettingsModel& model) {
    setTitle(qtTrId("Settings.Folder"));
    m_path->setAccessibleName(qtTrId("Settings.Folder") + QStringLiteral(": ") +
                              model.shownVaultPath);
    m_path->setPath(model.shownVaultPath, model.vaultPath);
    m_choose->setText(qtTrId("Settings.Choose"));
    m_choose->updateGeometry();
    m_cloud->setText(qtTrId("Settings.UseCloud"));
    m_cloud->setVisible(model.hasCloudPlace);
    m_cloud->updateGeometry();
    m_default->setText(qtTrId("Settings.UseDefault"));
    m_default->setEnabled(model.hasChosenVault);
    m_default->updateGeometry();
}

InAndOutSection::InAndOutSection(const SettingsActions& actions, QWidget* parent)
    : SettingsSection(parent),
      m_import(
          makeButton(Button::Kind::Plain, Button::Size::Regular, "tray", this, actions.onImport)),
      m_export(
          makeButton(Button::Kind::Plain, Button::Size::Regular, "export", this, actions.onExport)),
      m_records(makeButton(Button::Kind::Quiet, Button::Size::Regular, "", this,
                           actions.onImportRecords)) {
    auto* line = addLine();
    line->addWidget(m_import);
    line->addWidget(m_export);
    line->addWidget(m_records);
    line->addStretch();
}

void InAndOutSection::update(const SettingsModel& /*model*/) {
    setTitle(qtTrId("Settings.InAndOut"));
    m_import->setText(qtTrId("Settings.Import"));
    m_export->setText(qtTrId("Settings.Export"));
    m_records->setText(qtTrId("Settings.ImportRecords"));
    for (Button* each : {m_import, m_export, m_records}) each->updateGeometry();
}

LanguageSection::LanguageSection(const SettingsActions& actions, QWidget* parent)
    : SettingsSection(parent),
      m_language(new ComboBox(this)),
      m_effective(new TextLabel(noteLook, this)) {
    m_language->setFixedWidth(kComboWidth);
    auto* line = addLine();
    line->addWidget(m_language);
    line->addWidget(m_effective, 1);
    m_language->onChosen = [&actions](int index) { call(actions.onLanguage, index); };
}

void LanguageSection::update(const SettingsModel& model) {
    setTitle(qtTrId("Settings.Language"));
    m_language->setAccessibleName(qtTrId("Settings.Language"));
    m_language->setChoices(model.languages, model.language);
    m_effective->setText(model.effectiveLanguage);
}

UpdatesSection::UpdatesSection(const SettingsActions& actions, QWidget* parent)
    : SettingsSection(parent),
      m_auto(new CheckBox(QString(), this)),
      m_check(makeButton(Button::Kind::Plain, Button::Size::Regular, "", this, actions.onCheckNow)),
      m_status(new TextLabel(noteLook, this)) {
    setLast();
    auto* line = addLine();
    line->addWidget(m_auto);
    line->addStretch();
    line->addWidget(m_check);
    auto* status = addLine(Outdent::None, kNoteLine, 0);
    status->addSpacing(kNoteIndent);
    status->addWidget(m_status, 1);
    m_auto->onChanged = [&actions](bool on) { call(actions.onAutoUpdate, on); };
}

void UpdatesSection::update(const SettingsModel& model) {
    setTitle(qtTrId("Settings.Updates"));
    m_auto->setText(qtTrId("Settings.AutoUpdate"));
    m_auto->setChecked(model.autoUpdate);
    m_auto->setEnabled(model.canUpdate);
    m_auto->updateGeometry();
    m_check->setText(qtTrId("Settings.CheckNow"));
    m_check->setEnabled(model.canUpdate && !model.isUpdating);
    m_check->updateGeometry();
    m_status->setText(model.updateStatus);
}

}  // namespace velmar
