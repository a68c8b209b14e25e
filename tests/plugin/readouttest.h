// What the tests of the simple read-outs have in common: what an operator sees of one, and the dialogs it opens.
#ifndef OSTREL_TESTS_PLUGIN_READOUTTEST_H
#define OSTREL_TESTS_PLUGIN_READOUTTEST_H

#include <QApplication>
#include <QFrame>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QTimer>

#include "plugintest.h"
#include "whenopened.h"
#include "widgets/flashinglabel.h"

// A read-out of any of the classes, and what an operator sees of it.
template <class Widget>
class Readout : public Widget {
public:
    explicit Readout(QWidget* parent = nullptr) : Widget(parent) {
        this->setObjectName(QStringLiteral("readout"));
        platform().forgetCalls();
    }

    FlashingLabel* value() const { return this->template findChild<FlashingLabel*>("value"); }
    FlashingLabel* label() const { return this->template findChild<FlashingLabel*>("name"); }
    QLabel* icon() const { return this->template findChild<QLabel*>("iconLabel"); }
    QFrame* frame() const { return this->template findChild<QFrame*>("frame"); }
    QString shown() const { return value()->text(); }
    QString tip() const { return frame()->toolTip(); }
    QColor colour() const { return value()->palette().color(QPalette::Text); }
    bool isMarkedMissing() const { return !icon()->isHidden() && tip() == QLatin1String("VARIABLE NOT FOUND"); }
    void tick() { this->ostrelTimerEvent(this->getSampleRate()); }
    bool isSampled() { return TimerModerator::isRegistered(this, this->getSampleRate()); }

    using OstrelBase::_checkLimit;
    using OstrelBase::_lastPreFlashColor;
    using OstrelBase::_lastValue;
    using OstrelBase::_oldName;
    using OstrelBase::_varType;
    using OstrelBase::className;
    using OstrelBase::formatString;
    using OstrelBase::iptr;
    using OstrelBase::limit_status;
    using OstrelBase::unitsChanged;
    using OstrelBase::updateFirst_;
};

// The names of a class's own properties in the order in which it declares them.
inline QStringList ownProperties(const QMetaObject& meta) {
    QStringList names;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
        names.append(QString::fromLatin1(meta.property(i).name()));
    return names;
}

// The signatures of a class's own signals and slots, in that order.
inline QStringList ownMethods(const QMetaObject& meta) {
    QStringList signatures;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        signatures.append(QString::fromLatin1(meta.method(i).methodSignature()));
    return signatures;
}

// Whether a property has that type and value and may be written; says what it has otherwise.
inline void compareProperty(const QObject& object, const char* name, const QByteArray& type, const QVariant& value) {
    const QMetaObject* meta = object.metaObject();
    const QMetaProperty property = meta->property(meta->indexOfProperty(name));
    QCOMPARE(QByteArray(property.typeName()), type);
    QVERIFY(property.isWritable());
    // Fonts may have been resolved differently and enumerations are of types of their own: their texts are compared.
    if (type == "QFont")
        QCOMPARE(property.read(&object).toString(), value.toString());
    else if (property.isEnumType())
        QCOMPARE(property.read(&object).toInt(), value.toInt());
    else
        QCOMPARE(property.read(&object), value);
}

#endif
