// A plug-in of the tests that looks at Qt Designer from inside and writes down what it sees.
#ifndef OSTREL_TESTS_DESIGNER_DESIGNERWITNESS_H
#define OSTREL_TESTS_DESIGNER_DESIGNERWITNESS_H

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

class QDesignerFormEditorInterface;
class QTextStream;

// Once a form is open it writes to the file in OSTREL_WITNESS, again and again: the widget box's entries of the library
// and those of the value manager's group, where on the screen one of them, the form and each widget on it lie, the
// class of each, its task menu and its list of values, the commands that can be undone, what can be clicked in an open
// menu or dialog, and whether the form has changes that its file does not have. The entry is ZelValue, or the one whose
// name or number stands in the file beside it, with ".wanted" behind its name.
class DesignerWitness : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetInterface")
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    bool isContainer() const override { return false; }
    bool isInitialized() const override { return m_core != nullptr; }
    QIcon icon() const override;
    QString domXml() const override { return QString(); }
    QString group() const override { return QStringLiteral("Witness"); }
    QString includeFile() const override { return QStringLiteral("witness.h"); }
    QString name() const override { return QStringLiteral("DesignerWitness"); }
    QString toolTip() const override { return QString(); }
    QString whatsThis() const override { return QString(); }
    QWidget* createWidget(QWidget* parent) override;
    void initialize(QDesignerFormEditorInterface* core) override;

private:
    void report();
    QStringList paletteEntries(const QStringList& groups) const;
    QString paletteEntryPosition(const QString& wanted) const;
    QString wantedEntry() const;

    void tellWidget(QTextStream& out, QWidget* widget) const;

    QDesignerFormEditorInterface* m_core = nullptr;
};

#endif
