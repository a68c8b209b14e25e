// The hub of the value manager.
#include "fabric/signalslotsingleton.h"

#include <QMetaMethod>
#include <QSignalSpy>
#include <QTest>
#include <type_traits>

#include "qttests.h"

class SignalSlotSingletonTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thereIsOneInstance();
    void emittingWithoutAConnectionDoesNothing();
    void itsSignalsStandInTheirOrder();
    void aDocumentReachesTheOtherEnd();
};

void SignalSlotSingletonTest::thereIsOneInstance() {
    QCOMPARE(&SignalSlotSingleton::getInstance(), &SignalSlotSingleton::getInstance());
    static_assert(!std::is_default_constructible_v<SignalSlotSingleton>);
    static_assert(!std::is_copy_constructible_v<SignalSlotSingleton>);
}

void SignalSlotSingletonTest::emittingWithoutAConnectionDoesNothing() {
    SignalSlotSingleton& hub = SignalSlotSingleton::getInstance();
    Q_EMIT hub.readFromOstrel();
    Q_EMIT hub.commitToOstrel();
    Q_EMIT hub.readFromFile(QDomDocument());
    Q_EMIT hub.writeToFile(QDomDocument());
    Q_EMIT hub.valueChanged();
}

void SignalSlotSingletonTest::itsSignalsStandInTheirOrder() {
    const QMetaObject& meta = SignalSlotSingleton::staticMetaObject;
    QStringList found;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        found.append(meta.method(i).methodSignature());
    QCOMPARE(found, QStringList({"readFromOstrel()", "commitToOstrel()", "readFromFile(QDomDocument)",
                                 "writeToFile(QDomDocument)", "valueChanged()"}));
}

void SignalSlotSingletonTest::aDocumentReachesTheOtherEnd() {
    SignalSlotSingleton& hub = SignalSlotSingleton::getInstance();
    QString tag;
    connect(&hub, &SignalSlotSingleton::writeToFile, this,
            [&](QDomDocument file) { tag = file.documentElement().tagName(); });
    QDomDocument file;
    file.appendChild(file.createElement("values"));
    Q_EMIT hub.writeToFile(file);
    QCOMPARE(tag, QString("values"));
}

OSTREL_TEST_WITHOUT_SCREEN(SignalSlotSingletonTest)
#include "signalslotsingleton_test.moc"
