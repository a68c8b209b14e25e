#include "widgets/zel_simplevalue.h"

#include "widgets/uimanager.h"

ZelSimpleValue::ZelSimpleValue(QWidget* parent) : SimpleValueBase(parent), ui(std::make_unique<UiManager>(this)) {
    useParts(*ui);
    setHorizontal(false);
    startAs(QStringLiteral("ZelSimpleValue"));
}

ZelSimpleValue::~ZelSimpleValue() = default;

void ZelSimpleValue::setHorizontal(bool horizontal) {
    m_horizontal = horizontal;
    place();
    remember("horizontal", horizontal);
}

void ZelSimpleValue::setLockMaxHeight(bool lock) {
    m_lockMaxHeight = lock;
    place();
    remember("lockMaxHeight", lock);
}

void ZelSimpleValue::place() {
    ui->setupUi(m_horizontal, m_lockMaxHeight != 0);
    placed();
    setName(_name);
}

void ZelSimpleValue::setNameMaxHeight(int height) {
    m_nameMaxHeight = height;
    ui->name->setMaximumHeight(height);
    limitFrame();
    remember("nameMaxHeight", height);
}

void ZelSimpleValue::setValueMaxHeight(int height) {
    m_valueMaxHeight = height;
    ui->value->setMaximumHeight(height);
    limitFrame();
    remember("valueMaxHeight", height);
}

void ZelSimpleValue::limitFrame() {
    ui->frame->setMaximumHeight(sumOf(m_nameMaxHeight, m_valueMaxHeight));
}

void ZelSimpleValue::setResolution(int decimals) {
    showResolution(decimals);
    remember("resolution", decimals);
}

void ZelSimpleValue::ostrelTimerEvent(int interval) {
    takeTick(interval);
}

void ZelSimpleValue::changeEvent(QEvent* event) {
    takeParentColor(event);
}

void ZelSimpleValue::sample(bool startup) {
    sampleValue(startup);
}

void ZelSimpleValue::sample() {
    sampleValue(false);
}

void ZelSimpleValue::tellName(const QString& name) {
    Q_EMIT nameChanged(name, m_row, m_col);
}
