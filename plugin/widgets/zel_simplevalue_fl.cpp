#include "widgets/zel_simplevalue_fl.h"

#include <QApplication>
#include <QEvent>
#include <QFontMetrics>
#include <algorithm>

#include "variables/notfoundmark.h"
#include "widgets/coloursheet.h"
#include "widgets/uimanager.h"

ZelSimpleValue_fl::ZelSimpleValue_fl(QWidget* parent) : SimpleValueBase(parent) {
    // Before there are children that would have to follow.
    setFont(QApplication::font());
    ui = std::make_unique<UiManager_fl>(this);
    useParts(*ui);
    startAs(QStringLiteral("ZelSimpleValue_fl"));
    ui->frame->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    setValueAlignment(m_valueAlignment);
    setNameAlignment(m_nameAlignment);
    m_mark->show(false);
}

ZelSimpleValue_fl::~ZelSimpleValue_fl() = default;

// ---- Sizes ----

int ZelSimpleValue_fl::sumOfHeights() const {
    return ui->name->maximumHeight() + ui->value->maximumHeight();
}

void ZelSimpleValue_fl::limitFrameHeight(int before, int sum) {
    const int higher = std::max(ui->name->maximumHeight(), ui->value->maximumHeight());
    ui->frame->setMaximumHeight(m_horizontal ? higher : std::min(before, sum));
}

void ZelSimpleValue_fl::limitFrameWidth(int before) {
    const int name = ui->name->maximumWidth();
    const int value = ui->value->maximumWidth();
    ui->frame->setMaximumWidth(m_horizontal ? std::min(before, name + value) : std::max(name, value));
}

void ZelSimpleValue_fl::setHorizontal(bool horizontal) {
    const QSize before = ui->frame->maximumSize();
    m_horizontal = horizontal;
    ui->value->setAlignment((horizontal ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    ui->setupUi(m_horizontal, m_lockMaxHeight != 0);
    remember("horizontal", horizontal);
    limitFrameHeight(before.height(), sumOfHeights());
    limitFrameWidth(before.width());
    placed();
    setName(_name);
}

void ZelSimpleValue_fl::setLockMaxHeight(bool lock) {
    m_lockMaxHeight = lock;
    ui->setupUi(m_horizontal, m_lockMaxHeight != 0);
    placed();
    setName(_name);
    remember("lockMaxHeight", lock);
}

void ZelSimpleValue_fl::setNameMaxWidth(int width) {
    m_nameMaxWidth = width;
    ui->name->setMaximumWidth(width);
    limitFrameWidth(ui->frame->maximumWidth());
    remember("nameMaxWidth", width);
}

void ZelSimpleValue_fl::setNameMaxHeight(int height) {
    m_nameMaxHeight = height;
    ui->name->setMaximumHeight(height);
    limitFrameHeight(ui->frame->maximumHeight(), sumOfHeights());
    remember("nameMaxHeight", height);
}

void ZelSimpleValue_fl::setValueMaxHeight(int height) {
    m_valueMaxHeight = height;
    ui->value->setMaximumHeight(height);
    limitFrameHeight(ui->frame->maximumHeight(), sumOf(m_nameMaxHeight, m_valueMaxHeight));
    remember("valueMaxHeight", height);
}

void ZelSimpleValue_fl::setNameFont(const QFont& font) {
    const QSize before = ui->frame->maximumSize();
    ui->name->setFont(font);
    const int width = QFontMetrics(font).horizontalAdvance(_name);
    if (m_nameMinWidth != width && m_nameMaxWidth > width)
        ui->name->setMinimumWidth(width);
    if (m_nameMaxWidth < width)
        setNameMaxWidth(width);
    limitFrameHeight(before.height(), sumOfHeights());
    limitFrameWidth(before.width());
    rememberFont("nameFont", font);
}

void ZelSimpleValue_fl::setNameMinWidth(int width) {
    m_nameMinWidth = width;
    ui->name->setMinimumWidth(width);
    const int value = ui->value->minimumWidth();
    // Kept: a name that is shown does not count in a row, a hidden one does.
    if (!m_horizontal)
        ui->frame->setMinimumWidth(std::max(width, value));
    else if (ui->name->isHidden())
        ui->frame->setMinimumWidth(ui->name->minimumWidth() + value);
    else
        ui->frame->setMinimumWidth(value);
    remember("nameMinWidth", width);
}

void ZelSimpleValue_fl::setValueMinWidth(int width) {
    if (width == ui->value->minimumWidth())
        return;
    m_valueMinWidth = width;
    ui->value->setMinimumWidth(width);
    const int value = ui->value->minimumWidth();
    const int nameAndIcon = ui->name->minimumWidth() + (m_mark->isShown() ? ui->iconLabel->minimumWidth() : 0);
    ui->frame->setMinimumWidth(m_horizontal ? value + nameAndIcon : std::max(nameAndIcon, value));
}

// ---- Looks ----

void ZelSimpleValue_fl::setValueAlignment(Qt::Alignment alignment) {
    m_valueAlignment = alignment;
    ui->value->setAlignment(alignment);
    remember("valueAlignment", static_cast<int>(alignment));
}

void ZelSimpleValue_fl::setColor(const QColor& color) {
    QPalette palette = ui->value->palette();
    const QColor shown = color.isValid() ? color : palette.text().color();
    _color = shown;
    // An invalid colour is left to the sheet below.
    ui->value->setStatusColour(statusColour(*this, color, flashOn));
    // Asked on every sample, and a style sheet costs more than all the rest of it.
    if (showsColor(color, shown))
        return;
    palette.setColor(QPalette::Text, shown);
    ui->value->setPalette(palette);
    m_sheetColor = color;
    m_sheet = colourSheet("QLabel { color: rgb(%1,%2,%3);}", color);
    ui->value->setStyleSheet(m_sheet);
}

bool ZelSimpleValue_fl::showsColor(const QColor& asked, const QColor& shown) const {
    return !m_sheet.isEmpty() && asked == m_sheetColor && ui->value->palette().text().color() == shown &&
           ui->value->styleSheet() == m_sheet;
}

void ZelSimpleValue_fl::setNameColor(const QColor& color) {
    QPalette palette = ui->name->palette();
    const QColor shown = color.isValid() ? color : palette.text().color();
    if (m_nameColor == shown)
        return;
    m_nameColor = shown;
    palette.setColor(QPalette::Text, shown);
    palette.setColor(QPalette::WindowText, shown);
    setPalette(palette);
    ui->name->setPalette(palette);
    update();
    ui->name->setStyleSheet(colourSheet("QLabel{ color: rgb(%1,%2,%3);}", color));
}

void ZelSimpleValue_fl::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        takeParentColor(event);
    else
        QWidget::changeEvent(event);
}

// ---- Sampling ----

void ZelSimpleValue_fl::setResolution(int decimals) {
    showResolution(decimals);
    remember("resolution", decimals);
}

void ZelSimpleValue_fl::stateChanged(bool on) {
    // Kept: only the way to the false state brings the form's alignment and tool tip back.
    if (on)
        return;
    if (ui->value->alignment() != m_valueAlignment)
        ui->value->setAlignment(m_valueAlignment);
    m_mark->showInstead(m_mark->toolTip());
}

void ZelSimpleValue_fl::ostrelTimerEvent(int interval) {
    takeTick(interval);
}

void ZelSimpleValue_fl::sample(bool startup) {
    sampleValue(startup);
}

void ZelSimpleValue_fl::sample() {
    sampleValue(false);
}

void ZelSimpleValue_fl::tellName(const QString& name) {
    Q_EMIT nameChanged(name, m_row, m_col);
}
