// From a form file to its widgets.
#ifndef OSTREL_HOST_FORMLOADER_H
#define OSTREL_HOST_FORMLOADER_H

#include <QHash>
#include <QSet>
#include <QString>
#include <QUiLoader>
#include <memory>

class QDesignerCustomWidgetInterface;

struct LoadedForm {
    std::unique_ptr<QWidget> widget;
    QHash<QString, QString> units;  // object name to the units that the form asks for
};

// Builds the widgets of the plug-in library that the display is linked with, and those that Qt knows.
class FormLoader : public QUiLoader {
    Q_OBJECT

public:
    FormLoader();

    // The classes that a form may use.
    QSet<QString> knownClasses() const;

    // The content of a form file; throws Failure where it cannot be read.
    static QByteArray readForm(const QString& path);

    // Builds the form `text`, which stands in the file `path` or is to stand there. Throws Failure, with a line for
    // each fault, when it is no form that can be built.
    LoadedForm loadForm(const QString& path, const QByteArray& text);

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override;

private:
    QHash<QString, QDesignerCustomWidgetInterface*> m_collection;
};

#endif
