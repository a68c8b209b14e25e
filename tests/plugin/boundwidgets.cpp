// The widgets that take part in the contract. A new one is an entry here.
#include <ostrel-display/qled.h>
#include <ostrel-display/slider.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "boundwidgetcontract.h"
#include "valuemanager/ComboBoxPlugin/ValManComboBoxWidget.h"
#include "valuemanager/FilePlugin/ValManFileWidget.h"
#include "valuemanager/LogicalPlugin/ValManLogicalWidget.h"
#include "valuemanager/NumericPlugin/ValManNumericWidget.h"
#include "valuemanager/StringPlugin/ValManStringWidget.h"
#include "widgets/ZelToggleButton.h"
#include "widgets/dialgauge.h"
#include "widgets/ledwidget.h"
#include "widgets/zel_pushbutton.h"
#include "widgets/zel_simplelogical.h"
#include "widgets/zel_simplevalue.h"
#include "widgets/zel_simplevalue_fl.h"
#include "widgets/zel_slider.h"
#include "widgets/zel_value.h"
#include "widgets/zelstring.h"

namespace {

const QVector<SM_VARI_TYPE> everyKind{REAL_TYPE,       INT_TYPE,       LOGI_TYPE,         STRING_TYPE,
                                      STAT_TYPE,       COMP_TYPE,      PROP_TYPE,         EMIS_TYPE,
                                      REAL_ARRAY_TYPE, INT_ARRAY_TYPE, STRING_ARRAY_TYPE, LOGI_ARRAY_TYPE};

QVector<SM_VARI_TYPE> allBut(const QVector<SM_VARI_TYPE>& left) {
    QVector<SM_VARI_TYPE> kinds;
    for (const SM_VARI_TYPE kind : everyKind)
        if (!left.contains(kind))
            kinds.append(kind);
    return kinds;
}

QVector<QWidget*> frameOf(OstrelBase& widget) {
    return {widget.findChild<QWidget*>("frame")};
}

QVector<QWidget*> itself(OstrelBase& widget) {
    return {&widget};
}

QString labelText(const OstrelBase& widget) {
    return widget.findChild<QLabel*>("value")->text();
}

BoundWidget value() {
    BoundWidget entry = boundWidget<ZelValue>("ZelValue");
    entry.kinds = allBut({STRING_TYPE, STRING_ARRAY_TYPE});
    entry.face = [](const OstrelBase& widget) { return widget.findChild<QLineEdit*>("value")->text(); };
    entry.tipOwners = frameOf;
    return entry;
}

template <class Widget>
BoundWidget simpleValue(const char* name) {
    BoundWidget entry = boundWidget<Widget>(name);
    entry.kinds = everyKind;
    entry.face = labelText;
    entry.tipOwners = frameOf;
    return entry;
}

BoundWidget simpleLogical() {
    BoundWidget entry = boundWidget<ZelSimpleLogical>("ZelSimpleLogical");
    entry.kinds = {LOGI_TYPE};
    entry.face = [](const OstrelBase& widget) { return widget.findChild<QLabel*>("state")->text(); };
    entry.flashes = false;
    entry.refuses = false;
    entry.leavesTheTimer = false;
    return entry;
}

BoundWidget string() {
    BoundWidget entry = boundWidget<ZelString>("ZelString");
    entry.kinds = {STRING_TYPE};
    entry.face = [](const OstrelBase& widget) { return widget.findChild<QLineEdit*>("value")->text(); };
    entry.tipOwners = itself;
    return entry;
}

// It draws itself: what it draws stands in the drawn part.
template <class Widget>
BoundWidget indicator(const char* name, const QVector<SM_VARI_TYPE>& kinds,
                      const std::function<QString(const OstrelBase&)>& face) {
    BoundWidget entry = boundWidget<Widget>(name);
    entry.kinds = kinds;
    entry.face = face;
    entry.tipOwners = itself;
    entry.flashes = false;
    return entry;
}

// It takes the name of every variable, and shows those of some kinds.
template <class Widget>
BoundWidget editor(const char* name, const QVector<SM_VARI_TYPE>& kinds,
                   const std::function<QString(const OstrelBase&)>& face) {
    BoundWidget entry = boundWidget<Widget>(name);
    entry.kinds = kinds;
    entry.face = face;
    entry.flashes = false;
    entry.refuses = false;
    entry.hasTimer = false;
    return entry;
}

QString typedText(const OstrelBase& widget) {
    return widget.findChild<QLineEdit*>("value")->text();
}

QString boxState(const OstrelBase& widget) {
    return QString::number(widget.findChild<QCheckBox*>("value")->isChecked());
}

QString chosenText(const OstrelBase& widget) {
    return widget.findChild<QComboBox*>("comboBox")->currentText();
}

QString lampText(const OstrelBase& widget) {
    const auto* state = widget.findChild<QLabel*>("state");
    return QString::number(widget.findChild<QLed*>()->value()) + (state->isHidden() ? QString() : state->text());
}

QString pointerText(const OstrelBase& widget) {
    return QString::number(static_cast<const ZelDialGauge&>(widget).getValue());
}

QString barText(const OstrelBase& widget) {
    return QString::number(widget.findChild<Slider*>()->Value);
}

BoundWidget pushButton() {
    BoundWidget entry = indicator<ZelPushButton>("ZelPushButton", {LOGI_TYPE}, labelText);
    entry.tipOwners = [](OstrelBase& widget) {
        return QVector<QWidget*>{&widget, widget.findChild<QWidget*>("name"), widget.findChild<QWidget*>("qtSvgButton"),
                                 widget.findChild<QWidget*>("value")};
    };
    return entry;
}

QString switchText(const OstrelBase& widget) {
    return QString::number(widget.findChild<QAbstractButton*>()->isChecked()) + labelText(widget);
}

}  // namespace

const QVector<BoundWidget>& boundWidgets() {
    static const QVector<BoundWidget> widgets{
        value(),
        simpleValue<ZelSimpleValue>("ZelSimpleValue"),
        simpleValue<ZelSimpleValue_fl>("ZelSimpleValue_fl"),
        simpleLogical(),
        string(),
        indicator<ZelLed>("ZelLed", {LOGI_TYPE}, lampText),
        indicator<ZelDialGauge>("ZelDialGauge", {REAL_TYPE, INT_TYPE}, pointerText),
        indicator<ZelSlider>("ZelSlider", {REAL_TYPE, INT_TYPE}, barText),
        pushButton(),
        indicator<ZelToggleButton>("ZelToggleButton", {LOGI_TYPE}, switchText),
        editor<ValManNumericWidget>("ValManNumericWidget", {REAL_TYPE, INT_TYPE, STRING_TYPE}, typedText),
        editor<ValManStringWidget>("ValManStringWidget", {STRING_TYPE, REAL_TYPE, INT_TYPE}, typedText),
        editor<ValManFileWidget>("ValManFileWidget", {STRING_TYPE, REAL_TYPE, INT_TYPE}, typedText),
        editor<ValManLogicalWidget>("ValManLogicalWidget", {LOGI_TYPE}, boxState),
        editor<ValManComboBoxWidget>("ValManComboBoxWidget", {REAL_TYPE, INT_TYPE, STRING_TYPE}, chosenText),
    };
    return widgets;
}
